#include "tools/assetgen/example/Valley.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <stdexcept>

#include "tools/assetgen/core/Delaunay.h"
#include "tools/assetgen/core/Noise.h"
#include "tools/assetgen/core/Rng.h"
#include "tools/assetgen/mesh/Facets.h"

namespace tools::assetgen::example {

using core::Vec3d;

namespace {

constexpr double kPi = 3.14159265358979323846;

double smoothstep(double a, double b, double x) {
    const double t = std::clamp((x - a) / (b - a), 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

/// Direction the valley's faces are lit from.
Vec3d light() { return Vec3d{-0.45, -0.6, 0.66}.normalized(); }

/// Which model a face of the land belongs to.
std::string regionOf(const Vec3d& centre, const Vec3d& normal) {
    const double r = std::hypot(centre.x, centre.y);
    if (r < 66.0) {
        return normal.dot(light()) > 0.55 ? "center_rock_bright" : "center_rock_dark";
    }
    // The valley floor and the hills are lit like the rock: faces turned to the sun take the
    // brighter green, faces turned away the darker one, so the land reads in depth and light
    // instead of as two flat bands. Out on the plain the haze takes over.
    if (r < 470.0) {
        return normal.dot(light()) > 0.62 ? "ground_1" : "hills";
    }
    if (r < 1750.0) {
        return normal.dot(light()) > 0.72 ? "ground_1" : "hills";
    }
    if (r < 3100.0) {
        return "ground_2";
    }
    return normal.dot(light()) > 0.5 ? "mountains_bright" : "mountains_dark";
}

/// The land, triangulated once and split into its coloured parts.
const std::map<std::string, mesh::MeshData>& land() {
    static const std::map<std::string, mesh::MeshData> parts = [] {
        std::vector<core::Delaunay::Point> points;
        core::Rng rng(0xA1FACAull);
        // Rings of points, close together at the rock and far apart at the mountains.
        for (double r = 0.0; r < 7400.0;) {
            const double step = r < 80 ? 7.0 : r < 600 ? 30.0 : r < 1800 ? 90.0 : r < 3200 ? 220.0 : 330.0;
            const int count = std::max(6, static_cast<int>(2.0 * kPi * r / step));
            const double turn = rng.uniform();
            for (int k = 0; k < count; ++k) {
                const double a = 2.0 * kPi * (k + turn + rng.uniform(-0.3, 0.3)) / count;
                const double rr = r + rng.uniform(-0.3, 0.3) * step;
                points.push_back({rr * std::cos(a), rr * std::sin(a)});
            }
            r += step;
        }
        std::map<std::string, mesh::MeshData> result;
        for (const auto& t : core::Delaunay::triangulate(points)) {
            Vec3d p[3];
            for (int k = 0; k < 3; ++k) {
                p[k] = {points[t[k]].x, points[t[k]].y, Valley::height(points[t[k]].x, points[t[k]].y)};
            }
            if (std::max({p[0].z, p[1].z, p[2].z}) < Valley::WATER_LEVEL - 4.0) {
                continue;
            }
            const Vec3d n = mesh::Facets::normal(p[0], p[1], p[2]);
            mesh::MeshData& part = result[regionOf((p[0] + p[1] + p[2]) / 3.0, n)];
            mesh::Vertex v[3];
            for (int k = 0; k < 3; ++k) {
                v[k].position = p[k];
            }
            part.flatTriangle(v[0], v[1], v[2]);
        }
        for (auto& [name, part] : result) {
            part.weld();
        }
        return result;
    }();
    return parts;
}

/// A disc of `radius` facing the origin at `distance` in the direction of (azimuth, elevation).
mesh::MeshData disc(double azimuth, double elevation, double distance, double radius) {
    mesh::MeshData out;
    const double a = azimuth * kPi / 180.0;
    const double e = elevation * kPi / 180.0;
    const Vec3d d{std::cos(e) * std::cos(a), std::cos(e) * std::sin(a), std::sin(e)};
    const Vec3d right = d.cross({0, 0, 1}).normalized();
    const Vec3d up = right.cross(d).normalized();
    mesh::Vertex centre;
    centre.position = d * distance;
    const std::uint32_t c = out.add(centre);
    constexpr int segments = 24;
    for (int s = 0; s < segments; ++s) {
        const double t = 2.0 * kPi * s / segments;
        mesh::Vertex v;
        v.position = d * distance + (right * std::cos(t) + up * std::sin(t)) * radius;
        out.add(v);
    }
    for (int s = 0; s < segments; ++s) {
        out.triangle(c, c + 1 + s, c + 1 + (s + 1) % segments);
    }
    return out;
}

mesh::MeshData lake() {
    // One flat sheet over the whole basin; the land rises through it where it is dry.
    mesh::MeshData out;
    constexpr int segments = 48;
    mesh::Vertex centre;
    centre.position = {0, -600, Valley::WATER_LEVEL};
    const std::uint32_t c = out.add(centre);
    for (int s = 0; s < segments; ++s) {
        const double t = 2.0 * kPi * s / segments;
        mesh::Vertex v;
        v.position = {std::cos(t) * 1500.0, -600.0 + std::sin(t) * 1200.0, Valley::WATER_LEVEL};
        out.add(v);
    }
    for (int s = 0; s < segments; ++s) {
        out.triangle(c, c + 1 + s, c + 1 + (s + 1) % segments);
    }
    return out;
}

mesh::MeshData highlights() {
    // Thin streaks lying on the lake, along the light's reflection.
    mesh::MeshData out;
    core::Rng rng(0x6117ull);
    for (int i = 0; i < 70; ++i) {
        const double x = rng.uniform(-420.0, 420.0);
        const double y = rng.uniform(-1000.0, -140.0);
        if (Valley::height(x, y) > Valley::WATER_LEVEL - 3.0) {
            continue;
        }
        const double length = rng.uniform(14.0, 46.0);
        const double width = rng.uniform(0.8, 2.2);
        const double z = Valley::WATER_LEVEL + 0.4;
        mesh::Vertex v[4];
        v[0].position = {x - length * 0.5, y - width * 0.5, z};
        v[1].position = {x + length * 0.5, y - width * 0.5, z};
        v[2].position = {x + length * 0.5, y + width * 0.5, z};
        v[3].position = {x - length * 0.5, y + width * 0.5, z};
        const std::uint32_t a = out.add(v[0]);
        out.add(v[1]);
        out.add(v[2]);
        out.add(v[3]);
        out.triangle(a, a + 1, a + 2);
        out.triangle(a, a + 2, a + 3);
    }
    return out;
}

mesh::MeshData stars() {
    mesh::MeshData out;
    core::Rng rng(0x57A2ull);
    for (int i = 0; i < 400; ++i) {
        const double z = 0.15 + 0.85 * rng.uniform();
        const double a = 2.0 * kPi * rng.uniform();
        const double ring = std::sqrt(1.0 - z * z);
        const Vec3d p = Vec3d{ring * std::cos(a), ring * std::sin(a), z} * 7200.0;
        const double s = rng.uniform(6.0, 16.0);
        const Vec3d c[6] = {p + Vec3d{s, 0, 0}, p + Vec3d{0, s, 0}, p + Vec3d{-s, 0, 0}, p + Vec3d{0, -s, 0},
                            p + Vec3d{0, 0, s}, p + Vec3d{0, 0, -s}};
        std::uint32_t idx[6];
        for (int k = 0; k < 6; ++k) {
            mesh::Vertex v;
            v.position = c[k];
            idx[k] = out.add(v);
        }
        for (int k = 0; k < 4; ++k) {
            out.triangle(idx[k], idx[(k + 1) % 4], idx[4]);
            out.triangle(idx[(k + 1) % 4], idx[k], idx[5]);
        }
    }
    return out;
}

mesh::MeshData dome() {
    // Drawn scaled by 8: a radius of 1000 here is 8000 in the valley.
    mesh::MeshData out;
    const std::vector<double> elevations = {-40, -12, -4, 0, 3, 8, 15, 25, 38, 54, 72, 90};
    constexpr int segments = 48;
    for (double e : elevations) {
        for (int s = 0; s <= segments; ++s) {
            const double a = 2.0 * kPi * s / segments;
            const double el = e * kPi / 180.0;
            mesh::Vertex v;
            v.position = Vec3d{std::cos(el) * std::cos(a), std::cos(el) * std::sin(a), std::sin(el)} * 1000.0;
            v.u = static_cast<double>(s) / segments;
            v.v = (90.0 - e) / 130.0;
            out.add(v);
        }
    }
    const auto at = [&](std::size_t ring, int s) { return static_cast<std::uint32_t>(ring * (segments + 1) + s); };
    for (std::size_t ring = 0; ring + 1 < elevations.size(); ++ring) {
        for (int s = 0; s < segments; ++s) {
            out.triangle(at(ring, s), at(ring + 1, s + 1), at(ring, s + 1));
            out.triangle(at(ring, s), at(ring + 1, s), at(ring + 1, s + 1));
        }
    }
    mesh::Vertex floor;
    floor.position = {0, 0, -1000.0 * std::sin(40.0 * kPi / 180.0)};
    floor.u = 0.5;
    floor.v = 1.0;
    const std::uint32_t nadir = out.add(floor);
    for (int s = 0; s < segments; ++s) {
        out.triangle(at(0, s), at(0, s + 1), nadir);
    }
    return out;
}

} // namespace

double Valley::height(double x, double y) {
    const double r = std::hypot(x, y);
    // The rock: a craggy knoll whose top carries the alpaca at about -2.3.
    const double crag = core::Noise::ridged(x / 22.0, y / 22.0, 3, 5u);
    double rock = -1e9;
    if (r <= 14.0) {
        rock = TOP_OF_ROCK;
    } else if (r < 70.0) {
        rock = -38.0 + (TOP_OF_ROCK + 38.0) * std::pow(1.0 - smoothstep(14.0, 62.0, r), 0.8) * (0.86 + 0.14 * crag);
    }
    // The valley floor, the lake basin to the south, the hills and the far plain.
    const double floor = -37.5 + 2.0 * core::Noise::fbm(x / 120.0, y / 120.0, 2, 7u);
    const double lakeShape = std::hypot(x / 1.25, (y + 640.0)) - 480.0 + 60.0 * core::Noise::fbm(x / 300.0, y / 300.0, 2, 9u);
    const double basin = -58.0 + 20.0 * smoothstep(-260.0, 40.0, lakeShape);
    double ground = std::min(floor, lakeShape < 40.0 ? basin : floor);
    const double hills = 140.0 * smoothstep(450.0, 1300.0, r) * (0.55 + 0.6 * core::Noise::fbm(x / 500.0, y / 500.0, 3, 11u));
    ground += hills * smoothstep(0.0, 150.0, lakeShape + 100.0);
    const double plain = smoothstep(1600.0, 2000.0, r);
    ground = ground * (1.0 - plain) + (-20.0 + 25.0 * core::Noise::fbm(x / 900.0, y / 900.0, 2, 13u)) * plain;
    // Blue mountains on the horizon.
    const double ridge = core::Noise::ridged(x / 1300.0, y / 1300.0, 4, 17u);
    const double range = smoothstep(3300.0, 4300.0, r) * (1.0 - smoothstep(6400.0, 7300.0, r));
    ground += range * (260.0 + 760.0 * ridge);
    return std::max(ground, rock);
}

mesh::MeshData Valley::part(const std::string& name) {
    const auto& parts = land();
    if (auto it = parts.find(name); it != parts.end()) {
        return it->second;
    }
    if (name == "water" || name == "water_test") {
        return lake();
    }
    if (name == "water_highlights") {
        return highlights();
    }
    if (name == "sun_small") {
        return disc(95.0, 21.0, 7000.0, 150.0);
    }
    if (name == "sun") {
        return disc(95.0, 21.0, 7000.0, 420.0);
    }
    if (name == "stars") {
        return stars();
    }
    if (name == "static") {
        return dome();
    }
    throw std::out_of_range("No model \"" + name + "\" for the sample valley");
}

core::Image Valley::sky(int width, int height) {
    core::Image image(width, height);
    for (int y = 0; y < height; ++y) {
        const double v = (y + 0.5) / height;
        const double elevation = 90.0 - v * 130.0;
        const double t = std::clamp(elevation / 90.0, 0.0, 1.0);
        const double k = std::pow(t, 0.55);
        // From a pale hazy horizon to a clear blue overhead; below the horizon, the haze.
        const double r = 0.78 + (0.36 - 0.78) * k;
        const double g = 0.88 + (0.6 - 0.88) * k;
        const double b = 0.93 + (0.86 - 0.93) * k;
        for (int x = 0; x < width; ++x) {
            image.at(x, y) = {static_cast<float>(r), static_cast<float>(g), static_cast<float>(b), 1.0f};
        }
    }
    return image;
}

} // namespace tools::assetgen::example
