#include "engine/camera/CameraPathAnimator.h"

#include "engine/math/MathUtils.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace engine::camera {

CameraPathAnimator::CameraPathAnimator(float speed, float minDuration, float transitionDuration, bool isSmooth)
    : positionInterpolator(isSmooth), speed(speed), minDuration(minDuration), transitionDuration(transitionDuration),
      transitionPair(std::make_shared<CameraPositionPair>()) {
    positionInterpolator.speed = speed;
    positionInterpolator.minDuration = minDuration * minDurationCoefficient;
}

void CameraPathAnimator::setCameras(std::vector<std::shared_ptr<CameraPositionPair>> value, bool randomizeCamera) {
    cameras = std::move(value);
    currentCamera = 0;
    updateCurrentCamera();
    if (randomizeCamera) {
        randomCamera();
    }
}

void CameraPathAnimator::setMinDurationCoefficient(float value) {
    minDurationCoefficient = value;
    updateCurrentCamera();
}

void CameraPathAnimator::updateCurrentCamera() {
    positionInterpolator.minDuration = minDuration * minDurationCoefficient;
    positionInterpolator.setPosition(currentCameraPair());
    positionInterpolator.lastTime = 0.0;
    positionInterpolator.setTimer(0.0);
}

const std::shared_ptr<CameraPositionPair>& CameraPathAnimator::currentCameraPair() const {
    if (currentCamera < 0 || static_cast<std::size_t>(currentCamera) >= cameras.size()) {
        throw std::out_of_range("Camera " + std::to_string(currentCamera) + " out of range for " +
                                std::to_string(cameras.size()) + " cameras");
    }
    return cameras[static_cast<std::size_t>(currentCamera)];
}

void CameraPathAnimator::setCameraState(CameraState newState) {
    if (state == CameraState::ANIMATING && newState == CameraState::TRANSITIONING) {
        if (cameras.empty()) {
            throw std::domain_error("No cameras to transition to");
        }
        currentCamera = static_cast<int>((static_cast<long long>(currentCamera) + 1) %
                                        static_cast<long long>(cameras.size()));
        const CameraPositionPair& next = *currentCameraPair();
        positionInterpolator.minDuration = transitionDuration;

        // The flight goes from the pose the camera has now to the middle of the next path.
        CameraPosition& from = transitionPair->start;
        from.position = positionInterpolator.cameraPosition;
        from.rotation = positionInterpolator.cameraRotation;
        CameraPosition& to = transitionPair->end;
        auto middle = [](const engine::math::Vec3& a, const engine::math::Vec3& b) {
            return engine::math::Vec3((b.x - a.x) * 0.5f + a.x, (b.y - a.y) * 0.5f + a.y, (b.z - a.z) * 0.5f + a.z);
        };
        to.position = middle(next.start.position, next.end.position);
        to.rotation = middle(next.start.rotation, next.end.rotation);
        transitionPair->speedMultiplier = 1.0f;
        positionInterpolator.setPosition(transitionPair);

        savedReverse = positionInterpolator.reverse;
        positionInterpolator.reverse = false;
        positionInterpolator.lastTime = 0.0;
        positionInterpolator.setTimer(0.0);
    } else if (state == CameraState::TRANSITIONING && newState == CameraState::ANIMATING) {
        // Enter the new path at its middle, which is where the flight ended, whatever the easing.
        updateCurrentCamera();
        positionInterpolator.reverse = savedReverse;
        positionInterpolator.setTimer(0.5);
    }
    state = newState;
}

void CameraPathAnimator::animate(double timeNow) {
    if (lastTime == 0.0) {
        lastTime = timeNow;
        return;
    }
    positionInterpolator.iterate(timeNow);
    if (positionInterpolator.timer == 1.0f) {
        if (state == CameraState::ANIMATING) {
            // Turn back along the same path; its first frame back lets no time pass.
            positionInterpolator.reverse = !positionInterpolator.reverse;
            positionInterpolator.lastTime = 0.0;
            positionInterpolator.setTimer(0.0);
        } else {
            setCameraState(CameraState::ANIMATING);
        }
    }
    lastTime = timeNow;
}

void CameraPathAnimator::nextCamera() {
    if (enabled) {
        setCameraState(CameraState::TRANSITIONING);
    }
}

void CameraPathAnimator::randomCamera() {
    currentCamera = engine::math::MathUtils::nextRandomLength(static_cast<int>(cameras.size()), currentCamera);
    updateCurrentCamera();
}

void CameraPathAnimator::changeDirection(float impulse) {
    if (state == CameraState::TRANSITIONING) {
        return;
    }
    const bool wanted = impulse >= 0.0f;
    if (positionInterpolator.reverse == wanted) {
        return;
    }
    positionInterpolator.reverse = wanted;
    // Mirror the progress so that the camera stays where it is: 1 - smoothstep(t) is
    // smoothstep(1 - t).
    positionInterpolator.setTimer(static_cast<double>(1.0f - positionInterpolator.timer));
}

} // namespace engine::camera
