#pragma once

#include <cmath>

namespace tools::assetgen::core {

/// A point or direction in double precision, for building geometry. Plain arithmetic only.
struct Vec3d {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    Vec3d operator+(const Vec3d& o) const { return {x + o.x, y + o.y, z + o.z}; }
    Vec3d operator-(const Vec3d& o) const { return {x - o.x, y - o.y, z - o.z}; }
    Vec3d operator*(double s) const { return {x * s, y * s, z * s}; }
    Vec3d operator/(double s) const { return {x / s, y / s, z / s}; }
    Vec3d operator-() const { return {-x, -y, -z}; }
    Vec3d& operator+=(const Vec3d& o) {
        x += o.x;
        y += o.y;
        z += o.z;
        return *this;
    }
    bool operator==(const Vec3d&) const = default;

    double dot(const Vec3d& o) const { return x * o.x + y * o.y + z * o.z; }
    Vec3d cross(const Vec3d& o) const { return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x}; }
    double length() const { return std::sqrt(dot(*this)); }
    /// This direction with length 1; the zero vector stays zero.
    Vec3d normalized() const {
        const double l = length();
        return l > 0.0 ? *this / l : *this;
    }
    /// Turned by `degrees` about the Z axis (counter-clockwise seen from above).
    Vec3d rotatedZ(double degrees) const {
        const double a = degrees * 3.14159265358979323846 / 180.0;
        return {x * std::cos(a) - y * std::sin(a), x * std::sin(a) + y * std::cos(a), z};
    }
    /// Turned by `degrees` about the X axis.
    Vec3d rotatedX(double degrees) const {
        const double a = degrees * 3.14159265358979323846 / 180.0;
        return {x, y * std::cos(a) - z * std::sin(a), y * std::sin(a) + z * std::cos(a)};
    }
    /// Turned by `degrees` about the Y axis.
    Vec3d rotatedY(double degrees) const {
        const double a = degrees * 3.14159265358979323846 / 180.0;
        return {x * std::cos(a) + z * std::sin(a), y, -x * std::sin(a) + z * std::cos(a)};
    }
};

} // namespace tools::assetgen::core
