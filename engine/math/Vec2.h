#pragma once

#include <cstddef>
#include <string>

namespace engine::math {

/// A mutable pair of floats; `r` and `g` name the same storage as `x` and `y` for colours.
class Vec2 {
public:
    float x = 0.0f;
    float y = 0.0f;

    /// Creates the vector (_x, _y).
    constexpr Vec2(float _x = 0.0f, float _y = 0.0f) : x(_x), y(_y) {}

    /// Colour alias of `x`.
    float& r() { return x; }
    float r() const { return x; }
    /// Colour alias of `y`.
    float& g() { return y; }
    float g() const { return y; }

    /// Structural equality of both components.
    bool operator==(const Vec2&) const = default;
    /// Hash over both components, consistent with equality.
    std::size_t hash() const;
    /// "Vec2(_x=1.0, _y=2.0)".
    std::string toString() const;
};

} // namespace engine::math

template <> struct std::hash<engine::math::Vec2> {
    std::size_t operator()(const engine::math::Vec2& v) const { return v.hash(); }
};
