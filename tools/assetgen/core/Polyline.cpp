#include "tools/assetgen/core/Polyline.h"

#include <algorithm>
#include <cmath>

namespace tools::assetgen::core {

Polyline::Polyline(std::vector<Point> points) : points_(std::move(points)) {
    constexpr std::size_t groupSize = 16;
    for (std::size_t first = 0; first + 1 < points_.size(); first += groupSize) {
        const std::size_t last = std::min(points_.size() - 1, first + groupSize);
        Group g{first, last, points_[first].x, points_[first].y, points_[first].x, points_[first].y};
        for (std::size_t i = first; i <= last; ++i) {
            g.minX = std::min(g.minX, points_[i].x);
            g.maxX = std::max(g.maxX, points_[i].x);
            g.minY = std::min(g.minY, points_[i].y);
            g.maxY = std::max(g.maxY, points_[i].y);
        }
        groups_.push_back(g);
    }
}

double Polyline::distance(double x, double y, double limit) const {
    double best2 = limit * limit;
    for (const Group& g : groups_) {
        const double dx = std::max({g.minX - x, 0.0, x - g.maxX});
        const double dy = std::max({g.minY - y, 0.0, y - g.maxY});
        if (dx * dx + dy * dy >= best2) {
            continue;
        }
        for (std::size_t i = g.first; i < g.last; ++i) {
            const Point& a = points_[i];
            const Point& b = points_[i + 1];
            const double ex = b.x - a.x;
            const double ey = b.y - a.y;
            const double len2 = ex * ex + ey * ey;
            double t = len2 > 0.0 ? ((x - a.x) * ex + (y - a.y) * ey) / len2 : 0.0;
            t = std::clamp(t, 0.0, 1.0);
            const double px = a.x + ex * t - x;
            const double py = a.y + ey * t - y;
            best2 = std::min(best2, px * px + py * py);
        }
    }
    return std::sqrt(best2);
}

} // namespace tools::assetgen::core
