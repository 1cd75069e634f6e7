#include "tools/assetgen/nivalis/TerrainMesh.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "tools/assetgen/core/Delaunay.h"
#include "tools/assetgen/core/Noise.h"
#include "tools/assetgen/mesh/Facets.h"
#include "tools/assetgen/nivalis/Palette.h"

namespace tools::assetgen::nivalis {

using core::Vec3d;

namespace {

constexpr double kPi = 3.14159265358979323846;
using Point = core::Delaunay::Point;

struct Bounds {
    double minX, minY, maxX, maxY;
    bool contains(double x, double y) const { return x >= minX && x <= maxX && y >= minY && y <= maxY; }
};

Bounds boundsOf(const Geography::Island& island, double margin) {
    Bounds b{1e300, 1e300, -1e300, -1e300};
    for (const auto& p : island.outline) {
        b.minX = std::min(b.minX, p.x);
        b.minY = std::min(b.minY, p.y);
        b.maxX = std::max(b.maxX, p.x);
        b.maxY = std::max(b.maxY, p.y);
    }
    return {b.minX - margin, b.minY - margin, b.maxX + margin, b.maxY + margin};
}

/// Points along the edges of the level patches and walks inside `bounds`, and how far around
/// each patch the ordinary points must keep away.
struct Features {
    std::vector<Point> points;
    std::vector<std::function<bool(double, double)>> keepOut;
};

void addEllipse(std::vector<Point>& points, const Geography::Pad& pad, double grow, double spacing,
                double phase = 0.0) {
    const double a = pad.direction * kPi / 180.0;
    const double along = pad.along + grow;
    const double across = pad.across + grow;
    const double perimeter = kPi * (3.0 * (along + across) - std::sqrt((3.0 * along + across) * (along + 3.0 * across)));
    const int count = std::max(8, static_cast<int>(std::ceil(perimeter / spacing)));
    for (int k = 0; k < count; ++k) {
        const double t = 2.0 * kPi * (k + phase) / count;
        const double u = std::cos(t) * along;
        const double v = std::sin(t) * across;
        points.push_back({pad.x + u * std::cos(a) - v * std::sin(a), pad.y + u * std::sin(a) + v * std::cos(a)});
    }
}

/// Points over the inside of a pad's ellipse, `spacing` apart on a grid along its axes, each
/// moved a little about its place, clear of the rim by most of a spacing. A pad filled this way
/// meshes into facets like the open ice; its middle alone would fan out into slivers to the rim.
void fillEllipse(std::vector<Point>& points, const Geography::Pad& pad, double spacing) {
    const double a = pad.direction * kPi / 180.0;
    const double along = pad.along - 0.7 * spacing;
    const double across = pad.across - 0.7 * spacing;
    if (along <= 0.0 || across <= 0.0) {
        points.push_back({pad.x, pad.y});
        return;
    }
    const auto seed = static_cast<std::uint32_t>(std::lround(pad.x * 7.0 + pad.y * 13.0));
    const int nu = static_cast<int>(std::ceil(along / spacing));
    const int nv = static_cast<int>(std::ceil(across / spacing));
    for (int i = -nu; i <= nu; ++i) {
        for (int j = -nv; j <= nv; ++j) {
            const std::uint32_t h = core::Noise::hash(i, j, seed);
            const double u = (i + ((h & 0xFF) / 255.0 - 0.5) * 0.5 + (j % 2 == 0 ? 0.0 : 0.5)) * spacing;
            const double v = (j + (((h >> 8) & 0xFF) / 255.0 - 0.5) * 0.5) * spacing;
            if ((u / along) * (u / along) + (v / across) * (v / across) > 1.0) {
                continue;
            }
            points.push_back({pad.x + u * std::cos(a) - v * std::sin(a), pad.y + u * std::sin(a) + v * std::cos(a)});
        }
    }
}

Features featuresIn(const Geography& geography, const Bounds& bounds) {
    Features f;
    for (const auto& pad : geography.pads) {
        if (!bounds.contains(pad.x, pad.y)) {
            continue;
        }
        fillEllipse(f.points, pad, 26.0);
        // Rings over the blend, about as far apart as their points and each turned half a step
        // from the one inside, so that the slope meshes into even facets, not spokes.
        double spacing = 22.0;
        int ring = 0;
        for (double grow = 0.0; grow <= pad.blend + 1e-9; ++ring) {
            addEllipse(f.points, pad, grow, spacing, 0.5 * (ring % 2));
            if (grow == pad.blend) {
                break;
            }
            grow = std::min(pad.blend, grow + spacing * 0.87);
            spacing = 22.0 + 26.0 * std::min(1.0, grow / std::max(pad.blend, 1.0));
        }
        const double reach = std::max(pad.along, pad.across) + pad.blend + 25.0;
        f.keepOut.push_back([=](double x, double y) { return std::hypot(x - pad.x, y - pad.y) < reach; });
    }
    for (const auto& track : geography.tracks) {
        const auto& pts = track.path.points();
        if (pts.empty() || !bounds.contains(pts.front().x, pts.front().y)) {
            continue;
        }
        // Walk the path at an even step, laying the centre line and the edge lines.
        const double step = 45.0;
        double next = 0.0;
        double walked = 0.0;
        for (std::size_t i = 0; i + 1 < pts.size(); ++i) {
            const double ex = pts[i + 1].x - pts[i].x;
            const double ey = pts[i + 1].y - pts[i].y;
            const double len = std::hypot(ex, ey);
            if (len <= 0.0) {
                continue;
            }
            const double nx = -ey / len;
            const double ny = ex / len;
            for (; next <= walked + len; next += step) {
                const double s = next - walked;
                const double x = pts[i].x + ex * s / len;
                const double y = pts[i].y + ey * s / len;
                f.points.push_back({x, y});
                for (double off : {track.halfWidth, track.halfWidth + track.blend * 0.5, track.halfWidth + track.blend}) {
                    f.points.push_back({x + nx * off, y + ny * off});
                    f.points.push_back({x - nx * off, y - ny * off});
                }
            }
            walked += len;
        }
        const core::Polyline* path = &track.path;
        const double reach = track.halfWidth + track.blend + 25.0;
        f.keepOut.push_back([path, reach](double x, double y) { return path->distance(x, y, reach) < reach; });
    }
    // Points of two features that fall on top of each other would make slivers: thin them.
    std::vector<Point> kept;
    std::sort(f.points.begin(), f.points.end(), [](const Point& a, const Point& b) { return a.x < b.x; });
    for (const Point& p : f.points) {
        bool close = false;
        for (auto it = kept.rbegin(); it != kept.rend() && p.x - it->x < 8.0; ++it) {
            if (std::hypot(p.x - it->x, p.y - it->y) < 8.0) {
                close = true;
                break;
            }
        }
        if (!close) {
            kept.push_back(p);
        }
    }
    f.points = std::move(kept);
    return f;
}

/// Ordinary points: one per leaf of a quadtree whose leaves are as small as the spacing wanted
/// there, each moved about its cell so that the facets look hewn rather than gridded.
void scatter(const Terrain& terrain, int index, const Geography::Island& island, double factor, double x0,
             double y0, double size, std::vector<Point>& out) {
    const double cx = x0 + size * 0.5;
    const double cy = y0 + size * 0.5;
    const double coast = terrain.coastDistance(index, cx, cy);
    if (coast < -900.0 - size) {
        return; // open sea
    }
    const double calm = terrain.calmWeight(index, cx, cy);
    const double spacing = island.spacing * factor * (1.0 - 0.45 * calm);
    if (size > spacing) {
        const double h = size * 0.5;
        scatter(terrain, index, island, factor, x0, y0, h, out);
        scatter(terrain, index, island, factor, x0 + h, y0, h, out);
        scatter(terrain, index, island, factor, x0, y0 + h, h, out);
        scatter(terrain, index, island, factor, x0 + h, y0 + h, h, out);
        return;
    }
    const auto ix = static_cast<std::int32_t>(std::floor(cx));
    const auto iy = static_cast<std::int32_t>(std::floor(cy));
    const std::uint32_t h = core::Noise::hash(ix, iy, island.seed);
    const double jx = ((h & 0xFFFFu) / 65535.0 - 0.5) * 0.7;
    const double jy = ((h >> 16) / 65535.0 - 0.5) * 0.7;
    const double x = cx + jx * size;
    const double y = cy + jy * size;
    if (terrain.coastDistance(index, x, y) > -900.0) {
        out.push_back({x, y});
    }
}

/// Material and light of one face of an island. The thresholds of light sit close around that
/// of level ground, so that gentle undulations break flat ice into facets.
double paint(const Terrain& terrain, int index, const Geography::Island& island, const Vec3d& n, const Vec3d& c,
             double lowest, const Vec3d& light) {
    const double lit = n.dot(light);
    const double level = light.z;
    int shade = lit > level + 0.16 ? 0 : lit > level - 0.06 ? 1 : lit > level - 0.3 ? 2 : 3;
    if (n.z > 0.97) {
        // Level ice and snow: a mosaic of single facets, a third of them catching the light.
        const std::uint32_t h = core::Noise::hash(static_cast<std::int32_t>(std::floor(c.x * 4.0)),
                                                  static_cast<std::int32_t>(std::floor(c.y * 4.0)), island.seed + 97u);
        shade = h % 100u < 34u ? 0 : 1;
    }
    if (lowest < 4.0 && c.z < 12.0) {
        // The water line: wet dark rock under mountains, the foot of the ice elsewhere.
        return c.z > 0.0 && n.z < 0.5 && island.shelfHeight < 40.0 ? Palette::u(Palette::SHORE, shade >= 2 ? 1 : 0)
                                                                    : Palette::u(Palette::ICE_CLIFF, 3);
    }
    const double shelfTop = island.shelfHeight * 1.25 + 40.0;
    const double calm = terrain.calmWeight(index, c.x, c.y);
    if (c.z < shelfTop) {
        if (n.z > 0.86 - 0.3 * calm) {
            return Palette::u(island.shelf == Geography::Shelf::SNOW ? Palette::SNOW : Palette::ICE, shade);
        }
        return Palette::u(Palette::ICE_CLIFF, shade);
    }
    const double wobble = 0.12 * core::Noise::gradient(c.x / 900.0, c.y / 900.0, island.seed + 101u);
    const bool snow = n.z > 0.6 + wobble || (n.z > 0.42 && c.z > 2400.0);
    return Palette::u(snow ? Palette::SNOW : Palette::ROCK, shade);
}

/// Tabular icebergs: an uneven flat top with sheer sides reaching under the water.
void addIcebergs(const Geography& geography, mesh::MeshData& out) {
    const Vec3d light = geography.keyLight();
    mesh::Facets facets(out, [](const Vec3d&, const Vec3d&) { return 0.0; });
    for (const auto& berg : geography.icebergs) {
        constexpr int sides = 9;
        std::vector<Vec3d> top, foot;
        for (int k = 0; k < sides; ++k) {
            const double a = 2.0 * kPi * k / sides;
            const std::uint32_t h = core::Noise::hash(k, 0, berg.seed);
            const double r = berg.radius * (0.72 + 0.4 * ((h & 0xFFFFu) / 65535.0));
            const double lift = berg.height * (0.9 + 0.15 * ((h >> 16) / 65535.0));
            top.push_back({berg.x + r * std::cos(a), berg.y + r * std::sin(a), lift});
            foot.push_back({berg.x + r * 1.08 * std::cos(a), berg.y + r * 1.08 * std::sin(a), -40.0});
        }
        const Vec3d middle{berg.x, berg.y, berg.height};
        for (int k = 0; k < sides; ++k) {
            const int k1 = (k + 1) % sides;
            facets.triangle(middle, top[k], top[k1], Palette::u(Palette::ICE, (k + berg.seed) % 3 == 0 ? 0 : 1));
            const Vec3d n = mesh::Facets::normal(foot[k], foot[k1], top[k1]);
            const double lit = n.dot(light);
            facets.quad(foot[k], foot[k1], top[k1], top[k], Palette::u(Palette::ICE_CLIFF, lit > 0.35 ? 0 : lit > 0.1 ? 1 : 2));
        }
    }
}

mesh::MeshData buildWith(const Terrain& terrain, const Geography& geography, double factor) {
    mesh::MeshData out;
    addIcebergs(geography, out);
    const Vec3d light = geography.keyLight();
    for (int index = 0; index < static_cast<int>(geography.islands.size()); ++index) {
        const auto& island = geography.islands[index];
        const Bounds bounds = boundsOf(island, 1600.0);
        Features features = featuresIn(geography, bounds);
        std::vector<Point> points;
        const double side = std::max(bounds.maxX - bounds.minX, bounds.maxY - bounds.minY);
        scatter(terrain, index, island, factor, bounds.minX, bounds.minY, side, points);
        std::vector<Point> all;
        for (const Point& p : points) {
            const bool blocked = std::any_of(features.keepOut.begin(), features.keepOut.end(),
                                             [&](const auto& inside) { return inside(p.x, p.y); });
            if (!blocked) {
                all.push_back(p);
            }
        }
        all.insert(all.end(), features.points.begin(), features.points.end());

        std::vector<double> heights(all.size());
        for (std::size_t i = 0; i < all.size(); ++i) {
            heights[i] = terrain.height(all[i].x, all[i].y);
        }
        mesh::Facets facets(out, [](const Vec3d&, const Vec3d&) { return 0.0; });
        for (const auto& t : core::Delaunay::triangulate(all)) {
            const Vec3d a{all[t[0]].x, all[t[0]].y, heights[t[0]]};
            const Vec3d b{all[t[1]].x, all[t[1]].y, heights[t[1]]};
            const Vec3d c{all[t[2]].x, all[t[2]].y, heights[t[2]]};
            if (std::max({a.z, b.z, c.z}) < -1.0) {
                continue; // under water, never seen
            }
            const Vec3d n = mesh::Facets::normal(a, b, c);
            const double lowest = std::min({a.z, b.z, c.z});
            facets.triangle(a, b, c, paint(terrain, index, island, n, (a + b + c) / 3.0, lowest, light));
        }
    }
    out.weld();
    return out;
}

} // namespace

mesh::MeshData TerrainMesh::build(const Terrain& terrain, const Geography& geography) {
    double factor = 1.0;
    for (;;) {
        mesh::MeshData out = buildWith(terrain, geography, factor);
        if (out.vertices.size() <= VERTEX_BUDGET) {
            return out;
        }
        factor *= 1.12;
    }
}

} // namespace tools::assetgen::nivalis
