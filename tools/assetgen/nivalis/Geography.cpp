#include "tools/assetgen/nivalis/Geography.h"

#include <algorithm>
#include <cmath>

#include "scenes/nivalis/Cameras.h"
#include "scenes/nivalis/Penguins.h"
#include "scenes/nivalis/Seals.h"
#include "scenes/nivalis/ShipsConfig.h"
#include "tools/assetgen/core/Rng.h"
#include "tools/assetgen/nivalis/PenguinModel.h"
#include "tools/assetgen/nivalis/Terrain.h"
#include "tools/assetgen/nivalis/SealModel.h"

namespace tools::assetgen::nivalis {

namespace {

constexpr double kDegrees = 3.14159265358979323846 / 180.0;

core::Vec3d direction(double azimuthDegrees, double elevationDegrees) {
    const double a = azimuthDegrees * kDegrees;
    const double e = elevationDegrees * kDegrees;
    return {std::cos(e) * std::cos(a), std::cos(e) * std::sin(a), std::sin(e)};
}

core::Polyline sample(engine::camera::Spline3D& spline, int steps) {
    std::vector<core::Polyline::Point> points;
    for (int i = 0; i <= steps; ++i) {
        const auto& p = spline.getCurrentPoint(static_cast<double>(i) / steps);
        points.push_back({p.x, p.y});
    }
    return core::Polyline(points);
}

std::vector<Geography::Island> makeIslands() {
    using Calm = Geography::CalmZone;
    using Shelf = Geography::Shelf;
    std::vector<Geography::Island> islands;
    // The penguins' coast: a low ice shelf with the colony on it, a terrace behind, mountains north.
    islands.push_back({"penguin coast",
                       {{-14200, 7600}, {-13150, 6500}, {-12000, 6250}, {-10500, 6350}, {-9000, 6050},
                        {-7000, 6600}, {-5200, 8000}, {-4100, 10500}, {-3900, 13000}, {-5000, 16000},
                        {-8000, 17800}, {-12000, 17600}, {-15500, 16000}, {-16800, 13000}, {-16000, 10000},
                        {-15000, 8600}},
                       33.5, 70.0, 320.0, Shelf::ICE,
                       {{-13600, 12900, 3600, 2600}, {-10000, 14300, 3300, 2300}, {-6800, 12300, 3000, 1900},
                        {-15200, 15200, 2500, 1700}, {-6000, 15600, 2200, 1500}},
                       {Calm{-11200, 7800, 2200, 1800, 33.5, 1.5, 900}, Calm{-10050, 8520, 650, 900, 67.7, 1.0, 70}},
                       {{-11900, 9650, 560}, {-8650, 8900, 420}, {-13600, 8300, 380}},
                       {{-13300, 9900, 520, 300}, {-8500, 10500, 650, 380}, {-12600, 11200, 600, 420},
                        {-9600, 6900, 260, 120}},
                       165.0, 11u});
    // The seals' land: a snow plateau at the walking height, mountains to the south and east.
    islands.push_back({"seal plateau",
                       {{-16500, -5500}, {-12000, -4300}, {-8000, -4700}, {-5200, -6500}, {-4300, -9500},
                        {-5000, -13500}, {-7000, -16800}, {-11000, -17800}, {-14500, -17000}, {-16800, -14000},
                        {-17500, -9000}},
                       204.8, 90.0, 320.0, Shelf::SNOW,
                       {{-12000, -15600, 3200, 2800}, {-7600, -14600, 2800, 2400}, {-5900, -9300, 2200, 1800},
                        {-15800, -12200, 2400, 2000}, {-9800, -16600, 2000, 1900}},
                       {Calm{-10800, -10600, 3700, 3300, 204.8, 5.0, 900}},
                       {{-14900, -7000, 650}},
                       {{-7600, -11700, 420, 340}, {-13900, -12400, 520, 420}, {-11700, -7000, 380, 260}},
                       165.0, 23u});
    // The island the southern cameras look at: an ice shelf at the height they aim for.
    islands.push_back({"south-east island",
                       {{5800, -6200}, {9000, -5600}, {12500, -6000}, {15500, -7500}, {17000, -10500},
                        {16500, -14500}, {14000, -17000}, {10000, -17500}, {6800, -16000}, {5400, -12500},
                        {5200, -9000}},
                       150.0, 80.0, 300.0, Shelf::ICE,
                       {{12300, -13800, 3300, 3200}, {8200, -14800, 2500, 2200}, {15200, -10200, 2200, 2000},
                        {10200, -11500, 1800, 900}},
                       {},
                       {},
                       {},
                       185.0, 37u});
    // Two northern islands inside the long northern course, a strait between them.
    islands.push_back({"north-west island",
                       {{-22500, 34500}, {-23200, 29000}, {-21800, 25200}, {-17500, 23200}, {-12000, 22600},
                        {-9800, 25500}, {-11000, 28500}, {-13500, 32500}, {-16500, 35500}, {-19500, 36200}},
                       60.0, 80.0, 380.0, Shelf::ICE,
                       {{-19000, 30000, 4500, 3400}, {-15500, 26800, 3200, 2400}, {-21000, 26000, 2500, 1800}},
                       {},
                       {},
                       {},
                       260.0, 41u});
    islands.push_back({"north-east island",
                       {{-3200, 23600}, {-1200, 23700}, {1000, 23000}, {4600, 22300}, {3400, 24000}, {1200, 24600},
                        {2600, 25200}, {600, 27400}, {0, 28200}, {-1400, 29000}, {-3000, 30500}, {-4600, 29200},
                        {-6500, 29500}, {-5200, 28200}, {-6000, 26500}, {-4500, 24500}},
                       50.0, 70.0, 420.0, Shelf::ICE,
                       {{-1800, 26600, 3000, 2600}, {1800, 23800, 1800, 1400}},
                       {},
                       {},
                       {},
                       240.0, 43u});
    // The large western island inside the south-western course.
    islands.push_back({"west island",
                       {{-32500, -9500}, {-32700, -3000}, {-33300, 3500}, {-36000, 5800}, {-40500, 6500},
                        {-45000, 5500}, {-47600, 2000}, {-48800, -1500}, {-48000, -5500}, {-45500, -8000},
                        {-41500, -9000}, {-37000, -11000}, {-34200, -12300}},
                       80.0, 90.0, 420.0, Shelf::ICE,
                       {{-41000, -1500, 6000, 4300}, {-36800, 2300, 3800, 3000}, {-44800, -4800, 3600, 3100},
                        {-36000, -8000, 3000, 2200}},
                       {},
                       {},
                       {},
                       380.0, 53u});
    // A rock inside the small south-western loop.
    islands.push_back({"skerry",
                       {{-15300, -23500}, {-16000, -22400}, {-17200, -22500}, {-17800, -23500}, {-17200, -24600},
                        {-16000, -24700}},
                       25.0, 60.0, 150.0, Shelf::ICE,
                       {{-16600, -23500, 1100, 800}},
                       {},
                       {},
                       {},
                       150.0, 59u});
    // Land beyond the eastern end of the long course.
    islands.push_back({"east land",
                       {{29000, -12000}, {29200, -2500}, {29500, 5000}, {32500, 11500}, {37500, 10500},
                        {40000, 1000}, {37500, -9500}, {33000, -16000}, {29500, -16500}},
                       90.0, 90.0, 450.0, Shelf::ICE,
                       {{35000, 0, 5500, 4600}, {33500, -10000, 4200, 3600}, {34500, 8000, 3500, 2800}},
                       {},
                       {},
                       {},
                       450.0, 61u});
    return islands;
}

} // namespace

Geography::Geography() : islands(makeIslands()) {
    // Ship courses: whole laps of each spline.
    for (const auto& ship : scenes::nivalis::ShipsConfig::shared().SHIPS) {
        courses.push_back(sample(*ship.spline, 2400));
    }
    // Walking seals: flat ground along each whole path, wide enough for the body.
    const auto& seals = scenes::nivalis::Seals::shared();
    for (const auto& seal : seals.WALKING) {
        if (!seal.spline) {
            continue;
        }
        const double z = seal.spline->getCurrentPoint(0.0).z;
        const double halfWidth = SealModel::WIDTH * 0.5 * seal.scale + 30.0;
        tracks.push_back({sample(*seal.spline, 900), z, halfWidth, 110.0});
    }
    // Resting seals lie in basins shaped like their bodies (the head along -Y of the model, turned
    // by the seal's rotation), level under the body and rising to the walking height as far out
    // as the walks around them allow.
    for (const auto& seal : seals.IDLE) {
        Pad pad{seal.position.x, seal.position.y, seal.position.z, SealModel::LENGTH * 0.5 * seal.scale + 25.0,
                SealModel::WIDTH * 0.5 * seal.scale + 25.0, static_cast<double>(seal.rotation.z) - 90.0, 380.0};
        const double axis = pad.direction * 3.14159265358979323846 / 180.0;
        for (const auto& track : tracks) {
            for (const auto& q : track.path.points()) {
                const double dx = q.x - pad.x;
                const double dy = q.y - pad.y;
                const double d = std::hypot(dx, dy);
                if (d > 2000.0 || d == 0.0) {
                    continue;
                }
                // Radius of the body's ellipse towards that point of the walk.
                const double c = (dx * std::cos(axis) + dy * std::sin(axis)) / d;
                const double s = (-dx * std::sin(axis) + dy * std::cos(axis)) / d;
                const double edge = pad.along * pad.across / std::hypot(pad.across * c, pad.along * s);
                pad.blend = std::min(pad.blend, d - edge - track.halfWidth - 15.0);
            }
        }
        pad.blend = std::max(pad.blend, 30.0);
        pads.push_back(pad);
    }
    // Penguins stand on small level patches.
    const auto& penguins = scenes::nivalis::Penguins::shared();
    for (const auto* group : {&penguins.IDLE, &penguins.IDLE2}) {
        for (const auto& penguin : *group) {
            const double r = PenguinModel::FOOT_RADIUS * penguin.scale + 28.0;
            pads.push_back({penguin.position.x, penguin.position.y, penguin.position.z, r, r, 0.0, 100.0});
        }
    }
    for (const auto& pair : scenes::nivalis::Cameras::shared().CAMERAS) {
        const auto& a = pair->start.position;
        const auto& b = pair->end.position;
        flights.push_back({{a.x, a.y, a.z}, {b.x, b.y, b.z}});
    }
    placeIcebergs();
}

void Geography::placeIcebergs() {
    // Scattered over open water, clear of the courses, the cameras' ground tracks and the land.
    const Terrain terrain(*this);
    core::Rng rng(0x1CEB3Eull);
    for (int attempt = 0; attempt < 4000 && icebergs.size() < 70; ++attempt) {
        const double a = rng.uniform(0.0, 6.283185307179586);
        const double r = std::sqrt(rng.uniform()) * 40000.0;
        const double x = CENTRE_X + r * std::cos(a);
        const double y = CENTRE_Y + r * std::sin(a);
        const double radius = 120.0 + 520.0 * std::pow(rng.uniform(), 2.0);
        const double height = 18.0 + radius * rng.uniform(0.06, 0.14);
        bool clear = true;
        for (const auto& course : courses) {
            clear = clear && course.distance(x, y, ICEBERG_CLEAR + radius) >= ICEBERG_CLEAR + radius;
        }
        for (const auto& f : flights) {
            const core::Polyline track({{f.from.x, f.from.y}, {f.to.x, f.to.y}});
            clear = clear && track.distance(x, y, ICEBERG_CLEAR + radius) >= ICEBERG_CLEAR + radius;
        }
        for (const auto& other : icebergs) {
            clear = clear && std::hypot(x - other.x, y - other.y) > (radius + other.radius) * 3.0 + 800.0;
        }
        for (double k = 0.0; clear && k < 6.28; k += 0.785) {
            clear = terrain.height(x + (radius + 600.0) * std::cos(k), y + (radius + 600.0) * std::sin(k)) < -40.0;
        }
        if (clear && terrain.height(x, y) < -40.0) {
            icebergs.push_back({x, y, radius, height, static_cast<unsigned>(rng.next())});
        }
    }
}

core::Vec3d Geography::keyLight() const { return direction(-160.0, 40.0); }
core::Vec3d Geography::highSun() const { return direction(-104.0, 13.5); }
core::Vec3d Geography::lowSun() const { return direction(-32.0, 3.2); }

const Geography& Geography::shared() {
    static const Geography instance;
    return instance;
}

} // namespace tools::assetgen::nivalis
