#include "tools/assetgen/betonia/Rooms.h"

namespace tools::assetgen::betonia {

using core::Vec3d;
using Surface = Interior::Surface;

namespace {

/// A hole of a wall in its s, t units, from world bounds along the wall and up it.
std::array<double, 4> hole(double along0, double along1, double wallFrom, double wallLength, double z0, double z1,
                           double height, bool reversed) {
    double s0 = (along0 - wallFrom) / wallLength;
    double s1 = (along1 - wallFrom) / wallLength;
    if (reversed) {
        s0 = (wallFrom - along1) / wallLength;
        s1 = (wallFrom - along0) / wallLength;
    }
    return {s0, z0 / height, s1, z1 / height};
}

/// Reveals for every hole of a wall.
void reveals(Interior& room, const Vec3d& origin, const Vec3d& u, const Vec3d& v,
             const std::vector<std::array<double, 4>>& holes, double depth, int part = 0) {
    for (const auto& h : holes) {
        room.reveal(origin + u * h[0] + v * h[1], u * (h[2] - h[0]), v * (h[3] - h[1]), depth, part);
    }
}

} // namespace

Interior Rooms::room1() {
    Interior room;
    room.sun = Vec3d{-0.78, 0.28, 0.56}.normalized();
    const double x0 = -1400, x1 = 2450, y0 = -1950, y1 = 1800, h = 1100;
    const double wx = x1 - x0, wy = y1 - y0;

    room.panels.push_back({{x0, y0, 0}, {wx, 0, 0}, {0, wy, 0}, Surface::FLOOR});
    // Ceiling with a skylight, and the light well above it.
    room.wallWithHoles({x0, y1, h}, {wx, 0, 0}, {0, -wy, 0}, Surface::CEILING,
                       {{(400 - x0) / wx, (y1 + 500) / wy, (2000 - x0) / wx, (y1 + 1100) / wy}});
    room.hollow({400, -1100, h}, {2000, -500, h + 250}, Surface::WALL, {false, false, false, false, true, true});
    room.panels.push_back({{400, -500, h + 250}, {1600, 0, 0}, {0, -600, 0}, Surface::OUTSIDE, 0, 0});

    // West wall: two tall windows with the sun, light boxes behind.
    const std::vector<std::array<double, 4>> west = {hole(-1200, -400, y0, wy, 250, 950, h, false),
                                                     hole(200, 1000, y0, wy, 250, 950, h, false)};
    room.wallWithHoles({x0, y0, 0}, {0, wy, 0}, {0, 0, h}, Surface::WALL, west);
    reveals(room, {x0, y0, 0}, {0, wy, 0}, {0, 0, h}, west, 80);
    for (auto [a, b] : {std::pair{-1200.0, -400.0}, std::pair{200.0, 1000.0}}) {
        room.hollow({x0 - 500, a - 350, 0}, {x0 - 80, b + 350, 1300}, Surface::OUTSIDE, {false, true, false, false, false, false});
    }
    // South wall: a doorway to a short corridor with daylight at its end.
    const std::vector<std::array<double, 4>> south = {hole(500, 900, x1, wx, 0, 600, h, true)};
    room.wallWithHoles({x1, y0, 0}, {-wx, 0, 0}, {0, 0, h}, Surface::WALL, south);
    room.hollow({500, y0 - 550, 0}, {900, y0, 600}, Surface::WALL, {false, false, true, true, false, false});
    room.panels.push_back({{900, y0 - 550, 0}, {-400, 0, 0}, {0, 0, 600}, Surface::OUTSIDE, 0, 0});
    // East wall: a ribbon window high up.
    const std::vector<std::array<double, 4>> east = {hole(-1500, 1500, y1, wy, 880, 1040, h, true)};
    room.wallWithHoles({x1, y1, 0}, {0, -wy, 0}, {0, 0, h}, Surface::WALL, east);
    reveals(room, {x1, y1, 0}, {0, -wy, 0}, {0, 0, h}, east, 80);
    room.hollow({x1 + 80, -1750, 650}, {x1 + 400, 1750, 1350}, Surface::OUTSIDE, {true, false, false, false, false, false});
    // North wall: a wide opening onto a lit passage.
    const std::vector<std::array<double, 4>> north = {hole(-400, 600, x0, wx, 0, 700, h, false)};
    room.wallWithHoles({x0, y1, 0}, {wx, 0, 0}, {0, 0, h}, Surface::WALL, north);
    room.hollow({-400, y1, 0}, {600, y1 + 600, 700}, Surface::WALL, {false, false, true, true, false, false});
    room.panels.push_back({{-400, y1 + 600, 0}, {1000, 0, 0}, {0, 0, 700}, Surface::OUTSIDE, 0, 0});
    // Pillars, clear of every camera path.
    for (auto [x, y] : {std::pair{350.0, 250.0}, std::pair{1250.0, 400.0}, std::pair{-900.0, 650.0}, std::pair{500.0, -1400.0}}) {
        room.solid({x - 75, y - 75, 0}, {x + 75, y + 75, h}, Surface::PILLAR, 0, false, false);
    }
    room.creases = {{{0, 0, 0}, {0, 0, 1}}, {{0, 0, h}, {0, 0, -1}}, {{x0, 0, 0}, {1, 0, 0}},
                    {{x1, 0, 0}, {-1, 0, 0}}, {{0, y0, 0}, {0, 1, 0}}, {{0, y1, 0}, {0, -1, 0}}};
    return room;
}

Interior Rooms::room2() {
    Interior room;
    room.sun = Vec3d{0.8, -0.32, 0.5}.normalized();
    room.sunStrength = 1.8;
    const double x0 = -2250, x1 = 1700, y0 = -1450, y1 = 1700, h = 1750;
    const double wx = x1 - x0, wy = y1 - y0;

    // Floor around the pit, and the pit.
    room.wallWithHoles({x0, y0, 0}, {wx, 0, 0}, {0, wy, 0}, Surface::FLOOR,
                       {{(-1650 - x0) / wx, (150 - y0) / wy, (-450 - x0) / wx, (1050 - y0) / wy}}, false);
    room.hollow({-1650, 150, -220}, {-450, 1050, 0}, Surface::WALL, {false, false, false, false, false, true});
    room.panels.back().surface = Surface::FLOOR; // the pit's floor (the last face, -Z)
    room.panels.push_back({{x0, y1, h}, {wx, 0, 0}, {0, -wy, 0}, Surface::CEILING});

    // East wall: two tall windows with the morning sun; glass in part 2.
    const std::vector<std::array<double, 4>> east = {hole(-1100, -500, y1, wy, 300, 1500, h, true),
                                                     hole(-200, 400, y1, wy, 300, 1500, h, true)};
    room.wallWithHoles({x1, y1, 0}, {0, -wy, 0}, {0, 0, h}, Surface::WALL, east);
    reveals(room, {x1, y1, 0}, {0, -wy, 0}, {0, 0, h}, east, 60);
    for (auto [a, b] : {std::pair{-1100.0, -500.0}, std::pair{-200.0, 400.0}}) {
        room.panels.push_back({{x1 + 2, b, 300}, {0, a - b, 0}, {0, 0, 1200}, Surface::GLASS, 2});
    }
    // South wall: clerestory windows.
    const std::vector<std::array<double, 4>> south = {hole(-1900, -800, x1, wx, 1300, 1650, h, true),
                                                      hole(-500, 600, x1, wx, 1300, 1650, h, true),
                                                      hole(900, 1400, x1, wx, 1300, 1650, h, true)};
    room.wallWithHoles({x1, y0, 0}, {-wx, 0, 0}, {0, 0, h}, Surface::WALL, south);
    reveals(room, {x1, y0, 0}, {-wx, 0, 0}, {0, 0, h}, south, 60);
    for (auto [a, b] : {std::pair{-1900.0, -800.0}, std::pair{-500.0, 600.0}, std::pair{900.0, 1400.0}}) {
        room.panels.push_back({{b, y0 - 2, 1300}, {a - b, 0, 0}, {0, 0, 350}, Surface::GLASS, 2});
    }
    // West wall: plain.
    room.panels.push_back({{x0, y0, 0}, {0, wy, 0}, {0, 0, h}, Surface::WALL});
    // North wall: a long window above the gallery.
    const std::vector<std::array<double, 4>> north = {hole(-1500, 1000, x0, wx, 1000, 1550, h, false)};
    room.wallWithHoles({x0, y1, 0}, {wx, 0, 0}, {0, 0, h}, Surface::WALL, north);
    reveals(room, {x0, y1, 0}, {wx, 0, 0}, {0, 0, h}, north, 60);
    room.panels.push_back({{-1500, y1 + 2, 1000}, {2500, 0, 0}, {0, 0, 550}, Surface::GLASS, 2});

    // The gallery: a slab along the north wall with a parapet; only the faces that show.
    const double g0 = 1200, gBottom = 640, gTop = 700;
    room.panels.push_back({{x0, g0, gTop}, {wx, 0, 0}, {0, y1 - g0, 0}, Surface::FLOOR, 0, 2});
    room.panels.push_back({{x0, y1, gBottom}, {wx, 0, 0}, {0, g0 - y1, 0}, Surface::CEILING, 0, 2});
    room.panels.push_back({{x0, g0, gBottom}, {wx, 0, 0}, {0, 0, gTop - gBottom + 100}, Surface::WALL, 0, 2});
    room.panels.push_back({{x1, g0 + 20, gTop}, {-wx, 0, 0}, {0, 0, 100}, Surface::WALL, 0, 2});
    room.panels.push_back({{x0, g0, gTop + 100}, {wx, 0, 0}, {0, 20, 0}, Surface::WALL, 0, 2});
    room.occluders.push_back({{x0, g0, gBottom}, {x1, y1, gTop + 100}});

    // Pillars near the corners, clear of every camera path.
    for (auto [x, y] : {std::pair{-1900.0, -1100.0}, std::pair{1350.0, -1100.0}, std::pair{1350.0, 1000.0},
                        std::pair{-1900.0, 1000.0}}) {
        room.solid({x - 80, y - 80, 0}, {x + 80, y + 80, h}, Surface::PILLAR, 0, false, false);
    }
    // Light strips hanging under the ceiling: part 1, and lamps for the baked light.
    for (double x : {-1200.0, 0.0, 1000.0}) {
        for (double y : {-650.0, 350.0}) {
            room.solid({x - 350, y - 18, 1360}, {x + 350, y + 18, 1385}, Surface::LAMP, 1, true);
            room.lamps.push_back({{x - 330, y, 1355}, {x + 330, y, 1355}, 0.35});
        }
    }
    room.creases = {{{0, 0, 0}, {0, 0, 1}}, {{0, 0, h}, {0, 0, -1}}, {{x0, 0, 0}, {1, 0, 0}},
                    {{x1, 0, 0}, {-1, 0, 0}}, {{0, y0, 0}, {0, 1, 0}}, {{0, y1, 0}, {0, -1, 0}}};
    return room;
}

} // namespace tools::assetgen::betonia
