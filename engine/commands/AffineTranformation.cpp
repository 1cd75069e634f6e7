#include "engine/commands/AffineTranformation.h"

#include "engine/common/Hash.h"

namespace engine::commands {

std::size_t AffineTranformation::hash() const {
    std::size_t seed = 0;
    common::hashCombine(seed, translation);
    common::hashCombine(seed, rotation);
    common::hashCombine(seed, scale);
    return seed;
}

std::string AffineTranformation::toString() const {
    return "AffineTranformation(translation=" + translation.toString() + ", rotation=" + rotation.toString() +
           ", scale=" + scale.toString() + ")";
}

} // namespace engine::commands
