#include "tools/assetgen/nivalis/Terrain.h"

#include <algorithm>
#include <cmath>

#include "tools/assetgen/core/Noise.h"

namespace tools::assetgen::nivalis {

namespace {

double smoothstep(double edge0, double edge1, double x) {
    const double t = std::clamp((x - edge0) / (edge1 - edge0), 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

double lerp(double a, double b, double t) { return a + (b - a) * t; }

/// Signed distance to a closed polygon, positive inside.
double polygonDistance(const std::vector<core::Polyline::Point>& poly, double x, double y) {
    double best = 1e300;
    bool inside = false;
    const std::size_t n = poly.size();
    for (std::size_t i = 0, j = n - 1; i < n; j = i++) {
        const auto& a = poly[j];
        const auto& b = poly[i];
        const double ex = b.x - a.x;
        const double ey = b.y - a.y;
        const double t = std::clamp(((x - a.x) * ex + (y - a.y) * ey) / (ex * ex + ey * ey), 0.0, 1.0);
        const double dx = a.x + ex * t - x;
        const double dy = a.y + ey * t - y;
        best = std::min(best, dx * dx + dy * dy);
        if ((a.y > y) != (b.y > y) && x < a.x + (y - a.y) * ex / ey) {
            inside = !inside;
        }
    }
    const double d = std::sqrt(best);
    return inside ? d : -d;
}

/// Distance outside the ellipse of a pad (0 inside), in world units.
double padDistance(const Geography::Pad& pad, double x, double y) {
    const double a = pad.direction * 3.14159265358979323846 / 180.0;
    const double dx = x - pad.x;
    const double dy = y - pad.y;
    const double u = dx * std::cos(a) + dy * std::sin(a);
    const double v = -dx * std::sin(a) + dy * std::cos(a);
    const double r = std::hypot(u, v);
    if (r == 0.0) {
        return 0.0;
    }
    const double c = u / r;
    const double s = v / r;
    const double edge = pad.along * pad.across / std::hypot(pad.across * c, pad.along * s);
    return std::max(0.0, r - edge);
}

} // namespace

Terrain::Terrain(const Geography& geography) : geography_(geography) {}

const Terrain& Terrain::shared() {
    static const Terrain instance(Geography::shared());
    return instance;
}

double Terrain::coastDistance(int index, double x, double y) const {
    const auto& island = geography_.islands[index];
    const double calm = calmWeight(index, x, y);
    const double noise = core::Noise::fbm(x / 3800.0, y / 3800.0, 2, island.seed + 3u) * island.coastNoise * 1.6 +
                         core::Noise::fbm(x / 1500.0, y / 1500.0, 3, island.seed) * island.coastNoise +
                         core::Noise::fbm(x / 420.0, y / 420.0, 2, island.seed + 5u) * island.coastNoise * 0.3;
    double d = polygonDistance(island.outline, x, y) + noise * (1.0 - 0.85 * calm);
    for (const auto& bay : island.bays) {
        const double wobble = core::Noise::fbm(x / 300.0, y / 300.0, 2, island.seed + 7u) * bay.radius * 0.25;
        d = std::min(d, std::hypot(x - bay.x, y - bay.y) - bay.radius + wobble);
    }
    return d;
}

double Terrain::calmWeight(int index, double x, double y) const {
    double weight = 0.0;
    for (const auto& zone : geography_.islands[index].calm) {
        const double nx = (x - zone.x) / zone.radiusX;
        const double ny = (y - zone.y) / zone.radiusY;
        const double r = std::hypot(nx, ny);
        // Distance outside the ellipse, roughly in world units.
        const double outside = std::max(0.0, r - 1.0) * std::min(zone.radiusX, zone.radiusY);
        weight = std::max(weight, 1.0 - smoothstep(0.0, zone.fade, outside));
    }
    return weight;
}

double Terrain::heightOf(int index, double x, double y) const {
    const auto& island = geography_.islands[index];
    const double d = coastDistance(index, x, y);
    if (d < -1500.0) {
        return SEA_FLOOR;
    }
    const unsigned seed = island.seed;
    // The shelf: an ice cliff at the coast, then a gently rolling top.
    const double roll = core::Noise::fbm(x / 1100.0, y / 1100.0, 3, seed + 11u);
    double shelf = island.shelfHeight * (1.0 + 0.18 * roll) + 25.0 * smoothstep(400.0, 2500.0, d);
    const double cliff = smoothstep(0.0, island.cliffWidth, d);
    double ground = d < 0.0 ? std::max(SEA_FLOOR, -40.0 + d * 0.25) : lerp(-40.0, shelf, cliff);

    // Level ground where the scene puts its animals.
    // Later zones lie over earlier ones (a terrace on a shelf).
    for (const auto& zone : island.calm) {
        const double nx = (x - zone.x) / zone.radiusX;
        const double ny = (y - zone.y) / zone.radiusY;
        const double outside = std::max(0.0, std::hypot(nx, ny) - 1.0) * std::min(zone.radiusX, zone.radiusY);
        const double weight = 1.0 - smoothstep(0.0, zone.fade, outside);
        if (weight > 0.0) {
            const double level = zone.level + zone.roughness * core::Noise::fbm(x / 500.0, y / 500.0, 2, seed + 17u);
            ground = lerp(ground, lerp(-40.0, level, cliff), weight);
        }
    }
    const double calm = calmWeight(index, x, y);

    // Mountains: massifs of ridged noise inland, highest near each peak.
    double mountain = 0.0;
    const double ridge = core::Noise::ridged(x / 2100.0, y / 2100.0, 5, seed + 23u);
    const double lumps = 0.5 + 0.5 * core::Noise::fbm(x / 4200.0, y / 4200.0, 3, seed + 29u);
    for (const auto& peak : island.peaks) {
        const double r = std::hypot(x - peak.x, y - peak.y);
        if (r >= peak.radius) {
            continue;
        }
        const double fall = 1.0 - r / peak.radius;
        const double cone = std::pow(fall * fall * (3.0 - 2.0 * fall), 0.85);
        mountain = std::max(mountain, peak.height * cone * (0.2 + 0.75 * ridge + 0.3 * lumps));
    }
    const double inland = smoothstep(60.0, 1100.0, d);
    double height = ground + mountain * inland * (1.0 - calm);

    // Rocks standing out of the shelf.
    for (const auto& rock : island.outcrops) {
        const double r = std::hypot(x - rock.x, y - rock.y);
        if (r < rock.radius) {
            const double fall = 1.0 - r / rock.radius;
            const double crag = 0.55 + 0.6 * core::Noise::ridged(x / 260.0, y / 260.0, 3, seed + 31u);
            height = std::max(height, ground + rock.height * std::pow(fall, 1.3) * crag * cliff);
        }
    }
    return height;
}

double Terrain::islandHeight(double x, double y) const {
    double h = SEA_FLOOR;
    for (int i = 0; i < static_cast<int>(geography_.islands.size()); ++i) {
        h = std::max(h, heightOf(i, x, y));
    }
    return h;
}

int Terrain::islandAt(double x, double y) const {
    int best = -1;
    double bestHeight = -1e9;
    for (int i = 0; i < static_cast<int>(geography_.islands.size()); ++i) {
        const double h = heightOf(i, x, y);
        if (h > bestHeight && coastDistance(i, x, y) > -1500.0) {
            bestHeight = h;
            best = i;
        }
    }
    return best;
}

double Terrain::height(double x, double y) const {
    double h = islandHeight(x, y);

    // Open water along every ship course.
    for (const auto& course : geography_.courses) {
        const double d = course.distance(x, y, 2300.0);
        if (d < 2300.0) {
            const double keep = smoothstep(Geography::LANE_CLEAR, 2300.0, d);
            h = lerp(std::min(h, -60.0), h, keep);
        }
    }

    // Land stays below the camera eyes, with a soft shoulder.
    for (const auto& flight : geography_.flights) {
        const double ex = flight.to.x - flight.from.x;
        const double ey = flight.to.y - flight.from.y;
        const double t = std::clamp(((x - flight.from.x) * ex + (y - flight.from.y) * ey) / (ex * ex + ey * ey), 0.0, 1.0);
        const double d = std::hypot(flight.from.x + ex * t - x, flight.from.y + ey * t - y);
        if (d < 2600.0) {
            const double cap = flight.from.z + (flight.to.z - flight.from.z) * t - Geography::EYE_CLEARANCE;
            const double keep = smoothstep(700.0, 2600.0, d);
            h = lerp(std::min(h, cap), h, keep);
        }
    }

    // Exact heights under the walking seals, then under every resting animal.
    for (const auto& track : geography_.tracks) {
        const double d = track.path.distance(x, y, track.halfWidth + track.blend);
        if (d < track.halfWidth + track.blend) {
            h = lerp(track.height, h, smoothstep(track.halfWidth, track.halfWidth + track.blend, d));
        }
    }
    for (const auto& pad : geography_.pads) {
        const double d = padDistance(pad, x, y);
        if (d < pad.blend) {
            h = lerp(pad.height, h, smoothstep(0.0, pad.blend, d));
        }
    }
    return h;
}

} // namespace tools::assetgen::nivalis
