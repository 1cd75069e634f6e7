#pragma once

#include <vector>

namespace tools::assetgen::core {

/// A path in the plane made of straight pieces, for distance queries: how far a point lies from a
/// ship's course or an animal's walk. Pieces are grouped under bounding boxes so that far groups
/// are skipped.
class Polyline {
public:
    struct Point {
        double x;
        double y;
    };

    /// The path through `points`, in order; closed paths repeat their first point at the end.
    explicit Polyline(std::vector<Point> points);

    const std::vector<Point>& points() const { return points_; }
    /// Distance from (x, y) to the nearest piece, or `limit` when every piece is farther.
    double distance(double x, double y, double limit) const;

private:
    struct Group {
        std::size_t first;
        std::size_t last; // one past the last piece
        double minX, minY, maxX, maxY;
    };
    std::vector<Point> points_;
    std::vector<Group> groups_;
};

} // namespace tools::assetgen::core
