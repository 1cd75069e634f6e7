#pragma once

#include "engine/camera/CameraPositionPair.h"
#include "engine/math/Vec3.h"

#include <array>
#include <memory>

namespace engine::camera {

/// Moves the camera along one path. Progress runs from 0 to 1 over `duration` milliseconds,
/// the longer of the path's length divided by `speed` and `minDuration`; with `isSmooth` it
/// eases in and out. The pose is recomputed in place into `cameraPosition`, `cameraRotation`
/// and `matrix` whenever the progress changes.
class CameraPositionInterpolator {
public:
    /// The current path; absent until setPosition.
    std::shared_ptr<CameraPositionPair> position;
    /// Time of the last iterate, in milliseconds; 0.0 means not started, and the next iterate
    /// then lets no time pass.
    double lastTime = 0.0;
    /// Interpolated eye position.
    engine::math::Vec3 cameraPosition;
    /// Interpolated `rotation` of the poses (the look-at target in the scenes).
    engine::math::Vec3 cameraRotation;
    /// View matrix that reads `cameraRotation` as Euler angles in radians.
    std::array<float, 16> matrix{};
    /// Distance per millisecond.
    float speed = 0.0f;
    /// Floor of the duration of a path, in milliseconds; takes effect with the next setPosition.
    float minDuration = 3000.0f;
    /// Progress along the path from 0 to 1, as a float; the value that scenes read.
    float timer = 0.0f;
    /// Ease in and out of each path.
    bool isSmooth;
    /// Travel from `end` to `start`.
    bool reverse = false;

    /// Creates an interpolator without a path.
    explicit CameraPositionInterpolator(bool isSmooth);

    /// Stores `value` as the path and computes its duration. The progress is left as it is.
    void setPosition(std::shared_ptr<CameraPositionPair> value);

    /// Jumps to the progress `value` and recomputes the pose.
    void setTimer(double value);

    /// Advances the progress by the time since the last call, stopping at 1, and recomputes the
    /// pose. The first call after a restart (lastTime 0.0) only records the time. Throws
    /// engine::IllegalStateError "position is not set" without a path.
    void iterate(double timeNow);

    /// Recomputes `cameraPosition`, `cameraRotation` and `matrix` from `timer` (it resets
    /// nothing). Throws engine::IllegalStateError "position is not set" without a path.
    void reset();

    /// Milliseconds that the present path takes.
    float duration() const { return duration_; }
    /// Progress as accumulated in double precision.
    double timerPrecise() const { return timerPrecise_; }

private:
    double timerPrecise_ = 0.0;
    float duration_ = 0.0f;
};

} // namespace engine::camera
