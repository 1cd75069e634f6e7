#pragma once

#include <array>
#include <vector>

#include "tools/assetgen/core/Image.h"
#include "tools/assetgen/core/Vec3d.h"
#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::betonia {

/// A concrete interior made of flat rectangular panels, with its light baked into a texture
/// atlas: each panel gets a rectangle of texels, and each texel is lit from its own place in the
/// room (sun through the openings with soft edges and the shadows of pillars, daylight from the
/// openings, lamps, darker corners) and painted as cast concrete.
class Interior {
public:
    /// What a panel is made of. OUTSIDE, LAMP and GLASS glow: they are bright in their own right.
    enum class Surface { WALL, FLOOR, CEILING, PILLAR, OUTSIDE, LAMP, GLASS };

    /// A rectangle `origin` + s * `u` + t * `v` (s, t in 0..1), seen from the side of u x v.
    struct Panel {
        core::Vec3d origin;
        core::Vec3d u;
        core::Vec3d v;
        Surface surface;
        /// Which model the panel belongs to (a room drawn in parts).
        int part = 0;
        /// Drawing order inside a model: 0 behind the shell (reveals, light boxes, the pit),
        /// 1 the shell, 2 what stands inside. A renderer that draws a model without depth
        /// testing then still shows near things over far ones in most views.
        int layer = 1;
    };
    /// A rectangle through which light falls; its u x v points into the room.
    struct Opening {
        core::Vec3d origin;
        core::Vec3d u;
        core::Vec3d v;
    };
    /// An axis-aligned box that casts shadows.
    struct Box {
        core::Vec3d lo;
        core::Vec3d hi;
    };
    /// A light strip from `a` to `b`.
    struct Lamp {
        core::Vec3d a;
        core::Vec3d b;
        double strength;
    };
    /// A plane that darkens what comes near it (floors, walls, ceilings meeting in corners).
    struct Crease {
        core::Vec3d point;
        core::Vec3d normal;
    };
    /// A share of an atlas's width, from `from` to `to` (0..1).
    struct Band {
        double from;
        double to;
    };

    std::vector<Panel> panels;
    std::vector<Opening> openings;
    std::vector<Box> occluders;
    std::vector<Lamp> lamps;
    std::vector<Crease> creases;
    /// Direction towards the sun.
    core::Vec3d sun{0, 0, 1};
    /// Strength of the sun and of the daylight through the openings.
    double sunStrength = 2.0;
    double skyStrength = 1.0;

    /// A rectangle with rectangular holes (in its own s, t units: s0, t0, s1, t1), split into
    /// whole panels around them. Each hole becomes an Opening when `lets` is true.
    void wallWithHoles(const core::Vec3d& origin, const core::Vec3d& u, const core::Vec3d& v, Surface surface,
                       const std::vector<std::array<double, 4>>& holes, bool lets = true, int part = 0);
    /// The four sides of a hole's reveal, `depth` deep behind the panel's face.
    void reveal(const core::Vec3d& origin, const core::Vec3d& u, const core::Vec3d& v, double depth, int part = 0);
    /// A box seen from outside (pillars, slabs, lamps); it casts shadows unless it glows. Its
    /// top and bottom are left out where they would lie against a ceiling or a floor.
    void solid(const core::Vec3d& lo, const core::Vec3d& hi, Surface surface, int part = 0, bool bottom = false,
               bool top = true);
    /// A box seen from inside, with the faces flagged in `open` (-X, +X, -Y, +Y, -Z, +Z) left out.
    void hollow(const core::Vec3d& lo, const core::Vec3d& hi, Surface surface, const std::array<bool, 6>& open,
                int part = 0);

    /// Light arriving at `p` on a surface facing `n` (about 1 in good daylight), per colour
    /// channel: warm sun and lamps, cool daylight from the openings.
    std::array<double, 3> light(const core::Vec3d& p, const core::Vec3d& n) const;
    /// The colour of `surface` at `p`, facing `n`, lit; 0..1 per channel.
    std::array<double, 3> colour(Surface surface, const core::Vec3d& p, const core::Vec3d& n) const;

    /// Lays out the panels of `part` in `atlas` (plain ones inside `plain`, glowing ones inside
    /// `glowing`, each as large as they fit), paints them, and returns their mesh: positions and
    /// UV0, every face also drawn from its back so that the room shows whichever winding a pass
    /// takes as front.
    mesh::MeshData bake(int part, core::Image& atlas, Band plain, Band glowing) const;

    static bool glows(Surface surface) {
        return surface == Surface::OUTSIDE || surface == Surface::LAMP || surface == Surface::GLASS;
    }
};

} // namespace tools::assetgen::betonia
