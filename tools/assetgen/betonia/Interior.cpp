#include "tools/assetgen/betonia/Interior.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <stdexcept>
#include <thread>

#include "tools/assetgen/core/Noise.h"

namespace tools::assetgen::betonia {

using core::Vec3d;

namespace {

/// World units by which every panel overlaps its neighbours (more than the half-float
/// rounding of positions in a room of a few thousand units).
constexpr double kSeamOverlap = 4.0;

double smoothstep(double a, double b, double x) {
    const double t = std::clamp((x - a) / (b - a), 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

/// 1 inside 0..1, falling off softly over `w` on each side.
double softBox(double x, double w) { return smoothstep(-w, w, x) * smoothstep(-w, w, 1.0 - x); }

/// Whether the segment from `p` along `d` (length `length`) passes through the box.
bool hits(const Interior::Box& box, const Vec3d& p, const Vec3d& d, double length) {
    double near = 0.0;
    double far = length;
    const double origin[3] = {p.x, p.y, p.z};
    const double dir[3] = {d.x, d.y, d.z};
    const double lo[3] = {box.lo.x, box.lo.y, box.lo.z};
    const double hi[3] = {box.hi.x, box.hi.y, box.hi.z};
    for (int axis = 0; axis < 3; ++axis) {
        if (std::fabs(dir[axis]) < 1e-12) {
            if (origin[axis] < lo[axis] || origin[axis] > hi[axis]) {
                return false;
            }
            continue;
        }
        double t0 = (lo[axis] - origin[axis]) / dir[axis];
        double t1 = (hi[axis] - origin[axis]) / dir[axis];
        if (t0 > t1) {
            std::swap(t0, t1);
        }
        near = std::max(near, t0);
        far = std::min(far, t1);
        if (near > far) {
            return false;
        }
    }
    return true;
}

Interior::Panel flipped(const Interior::Panel& p) {
    return {p.origin + p.u, p.u * -1.0, p.v, p.surface, p.part, p.layer};
}

} // namespace

void Interior::wallWithHoles(const Vec3d& origin, const Vec3d& u, const Vec3d& v, Surface surface,
                             const std::vector<std::array<double, 4>>& holes, bool lets, int part) {
    std::vector<double> ss = {0.0, 1.0};
    std::vector<double> ts = {0.0, 1.0};
    for (const auto& h : holes) {
        ss.push_back(h[0]);
        ss.push_back(h[2]);
        ts.push_back(h[1]);
        ts.push_back(h[3]);
        if (lets) {
            openings.push_back({origin + u * h[0] + v * h[1], u * (h[2] - h[0]), v * (h[3] - h[1])});
        }
    }
    std::sort(ss.begin(), ss.end());
    ss.erase(std::unique(ss.begin(), ss.end()), ss.end());
    std::sort(ts.begin(), ts.end());
    ts.erase(std::unique(ts.begin(), ts.end()), ts.end());
    auto inHole = [&](double s, double t) {
        return std::any_of(holes.begin(), holes.end(),
                           [&](const auto& h) { return s > h[0] && s < h[2] && t > h[1] && t < h[3]; });
    };
    for (std::size_t j = 0; j + 1 < ts.size(); ++j) {
        // Runs of solid cells along s become one panel each.
        std::size_t i = 0;
        while (i + 1 < ss.size()) {
            const double tm = (ts[j] + ts[j + 1]) * 0.5;
            if (inHole((ss[i] + ss[i + 1]) * 0.5, tm)) {
                ++i;
                continue;
            }
            std::size_t k = i;
            while (k + 1 < ss.size() && !inHole((ss[k] + ss[k + 1]) * 0.5, tm)) {
                ++k;
            }
            panels.push_back({origin + u * ss[i] + v * ts[j], u * (ss[k] - ss[i]), v * (ts[j + 1] - ts[j]), surface, part});
            i = k;
        }
    }
}

void Interior::reveal(const Vec3d& origin, const Vec3d& u, const Vec3d& v, double depth, int part) {
    const Vec3d back = u.cross(v).normalized() * -depth;
    panels.push_back({origin, u, back, Surface::WALL, part, 0});                // sill, facing +v
    panels.push_back({origin + v + u, u * -1.0, back, Surface::WALL, part, 0}); // lintel, facing -v
    panels.push_back({origin + v, v * -1.0, back, Surface::WALL, part, 0});     // jamb, facing +u
    panels.push_back({origin + u, v, back, Surface::WALL, part, 0});            // jamb, facing -u
}

void Interior::solid(const Vec3d& lo, const Vec3d& hi, Surface surface, int part, bool bottom, bool top) {
    const double dx = hi.x - lo.x, dy = hi.y - lo.y, dz = hi.z - lo.z;
    panels.push_back({{lo.x, hi.y, lo.z}, {0, -dy, 0}, {0, 0, dz}, surface, part, 2});
    panels.push_back({{hi.x, lo.y, lo.z}, {0, dy, 0}, {0, 0, dz}, surface, part, 2});
    panels.push_back({{lo.x, lo.y, lo.z}, {dx, 0, 0}, {0, 0, dz}, surface, part, 2});
    panels.push_back({{hi.x, hi.y, lo.z}, {-dx, 0, 0}, {0, 0, dz}, surface, part, 2});
    if (top) {
        panels.push_back({{lo.x, lo.y, hi.z}, {dx, 0, 0}, {0, dy, 0}, surface, part, 2});
    }
    if (bottom) {
        panels.push_back({{lo.x, hi.y, lo.z}, {dx, 0, 0}, {0, -dy, 0}, surface, part, 2});
    }
    if (!glows(surface)) {
        occluders.push_back({lo, hi});
    }
}

void Interior::hollow(const Vec3d& lo, const Vec3d& hi, Surface surface, const std::array<bool, 6>& open, int part) {
    const double dx = hi.x - lo.x, dy = hi.y - lo.y, dz = hi.z - lo.z;
    const Panel faces[6] = {
        {{lo.x, hi.y, lo.z}, {0, -dy, 0}, {0, 0, dz}, surface, part}, {{hi.x, lo.y, lo.z}, {0, dy, 0}, {0, 0, dz}, surface, part},
        {{lo.x, lo.y, lo.z}, {dx, 0, 0}, {0, 0, dz}, surface, part},  {{hi.x, hi.y, lo.z}, {-dx, 0, 0}, {0, 0, dz}, surface, part},
        {{lo.x, hi.y, lo.z}, {dx, 0, 0}, {0, -dy, 0}, surface, part}, {{lo.x, lo.y, hi.z}, {dx, 0, 0}, {0, dy, 0}, surface, part}};
    for (int f = 0; f < 6; ++f) {
        if (!open[f]) {
            Panel inside = flipped(faces[f]);
            inside.layer = 0;
            panels.push_back(inside);
        }
    }
}

std::array<double, 3> Interior::light(const Vec3d& p0, const Vec3d& n) const {
    const Vec3d p = p0 + n * 1.5;
    // Corners and feet of walls and pillars are darker.
    double occlusion = 1.0;
    for (const Crease& c : creases) {
        if (std::fabs(n.dot(c.normal)) > 0.5) {
            continue;
        }
        const double d = std::fabs((p - c.point).dot(c.normal));
        occlusion *= 1.0 - 0.45 * std::exp(-d / 150.0);
    }
    if (n.z > 0.5) {
        for (const Box& b : occluders) {
            if (b.lo.z > p.z + 5.0 || b.hi.z < p.z - 5.0) {
                continue;
            }
            const double dx = std::max({b.lo.x - p.x, 0.0, p.x - b.hi.x});
            const double dy = std::max({b.lo.y - p.y, 0.0, p.y - b.hi.y});
            occlusion *= 1.0 - 0.5 * std::exp(-std::hypot(dx, dy) / 110.0);
        }
    }

    double sunLight = 0.0;
    double skyLight = 0.0;
    const double facing = n.dot(sun);
    for (const Opening& o : openings) {
        const Vec3d normal = o.u.cross(o.v).normalized();
        // Daylight: the opening as a glowing rectangle seen from here.
        const Vec3d centre = o.origin + o.u * 0.5 + o.v * 0.5;
        const Vec3d toCentre = centre - p;
        const double dist2 = std::max(toCentre.dot(toCentre), 1.0);
        const Vec3d dir = toCentre / std::sqrt(dist2);
        const double area = o.u.cross(o.v).length();
        const double cosHere = std::max(0.0, n.dot(dir));
        const double cosThere = std::max(0.0, -normal.dot(dir));
        skyLight += area * cosHere * cosThere / (3.14159 * dist2 + area);
        // Sun: does the ray towards the sun leave through this opening?
        const double across = sun.dot(normal);
        if (facing <= 0.0 || across >= -1e-6) {
            continue;
        }
        const double t = (o.origin - p).dot(normal) / across;
        if (t <= 0.0) {
            continue;
        }
        const Vec3d hit = p + sun * t;
        const double s = (hit - o.origin).dot(o.u) / o.u.dot(o.u);
        const double r = (hit - o.origin).dot(o.v) / o.v.dot(o.v);
        const double soft = 0.006 * t + 4.0;
        const double cover = softBox(s, soft / o.u.length()) * softBox(r, soft / o.v.length());
        if (cover <= 0.0) {
            continue;
        }
        bool blocked = false;
        for (const Box& b : occluders) {
            if (hits(b, p, sun, t)) {
                blocked = true;
                break;
            }
        }
        if (!blocked) {
            sunLight = std::max(sunLight, cover * facing);
        }
    }

    double lampLight = 0.0;
    for (const Lamp& lamp : lamps) {
        constexpr int samples = 6;
        for (int i = 0; i < samples; ++i) {
            const Vec3d q = lamp.a + (lamp.b - lamp.a) * ((i + 0.5) / samples);
            const Vec3d d = q - p;
            const double dist2 = d.dot(d);
            const double cosHere = std::max(0.0, n.dot(d / std::sqrt(std::max(dist2, 1.0))));
            lampLight += lamp.strength * cosHere / (1.0 + dist2 / (420.0 * 420.0)) / samples;
        }
    }
    const double ambient = 0.28 * occlusion;
    const double sky = skyStrength * 2.6 * skyLight * std::sqrt(occlusion);
    const double sunlit = sunStrength * sunLight;
    const double lamps = lampLight * occlusion;
    // Channel weights: ambient and daylight a little blue, sun and lamps warm.
    return {ambient * 0.96 + sky * 0.9 + sunlit * 1.08 + lamps * 1.1, ambient * 0.99 + sky * 0.97 + sunlit * 0.98 + lamps * 0.95,
            ambient * 1.06 + sky * 1.1 + sunlit * 0.82 + lamps * 0.72};
}

std::array<double, 3> Interior::colour(Surface surface, const Vec3d& p, const Vec3d& n) const {
    switch (surface) {
    case Surface::OUTSIDE: {
        const double h = std::clamp(p.z / 1400.0, 0.0, 1.0);
        return {0.93 + 0.05 * h, 0.95 + 0.03 * h, 0.97 + 0.02 * h};
    }
    case Surface::LAMP:
        return {1.0, 0.94, 0.82};
    case Surface::GLASS:
        return {0.9, 0.94, 0.99};
    default:
        break;
    }
    // Cast concrete: a warm grey, clouded, with the seams and tie holes of its formwork.
    const double cloud = core::Noise::fbm(p.x / 160.0 + p.z / 230.0, p.y / 160.0 - p.z / 190.0, 4, 5u);
    const double grain = core::Noise::fbm(p.x / 9.0 + p.z / 11.0, p.y / 9.0 + p.z / 7.0, 2, 9u);
    double base = (surface == Surface::FLOOR ? 0.5 : 0.57) + 0.05 * cloud + 0.025 * grain;
    if (surface != Surface::FLOOR) {
        // Along the wall and up it: which axis runs along depends on the facing.
        const double along = std::fabs(n.x) > 0.5 ? p.y : p.x;
        const double up = std::fabs(n.z) > 0.5 ? p.y : p.z;
        const double sx = std::fmod(std::fabs(along), 250.0);
        const double sy = std::fmod(std::fabs(up), 125.0);
        const double seam = std::min({sx, 250.0 - sx, sy, 125.0 - sy});
        base -= 0.05 * (1.0 - smoothstep(0.5, 2.5, seam));
        const double hx = std::fmod(std::fabs(along) + 62.5, 125.0) - 62.5;
        const double hy = std::fmod(std::fabs(up) + 31.25, 125.0) - 31.25;
        base -= 0.16 * (1.0 - smoothstep(3.0, 5.5, std::hypot(hx, hy)));
    } else {
        // Saw cuts in the slab and a faint sheen of polish.
        const double cx = std::fmod(std::fabs(p.x), 600.0);
        const double cy = std::fmod(std::fabs(p.y), 600.0);
        base -= 0.06 * (1.0 - smoothstep(0.5, 2.0, std::min({cx, 600.0 - cx, cy, 600.0 - cy})));
    }
    const auto lit = light(p, n);
    const double r = 1.0 - std::exp(-base * 1.02 * lit[0] * 2.0);
    const double g = 1.0 - std::exp(-base * 1.0 * lit[1] * 2.0);
    const double b = 1.0 - std::exp(-base * 0.96 * lit[2] * 2.0);
    return {r, g, b};
}

mesh::MeshData Interior::bake(int part, core::Image& atlas, Band plain, Band glowing) const {
    struct Slot {
        std::size_t panel;
        int x, y, w, h; // texels, padding included
    };
    constexpr int pad = 4;
    const int width = atlas.width();
    const int height = atlas.height();

    // Shelf packing at `density` texels per unit inside [x0, x1); false when it does not fit.
    auto pack = [&](const std::vector<std::size_t>& which, double density, int x0, int x1, std::vector<Slot>& out) {
        std::vector<std::size_t> order = which;
        auto size = [&](std::size_t i) {
            return std::pair{static_cast<int>(std::ceil(panels[i].u.length() * density)) + 2 * pad,
                             static_cast<int>(std::ceil(panels[i].v.length() * density)) + 2 * pad};
        };
        std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return size(a).second > size(b).second; });
        out.clear();
        int x = x0, y = 0, row = 0;
        for (std::size_t i : order) {
            auto [w, h] = size(i);
            if (w > x1 - x0) {
                return false;
            }
            if (x + w > x1) {
                x = x0;
                y += row;
                row = 0;
            }
            if (y + h > height) {
                return false;
            }
            out.push_back({i, x, y, w, h});
            x += w;
            row = std::max(row, h);
        }
        return true;
    };
    auto fit = [&](const std::vector<std::size_t>& which, Band band, std::vector<Slot>& out) {
        const int x0 = static_cast<int>(std::lround(band.from * width));
        const int x1 = static_cast<int>(std::lround(band.to * width));
        if (which.empty()) {
            out.clear();
            return;
        }
        double lo = 0.001, hi = 10.0;
        for (int step = 0; step < 40; ++step) {
            const double mid = std::sqrt(lo * hi);
            std::vector<Slot> trial;
            (pack(which, mid, x0, x1, trial) ? lo : hi) = mid;
        }
        if (!pack(which, lo, x0, x1, out)) {
            throw std::runtime_error("Interior panels do not fit their atlas");
        }
    };

