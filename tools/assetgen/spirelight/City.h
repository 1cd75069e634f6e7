#pragma once

#include <vector>

#include "tools/assetgen/core/Vec3d.h"
#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::spirelight {

/// The night city's geometry, in model units (the scene draws everything at a scale of 100):
/// towers on a quay in the middle of the sea, their neon signs and red roof lamps, the islands
/// around, a far skyline in the haze, the sea and the sky dome with its stars. One seeded layout
/// is made once and every model is cut from it, so lamps sit on their roofs and signs on their
/// walls. The camera paths circle the city at 4.4 units and more; it stays within 3.4.
class City {
public:
    /// One box of a tower: centre of its foot, half sizes, height of its foot and top, the column
    /// band of the facade texture it wears.
    struct Tier {
        core::Vec3d centre;
        double halfX = 0.0;
        double halfY = 0.0;
        double bottom = 0.0;
        double top = 0.0;
        int style = 0;
    };

    /// Columns and floors of the facade textures, and their size in model units.
    static constexpr int COLUMNS = 128;
    static constexpr int FLOORS = 32;
    static constexpr double WINDOW_WIDTH = 0.018;
    static constexpr double FLOOR_HEIGHT = 0.032;
    /// Facade styles: 32 columns each; the last band is plain roof.
    static constexpr int STYLES = 3;
    static constexpr int STYLE_COLUMNS = 32;

    /// The layout of the one city.
    static const City& shared();

    /// "building-1": every tier, flat-shaded, windows by UV.
    mesh::MeshData buildings() const;
    /// "red-lamps": a small block on each marked roof.
    mesh::MeshData redLamps() const;
    /// "red-lights": one point a little above each lamp, for the bloom's sprites.
    mesh::MeshData redLights() const;
    /// "neon-signs": quads just off the walls, UVs into a 4 x 2 atlas of signs.
    mesh::MeshData neonSigns() const;
    /// "buildings-distant": half a ring of far towers (the scene draws it twice, turned).
    mesh::MeshData distant() const;
    /// "islands": the quay under the city and low islands around.
    mesh::MeshData islands() const;
    /// "water": the sea, a disc out to the haze.
    mesh::MeshData water() const;
    /// "sky": the dome, its UV v running from the zenith (0) to below the horizon (1).
    mesh::MeshData sky() const;
    /// "stars": small triangles facing the middle, drawn at a scale of 0.055.
    mesh::MeshData stars() const;

    std::vector<Tier> tiers;
    /// Roof tops that carry a red lamp.
    std::vector<core::Vec3d> lamps;

private:
    City();
};

} // namespace tools::assetgen::spirelight
