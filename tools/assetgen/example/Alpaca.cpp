#include "tools/assetgen/example/Alpaca.h"

#include <algorithm>
#include <cmath>

namespace tools::assetgen::example {

using core::Vec3d;

namespace {

constexpr double kPi = 3.14159265358979323846;

/// A tube of `sides` sides along the points of `spine` with the radii `radii` (widths across Y and
/// heights in Z), closed at both ends.
void tube(mesh::MeshData& out, const std::vector<Vec3d>& spine, const std::vector<std::pair<double, double>>& radii,
          int sides) {
    const std::uint32_t first = static_cast<std::uint32_t>(out.vertices.size());
    for (std::size_t i = 0; i < spine.size(); ++i) {
        // The section is upright, across the tube's direction in the X-Z plane.
        const Vec3d along = (i + 1 < spine.size() ? spine[i + 1] - spine[i] : spine[i] - spine[i - 1]).normalized();
        const Vec3d side{0, 1, 0};
        const Vec3d up = along.cross(side).normalized() * -1.0;
        for (int k = 0; k < sides; ++k) {
            const double a = 2.0 * kPi * k / sides;
            mesh::Vertex v;
            v.position = spine[i] + side * (std::cos(a) * radii[i].first) + up * (std::sin(a) * radii[i].second);
            out.add(v);
        }
    }
    const auto at = [&](std::size_t ring, int k) { return first + static_cast<std::uint32_t>(ring * sides + (k % sides)); };
    for (std::size_t i = 0; i + 1 < spine.size(); ++i) {
        for (int k = 0; k < sides; ++k) {
            out.triangle(at(i, k), at(i + 1, k), at(i + 1, k + 1));
            out.triangle(at(i, k), at(i + 1, k + 1), at(i, k + 1));
            out.triangle(at(i, k), at(i + 1, k + 1), at(i + 1, k)); // and from the other side: one colour
            out.triangle(at(i, k), at(i, k + 1), at(i + 1, k + 1));
        }
    }
    for (int k = 1; k + 1 < sides; ++k) {
        out.triangle(at(0, 0), at(0, k), at(0, k + 1));
        out.triangle(at(0, 0), at(0, k + 1), at(0, k));
        const std::size_t last = spine.size() - 1;
        out.triangle(at(last, 0), at(last, k), at(last, k + 1));
        out.triangle(at(last, 0), at(last, k + 1), at(last, k));
    }
}

Vec3d turnAbout(const Vec3d& p, const Vec3d& pivot, double degrees) { return (p - pivot).rotatedY(degrees) + pivot; }

} // namespace

mesh::MeshData Alpaca::build(double lower, double chew) {
    mesh::MeshData out;
    // Body: a woolly barrel.
    tube(out, {{-17, 0, 30}, {-12, 0, 31}, {0, 0, 32}, {11, 0, 32}, {16, 0, 33}},
         {{4, 4}, {7, 7.5}, {8, 8.5}, {7, 7.5}, {4, 5}}, 8);
    // Legs: thin, slightly splayed.
    for (double x : {-11.0, 10.0}) {
        for (double y : {-4.0, 4.0}) {
            tube(out, {{x, y, 27}, {x + 0.5, y * 1.05, 14}, {x + 1.0, y * 1.1, 0.5}}, {{2.4, 2.4}, {1.6, 1.6}, {1.3, 1.3}}, 5);
        }
    }
    // Neck and head turn down together about the withers; the neck bends as it goes.
    const Vec3d withers{13, 0, 35};
    const double dip = 140.0 * lower; // degrees: far enough that the muzzle reaches the grass
    auto neckPoint = [&](const Vec3d& p, double share) { return turnAbout(p, withers, dip * share); };
    const std::vector<Vec3d> neck = {neckPoint({13, 0, 35}, 0.0), neckPoint({17, 0, 46}, 0.55),
                                     neckPoint({20, 0, 56}, 0.9), neckPoint({21, 0, 61}, 1.0)};
    tube(out, neck, {{3.8, 4.4}, {3.0, 3.4}, {2.7, 3.0}, {2.8, 3.2}}, 6);
    auto head = [&](const Vec3d& p) { return turnAbout(p, withers, dip); };
    const double jaw = 1.2 * std::sin(chew * kPi);
    tube(out, {head({20, 0, 63}), head({25, 0, 63.5}), head({31, 0, 62.5 - jaw})}, {{3.0, 3.2}, {2.4, 2.6}, {1.6, 1.8}}, 6);
    // Ears.
    for (double y : {-1.8, 1.8}) {
        const Vec3d a = head({20.5, y, 65}), b = head({22, y, 65}), c = head({20.8, y * 1.4, 71});
        mesh::Vertex va, vb, vc;
        va.position = a;
        vb.position = b;
        vc.position = c;
        const std::uint32_t i = out.add(va);
        out.add(vb);
        out.add(vc);
        out.triangle(i, i + 1, i + 2);
        out.triangle(i, i + 2, i + 1);
    }
    // Tail: a short tuft.
    tube(out, {{-17, 0, 32}, {-20, 0, 30}, {-21, 0, 26}}, {{1.5, 1.8}, {1.4, 1.6}, {0.6, 0.6}}, 4);
    return out;
}

std::vector<std::vector<Vec3d>> Alpaca::eating(int frames) {
    std::vector<std::vector<Vec3d>> poses;
    for (int f = 0; f < frames; ++f) {
        const double s = frames > 1 ? static_cast<double>(f) / (frames - 1) : 0.0;
        // Down over the first half, then chewing with the muzzle in the grass.
        const double down = std::clamp(s / 0.55, 0.0, 1.0);
        const double lower = down * down * (3.0 - 2.0 * down);
        const double chew = s > 0.55 ? std::fmod((s - 0.55) / 0.45 * 3.0, 1.0) : 0.0;
        std::vector<Vec3d> positions;
        for (const auto& v : build(lower, chew).vertices) {
            positions.push_back(v.position);
        }
        poses.push_back(positions);
    }
    return poses;
}

} // namespace tools::assetgen::example
