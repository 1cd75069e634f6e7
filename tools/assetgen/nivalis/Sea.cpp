#include "tools/assetgen/nivalis/Sea.h"

#include <cmath>

#include "tools/assetgen/nivalis/Geography.h"

namespace tools::assetgen::nivalis {

mesh::MeshData Sea::mesh() {
    mesh::MeshData out;
    constexpr int rings = 44;
    constexpr int segments = 192;
    const double cx = Geography::CENTRE_X;
    const double cy = Geography::CENTRE_Y;
    auto vertex = [&](double x, double y) {
        mesh::Vertex v;
        v.position = {x, y, 0.0};
        // Measured from the centre, so that the half-float coordinates stay small.
        v.u = (x - cx) / UV_UNIT;
        v.v = (y - cy) / UV_UNIT;
        return out.add(v);
    };
    const std::uint32_t middle = vertex(cx, cy);
    std::vector<std::uint32_t> previous;
    for (int r = 1; r <= rings; ++r) {
        const double radius = Geography::SEA_RADIUS * std::pow(static_cast<double>(r) / rings, 1.6);
        std::vector<std::uint32_t> ring;
        for (int s = 0; s < segments; ++s) {
            const double a = 2.0 * 3.14159265358979323846 * s / segments;
            ring.push_back(vertex(cx + radius * std::cos(a), cy + radius * std::sin(a)));
        }
        for (int s = 0; s < segments; ++s) {
            const int s1 = (s + 1) % segments;
            if (previous.empty()) {
                out.triangle(middle, ring[s], ring[s1]);
            } else {
                out.triangle(previous[s], ring[s], ring[s1]);
                out.triangle(previous[s], ring[s1], previous[s1]);
            }
        }
        previous = ring;
    }
    // Seen in the blurred passes too, which take the other winding as front-facing.
    out.addBackFaces();
    return out;
}

} // namespace tools::assetgen::nivalis
