#include "scenes/common/CameraPath.h"

namespace scenes::common {

using engine::camera::CameraPosition;
using engine::camera::CameraPositionPair;

std::shared_ptr<CameraPositionPair> path(const engine::math::Vec3& startEye,
                                         const engine::math::Vec3& startTarget,
                                         const engine::math::Vec3& endEye,
                                         const engine::math::Vec3& endTarget) {
    return std::make_shared<CameraPositionPair>(CameraPosition(startEye, startTarget),
                                                CameraPosition(endEye, endTarget), 1.0f);
}

} // namespace scenes::common
