#pragma once

#include <vector>

#include "scenes/nivalis/AnimatedObjectInfo.h"

namespace scenes::nivalis {

/// Where the penguins stand, built once on first use. Both groups only turn about Z.
class Penguins {
public:
    /// Nine penguins of the first idle loop.
    std::vector<AnimatedObjectInfo> IDLE;
    /// Six penguins of the second idle loop.
    std::vector<AnimatedObjectInfo> IDLE2;

    /// The one instance.
    static const Penguins& shared();

private:
    Penguins();
};

} // namespace scenes::nivalis
