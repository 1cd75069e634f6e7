#pragma once

#include <memory>

#include "engine/camera/CameraPositionPair.h"
#include "engine/math/Vec3.h"

namespace scenes::common {

/// One camera path of a scene's list: from the eye `startEye` looking at `startTarget` to the eye
/// `endEye` looking at `endTarget`, flown at the normal speed. Lets the camera tables read as
/// rows of four points.
std::shared_ptr<engine::camera::CameraPositionPair> path(const engine::math::Vec3& startEye,
                                                         const engine::math::Vec3& startTarget,
                                                         const engine::math::Vec3& endEye,
                                                         const engine::math::Vec3& endTarget);

} // namespace scenes::common
