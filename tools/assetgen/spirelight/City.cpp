#include "tools/assetgen/spirelight/City.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "tools/assetgen/core/Noise.h"
#include "tools/assetgen/core/Rng.h"

namespace tools::assetgen::spirelight {

using core::Vec3d;

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double QUAY_RADIUS = 3.55;
constexpr double QUAY_TOP = 0.02;

/// A quad of four corners, wound counter-clockwise as seen from the side `normal` points to,
/// whatever order the corners come in along its rim.
void quad(mesh::MeshData& out, const std::array<mesh::Vertex, 4>& corners, const Vec3d& normal) {
    std::array<mesh::Vertex, 4> c = corners;
    const Vec3d facing = (c[1].position - c[0].position).cross(c[2].position - c[0].position);
    if (facing.dot(normal) < 0.0) {
        std::swap(c[1], c[3]);
    }
    for (auto& v : c) {
        v.normal = normal;
    }
    const std::uint32_t first = out.add(c[0]);
    out.add(c[1]);
    out.add(c[2]);
    out.add(c[3]);
    out.triangle(first, first + 1, first + 2);
    out.triangle(first, first + 2, first + 3);
}

mesh::Vertex at(const Vec3d& p, double u = 0.0, double v = 0.0) {
    mesh::Vertex vertex;
    vertex.position = p;
    vertex.u = u;
    vertex.v = v;
    return vertex;
}

/// A triangle wound counter-clockwise as seen from the side `towards` points to.
void facing(mesh::MeshData& out, std::uint32_t a, std::uint32_t b, std::uint32_t c, const Vec3d& towards) {
    const Vec3d& pa = out.vertices[a].position;
    const Vec3d n = (out.vertices[b].position - pa).cross(out.vertices[c].position - pa);
    if (n.dot(towards) >= 0.0) {
        out.triangle(a, b, c);
    } else {
        out.triangle(a, c, b);
    }
}

/// A box's four walls and roof; `wallUv(corner, along, z)` gives each wall corner's UV.
template <typename WallUv>
void box(mesh::MeshData& out, const Vec3d& centre, double hx, double hy, double bottom, double top, WallUv wallUv,
         double roofU, double roofV) {
    const std::array<Vec3d, 4> foot = {Vec3d{centre.x - hx, centre.y - hy, 0.0}, Vec3d{centre.x + hx, centre.y - hy, 0.0},
                                       Vec3d{centre.x + hx, centre.y + hy, 0.0},
                                       Vec3d{centre.x - hx, centre.y + hy, 0.0}};
    for (int side = 0; side < 4; ++side) {
        const Vec3d a = foot[side];
        const Vec3d b = foot[(side + 1) % 4];
        const Vec3d edge = b - a;
        const Vec3d outward = edge.cross({0.0, 0.0, 1.0}).normalized();
        const double width = edge.length();
        const auto [u0, v0] = wallUv(side, 0.0, bottom);
        const auto [u1, v1] = wallUv(side, width, top);
        quad(out,
             {at({a.x, a.y, bottom}, u0, v0), at({b.x, b.y, bottom}, u1, v0), at({b.x, b.y, top}, u1, v1),
              at({a.x, a.y, top}, u0, v1)},
             outward);
    }
    quad(out,
         {at({foot[0].x, foot[0].y, top}, roofU, roofV), at({foot[1].x, foot[1].y, top}, roofU, roofV),
          at({foot[2].x, foot[2].y, top}, roofU, roofV), at({foot[3].x, foot[3].y, top}, roofU, roofV)},
         {0.0, 0.0, 1.0});
}

/// Rounds to whole windows, so that walls start and end between two of them.
double windows(double half) { return std::max(2.0, std::round(2.0 * half / City::WINDOW_WIDTH)) * City::WINDOW_WIDTH / 2.0; }

} // namespace

const City& City::shared() {
    static const City city;
    return city;
}

