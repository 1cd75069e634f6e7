#pragma once

#include "engine/math/Vec3.h"

#include <cstddef>
#include <functional>
#include <string>

namespace engine::camera {

/// One camera pose. In the scenes `rotation` holds the point the camera looks at; the
/// interpolator's Euler matrix reads it as three angles in radians instead. Either way it is
/// interpolated component by component.
class CameraPosition {
public:
    /// Eye position.
    engine::math::Vec3 position;
    /// Look-at target (or Euler angles in radians for the interpolator's own matrix).
    engine::math::Vec3 rotation;

    CameraPosition() = default;
    /// Creates the pose (position, rotation).
    CameraPosition(const engine::math::Vec3& position, const engine::math::Vec3& rotation)
        : position(position), rotation(rotation) {}

    /// Structural equality of both vectors.
    bool operator==(const CameraPosition&) const = default;
    /// Hash over both vectors, consistent with equality.
    std::size_t hash() const;
    /// "CameraPosition(position=Vec3(...), rotation=Vec3(...))".
    std::string toString() const;
};

} // namespace engine::camera

template <> struct std::hash<engine::camera::CameraPosition> {
    std::size_t operator()(const engine::camera::CameraPosition& v) const { return v.hash(); }
};
