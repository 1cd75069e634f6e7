// Betonia's rooms and the sample valley: the cameras stay inside the rooms and clear of their
// pillars, the panels tile the walls around the openings, the baked atlas agrees with the mesh
// that reads it, the light falls where it should; the alpaca stands on its rock and eats.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "scenes/betonia/Cameras.h"
#include "scenes/example/Cameras.h"
#include "tools/assetgen/betonia/BetoniaAssets.h"
#include "tools/assetgen/betonia/Rooms.h"
#include "tools/assetgen/example/Alpaca.h"
#include "tools/assetgen/example/Valley.h"

namespace {

using tools::assetgen::betonia::Interior;
using tools::assetgen::betonia::Rooms;
using tools::assetgen::core::Vec3d;

struct Box {
    Vec3d lo, hi;
};

/// The space a room's floor, ceiling and walls enclose (the pit and light wells not included).
Box shellOf(const Interior& room) {
    Box box{{1e9, 1e9, 1e9}, {-1e9, -1e9, -1e9}};
    for (const auto& p : room.panels) {
        if (p.layer != 1 || p.part != 0) {
            continue;
        }
        for (const Vec3d& c : {p.origin, p.origin + p.u, p.origin + p.v, p.origin + p.u + p.v}) {
            box.lo = {std::min(box.lo.x, c.x), std::min(box.lo.y, c.y), std::min(box.lo.z, c.z)};
            box.hi = {std::max(box.hi.x, c.x), std::max(box.hi.y, c.y), std::max(box.hi.z, c.z)};
        }
    }
    return box;
}

/// Distance from `p` to the box, 0 inside.
double outside(const Interior::Box& b, const Vec3d& p) {
    const double dx = std::max({b.lo.x - p.x, 0.0, p.x - b.hi.x});
    const double dy = std::max({b.lo.y - p.y, 0.0, p.y - b.hi.y});
    const double dz = std::max({b.lo.z - p.z, 0.0, p.z - b.hi.z});
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

TEST(Rooms, EveryCameraEyeStaysInsideItsRoomAndClearOfPillars) {
    const auto& cameras = scenes::betonia::Cameras::shared().CAMERAS;
    const Interior rooms[2] = {Rooms::room1(), Rooms::room2()};
    for (int r = 0; r < 2; ++r) {
        const Box shell = shellOf(rooms[r]);
        ASSERT_FALSE(cameras[r].empty());
        for (const auto& pair : cameras[r]) {
            for (int i = 0; i <= 50; ++i) {
                const double t = i / 50.0;
                const auto& a = pair->start.position;
                const auto& b = pair->end.position;
                const Vec3d eye{a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t, a.z + (b.z - a.z) * t};
                SCOPED_TRACE("room " + std::to_string(r + 1) + " eye " + std::to_string(eye.x) + ", " +
                             std::to_string(eye.y) + ", " + std::to_string(eye.z));
                // Walls further than the near plane (20), floor below, ceiling above.
                ASSERT_GT(eye.x - shell.lo.x, 20.0);
                ASSERT_GT(shell.hi.x - eye.x, 20.0);
                ASSERT_GT(eye.y - shell.lo.y, 20.0);
                ASSERT_GT(shell.hi.y - eye.y, 20.0);
                ASSERT_GT(eye.z - shell.lo.z, 0.0);
                ASSERT_GT(shell.hi.z - eye.z, 20.0);
                for (const auto& pillar : rooms[r].occluders) {
                    ASSERT_GT(outside(pillar, eye), 40.0);
                }
            }
        }
    }
}

TEST(Rooms, WallsAroundOpeningsLeaveExactlyTheHoles) {
    Interior room;
    // A wall of 1000 x 400 with two windows: 0.1..0.3 x 0.25..0.75 and 0.6..0.9 x 0.5..1.
    room.wallWithHoles({0, 0, 0}, {1000, 0, 0}, {0, 0, 400}, Interior::Surface::WALL,
                       {{0.1, 0.25, 0.3, 0.75}, {0.6, 0.5, 0.9, 1.0}});
    double area = 0.0;
    for (const auto& p : room.panels) {
        area += p.u.cross(p.v).length();
        // No panel covers the middle of a hole.
        for (const Vec3d& hole : {Vec3d{200, 0, 200}, Vec3d{750, 0, 300}}) {
            const double s = (hole - p.origin).dot(p.u) / p.u.dot(p.u);
            const double t = (hole - p.origin).dot(p.v) / p.v.dot(p.v);
            EXPECT_FALSE(s > 0 && s < 1 && t > 0 && t < 1);
        }
        // Panels face the way the wall does (-Y here: u x v = X x Z).
        EXPECT_NEAR(p.u.cross(p.v).normalized().y, -1.0, 1e-12);
    }
    EXPECT_NEAR(area, 1000.0 * 400.0 - 200.0 * 200.0 - 300.0 * 200.0, 1e-6);
    ASSERT_EQ(room.openings.size(), 2u);
    EXPECT_NEAR(room.openings[1].u.length(), 300.0, 1e-9);

    room.reveal({100, 0, 100}, {200, 0, 0}, {0, 0, 200}, 50.0);
    // The four sides of the reveal face into the hole: up, down, +X and -X.
    std::vector<Vec3d> normals;
    for (std::size_t i = room.panels.size() - 4; i < room.panels.size(); ++i) {
        normals.push_back(room.panels[i].u.cross(room.panels[i].v).normalized());
        EXPECT_NEAR(room.panels[i].v.length(), 50.0, 1e-9);
    }
    EXPECT_NEAR(normals[0].z, 1.0, 1e-12);
    EXPECT_NEAR(normals[1].z, -1.0, 1e-12);
    EXPECT_NEAR(normals[2].x, 1.0, 1e-12);
    EXPECT_NEAR(normals[3].x, -1.0, 1e-12);
}

TEST(Rooms, SunlightFallsThroughTheWindowAndPillarsCastShadows) {
    Interior room;
    room.sun = Vec3d{-1.0, 0.0, 1.0}.normalized();
    // A window in the wall x = 0 (u x v facing into the room, +X), from y 0..400, z 200..600.
    room.openings.push_back({{0, 0, 200}, {0, 400, 0}, {0, 0, 400}});
    const Vec3d up{0, 0, 1};
    // The patch on the floor: 45 degrees, so z 200..600 lands at x 200..600.
    const auto lit = room.light({400, 200, 0}, up);
    const auto dark = room.light({900, 200, 0}, up);
    const auto beside = room.light({400, 900, 0}, up);
    EXPECT_GT(lit[0], dark[0] + 1.0);
    EXPECT_GT(lit[0], beside[0] + 1.0);
    // A pillar between the window and the patch puts it in shadow.
    room.occluders.push_back({{200, 150, 0}, {260, 250, 300}});
    EXPECT_LT(room.light({400, 200, 0}, up)[0], lit[0] - 1.0);
    // Corners are darker than the open floor.
    room.creases = {{{0, 0, 0}, {1, 0, 0}}};
    room.openings.clear();
    EXPECT_LT(room.light({5, 900, 0}, up)[1], room.light({900, 900, 0}, up)[1]);
}

TEST(Rooms, BakedAtlasMatchesTheMeshThatReadsIt) {
    Interior room;
    room.sun = Vec3d{-0.6, 0.2, 0.7}.normalized();
    room.wallWithHoles({0, 0, 0}, {1200, 0, 0}, {0, 1000, 0}, Interior::Surface::FLOOR, {});
    room.wallWithHoles({0, 0, 0}, {0, 1000, 0}, {0, 0, 500}, Interior::Surface::WALL, {{0.3, 0.3, 0.7, 0.8}});
    room.panels.push_back({{-200, 1000, 0}, {0, -1000, 0}, {0, 0, 500}, Interior::Surface::OUTSIDE, 0, 0});
    room.creases = {{{0, 0, 0}, {0, 0, 1}}, {{0, 0, 0}, {1, 0, 0}}};
    tools::assetgen::core::Image atlas(256, 128);
    const auto mesh = room.bake(0, atlas, {0.0, 0.75}, {0.75, 1.0});
    ASSERT_EQ(mesh.vertices.size(), room.panels.size() * 4);
    ASSERT_EQ(mesh.indices.size(), room.panels.size() * 12); // each face and its back
    for (std::size_t q = 0; q < room.panels.size(); ++q) {
        const auto* corners = &mesh.vertices[q * 4];
        // The panel of this quad (the mesh lists them by drawing layer, not in panel order); each
        // quad reaches 4 units past the panel's edges, so that neighbouring panels overlap.
        const auto found = std::find_if(room.panels.begin(), room.panels.end(), [&](const Interior::Panel& p) {
            const Vec3d margin = p.u.normalized() * 4.0 + p.v.normalized() * 4.0;
            return (p.origin - margin - corners[0].position).length() < 1e-9 &&
                   (p.origin + p.u + p.v + margin - corners[2].position).length() < 1e-9;
        });
        ASSERT_NE(found, room.panels.end());
        const auto& panel = *found;
        // Plain panels to the left of three quarters, glowing ones to the right.
        for (int k = 0; k < 4; ++k) {
            if (Interior::glows(panel.surface)) {
                EXPECT_GE(corners[k].u, 0.75);
            } else {
                EXPECT_LE(corners[k].u, 0.75);
            }
            EXPECT_GE(corners[k].v, 0.0);
            EXPECT_LE(corners[k].v, 1.0);
        }
        // The texel under the middle of the panel holds the colour of the middle of the panel.
        const double u = (corners[0].u + corners[2].u) / 2.0;
        const double v = (corners[0].v + corners[2].v) / 2.0;
        const auto texel = atlas.at(static_cast<int>(u * 256), static_cast<int>(v * 128));
        const Vec3d n = panel.u.cross(panel.v).normalized();
        const auto expected = room.colour(panel.surface, panel.origin + panel.u * 0.5 + panel.v * 0.5, n);
        EXPECT_NEAR(texel[0], expected[0], 0.04);
        EXPECT_NEAR(texel[2], expected[2], 0.04);
    }
    // Outside the room first: the drawing order puts layer 0 before the shell.
    EXPECT_NEAR(mesh.vertices[0].position.x, -200.0, 1e-9);
    // Face and back: the same corners, opposite windings.
    EXPECT_EQ(mesh.indices[0], mesh.indices[6]);
    EXPECT_EQ(mesh.indices[1], mesh.indices[8]);
    EXPECT_EQ(mesh.indices[2], mesh.indices[7]);
}

TEST(Rooms, BloomTextureGlowsOnlyWhereTheGlowingPanelsLie) {
    const auto glow = tools::assetgen::betonia::BetoniaAssets::glow(64, 32);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 64; ++x) {
            const float r = glow.at(x, y)[0];
            if (x < 48) {
                EXPECT_EQ(r, 0.0f);
            } else {
                EXPECT_GT(r, 0.85f);
            }
        }
    }
}

