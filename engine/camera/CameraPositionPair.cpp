#include "engine/camera/CameraPositionPair.h"

#include "engine/common/Hash.h"
#include "engine/common/TextForm.h"

namespace engine::camera {

std::size_t CameraPositionPair::hash() const {
    std::size_t seed = 0;
    engine::common::hashCombine(seed, start);
    engine::common::hashCombine(seed, end);
    engine::common::hashCombine(seed, speedMultiplier);
    return seed;
}

std::string CameraPositionPair::toString() const {
    return "CameraPositionPair(start=" + start.toString() + ", end=" + end.toString() +
           ", speedMultiplier=" + engine::common::TextForm::number(speedMultiplier) + ")";
}

} // namespace engine::camera
