#include "tools/assetgen/nivalis/DistantRanges.h"

#include <algorithm>
#include <cmath>

#include "tools/assetgen/core/Noise.h"
#include "tools/assetgen/mesh/Facets.h"
#include "tools/assetgen/nivalis/Geography.h"
#include "tools/assetgen/nivalis/Palette.h"

namespace tools::assetgen::nivalis {

using core::Vec3d;

namespace {

constexpr double kPi = 3.14159265358979323846;

double smoothstep(double a, double b, double x) {
    const double t = std::clamp((x - a) / (b - a), 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

} // namespace

double DistantRanges::height(double x, double y) {
    const double dx = x - Geography::CENTRE_X;
    const double dy = y - Geography::CENTRE_Y;
    const double r = std::hypot(dx, dy);
    const double t = (r - Geography::RANGES_INNER) / (Geography::RANGES_OUTER - Geography::RANGES_INNER);
    if (t <= 0.0 || t >= 1.0) {
        return -200.0;
    }
    const double azimuth = std::atan2(dy, dx);
    // The skyline: tall massifs and low gaps around the ring (noise on the circle, so it closes).
    const double skyline = 0.5 + 0.5 * core::Noise::fbm(std::cos(azimuth) * 3.0, std::sin(azimuth) * 3.0, 3, 71u);
    double top = 1400.0 + 6200.0 * std::pow(skyline, 1.4);
    // Under the low sun the ranges stay low, so that it stands clear above them.
    const Vec3d sun = Geography::shared().lowSun();
    double toSun = std::fabs(azimuth - std::atan2(sun.y, sun.x));
    toSun = std::min(toSun, 2.0 * kPi - toSun) * 180.0 / kPi;
    top *= 0.28 + 0.72 * smoothstep(4.0, 14.0, toSun);
    const double profile = std::pow(std::sin(kPi * std::pow(t, 0.85)), 0.9);
    const double ridges = core::Noise::ridged(x / 5200.0, y / 5200.0, 4, 73u);
    return -200.0 + (top + 200.0) * profile * (0.45 + 0.65 * ridges);
}

mesh::MeshData DistantRanges::mesh() {
    mesh::MeshData out;
    const Vec3d light = Geography::shared().keyLight();
    mesh::Facets facets(out, [&](const Vec3d& n, const Vec3d& c) {
        const double lit = n.dot(light);
        const bool snow = (n.z > 0.62 && c.z > 900.0) || c.z > 5200.0;
        return Palette::u(snow ? Palette::DISTANT_SNOW : Palette::DISTANT_ROCK, lit > 0.45 ? 0 : 1);
    });
    constexpr int segments = 320;
    constexpr int stations = 10;
    std::vector<std::vector<Vec3d>> grid(stations + 1, std::vector<Vec3d>(segments));
    for (int r = 0; r <= stations; ++r) {
        for (int s = 0; s < segments; ++s) {
            // Stagger alternate stations by half a step, for faceted triangles rather than grid lines.
            const double a = 2.0 * kPi * (s + 0.5 * (r % 2)) / segments;
            const double t = static_cast<double>(r) / stations;
            const double radius =
                Geography::RANGES_INNER - 300.0 + (Geography::RANGES_OUTER - Geography::RANGES_INNER + 600.0) * t;
            const double x = Geography::CENTRE_X + radius * std::cos(a);
            const double y = Geography::CENTRE_Y + radius * std::sin(a);
            grid[r][s] = {x, y, height(x, y)};
        }
    }
    for (int r = 0; r < stations; ++r) {
        for (int s = 0; s < segments; ++s) {
            const int s1 = (s + 1) % segments;
            const Vec3d& a = grid[r][s];
            const Vec3d& b = grid[r][s1];
            const Vec3d& c = grid[r + 1][s1];
            const Vec3d& d = grid[r + 1][s];
            // Counter-clockwise seen from above; the inner station first.
            if (std::max({a.z, b.z, c.z}) > -5.0) {
                facets.triangle(a, c, b);
            }
            if (std::max({a.z, c.z, d.z}) > -5.0) {
                facets.triangle(a, d, c);
            }
        }
    }
    out.weld();
    return out;
}

} // namespace tools::assetgen::nivalis
