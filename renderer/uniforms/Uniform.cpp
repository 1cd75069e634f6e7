#include "renderer/uniforms/Uniform.h"

#include "engine/common/Hash.h"

namespace renderer::uniforms {

std::size_t Uniform::hash() const {
    std::size_t seed = 0;
    engine::common::hashCombine(seed, static_cast<int>(type));
    engine::common::hashCombine(seed, static_cast<int>(dataType));
    engine::common::hashCombine(seed, index);
    return seed;
}

std::string Uniform::toString() const {
    return "Uniform(type=" + std::string(uniforms::toString(type)) +
           ", dataType=" + std::string(uniforms::toString(dataType)) + ", index=" + std::to_string(index) + ")";
}

} // namespace renderer::uniforms