    std::vector<std::size_t> plainPanels, glowingPanels;
    for (std::size_t i = 0; i < panels.size(); ++i) {
        if (panels[i].part == part) {
            (glows(panels[i].surface) ? glowingPanels : plainPanels).push_back(i);
        }
    }
    std::vector<Slot> slots, glowSlots;
    fit(plainPanels, plain, slots);
    fit(glowingPanels, glowing, glowSlots);
    slots.insert(slots.end(), glowSlots.begin(), glowSlots.end());
    std::sort(slots.begin(), slots.end(), [](const Slot& a, const Slot& b) { return a.panel < b.panel; });

    // Paint the slots on two threads; each writes only its own rectangles.
    auto paint = [&](std::size_t first) {
        for (std::size_t k = first; k < slots.size(); k += 2) {
            const Slot& slot = slots[k];
            const Panel& panel = panels[slot.panel];
            const Vec3d n = panel.u.cross(panel.v).normalized();
            const int innerW = slot.w - 2 * pad;
            const int innerH = slot.h - 2 * pad;
            for (int ty = 0; ty < slot.h; ++ty) {
                for (int tx = 0; tx < slot.w; ++tx) {
                    // Padding texels continue the panel beyond its edge, so that filtering at
                    // the seam finds the panel's own light.
                    const double s = (tx - pad + 0.5) / innerW;
                    const double t = (ty - pad + 0.5) / innerH;
                    const Vec3d p = panel.origin + panel.u * s + panel.v * t;
                    const auto c = colour(panel.surface, p, n);
                    atlas.at(slot.x + tx, slot.y + ty) = {static_cast<float>(c[0]), static_cast<float>(c[1]),
                                                          static_cast<float>(c[2]), 1.0f};
                }
            }
        }
    };
    std::thread helper(paint, 1);
    paint(0);
    helper.join();

