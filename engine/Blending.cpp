#include "engine/Blending.h"

#include "engine/common/Hash.h"

namespace engine {

std::size_t Blending::hash() const {
    std::size_t seed = 0;
    common::hashCombine(seed, equationAlpha);
    common::hashCombine(seed, equationColor);
    common::hashCombine(seed, sourceFactorAlpha);
    common::hashCombine(seed, destinationFactorAlpha);
    common::hashCombine(seed, sourceFactorColor);
    common::hashCombine(seed, destinationFactorColor);
    common::hashCombine(seed, enabled);
    common::hashCombine(seed, isSeparateAlpha);
    return seed;
}

std::string Blending::toString() const {
    std::string text = "Blending(equationAlpha=";
    text += engine::toString(equationAlpha);
    text += ", equationColor=";
    text += engine::toString(equationColor);
    text += ", sourceFactorAlpha=";
    text += engine::toString(sourceFactorAlpha);
    text += ", destinationFactorAlpha=";
    text += engine::toString(destinationFactorAlpha);
    text += ", sourceFactorColor=";
    text += engine::toString(sourceFactorColor);
    text += ", destinationFactorColor=";
    text += engine::toString(destinationFactorColor);
    text += ", enabled=";
    text += enabled ? "true" : "false";
    text += ", isSeparateAlpha=";
    text += isSeparateAlpha ? "true" : "false";
    text += ")";
    return text;
}

} // namespace engine
