#include "engine/camera/CameraPosition.h"

#include "engine/common/Hash.h"

namespace engine::camera {

std::size_t CameraPosition::hash() const {
    std::size_t seed = 0;
    engine::common::hashCombine(seed, position);
    engine::common::hashCombine(seed, rotation);
    return seed;
}

std::string CameraPosition::toString() const {
    return "CameraPosition(position=" + position.toString() + ", rotation=" + rotation.toString() + ")";
}

} // namespace engine::camera
