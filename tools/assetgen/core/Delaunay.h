#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace tools::assetgen::core {

/// Delaunay triangulation of points in the plane (Bowyer-Watson, inserting along a space-filling
/// order and walking to each new point). Terrain is built on it so that feature points (the feet
/// of animals, the edges of flat ground) become vertices wherever they are.
class Delaunay {
public:
    struct Point {
        double x;
        double y;
    };

    Delaunay() = delete;

    /// Triangles of `points` as index triples, counter-clockwise seen from +Z. Points closer
    /// than 1e-6 to an earlier one are left out (no triangle refers to them).
    static std::vector<std::array<std::uint32_t, 3>> triangulate(const std::vector<Point>& points);
};

} // namespace tools::assetgen::core
