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
    constexpr int clusters = 46;
    constexpr int rim = 12;
    for (int i = 0; i < clusters; ++i) {
        // Area-uniform over a ring about the origin, which the deck turns around; with its puffs
        // a cluster reaches some 12000 further, and must stay inside the dome at every turn.
        const double rMin = 7000.0;
        const double rMax = 43000.0;
        const double r = std::sqrt(rMin * rMin + (rMax * rMax - rMin * rMin) * rng.uniform());
        const double a = 2.0 * kPi * rng.uniform();
        const Vec3d centre{r * std::cos(a), r * std::sin(a), Geography::CLOUD_BASE + rng.uniform(-600.0, 600.0)};
        const double heading = rng.uniform(-0.4, 0.4) + 0.4; // radians: the wind's direction
        const double size = rng.uniform(2200.0, 4800.0);
        const int lobes = 3 + rng.below(4);
        // A few puffs in a row along the wind, each a shallow dome seen from below.
        for (int l = 0; l < lobes; ++l) {
            const double along = (l - (lobes - 1) * 0.5) * size * rng.uniform(0.7, 1.0);
            const double across = rng.uniform(-0.35, 0.35) * size;
            const double radius = size * rng.uniform(0.55, 0.95) * (l == 0 || l == lobes - 1 ? 0.75 : 1.0);
            const double stretch = rng.uniform(1.2, 1.8);
            const double depth = radius * rng.uniform(0.12, 0.2);
            const Vec3d middle = centre + Vec3d{along * std::cos(heading) - across * std::sin(heading),
                                                along * std::sin(heading) + across * std::cos(heading),
                                                rng.uniform(-120.0, 120.0)};
            const double density = rng.uniform(0.82, 1.0);
            const unsigned seed = static_cast<unsigned>(rng.next());
            auto place = [&](double u, double v, double lift, double d) {
                mesh::Vertex vertex;
                const double x = u * stretch;
                vertex.position = middle + Vec3d{x * std::cos(heading) - v * std::sin(heading),
                                                 x * std::sin(heading) + v * std::cos(heading), lift};
                vertex.u0 = d;
                return out.add(vertex);
            };
            const std::uint32_t mid = place(0.0, 0.0, -depth, density);
            std::vector<std::uint32_t> inner, outer;
            for (int k = 0; k < rim; ++k) {
                const double t = 2.0 * kPi * k / rim;
                const double lobe = 0.78 + 0.34 * (0.5 + 0.5 * core::Noise::gradient(std::cos(t) * 1.9, std::sin(t) * 1.9, seed));
                inner.push_back(place(std::cos(t) * radius * 0.55 * lobe, std::sin(t) * radius * 0.55 * lobe, -depth * 0.7,
                                      density * rng.uniform(0.8, 0.95)));
                outer.push_back(place(std::cos(t) * radius * lobe, std::sin(t) * radius * lobe, 0.0, density * rng.uniform(0.5, 0.65)));
            }
            // Seen from below: counter-clockwise from underneath, so clockwise seen from above.
            for (int k = 0; k < rim; ++k) {
                const int k1 = (k + 1) % rim;
                out.triangle(mid, inner[k1], inner[k]);
                out.triangle(inner[k], inner[k1], outer[k1]);
                out.triangle(inner[k], outer[k1], outer[k]);
            }
        }
    }
    return out;
}

} // namespace tools::assetgen::nivalis
