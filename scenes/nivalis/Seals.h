#pragma once

#include <vector>

#include "scenes/nivalis/AnimatedObjectInfo.h"
#include "scenes/nivalis/SplineAnimatedObjectInfo.h"

namespace scenes::nivalis {

/// The seals, built once on first use: eight that lie and three that walk closed loops.
class Seals {
public:
    /// Eight idle seals.
    std::vector<AnimatedObjectInfo> IDLE;
    /// Three walking seals. Each path is a loop of eight points stored with its first four
    /// repeated at the end (twelve knots per axis, ends prepared), at the constant height 204.81567.
    std::vector<SplineAnimatedObjectInfo> WALKING;

    /// The one instance.
    static const Seals& shared();

private:
    Seals();
};

} // namespace scenes::nivalis