    std::stable_sort(slots.begin(), slots.end(),
                     [&](const Slot& a, const Slot& b) { return panels[a.panel].layer < panels[b.panel].layer; });
    mesh::MeshData out;
    for (const Slot& slot : slots) {
        const Panel& panel = panels[slot.panel];
        const int innerW = slot.w - 2 * pad;
        const int innerH = slot.h - 2 * pad;
        auto corner = [&](double s, double t) {
            mesh::Vertex v;
            v.position = panel.origin + panel.u * s + panel.v * t;
            v.u = (slot.x + pad + s * innerW) / width;
            v.v = (slot.y + pad + t * innerH) / height;
            return out.add(v);
        };
        // Each quad reaches a little past its edges, into its padding texels, so that panels
        // meeting at a seam overlap: half-float positions move vertices by up to a unit, and
        // seams with vertices on one side only (T-junctions) would otherwise open hairline
        // cracks through which the clear colour shows.
        const double ds = kSeamOverlap / panel.u.length();
        const double dt = kSeamOverlap / panel.v.length();
        const std::uint32_t a = corner(-ds, -dt), b = corner(1 + ds, -dt), c = corner(1 + ds, 1 + dt),
                            d = corner(-ds, 1 + dt);
        out.triangle(a, b, c);
        out.triangle(a, c, d);
        out.triangle(a, c, b); // the back, for passes that take the other winding as front
        out.triangle(a, d, c);
    }
    return out;
}

} // namespace tools::assetgen::betonia