City::City() {
    core::Rng rng(0x5B12E11C);
    constexpr double spacing = 0.5;
    for (int gx = -9; gx <= 9; ++gx) {
        for (int gy = -9; gy <= 9; ++gy) {
            const Vec3d foot{gx * spacing + rng.uniform(-0.08, 0.08), gy * spacing + rng.uniform(-0.08, 0.08), 0.0};
            const double r = std::hypot(foot.x, foot.y);
            const double skip = rng.uniform();
            if (r > 3.0 || skip < 0.3 + 0.1 * r) {
                continue;
            }
            // Tall in the middle, lower towards the water, with a few spires standing out.
            double height = 0.25 + 3.6 * std::exp(-(r / 1.3) * (r / 1.3)) * rng.uniform(0.3, 1.0) + rng.uniform(0.0, 0.3);
            if (rng.uniform() < 0.08) {
                height *= 1.45;
            }
            height = std::min(height, 4.8);
            const double hx = windows(rng.uniform(0.06, 0.14));
            const double hy = windows(rng.uniform(0.06, 0.14));
            const int style = rng.below(STYLES);
            const int steps = height > 1.6 ? 1 + rng.below(3) : 1;
            double bottom = QUAY_TOP;
            double shrink = 1.0;
            for (int s = 0; s < steps; ++s) {
                const double share = s + 1 == steps ? 1.0 : rng.uniform(0.45, 0.75);
                const double top =
                    QUAY_TOP + std::round((bottom - QUAY_TOP + share * (height - (bottom - QUAY_TOP))) / FLOOR_HEIGHT) *
                                   FLOOR_HEIGHT;
                tiers.push_back({foot, windows(hx * shrink), windows(hy * shrink), bottom, top, style});
                bottom = top;
                shrink *= rng.uniform(0.6, 0.8);
            }
            if (height > 1.5) {
                lamps.push_back({foot.x, foot.y, bottom});
            }
        }
    }
    // Model files hold whole triangles, also where their indices are drawn as points.
    lamps.resize(lamps.size() / 3 * 3);
}

mesh::MeshData City::buildings() const {
    mesh::MeshData out;
    core::Rng rng(0xB11D);
    const double tileWidth = COLUMNS * WINDOW_WIDTH;
    const double tileHeight = FLOORS * FLOOR_HEIGHT;
    for (const Tier& tier : tiers) {
        std::array<double, 4> u0{};
        const double floor0 = rng.below(FLOORS) / static_cast<double>(FLOORS);
        for (int side = 0; side < 4; ++side) {
            const double width = 2.0 * (side % 2 == 0 ? tier.halfX : tier.halfY);
            const int span = static_cast<int>(std::round(width / WINDOW_WIDTH));
            const int first = tier.style * STYLE_COLUMNS + rng.below(std::max(1, STYLE_COLUMNS - span));
            u0[side] = first / static_cast<double>(COLUMNS);
        }
        const auto wallUv = [&](int side, double along, double z) {
            return std::pair{u0[side] + along / tileWidth, floor0 + (z - QUAY_TOP) / tileHeight};
        };
        const double roofU = (STYLES * STYLE_COLUMNS + 8.5) / COLUMNS;
        box(out, tier.centre, tier.halfX, tier.halfY, tier.bottom, tier.top, wallUv, roofU, 0.5);
    }
    return out;
}

mesh::MeshData City::redLamps() const {
    mesh::MeshData out;
    const auto none = [](int, double, double) { return std::pair{0.0, 0.0}; };
    for (const Vec3d& lamp : lamps) {
        box(out, lamp, 0.012, 0.012, lamp.z, lamp.z + 0.03, none, 0.0, 0.0);
    }
    return out;
}

mesh::MeshData City::redLights() const {
    mesh::MeshData out;
    for (const Vec3d& lamp : lamps) {
        out.indices.push_back(out.add(at({lamp.x, lamp.y, lamp.z + 0.035})));
    }
    return out;
}

mesh::MeshData City::neonSigns() const {
    mesh::MeshData out;
    core::Rng rng(0x2E0A);
    for (const Tier& tier : tiers) {
        if (tier.bottom > QUAY_TOP || rng.uniform() > 0.6) {
            continue; // signs hang on the lowest tier of most towers, high enough to be seen
        }
        const int side = rng.below(4);
        const bool vertical = rng.uniform() < 0.35;
        const double w = vertical ? rng.uniform(0.035, 0.05) : rng.uniform(0.1, 0.17);
        const double h = vertical ? w * 2.6 : w * 0.5;
        const double z = rng.uniform(0.3, std::max(0.35, std::min(2.2, tier.top - h - 0.1)));
        const double half = side % 2 == 0 ? tier.halfX : tier.halfY;
        const double depth = side % 2 == 0 ? tier.halfY : tier.halfX;
        if (w > 2.0 * half - 0.02) {
            continue;
        }
        const double along = rng.uniform(-half + w / 2.0 + 0.01, half - w / 2.0 - 0.01);
        // The wall's frame: outward normal and the direction along it.
        const std::array<Vec3d, 4> normals = {Vec3d{0, -1, 0}, Vec3d{1, 0, 0}, Vec3d{0, 1, 0}, Vec3d{-1, 0, 0}};
        const Vec3d n = normals[side];
        const Vec3d t = n.cross({0.0, 0.0, -1.0});
        const Vec3d middle = tier.centre + n * (depth + 0.004) + t * along;
        const int cell = rng.below(16);
        const double cu = (cell % 4) / 4.0;
        const double cv = (cell / 4) / 4.0;
        const double m = 0.03;
        const double uA = cu + m, uB = cu + 0.25 - m, vA = cv + m, vB = cv + 0.25 - m;
        const Vec3d p0 = middle - t * (w / 2) + Vec3d{0, 0, z};
        const Vec3d p1 = middle + t * (w / 2) + Vec3d{0, 0, z};
        const Vec3d p2 = p1 + Vec3d{0, 0, h};
        const Vec3d p3 = p0 + Vec3d{0, 0, h};
        if (vertical) { // the cell's long side runs up the wall
            quad(out, {at(p0, uA, vA), at(p1, uA, vB), at(p2, uB, vB), at(p3, uB, vA)}, n);
        } else {
            quad(out, {at(p0, uA, vB), at(p1, uB, vB), at(p2, uB, vA), at(p3, uA, vA)}, n);
        }
    }
    return out;
}

