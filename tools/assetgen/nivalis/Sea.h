#pragma once

#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::nivalis {

/// The sea: a disc on z = 0 around the centre of the world, reaching out to the distant ranges.
/// Its texture coordinates tile the caustic pattern: one unit of UV is `UV_UNIT` world units.
class Sea {
public:
    /// World units per unit of texture coordinate.
    static constexpr double UV_UNIT = 6000.0;

    Sea() = delete;

    /// The disc, in rings that widen away from the centre.
    static mesh::MeshData mesh();
};

} // namespace tools::assetgen::nivalis
