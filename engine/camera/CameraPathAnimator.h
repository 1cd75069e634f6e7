#pragma once

#include "engine/camera/CameraPositionInterpolator.h"
#include "engine/camera/CameraPositionPair.h"
#include "engine/camera/CameraState.h"

#include <memory>
#include <vector>

namespace engine::camera {

/// Rides the camera along a list of straight paths: from start to end, then back from end to
/// start, for ever. Asked for another camera it does not cut but flies, in about
/// `transitionDuration`, from wherever it is to the midpoint of the next path and goes on from
/// there in the direction it had, so a change of camera never shows a jump.
///
/// `animate` is called once a frame with the frame clock in milliseconds; the other operations
/// are called between frames on the same thread.
class CameraPathAnimator {
public:
    /// Moves the camera along the present path (or the transition flight).
    CameraPositionInterpolator positionInterpolator;
    /// Riding a path or flying to the next.
    CameraState state = CameraState::ANIMATING;
    /// The paths; replaced by setCameras, or directly by a scene that then calls
    /// updateCurrentCamera.
    std::vector<std::shared_ptr<CameraPositionPair>> cameras;
    /// Time of the last animate, in milliseconds; 0.0 until the first.
    double lastTime = 0.0;
    /// Distance per millisecond, given to the interpolator at construction.
    float speed;
    /// Shortest path time in milliseconds, before the coefficient.
    float minDuration;
    /// Shortest time of the flight to the next path, in milliseconds.
    float transitionDuration;
    /// Index of the present path in `cameras`.
    int currentCamera = 0;
    /// The user's speed setting: multiplies `minDuration`.
    float minDurationCoefficient = 1.0f;
    /// Gate of nextCamera.
    bool enabled = true;

    /// Creates an animator without paths.
    CameraPathAnimator(float speed, float minDuration, float transitionDuration, bool isSmooth);

    /// Replaces the paths and starts the first one from its beginning; with `randomizeCamera`
    /// it then cuts to a random other path.
    void setCameras(std::vector<std::shared_ptr<CameraPositionPair>> value, bool randomizeCamera);

    /// Stores the coefficient and restarts the present path from its beginning.
    void setMinDurationCoefficient(float value);

    /// Stores `speed`; the interpolator keeps the speed it was built with.
    void setSpeed(float value) { speed = value; }
    /// Stores `minDuration`; it takes effect with the next restart of a path.
    void setMinDuration(float value) { minDuration = value; }
    /// Stores `transitionDuration`; it takes effect with the next transition.
    void setTransitionDuration(float value) { transitionDuration = value; }

    /// Moves to `newState`: ANIMATING -> TRANSITIONING starts the flight to the middle of the
    /// next path, TRANSITIONING -> ANIMATING places the camera at that middle and goes on in
    /// the saved direction; anything else only stores the state.
    void setCameraState(CameraState newState);

    /// The frame step: advances the interpolator; at the end of a path turns back along it,
    /// at the end of a flight goes on along the new path. The first call only records the time.
    void animate(double timeNow);

    /// When enabled, starts the flight to the next path; during a flight it changes nothing.
    /// Throws std::domain_error when there are no paths.
    void nextCamera();

    /// An immediate cut to a random other path, started from its beginning; ignores `enabled`.
    void randomCamera();

    /// Travel backwards for an `impulse` of 0 or more, forwards for a negative one, without
    /// moving the camera; ignored during a flight.
    void changeDirection(float impulse);

    /// Allows nextCamera.
    void enable() { enabled = true; }
    /// Makes nextCamera do nothing.
    void disable() { enabled = false; }

    /// The present path; throws std::out_of_range when `currentCamera` is outside `cameras`.
    const std::shared_ptr<CameraPositionPair>& currentCameraPair() const;

    /// Progress along the present path (or flight), as scenes read it.
    float timer() const { return positionInterpolator.timer; }

    /// Restarts the path `currentCamera` from its beginning, with `minDuration` times the
    /// coefficient as its shortest time. Throws std::out_of_range when `currentCamera` is
    /// outside `cameras`.
    void updateCurrentCamera();

private:
    bool savedReverse = false;
    /// The flight's path, written in place at each transition so that a transition allocates nothing.
    std::shared_ptr<CameraPositionPair> transitionPair;
};

} // namespace engine::camera