TEST(Valley, TheAlpacaStandsOnTheRockAndEatsFromIt) {
    using tools::assetgen::example::Alpaca;
    using tools::assetgen::example::Valley;
    // Where the scene puts it: (1.554, -0.796, -2.327), scaled by 0.4, not turned.
    const Vec3d at{1.554, -0.796, -2.327};
    const auto rest = Alpaca::build(0.0, 0.0);
    double lowest = 1e9, highest = -1e9;
    for (const auto& v : rest.vertices) {
        lowest = std::min(lowest, v.position.z);
        highest = std::max(highest, v.position.z);
        if (v.position.z < 1.0) { // the hooves
            const Vec3d foot = at + v.position * 0.4;
            EXPECT_NEAR(Valley::height(foot.x, foot.y), at.z, 1e-9);
        }
    }
    EXPECT_GT(lowest, -1.5); // hooves at the ground, sunk no deeper than their own width
    EXPECT_LT(lowest, 1.0);
    EXPECT_GT(highest * 0.4, 20.0); // visible from the cameras, well above the grass
    // Over the loop the muzzle goes down to the grass and back.
    const auto poses = Alpaca::eating(18);
    ASSERT_EQ(poses.size(), 18u);
    double muzzle = 1e9;
    for (std::size_t i = 0; i < poses.back().size(); ++i) {
        if (rest.vertices[i].position.z > 50.0) {
            muzzle = std::min(muzzle, poses.back()[i].z);
        }
    }
    EXPECT_LT(muzzle, 6.0);
    EXPECT_EQ(poses.front().size(), rest.vertices.size());
    EXPECT_LE(rest.vertices.size(), 362u);
}

TEST(Valley, CameraEyesLookFromAboveTheLandAndInsideTheSky) {
    using tools::assetgen::example::Valley;
    for (const auto& pair : scenes::example::Cameras::shared().CAMERAS) {
        for (const auto* eye : {&pair->start.position, &pair->end.position}) {
            SCOPED_TRACE(eye->toString());
            EXPECT_GT(eye->z, std::max(Valley::height(eye->x, eye->y), Valley::WATER_LEVEL) + 5.0);
            // The sky dome is 8000 across the scene's scale of 8; the far plane is 10000.
            EXPECT_LT(std::hypot(eye->x, eye->y, eye->z) + 8000.0, 10000.0);
        }
    }
}

} // namespace
