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
