#include "engine/DepthMode.h"

#include "engine/common/Hash.h"

namespace engine {

std::size_t DepthMode::hash() const {
    std::size_t seed = 0;
    common::hashCombine(seed, depthTest);
    common::hashCombine(seed, depthWrite);
    return seed;
}

std::string DepthMode::toString() const {
    return std::string("DepthMode(depthTest=") + (depthTest ? "true" : "false") +
           ", depthWrite=" + (depthWrite ? "true" : "false") + ")";
}

} // namespace engine
