#include "tools/assetgen/core/Delaunay.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tools::assetgen::core {

namespace {

struct Tri {
    int v[3];
    int n[3]; // n[i]: the triangle across the edge opposite v[i], -1 for none
    bool alive;
};

double orient(const Delaunay::Point& a, const Delaunay::Point& b, const Delaunay::Point& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// Positive when `p` lies inside the circle through the counter-clockwise a, b, c.
double inCircle(const Delaunay::Point& a, const Delaunay::Point& b, const Delaunay::Point& c,
                const Delaunay::Point& p) {
    const double ax = a.x - p.x, ay = a.y - p.y;
    const double bx = b.x - p.x, by = b.y - p.y;
    const double cx = c.x - p.x, cy = c.y - p.y;
    const double a2 = ax * ax + ay * ay, b2 = bx * bx + by * by, c2 = cx * cx + cy * cy;
    return ax * (by * c2 - b2 * cy) - ay * (bx * c2 - b2 * cx) + a2 * (bx * cy - by * cx);
}

std::uint64_t hilbert(std::uint32_t x, std::uint32_t y) {
    constexpr std::uint32_t n = 1u << 16;
    std::uint64_t d = 0;
    for (std::uint32_t s = n / 2; s > 0; s /= 2) {
        const std::uint32_t rx = (x & s) ? 1u : 0u;
        const std::uint32_t ry = (y & s) ? 1u : 0u;
        d += static_cast<std::uint64_t>(s) * s * ((3u * rx) ^ ry);
        if (ry == 0) {
            if (rx == 1) {
                x = n - 1 - x;
                y = n - 1 - y;
            }
            std::swap(x, y);
        }
    }
    return d;
}

} // namespace

std::vector<std::array<std::uint32_t, 3>> Delaunay::triangulate(const std::vector<Point>& input) {
    std::vector<std::array<std::uint32_t, 3>> result;
    if (input.size() < 3) {
        return result;
    }
    double minX = input[0].x, maxX = input[0].x, minY = input[0].y, maxY = input[0].y;
    for (const auto& p : input) {
        minX = std::min(minX, p.x);
        maxX = std::max(maxX, p.x);
        minY = std::min(minY, p.y);
        maxY = std::max(maxY, p.y);
    }
    const double size = std::max({maxX - minX, maxY - minY, 1.0});
    const double cx = (minX + maxX) * 0.5;
    const double cy = (minY + maxY) * 0.5;

    // Points, then the three corners of a triangle enclosing them all.
    std::vector<Point> pts = input;
    const int n = static_cast<int>(input.size());
    pts.push_back({cx - 30.0 * size, cy - 20.0 * size});
    pts.push_back({cx + 30.0 * size, cy - 20.0 * size});
    pts.push_back({cx, cy + 30.0 * size});

    std::vector<int> order(n);
    std::iota(order.begin(), order.end(), 0);
    std::vector<std::uint64_t> keys(n);
    for (int i = 0; i < n; ++i) {
        const auto gx = static_cast<std::uint32_t>((input[i].x - minX) / size * 65535.0);
        const auto gy = static_cast<std::uint32_t>((input[i].y - minY) / size * 65535.0);
        keys[i] = hilbert(gx, gy);
    }
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return keys[a] < keys[b]; });

    std::vector<Tri> tris;
    tris.reserve(static_cast<std::size_t>(n) * 7);
    tris.push_back({{n, n + 1, n + 2}, {-1, -1, -1}, true});
    std::vector<int> mark(1, 0);
    int stamp = 0;
    int last = 0;

    std::vector<int> cavity;
    struct Edge {
        int a, b, outside, old;
    };
    std::vector<Edge> boundary;

    for (int pi : order) {
        const Point& p = pts[pi];
        // Walk to the triangle holding p.
        int t = last;
        if (!tris[t].alive) {
            t = static_cast<int>(tris.size()) - 1;
            while (!tris[t].alive) {
                --t;
            }
        }
        int steps = 0;
        bool found = false;
        while (steps++ < 100000) {
            bool moved = false;
            for (int i = 0; i < 3; ++i) {
                const Tri& tri = tris[t];
                if (orient(pts[tri.v[(i + 1) % 3]], pts[tri.v[(i + 2) % 3]], p) < 0.0 && tri.n[i] >= 0) {
                    t = tri.n[i];
                    moved = true;
                    break;
                }
            }
            if (!moved) {
                found = true;
                break;
            }
        }
        if (!found) {
            continue;
        }
        bool duplicate = false;
        for (int k = 0; k < 3; ++k) {
            const Point& q = pts[tris[t].v[k]];
            if (std::fabs(q.x - p.x) < 1e-6 && std::fabs(q.y - p.y) < 1e-6) {
                duplicate = true;
            }
        }
        if (duplicate) {
            continue;
        }

        // The cavity: every triangle whose circumcircle holds p, connected to t.
        ++stamp;
        cavity.clear();
        cavity.push_back(t);
        mark[t] = stamp;
        for (std::size_t c = 0; c < cavity.size(); ++c) {
            const Tri& tri = tris[cavity[c]];
            for (int i = 0; i < 3; ++i) {
                const int nb = tri.n[i];
                if (nb < 0 || mark[nb] == stamp) {
                    continue;
                }
                const Tri& other = tris[nb];
                if (inCircle(pts[other.v[0]], pts[other.v[1]], pts[other.v[2]], p) > 0.0) {
                    mark[nb] = stamp;
                    cavity.push_back(nb);
                }
            }
        }
        // Keep the cavity star-shaped around p, whatever rounding said.
        for (bool grown = true; grown;) {
            grown = false;
            boundary.clear();
            for (int ct : cavity) {
                const Tri& tri = tris[ct];
                for (int i = 0; i < 3; ++i) {
                    const int nb = tri.n[i];
                    if (nb >= 0 && mark[nb] == stamp) {
                        continue;
                    }
                    const int a = tri.v[(i + 1) % 3];
                    const int b = tri.v[(i + 2) % 3];
                    if (orient(pts[a], pts[b], p) <= 0.0 && nb >= 0) {
                        mark[nb] = stamp;
                        cavity.push_back(nb);
                        grown = true;
                        break;
                    }
                    boundary.push_back({a, b, nb, ct});
                }
                if (grown) {
                    break;
                }
            }
        }

        for (int ct : cavity) {
            tris[ct].alive = false;
        }
        const int first = static_cast<int>(tris.size());
        for (const Edge& e : boundary) {
            const int id = static_cast<int>(tris.size());
            tris.push_back({{e.a, e.b, pi}, {-1, -1, e.outside}, true});
            mark.push_back(0);
            if (e.outside >= 0) {
                Tri& out = tris[e.outside];
                for (int k = 0; k < 3; ++k) {
                    if (out.n[k] == e.old) {
                        // Only the edge (b, a) of the outside triangle pointed at the old one.
                        const int oa = out.v[(k + 1) % 3];
                        const int ob = out.v[(k + 2) % 3];
                        if (oa == e.b && ob == e.a) {
                            out.n[k] = id;
                        }
                    }
                }
            }
        }
        const int count = static_cast<int>(tris.size()) - first;
        for (int i = first; i < first + count; ++i) {
            Tri& tri = tris[i];
            for (int j = first; j < first + count; ++j) {
                if (tris[j].v[0] == tri.v[1]) {
                    tri.n[0] = j; // across (b, p): the new triangle that starts at b
                }
                if (tris[j].v[1] == tri.v[0]) {
                    tri.n[1] = j; // across (p, a): the new triangle that ends at a
                }
            }
        }
        last = first;
    }

    for (const Tri& tri : tris) {
        if (!tri.alive || tri.v[0] >= n || tri.v[1] >= n || tri.v[2] >= n) {
            continue;
        }
        result.push_back({static_cast<std::uint32_t>(tri.v[0]), static_cast<std::uint32_t>(tri.v[1]),
                          static_cast<std::uint32_t>(tri.v[2])});
    }
    return result;
}

} // namespace tools::assetgen::core
