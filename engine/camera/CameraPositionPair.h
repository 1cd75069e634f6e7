#pragma once

#include "engine/camera/CameraPosition.h"

#include <cstddef>
#include <functional>
#include <string>

namespace engine::camera {

/// One straight camera path, from `start` to `end`. Scenes keep their paths as
/// std::shared_ptr<CameraPositionPair> in a std::vector and hand that list to the animator.
class CameraPositionPair {
public:
    /// Pose at the beginning of the path.
    CameraPosition start;
    /// Pose at the end of the path.
    CameraPosition end;
    /// Kept for the scenes; the camera classes don't read it.
    float speedMultiplier = 1.0f;

    CameraPositionPair() = default;
    /// Creates the path (start, end, speedMultiplier).
    CameraPositionPair(const CameraPosition& start, const CameraPosition& end, float speedMultiplier)
        : start(start), end(end), speedMultiplier(speedMultiplier) {}

    /// Structural equality of all fields.
    bool operator==(const CameraPositionPair&) const = default;
    /// Hash over all fields, consistent with equality.
    std::size_t hash() const;
    /// "CameraPositionPair(start=CameraPosition(...), end=CameraPosition(...), speedMultiplier=1.0)".
    std::string toString() const;
};

} // namespace engine::camera

template <> struct std::hash<engine::camera::CameraPositionPair> {
    std::size_t operator()(const engine::camera::CameraPositionPair& v) const { return v.hash(); }
};
