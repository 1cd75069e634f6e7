#pragma once

#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::nivalis {

/// A small polar supply ship, bow towards +X, the water line at z = 0: a dark hull with a red
/// boot top, a white deckhouse with a bridge, an orange funnel and two masts. About 300 units
/// long; the scene scales it by 1.1 to 1.7.
class ShipModel {
public:
    /// Length from stern to bow.
    static constexpr double LENGTH = 300.0;
    /// Width of the hull.
    static constexpr double BEAM = 48.0;

    ShipModel() = delete;

    /// The ship, flat-shaded, with palette coordinates in U0.
    static mesh::MeshData build();
};

} // namespace tools::assetgen::nivalis
