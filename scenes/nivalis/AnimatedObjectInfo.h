#pragma once

#include "engine/math/Vec3.h"
#include "scenes/nivalis/AnimatedObjectInfoBase.h"

namespace scenes::nivalis {

/// An animal that stays where it stands and only plays its animation.
class AnimatedObjectInfo : public AnimatedObjectInfoBase {
public:
    /// Where it stands.
    engine::math::Vec3 position;
    /// Its turn in degrees about X, Y and Z.
    engine::math::Vec3 rotation;

    AnimatedObjectInfo() = default;
    /// A record of all four fields.
    AnimatedObjectInfo(float scale, float animTimerOffset, const engine::math::Vec3& position,
                       const engine::math::Vec3& rotation)
        : AnimatedObjectInfoBase(scale, animTimerOffset), position(position), rotation(rotation) {}
};

} // namespace scenes::nivalis