mesh::MeshData City::distant() const {
    mesh::MeshData out;
    core::Rng rng(0xD157);
    for (int i = 0; i < 70; ++i) {
        const double angle = rng.uniform(2.0, 178.0) * kPi / 180.0;
        const double radius = rng.uniform(17.0, 25.0);
        const Vec3d centre{std::cos(angle) * radius, std::sin(angle) * radius, 0.0};
        const double height = rng.uniform(0.3, 1.0) + (rng.uniform() < 0.3 ? rng.uniform(0.5, 1.6) : 0.0);
        const double hx = rng.uniform(0.15, 0.45);
        const double hy = rng.uniform(0.15, 0.45);
        const double u0 = rng.uniform(0.0, 0.6);
        const auto wallUv = [u0](int, double along, double z) { return std::pair{u0 + along / 3.0, z / 3.0}; };
        box(out, centre, hx, hy, -0.02, height, wallUv, 0.98, 0.98);
    }
    return out;
}

mesh::MeshData City::islands() const {
    mesh::MeshData out;
    const Vec3d up{0.0, 0.0, 1.0};
    // The quay: a low disc under the city with a skirt into the water.
    constexpr int segments = 64;
    const std::uint32_t middle = out.add(at({0.0, 0.0, QUAY_TOP}));
    std::vector<std::uint32_t> rim, foot;
    for (int s = 0; s < segments; ++s) {
        const double a = 2.0 * kPi * s / segments;
        const double r = QUAY_RADIUS * (1.0 + 0.04 * std::sin(5.0 * a));
        rim.push_back(out.add(at({std::cos(a) * r, std::sin(a) * r, QUAY_TOP})));
        foot.push_back(out.add(at({std::cos(a) * r * 1.01, std::sin(a) * r * 1.01, -0.05})));
    }
    for (int s = 0; s < segments; ++s) {
        const int s1 = (s + 1) % segments;
        facing(out, middle, rim[s], rim[s1], up);
        const double a = 2.0 * kPi * (s + 0.5) / segments;
        const Vec3d outward{std::cos(a), std::sin(a), 0.0};
        facing(out, rim[s], foot[s], foot[s1], outward);
        facing(out, rim[s], foot[s1], rim[s1], outward);
    }
    // Low wooded islands farther out, clear of the camera paths.
    core::Rng rng(0x151A);
    for (int i = 0; i < 9; ++i) {
        const double angle = 2.0 * kPi * (i + rng.uniform(0.1, 0.9)) / 9.0;
        const double radius = rng.uniform(9.0, 19.0);
        const Vec3d centre{std::cos(angle) * radius, std::sin(angle) * radius, 0.0};
        const double size = rng.uniform(0.8, 2.4);
        const double peak = rng.uniform(0.08, 0.45);
        const auto seed = static_cast<std::uint32_t>(rng.next());
        const std::uint32_t top = out.add(at(centre + Vec3d{0.0, 0.0, peak}));
        constexpr int rings = 4, around = 28;
        std::vector<std::vector<std::uint32_t>> ring(rings);
        for (int k = 0; k < rings; ++k) {
            const double f = (k + 1.0) / rings;
            for (int s = 0; s < around; ++s) {
                const double a = 2.0 * kPi * s / around;
                const double wobble = 1.0 + 0.35 * core::Noise::gradient(std::cos(a) * 1.5, std::sin(a) * 1.5, seed);
                const double r = size * f * wobble;
                const double z = k + 1 == rings ? -0.03 : peak * (1.0 - f * f) * (0.8 + 0.4 * rng.uniform());
                ring[k].push_back(out.add(at(centre + Vec3d{std::cos(a) * r, std::sin(a) * r * 0.6, z})));
            }
        }
        for (int s = 0; s < around; ++s) {
            const int s1 = (s + 1) % around;
            facing(out, top, ring[0][s], ring[0][s1], up);
            for (int k = 1; k < rings; ++k) {
                facing(out, ring[k - 1][s], ring[k][s], ring[k][s1], up);
                facing(out, ring[k - 1][s], ring[k][s1], ring[k - 1][s1], up);
            }
        }
    }
    return out;
}

