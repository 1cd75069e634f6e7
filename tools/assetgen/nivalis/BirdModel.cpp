#include "tools/assetgen/nivalis/BirdModel.h"

#include <array>
#include <cmath>
#include <vector>

namespace tools::assetgen::nivalis {

using core::Vec3d;

namespace {

/// A station along a wing: distance from the body, leading and trailing edge (Y), and how much
/// of the beat this part of the wing takes.
struct Station {
    double x;
    double lead;
    double trail;
    double bend;
};

} // namespace

mesh::MeshData BirdModel::build(double beat) {
    mesh::MeshData out;
    auto vertex = [&](const Vec3d& p) {
        mesh::Vertex v;
        v.position = p;
        return out.add(v);
    };
    auto both = [&](std::uint32_t a, std::uint32_t b, std::uint32_t c) {
        out.triangle(a, b, c);
        out.triangle(a, c, b);
    };

    // Body: a slim spindle of diamond sections from beak to tail.
    const double sections[][3] = {{-15.0, 2.4, 2.2}, {-9.0, 3.0, 2.8}, {0.0, 4.2, 3.4}, {9.0, 3.0, 2.6}};
    const std::uint32_t beak = vertex({0.0, -22.0, 0.6});
    std::vector<std::array<std::uint32_t, 4>> rings;
    for (const auto& s : sections) {
        rings.push_back({vertex({0.0, s[0], s[2]}), vertex({s[1], s[0], 0.0}), vertex({0.0, s[0], -s[2]}),
                         vertex({-s[1], s[0], 0.0})});
    }
    for (int k = 0; k < 4; ++k) {
        both(beak, rings[0][k], rings[0][(k + 1) % 4]);
    }
    for (std::size_t r = 0; r + 1 < rings.size(); ++r) {
        for (int k = 0; k < 4; ++k) {
            const int k1 = (k + 1) % 4;
            both(rings[r][k], rings[r + 1][k], rings[r + 1][k1]);
            both(rings[r][k], rings[r + 1][k1], rings[r][k1]);
        }
    }
    // Tail: a short fan.
    const std::uint32_t tailLeft = vertex({-5.0, 20.0, 0.2});
    const std::uint32_t tailRight = vertex({5.0, 20.0, 0.2});
    const std::uint32_t tailMid = vertex({0.0, 17.0, 0.3});
    both(rings.back()[1], tailRight, tailMid);
    both(rings.back()[3], tailMid, tailLeft);
    both(rings.back()[1], tailMid, rings.back()[3]);

    // Wings: swept stations from the shoulder to the tip; the inner wing turns at the shoulder,
    // the outer part bends further, as a wing does in its beat.
    const std::vector<Station> stations = {
        {3.0, -5.0, 7.0, 0.0}, {23.0, -7.0, 9.0, 0.35}, {43.0, -6.5, 7.0, 0.7}, {61.0, -4.0, 4.5, 1.0},
        {72.0, 0.0, 3.5, 1.2}, {HALF_SPAN, 4.0, 5.0, 1.35}};
    const double inner = beat > 0 ? 28.0 * beat : 24.0 * beat; // degrees at the shoulder
    const double outer = beat > 0 ? 18.0 * beat : 16.0 * beat; // extra towards the tip
    for (double side : {-1.0, 1.0}) {
        std::vector<std::uint32_t> lead;
        std::vector<std::uint32_t> trail;
        for (const Station& s : stations) {
            const double reach = s.x - 3.0;
            const double angle = (inner + outer * (s.bend - 0.35) * (s.bend > 0.35 ? 1.0 : 0.0)) * 3.14159265358979 / 180.0;
            // Height gained along the wing: each part rises by its own angle.
            const double z = std::sin(angle) * reach;
            const double x = 3.0 + std::cos(angle) * reach;
            lead.push_back(vertex({side * x, s.lead, z + 0.6}));
            trail.push_back(vertex({side * x, s.trail, z}));
        }
        // The shoulder joins the body's side.
        for (std::size_t i = 0; i + 1 < stations.size(); ++i) {
            both(lead[i], trail[i], trail[i + 1]);
            both(lead[i], trail[i + 1], lead[i + 1]);
        }
    }
    return out;
}

} // namespace tools::assetgen::nivalis
