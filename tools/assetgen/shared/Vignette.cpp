#include "tools/assetgen/shared/Vignette.h"

#include <algorithm>
#include <cmath>

namespace tools::assetgen::shared {

mesh::VertexLayout Vignette::layout() {
    return mesh::VertexLayout({{engine::AttributeType::VERTEX, engine::VertexFormat::HALF2, 0},
                               {engine::AttributeType::AO, engine::VertexFormat::UBYTE_NORMALIZED, 6}},
                              8);
}

double Vignette::openness(double x, double y) {
    // Distance in a frame where the corners lie at sqrt(2); open out to 0.55, dark at the corners.
    const double r = std::hypot(x, y);
    const double t = std::clamp((r - 0.55) / (std::sqrt(2.0) - 0.55), 0.0, 1.0);
    return 1.0 - t * t * (3.0 - 2.0 * t);
}

mesh::MeshData Vignette::mesh() {
    mesh::MeshData out;
    constexpr int segments = 64;
    const std::vector<double> radii = {0.0, 0.55, 0.75, 0.9, 1.02, 1.14, 1.26, 1.36, 1.4143};
    auto vertex = [&](double x, double y) {
        mesh::Vertex v;
        v.position = {x, y, 0.0};
        v.ao = openness(x, y);
        return out.add(v);
    };
    // Rings squared towards the screen's edge: a point of ring r lies on the circle of radius r,
    // pulled onto the square where the circle leaves it, so that the outer ring is the border.
    auto ringPoint = [](double r, double a) {
        const double x = std::cos(a) * r;
        const double y = std::sin(a) * r;
        return std::pair{std::clamp(x, -1.0, 1.0), std::clamp(y, -1.0, 1.0)};
    };
    const std::uint32_t middle = vertex(0.0, 0.0);
    std::vector<std::uint32_t> previous;
    for (std::size_t r = 1; r < radii.size(); ++r) {
        std::vector<std::uint32_t> ring;
        for (int s = 0; s < segments; ++s) {
            const double a = 2.0 * 3.14159265358979323846 * s / segments; // s = 8, 24, ... hit the corners
            const auto [x, y] = ringPoint(radii[r], a);
            ring.push_back(vertex(x, y));
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
    // Both windings, so that the blurred passes (clockwise front faces) keep their vignette;
    // the shader drops whichever copy faces away, so the rim is never darkened twice when the
    // pass before left culling off.
    out.addBackFaces();
    return out;
}

} // namespace tools::assetgen::shared