mesh::MeshData City::water() const {
    mesh::MeshData out;
    const std::vector<double> radii = {0.0, 4.0, 8.0, 14.0, 22.0, 34.0, 52.0, 80.0, 120.0};
    constexpr int segments = 72;
    const std::uint32_t middle = out.add(at({0.0, 0.0, 0.0}));
    std::vector<std::uint32_t> previous;
    for (std::size_t r = 1; r < radii.size(); ++r) {
        std::vector<std::uint32_t> ring;
        for (int s = 0; s < segments; ++s) {
            const double a = 2.0 * kPi * s / segments;
            ring.push_back(out.add(at({std::cos(a) * radii[r], std::sin(a) * radii[r], 0.0})));
        }
        for (int s = 0; s < segments; ++s) {
            const int s1 = (s + 1) % segments;
            if (previous.empty()) {
                facing(out, middle, ring[s], ring[s1], {0, 0, 1});
            } else {
                facing(out, previous[s], ring[s], ring[s1], {0, 0, 1});
                facing(out, previous[s], ring[s1], previous[s1], {0, 0, 1});
            }
        }
        previous = ring;
    }
    out.addBackFaces(); // the blurred pass takes the other winding as front-facing
    return out;
}

mesh::MeshData City::sky() const {
    mesh::MeshData out;
    constexpr double radius = 150.0;
    constexpr int segments = 48;
    std::vector<double> elevations;
    for (double e = -12.0; e < 89.0; e += (e < 20.0 ? 2.0 : 8.0)) {
        elevations.push_back(e);
    }
    std::vector<std::vector<std::uint32_t>> rings;
    for (double e : elevations) {
        std::vector<std::uint32_t> ring;
        const double el = e * kPi / 180.0;
        for (int s = 0; s < segments; ++s) {
            const double a = 2.0 * kPi * s / segments;
            ring.push_back(out.add(at({std::cos(a) * std::cos(el) * radius, std::sin(a) * std::cos(el) * radius,
                                       std::sin(el) * radius},
                                      0.5, (90.0 - e) / 102.0)));
        }
        rings.push_back(ring);
    }
    const std::uint32_t zenith = out.add(at({0.0, 0.0, radius}, 0.5, 0.0));
    const auto inward = [&out](std::uint32_t i) { return -out.vertices[i].position; };
    for (std::size_t k = 0; k < rings.size(); ++k) {
        for (int s = 0; s < segments; ++s) {
            const int s1 = (s + 1) % segments;
            if (k + 1 < rings.size()) {
                facing(out, rings[k][s], rings[k + 1][s], rings[k + 1][s1], inward(rings[k][s]));
                facing(out, rings[k][s], rings[k + 1][s1], rings[k][s1], inward(rings[k][s]));
            } else {
                facing(out, rings[k][s], zenith, rings[k][s1], inward(rings[k][s]));
            }
        }
    }
    out.addBackFaces();
    return out;
}

mesh::MeshData City::stars() const {
    mesh::MeshData out;
    core::Rng rng(0x57A5);
    constexpr double scale = 0.055;
    constexpr double distance = 12000.0 / scale; // in front of the dome, in the stars' own units
    for (int i = 0; i < 1800; ++i) {
        const double z = rng.uniform(std::sin(5.0 * kPi / 180.0), 1.0);
        const double a = rng.uniform(0.0, 2.0 * kPi);
        const double ring = std::sqrt(1.0 - z * z);
        const Vec3d d{std::cos(a) * ring, std::sin(a) * ring, z};
        const Vec3d e1 = d.cross({0.0, 0.0, 1.0}).normalized();
        const Vec3d e2 = d.cross(e1);
        const double bright = rng.uniform();
        const double size = (bright > 0.97 ? 22.0 : bright > 0.8 ? 14.0 : 9.0) / scale;
        const Vec3d c = d * distance;
        const std::uint32_t i0 = out.add(at(c + e1 * size));
        const std::uint32_t i1 = out.add(at(c + (e1 * -0.5 + e2 * 0.866) * size));
        const std::uint32_t i2 = out.add(at(c + (e1 * -0.5 - e2 * 0.866) * size));
        facing(out, i0, i1, i2, -d);
    }
    return out;
}

} // namespace tools::assetgen::spirelight
