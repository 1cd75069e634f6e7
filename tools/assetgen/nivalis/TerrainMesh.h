#pragma once

#include "tools/assetgen/mesh/MeshData.h"
#include "tools/assetgen/nivalis/Terrain.h"

namespace tools::assetgen::nivalis {

/// The near islands as one faceted mesh: points spread over each island (closer together where
/// animals stand), the edges of every level patch and walk added as points of their own, the
/// whole triangulated and sampled from the Terrain. Each face gets one palette coordinate for its
/// material (ice shelf, ice cliff, snow, rock, wet shore) and its light, and corners are shared
/// only between faces of the same colour.
class TerrainMesh {
public:
    /// The most vertices the mesh may have (16-bit indices, with room to spare).
    static constexpr std::size_t VERTEX_BUDGET = 62000;

    TerrainMesh() = delete;

    /// The mesh of all islands of `terrain`'s geography.
    static mesh::MeshData build(const Terrain& terrain, const Geography& geography);
};

} // namespace tools::assetgen::nivalis
