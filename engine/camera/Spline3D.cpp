#include "engine/camera/Spline3D.h"

#include <cmath>
#include <utility>

namespace engine::camera {

namespace {
constexpr double kPi = 3.141592653589793;
constexpr double kLookAhead = 0.0001;
} // namespace

Spline3D::Spline3D(std::vector<double> x, std::vector<double> y, std::vector<double> z)
    : Spline3D(true, std::move(x), std::move(y), std::move(z)) {}

Spline3D::Spline3D(bool bPrepareEnds, std::vector<double> x, std::vector<double> y, std::vector<double> z)
    : splineX(std::move(x), bPrepareEnds), splineY(std::move(y), bPrepareEnds), splineZ(std::move(z), bPrepareEnds) {}

const engine::math::Vec3& Spline3D::getCurrentPoint(double m) {
    position.x = static_cast<float>(splineX.getCurrentPoint(m));
    position.y = static_cast<float>(splineY.getCurrentPoint(m));
    position.z = static_cast<float>(splineZ.getCurrentPoint(m));
    return position;
}

const engine::math::Vec3& Spline3D::getRotation(double a) {
    getCurrentPoint(a);
    double b = a + kLookAhead;
    if (b > 1.0) {
        b -= 1.0; // wraps onto the start of a closed path
    }
    const double nx = splineX.getCurrentPoint(b);
    const double ny = splineY.getCurrentPoint(b);
    const double nz = splineZ.getCurrentPoint(b);
    rotation.x = static_cast<float>(std::atan2(position.z - nz, position.y - ny) * 180.0 / kPi);
    rotation.y = static_cast<float>(std::atan2(position.z - nz, position.x - nx) * 180.0 / kPi);
    rotation.z = static_cast<float>(std::atan2(position.x - nx, position.y - ny) * 180.0 / kPi);
    return rotation;
}

const engine::math::Vec3& Spline3D::getRotationLegacy(double a) {
    getCurrentPoint(a);
    double b = a + kLookAhead;
    if (b > 1.0) {
        b = 1.0 - b; // slightly negative: the clamp makes it the start of the path
    }
    const double nx = splineX.getCurrentPoint(b);
    const double ny = splineY.getCurrentPoint(b);
    const double nz = splineZ.getCurrentPoint(b);
    rotation.x = static_cast<float>(std::atan2(position.z - nz, position.y - ny) * 180.0 / kPi);
    rotation.y = static_cast<float>(std::atan2(position.z - nz, position.x - nx) * 180.0 / kPi);
    rotation.z = static_cast<float>(std::atan2(position.y - ny, position.x - nx) * 180.0 / kPi);
    return rotation;
}

} // namespace engine::camera
