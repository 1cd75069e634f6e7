#include "engine/camera/CameraPositionInterpolator.h"

#include "engine/IllegalStateError.h"
#include "engine/math/MathUtils.h"
#include "engine/math/Matrix.h"

#include <cmath>
#include <limits>
#include <utility>

namespace engine::camera {

using engine::math::Matrix;

namespace {
constexpr float kHalfPi = 1.5707964f;
constexpr float kDegreesPerRadian = 57.2958f;
} // namespace

CameraPositionInterpolator::CameraPositionInterpolator(bool isSmooth) : isSmooth(isSmooth) {}

void CameraPositionInterpolator::setPosition(std::shared_ptr<CameraPositionPair> value) {
    position = std::move(value);
    const engine::math::Vec3& a = position->start.position;
    const engine::math::Vec3& b = position->end.position;
    const float length = Matrix::length(b.x - a.x, b.y - a.y, b.z - a.z);
    const float byLength = length / speed;
    if (std::isnan(byLength) || std::isnan(minDuration)) {
        duration_ = std::numeric_limits<float>::quiet_NaN();
    } else {
        duration_ = byLength > minDuration ? byLength : minDuration;
    }
}

void CameraPositionInterpolator::setTimer(double value) {
    timerPrecise_ = value;
    timer = static_cast<float>(value);
    reset();
}

void CameraPositionInterpolator::iterate(double timeNow) {
    if (!position) {
        throw engine::IllegalStateError("position is not set");
    }
    if (lastTime == 0.0) {
        // A (re)started path lets no time pass on its first frame.
        timer = static_cast<float>(timerPrecise_);
        lastTime = timeNow;
        reset();
        return;
    }
    timerPrecise_ += (timeNow - lastTime) / static_cast<double>(duration_);
    if (timerPrecise_ > 1.0) {
        timerPrecise_ = 1.0;
    }
    timer = static_cast<float>(timerPrecise_);
    lastTime = timeNow;
    reset();
}

void CameraPositionInterpolator::reset() {
    if (!position) {
        throw engine::IllegalStateError("position is not set");
    }
    float t = timer;
    if (isSmooth) {
        const float c = engine::math::MathUtils::clamp(timer, 0.0f, 1.0f);
        t = c * c * (3.0f - (c + c));
    }
    const CameraPosition& from = reverse ? position->end : position->start;
    const CameraPosition& to = reverse ? position->start : position->end;

    cameraPosition.x = from.position.x + t * (to.position.x - from.position.x);
    cameraPosition.y = from.position.y + t * (to.position.y - from.position.y);
    cameraPosition.z = from.position.z + t * (to.position.z - from.position.z);
    cameraRotation.x = from.rotation.x + t * (to.rotation.x - from.rotation.x);
    cameraRotation.y = from.rotation.y + t * (to.rotation.y - from.rotation.y);
    cameraRotation.z = from.rotation.z + t * (to.rotation.z - from.rotation.z);

    Matrix::setIdentityM(matrix, 0);
    Matrix::rotateM(matrix, 0, (cameraRotation.x - kHalfPi) * kDegreesPerRadian, 1.0f, 0.0f, 0.0f);
    Matrix::rotateM(matrix, 0, cameraRotation.y * kDegreesPerRadian, 0.0f, 0.0f, 1.0f);
    Matrix::rotateM(matrix, 0, cameraRotation.z * kDegreesPerRadian, 0.0f, 1.0f, 0.0f);
    Matrix::translateM(matrix, 0, -cameraPosition.x, -cameraPosition.y, -cameraPosition.z);
}

} // namespace engine::camera
