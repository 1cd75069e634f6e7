#include "tools/assetgen/nivalis/Heavens.h"

#include <algorithm>
#include <cmath>

#include "tools/assetgen/core/Noise.h"
#include "tools/assetgen/core/Rng.h"
#include "tools/assetgen/nivalis/Geography.h"
#include "tools/assetgen/nivalis/Palette.h"

namespace tools::assetgen::nivalis {

using core::Vec3d;

namespace {

constexpr double kPi = 3.14159265358979323846;

Vec3d centre() { return {Geography::CENTRE_X, Geography::CENTRE_Y, 0.0}; }

} // namespace

mesh::MeshData Heavens::sunDisc(const Vec3d& direction, double distance, double radius) {
    mesh::MeshData out;
    const Vec3d d = direction.normalized();
    const Vec3d middle = centre() + d * distance;
    // Two axes across the disc; seen from the centre (looking along d) `right` x `up` = -d.
    const Vec3d up0{0.0, 0.0, 1.0};
    const Vec3d right = d.cross(up0).normalized();
    const Vec3d up = right.cross(d).normalized();
    auto vertex = [&](const Vec3d& p, Palette::Swatch swatch) {
        mesh::Vertex v;
        v.position = p;
        v.u = Palette::u(swatch);
        v.v = 0.5;
        return out.add(v);
    };
    constexpr int segments = 28;
    const std::uint32_t core = vertex(middle, Palette::SUN_CORE);
    std::vector<std::uint32_t> inner, rimInner, rimOuter;
    for (int s = 0; s < segments; ++s) {
        const double a = 2.0 * kPi * s / segments;
        const Vec3d offset = right * std::cos(a) + up * std::sin(a);
        inner.push_back(vertex(middle + offset * radius, Palette::SUN_CORE));
        rimInner.push_back(vertex(middle + offset * radius, Palette::SUN_RIM));
        rimOuter.push_back(vertex(middle + offset * (radius * 1.12), Palette::SUN_RIM));
    }
    // The ring runs counter-clockwise as seen from the centre.
    for (int s = 0; s < segments; ++s) {
        const int s1 = (s + 1) % segments;
        out.triangle(core, inner[s], inner[s1]);
        out.triangle(rimInner[s], rimOuter[s], rimOuter[s1]);
        out.triangle(rimInner[s], rimOuter[s1], rimInner[s1]);
    }
    return out;
}

mesh::MeshData Heavens::highSun() { return sunDisc(Geography::shared().highSun(), 64000.0, 1500.0); }

mesh::MeshData Heavens::lowSun() { return sunDisc(Geography::shared().lowSun(), 64000.0, 2600.0); }

mesh::MeshData Heavens::stars() {
    mesh::MeshData out;
    core::Rng rng(0x57A25ull);
    constexpr int count = 1700;
    const double radius = Geography::DOME_RADIUS - 3500.0;
    for (int i = 0; i < count; ++i) {
        // Uniform over the sphere's cap above 6 degrees, a few more towards the horizon haze.
        const double minSin = std::sin(6.0 * kPi / 180.0);
        const double z = minSin + (1.0 - minSin) * std::pow(rng.uniform(), 1.15);
        const double a = 2.0 * kPi * rng.uniform();
        const double ring = std::sqrt(std::max(0.0, 1.0 - z * z));
        const Vec3d p = centre() + Vec3d{ring * std::cos(a), ring * std::sin(a), z} * radius;
        const double magnitude = std::pow(rng.uniform(), 3.0);
        const double size = 70.0 + 190.0 * magnitude;
        const Vec3d corners[6] = {p + Vec3d{size, 0, 0}, p + Vec3d{0, size, 0}, p + Vec3d{-size, 0, 0},
                                  p + Vec3d{0, -size, 0}, p + Vec3d{0, 0, size}, p + Vec3d{0, 0, -size}};
        std::uint32_t idx[6];
        for (int k = 0; k < 6; ++k) {
            mesh::Vertex v;
            v.position = corners[k];
            idx[k] = out.add(v);
        }
        for (int k = 0; k < 4; ++k) {
            const int k1 = (k + 1) % 4;
            out.triangle(idx[k], idx[k1], idx[4]);
            out.triangle(idx[k1], idx[k], idx[5]);
        }
    }
    return out;
}

mesh::MeshData Heavens::clouds() {
    mesh::MeshData out;
    core::Rng rng(0xC10D5ull);
    constexpr int patches = 90;
    constexpr int rim = 14;
    for (int i = 0; i < patches; ++i) {
        // Area-uniform over a ring about the origin, which the deck turns around.
        const double rMin = 7000.0;
        const double rMax = 53000.0;
        const double r = std::sqrt(rMin * rMin + (rMax * rMax - rMin * rMin) * rng.uniform());
        const double a = 2.0 * kPi * rng.uniform();
        const Vec3d middle{r * std::cos(a), r * std::sin(a), Geography::CLOUD_BASE + rng.uniform(-700.0, 700.0)};
        // Long thin streaks along the wind.
        const double length = rng.uniform(6000.0, 17000.0);
        const double width = length * rng.uniform(0.1, 0.26);
        const double heading = rng.uniform(-0.3, 0.3) + 0.4; // radians: the wind's direction
        const double thickness = rng.uniform(120.0, 380.0);
        const double density = rng.uniform(0.65, 1.0);
        const unsigned seed = static_cast<unsigned>(rng.next());
        auto place = [&](double along, double across, double lift, double d) {
            mesh::Vertex v;
            v.position = middle + Vec3d{along * std::cos(heading) - across * std::sin(heading),
                                        along * std::sin(heading) + across * std::cos(heading), lift};
            v.u0 = d;
            return out.add(v);
        };
        const std::uint32_t mid = place(0.0, 0.0, -thickness, density);
        std::vector<std::uint32_t> ringIn, ringOut;
        for (int k = 0; k < rim; ++k) {
            const double t = 2.0 * kPi * k / rim;
            const double ragged = 0.72 + 0.5 * (0.5 + 0.5 * core::Noise::gradient(std::cos(t) * 1.7, std::sin(t) * 1.7, seed));
            const double ca = std::cos(t) * length * 0.5 * ragged;
            const double cw = std::sin(t) * width * 0.5 * ragged;
            ringIn.push_back(place(ca * 0.55, cw * 0.55, -thickness * 0.75, density * rng.uniform(0.65, 0.95)));
            ringOut.push_back(place(ca, cw, 0.0, density * rng.uniform(0.2, 0.45)));
        }
        // Seen from below: counter-clockwise from underneath, so walk clockwise seen from above.
        for (int k = 0; k < rim; ++k) {
            const int k1 = (k + 1) % rim;
            out.triangle(mid, ringIn[k1], ringIn[k]);
            out.triangle(ringIn[k], ringIn[k1], ringOut[k1]);
            out.triangle(ringIn[k], ringOut[k1], ringOut[k]);
        }
    }
    return out;
}

} // namespace tools::assetgen::nivalis
