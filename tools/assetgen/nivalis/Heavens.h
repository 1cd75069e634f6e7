#pragma once

#include "tools/assetgen/core/Vec3d.h"
#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::nivalis {

/// What hangs in the sky in front of the dome: the high sun (which the night palette turns into
/// the moon), the large low sun of sunrise and sunset, the stars and the cloud deck.
class Heavens {
public:
    Heavens() = delete;

    /// A disc facing the centre of the world in `direction`, coloured from the palette (UV0):
    /// a bright core of `radius` and a rim around it.
    static mesh::MeshData sunDisc(const core::Vec3d& direction, double distance, double radius);
    /// The high sun.
    static mesh::MeshData highSun();
    /// The low sun, larger, just above the horizon.
    static mesh::MeshData lowSun();
    /// Small octahedra spread over the upper sky, brighter ones larger; positions only.
    static mesh::MeshData stars();
    /// The cloud deck: ragged flat-bottomed patches around the origin (the deck turns about
    /// it), seen from below. U0 is the density: thick in the middle, thinner at the rim.
    static mesh::MeshData clouds();
};

} // namespace tools::assetgen::nivalis
