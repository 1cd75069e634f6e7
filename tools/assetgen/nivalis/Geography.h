#pragma once

#include <string>
#include <vector>

#include "tools/assetgen/core/Polyline.h"
#include "tools/assetgen/core/Vec3d.h"

namespace tools::assetgen::nivalis {

/// The layout of the polar sea: where the islands lie, how high their ice shelves stand, where
/// the mountains rise, where the sky, the sea and the distant ranges end, where the suns stand.
/// The places that the scene fixes (ship courses, the walks of the seals, where animals stand,
/// the camera paths) are read from the scene's catalogue, and the land is laid out around them.
class Geography {
public:
    /// A mountain: a ridged cone of `height` over `radius` around (x, y).
    struct Peak {
        double x, y, radius, height;
    };
    /// Ground made level on purpose: an ellipse where the shelf stands at `level` (give or take
    /// `roughness`) and no mountain rises; it fades out over `fade` beyond the ellipse.
    struct CalmZone {
        double x, y, radiusX, radiusY, level, roughness, fade;
    };
    /// A bay cut into an island's shelf: open water within `radius` of (x, y), an ice cliff around.
    struct Bay {
        double x, y, radius;
    };
    /// A rock standing out of the shelf, even where the ground is otherwise kept level.
    struct Outcrop {
        double x, y, radius, height;
    };
    /// Surface material of an island's flat shelf.
    enum class Shelf { ICE, SNOW };
    /// One island: a rough outline (counter-clockwise), a shelf with an ice cliff at the coast,
    /// mountains inland.
    struct Island {
        std::string name;
        std::vector<core::Polyline::Point> outline;
        double shelfHeight;
        double cliffWidth;
        double coastNoise;
        Shelf shelf;
        std::vector<Peak> peaks;
        std::vector<CalmZone> calm;
        std::vector<Bay> bays;
        std::vector<Outcrop> outcrops;
        /// Spacing of terrain vertices on this island.
        double spacing;
        unsigned seed;
    };
    /// Ground at an exact height under an animal: an ellipse of semi-axes `along` (in `direction`,
    /// degrees from +X) and `across`, flat inside, blending to the land around over `blend`.
    struct Pad {
        double x, y, height, along, across, direction, blend;
    };
    /// Ground at an exact height along a walk: flat within `halfWidth`, blending over `blend`.
    struct Track {
        core::Polyline path;
        double height, halfWidth, blend;
    };
    /// A camera's straight flight from eye `from` to eye `to`.
    struct Flight {
        core::Vec3d from, to;
    };

    /// Centre of the sky dome, the sea and the ring of distant ranges, on the sea plane.
    static constexpr double CENTRE_X = -9000.0;
    static constexpr double CENTRE_Y = 10000.0;
    /// Radius of the sky dome: every camera sees all of it within the far plane (115000).
    static constexpr double DOME_RADIUS = 72000.0;
    /// Radius of the sea disc; its vertices are half floats, so it stays inside +-65504.
    static constexpr double SEA_RADIUS = 55000.0;
    /// The distant ranges stand in this ring around the centre, hiding where the sea ends.
    static constexpr double RANGES_INNER = 46500.0;
    static constexpr double RANGES_OUTER = 54500.0;
    /// Height of the cloud deck.
    static constexpr double CLOUD_BASE = 15500.0;
    /// Water kept clear on each side of a ship's course; ships are a few hundred units long.
    static constexpr double LANE_CLEAR = 900.0;
    /// Land stays at least this far below every camera eye.
    static constexpr double EYE_CLEARANCE = 350.0;
    /// Open water kept between an iceberg and a ship's course, or a camera eye's ground track.
    static constexpr double ICEBERG_CLEAR = 1500.0;

    /// The sea's islands.
    std::vector<Island> islands;
    /// Ground under each penguin and each resting seal, at the height the scene puts it.
    std::vector<Pad> pads;
    /// Ground along the walking seals' paths.
    std::vector<Track> tracks;
    /// The three ship courses, sampled finely.
    std::vector<core::Polyline> courses;
    /// The nine camera paths.
    std::vector<Flight> flights;
    /// Tabular icebergs adrift in open water: centre, radius, height of the top.
    struct Iceberg {
        double x, y, radius, height;
        unsigned seed;
    };
    std::vector<Iceberg> icebergs;

    /// Direction towards the light that the land's faces are shaded by.
    core::Vec3d keyLight() const;
    /// Direction from the centre towards the high sun, and towards the low sun.
    core::Vec3d highSun() const;
    core::Vec3d lowSun() const;

    /// The one instance, built on first use from the scene's catalogue.
    static const Geography& shared();

private:
    Geography();
    void placeIcebergs();
};

} // namespace tools::assetgen::nivalis
