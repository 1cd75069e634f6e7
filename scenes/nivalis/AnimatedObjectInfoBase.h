#pragma once

namespace scenes::nivalis {

/// What every animated animal has: a uniform scale and a phase offset on its animation timer.
class AnimatedObjectInfoBase {
public:
    /// Uniform scale on all three axes.
    float scale = 1.0f;
    /// Added to the animation timer, in periods, so that a herd does not move in step.
    float animTimerOffset = 0.0f;

    AnimatedObjectInfoBase() = default;
    /// A record of the scale and the offset.
    AnimatedObjectInfoBase(float scale, float animTimerOffset) : scale(scale), animTimerOffset(animTimerOffset) {}
};

} // namespace scenes::nivalis
