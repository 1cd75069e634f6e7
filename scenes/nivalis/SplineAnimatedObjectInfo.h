#pragma once

#include <memory>
#include <utility>

#include "engine/camera/Spline3D.h"
#include "scenes/nivalis/AnimatedObjectInfoBase.h"

namespace scenes::nivalis {

/// An animal that walks along a closed path while it plays its animation.
class SplineAnimatedObjectInfo : public AnimatedObjectInfoBase {
public:
    /// The path; an animal without one is left where it last stood.
    std::shared_ptr<engine::camera::Spline3D> spline;

    SplineAnimatedObjectInfo() = default;
    /// A record of all three fields.
    SplineAnimatedObjectInfo(float scale, float animTimerOffset, std::shared_ptr<engine::camera::Spline3D> spline)
        : AnimatedObjectInfoBase(scale, animTimerOffset), spline(std::move(spline)) {}
};

} // namespace scenes::nivalis
