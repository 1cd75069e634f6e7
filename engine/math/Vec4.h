#pragma once

#include <cstddef>
#include <string>

namespace engine::math {

/// A mutable quadruple of floats; colours read it as r, g, b, a on the storage of x, y, z, w.
class Vec4 {
public:
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
    float w = 0.0f;

    /// Creates the vector (_x, _y, _z, _w).
    constexpr Vec4(float _x = 0.0f, float _y = 0.0f, float _z = 0.0f, float _w = 0.0f)
        : x(_x), y(_y), z(_z), w(_w) {}

    /// Colour alias of `x`.
    float& r() { return x; }
    float r() const { return x; }
    /// Colour alias of `y`.
    float& g() { return y; }
    float g() const { return y; }
    /// Colour alias of `z`.
    float& b() { return z; }
    float b() const { return z; }
    /// Colour alias of `w`.
    float& a() { return w; }
    float a() const { return w; }

    /// Structural equality of all components.
    bool operator==(const Vec4&) const = default;
    /// Hash over all components, consistent with equality.
    std::size_t hash() const;
    /// "Vec4(_x=1.0, _y=2.0, _z=3.0, _w=4.0)".
    std::string toString() const;
};

} // namespace engine::math

template <> struct std::hash<engine::math::Vec4> {
    std::size_t operator()(const engine::math::Vec4& v) const { return v.hash(); }
};
