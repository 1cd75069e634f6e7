#pragma once

#include <memory>
#include <utility>

#include "engine/camera/Spline3D.h"

namespace scenes::nivalis {

/// One ship: its closed course on the sea plane and its size.
class ShipConfig {
public:
    /// The course, built with prepared ends from knots that repeat the first four points at the end.
    std::shared_ptr<engine::camera::Spline3D> spline;
    /// Uniform scale of the model.
    float scale = 1.0f;
    /// Stored and never read: all ships share the one Ships timer.
    float animTimerOffset = 0.0f;

    ShipConfig() = default;
    /// A record of the three fields.
    ShipConfig(std::shared_ptr<engine::camera::Spline3D> spline, float scale, float animTimerOffset)
        : spline(std::move(spline)), scale(scale), animTimerOffset(animTimerOffset) {}
};

} // namespace scenes::nivalis
