#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "engine/math/Vec3.h"

namespace engine::commands {

/// Where a transformed draw stands: moved by `translation`, turned by `rotation` (degrees about
/// X, then Y, then Z as seen from the object), sized by `scale`. Scenes move objects by writing
/// into these vectors.
class AffineTranformation {
public:
    /// Offset in world units.
    math::Vec3 translation;
    /// Angles in degrees about the X, Y and Z axes.
    math::Vec3 rotation;
    /// Factors along X, Y and Z.
    math::Vec3 scale;

    /// The identity placement: no translation, no rotation, scale 1.
    AffineTranformation() : translation(0.0f, 0.0f, 0.0f), rotation(0.0f, 0.0f, 0.0f), scale(1.0f, 1.0f, 1.0f) {}
    /// A placement of the three vectors.
    AffineTranformation(const math::Vec3& translation, const math::Vec3& rotation, const math::Vec3& scale)
        : translation(translation), rotation(rotation), scale(scale) {}

    /// Equal when all three vectors are equal.
    bool operator==(const AffineTranformation&) const = default;
    /// Hash over the three vectors, consistent with equality.
    std::size_t hash() const;
    /// "AffineTranformation(translation=Vec3(...), rotation=Vec3(...), scale=Vec3(...))".
    std::string toString() const;
};

} // namespace engine::commands

template <> struct std::hash<engine::commands::AffineTranformation> {
    std::size_t operator()(const engine::commands::AffineTranformation& value) const { return value.hash(); }
};
