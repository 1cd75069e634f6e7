#include "tools/assetgen/nivalis/SkyDome.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "tools/assetgen/core/Noise.h"
#include "tools/assetgen/nivalis/Geography.h"

namespace tools::assetgen::nivalis {

using core::Vec3d;
using scenes::nivalis::TimeOfDay;

namespace {

constexpr double kPi = 3.14159265358979323846;

using Rgb = std::array<double, 3>;

struct Stop {
    double elevation;
    Rgb colour; // bytes
};

Rgb mix(const Rgb& a, const Rgb& b, double t) {
    return {a[0] + (b[0] - a[0]) * t, a[1] + (b[1] - a[1]) * t, a[2] + (b[2] - a[2]) * t};
}

Rgb gradient(const std::vector<Stop>& stops, double elevation) {
    if (elevation >= stops.front().elevation) {
        return stops.front().colour;
    }
    for (std::size_t i = 0; i + 1 < stops.size(); ++i) {
        const Stop& hi = stops[i];
        const Stop& lo = stops[i + 1];
        if (elevation >= lo.elevation) {
            double t = (hi.elevation - elevation) / (hi.elevation - lo.elevation);
            t = t * t * (3.0 - 2.0 * t);
            return mix(hi.colour, lo.colour, t);
        }
    }
    return stops.back().colour;
}

struct Mood {
    std::vector<Stop> stops;    // zenith first; the last stops lie below the horizon
    Vec3d glowAt;               // direction of the glow
    Rgb glow;                   // colour added near it
    double glowWidth;           // degrees
    double glowStrength;
    Rgb halo;                   // the wide warm band along the horizon under the glow
    double haloWidth;           // degrees of azimuth
    double haloStrength;
};

Mood moodOf(TimeOfDay time) {
    const Geography& g = Geography::shared();
    switch (time) {
    case TimeOfDay::Night:
        return {{{90, {6, 12, 34}}, {45, {10, 22, 56}}, {15, {22, 46, 86}}, {4, {40, 76, 116}}, {0, {54, 96, 134}},
                 {-3, {30, 54, 84}}, {-30, {12, 28, 52}}},
                g.highSun(), {120, 150, 200}, 9.0, 0.45, {40, 70, 110}, 60.0, 0.25};
    case TimeOfDay::Sunrise:
        return {{{90, {84, 124, 178}}, {50, {124, 154, 192}}, {22, {190, 184, 178}}, {8, {226, 198, 160}},
                 {0, {236, 206, 166}}, {-3, {214, 196, 162}}, {-30, {170, 170, 150}}},
                g.lowSun(), {255, 246, 206}, 7.0, 0.95, {255, 214, 142}, 75.0, 0.75};
    case TimeOfDay::Sunset:
        return {{{90, {48, 44, 104}}, {50, {88, 68, 138}}, {22, {164, 106, 158}}, {8, {222, 140, 154}},
                 {0, {232, 158, 152}}, {-3, {196, 140, 166}}, {-30, {90, 76, 130}}},
                g.lowSun(), {255, 226, 176}, 7.0, 0.9, {255, 170, 120}, 80.0, 0.7};
    case TimeOfDay::Day:
    default:
        return {{{90, {70, 134, 206}}, {50, {104, 164, 222}}, {20, {156, 202, 236}}, {6, {202, 228, 244}},
                 {0, {226, 240, 248}}, {-3, {198, 226, 236}}, {-30, {150, 206, 222}}},
                g.highSun(), {255, 250, 230}, 9.0, 0.45, {240, 246, 250}, 50.0, 0.2};
    }
}

} // namespace

mesh::MeshData SkyDome::mesh() {
    mesh::MeshData out;
    const std::vector<double> elevations = {LOWEST, -18, -9, -4, -1.5, 0, 1, 2.2, 3.6, 5.5, 8, 11, 15, 20, 26,
                                            33,     41,  50, 60, 71,   82};
    constexpr int segments = 96;
    const Vec3d centre{Geography::CENTRE_X, Geography::CENTRE_Y, 0.0};
    const double r = Geography::DOME_RADIUS;
    for (double e : elevations) {
        for (int s = 0; s <= segments; ++s) {
            const double az = 2.0 * kPi * s / segments;
            const double el = e * kPi / 180.0;
            mesh::Vertex v;
            v.position = centre + Vec3d{std::cos(el) * std::cos(az), std::cos(el) * std::sin(az), std::sin(el)} * r;
            v.u = static_cast<double>(s) / segments;
            v.v = (90.0 - e) / (90.0 - LOWEST);
            out.add(v);
        }
    }
    const auto row = [&](std::size_t ring, int s) { return static_cast<std::uint32_t>(ring * (segments + 1) + s); };
    for (std::size_t ring = 0; ring + 1 < elevations.size(); ++ring) {
        for (int s = 0; s < segments; ++s) {
            // Seen from inside: the lower ring runs counter-clockwise when walked the other way.
            out.triangle(row(ring, s), row(ring + 1, s + 1), row(ring, s + 1));
            out.triangle(row(ring, s), row(ring + 1, s), row(ring + 1, s + 1));
        }
    }
    // The zenith, one vertex per segment so that each keeps its own u.
    const std::size_t top = elevations.size() - 1;
    for (int s = 0; s < segments; ++s) {
        mesh::Vertex v;
        v.position = centre + Vec3d{0.0, 0.0, r};
        v.u = (s + 0.5) / segments;
        v.v = 0.0;
        const std::uint32_t apex = out.add(v);
        out.triangle(row(top, s), apex, row(top, s + 1));
    }
    // The floor under the lowest ring, so that no view slips out below the sphere.
    mesh::Vertex floor;
    floor.position = centre + Vec3d{0.0, 0.0, r * std::sin(LOWEST * kPi / 180.0)};
    floor.u = 0.5;
    floor.v = 1.0;
    const std::uint32_t nadir = out.add(floor);
    for (int s = 0; s < segments; ++s) {
        out.triangle(row(0, s), row(0, s + 1), nadir);
    }
    // The blurred passes take the other winding as front-facing; the dome shows in both.
    out.addBackFaces();
    return out;
}

core::Image SkyDome::image(TimeOfDay time, int width, int height) {
    const Mood mood = moodOf(time);
    core::Image image(width, height);
    const double glowAzimuth = std::atan2(mood.glowAt.y, mood.glowAt.x);
    for (int y = 0; y < height; ++y) {
        const double v = (y + 0.5) / height;
        const double elevation = elevationAt(v);
        const Rgb base = gradient(mood.stops, elevation);
        for (int x = 0; x < width; ++x) {
            const double azimuth = 2.0 * kPi * (x + 0.5) / width;
            const double el = elevation * kPi / 180.0;
            const Vec3d dir{std::cos(el) * std::cos(azimuth), std::cos(el) * std::sin(azimuth), std::sin(el)};
            // Glow around the sun: a soft core and a wider skirt.
            const double angle = std::acos(std::clamp(dir.dot(mood.glowAt), -1.0, 1.0)) * 180.0 / kPi;
            const double core = std::exp(-std::pow(angle / mood.glowWidth, 2.0));
            const double skirt = std::exp(-angle / (mood.glowWidth * 4.0)) * 0.45;
            // A band of warm light along the horizon under the sun.
            double dAz = std::fabs(azimuth - glowAzimuth);
            dAz = std::min(dAz, 2.0 * kPi - dAz) * 180.0 / kPi;
            const double band = std::exp(-std::pow(dAz / mood.haloWidth, 2.0)) *
                                std::exp(-std::pow(std::max(0.0, elevation) / 14.0, 2.0)) *
                                (elevation < -2.0 ? std::exp((elevation + 2.0) / 4.0) : 1.0);
            Rgb c = mix(base, mood.glow, std::min(1.0, (core + skirt) * mood.glowStrength));
            c = mix(c, mood.halo, band * mood.haloStrength);
            image.at(x, y) = {static_cast<float>(c[0] / 255.0), static_cast<float>(c[1] / 255.0),
                              static_cast<float>(c[2] / 255.0), 1.0f};
        }
    }
    return image;
}

} // namespace tools::assetgen::nivalis
