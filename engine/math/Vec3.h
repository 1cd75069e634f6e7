#pragma once

#include <cstddef>
#include <string>

namespace engine::math {

/// A mutable triple of floats; `r`, `g`, `b` name the same storage as `x`, `y`, `z` for colours.
class Vec3 {
public:
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;

    /// Creates the vector (_x, _y, _z).
    constexpr Vec3(float _x = 0.0f, float _y = 0.0f, float _z = 0.0f) : x(_x), y(_y), z(_z) {}

    /// Colour alias of `x`.
    float& r() { return x; }
    float r() const { return x; }
    /// Colour alias of `y`.
    float& g() { return y; }
    float g() const { return y; }
    /// Colour alias of `z`.
    float& b() { return z; }
    float b() const { return z; }

    /// Structural equality of all components.
    bool operator==(const Vec3&) const = default;
    /// Hash over all components, consistent with equality.
    std::size_t hash() const;
    /// "Vec3(_x=1.0, _y=2.0, _z=3.0)".
    std::string toString() const;
};

} // namespace engine::math

template <> struct std::hash<engine::math::Vec3> {
    std::size_t operator()(const engine::math::Vec3& v) const { return v.hash(); }
};
