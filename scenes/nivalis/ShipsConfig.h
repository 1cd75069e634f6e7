#pragma once

#include <array>

#include "scenes/nivalis/ShipConfig.h"

namespace scenes::nivalis {

/// The three ships, built once on first use. Their courses have 32, 31 and 37 knots per axis.
class ShipsConfig {
public:
    /// The ships, in the order of the draws of the ship group.
    std::array<ShipConfig, 3> SHIPS;

    /// The one instance.
    static const ShipsConfig& shared();

private:
    ShipsConfig();
};

} // namespace scenes::nivalis
