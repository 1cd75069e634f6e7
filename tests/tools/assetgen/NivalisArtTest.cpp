// The polar sea's models and images: animals stand on their feet and their loops close, the bird
// beats its wings and shows from both sides, the ship floats, the sky wraps the world from inside
// with stars only above the horizon and clouds overhead, the palettes set their moods, the
// caustics tile without a seam.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

#include "scenes/nivalis/Animations.h"
#include "tools/assetgen/mesh/Facets.h"
#include "tools/assetgen/nivalis/BirdModel.h"
#include "tools/assetgen/nivalis/Caustics.h"
#include "tools/assetgen/nivalis/DistantRanges.h"
#include "tools/assetgen/nivalis/Geography.h"
#include "tools/assetgen/nivalis/Heavens.h"
#include "tools/assetgen/nivalis/Palette.h"
#include "tools/assetgen/nivalis/PenguinModel.h"
#include "tools/assetgen/nivalis/Sea.h"
#include "tools/assetgen/nivalis/SealModel.h"
#include "tools/assetgen/nivalis/ShipModel.h"
#include "tools/assetgen/nivalis/SkyDome.h"

namespace {

using namespace tools::assetgen::nivalis;
using tools::assetgen::core::Vec3d;
using tools::assetgen::mesh::MeshData;
using scenes::nivalis::TimeOfDay;


Vec3d corner(const MeshData& m, std::size_t t, int k) { return m.vertices[m.indices[t * 3 + k]].position; }
std::size_t triangles(const MeshData& m) { return m.indices.size() / 3; }
Vec3d normalOf(const MeshData& m, std::size_t t) {
    return tools::assetgen::mesh::Facets::normal(corner(m, t, 0), corner(m, t, 1), corner(m, t, 2));
}
Vec3d centreOf(const MeshData& m, std::size_t t) { return (corner(m, t, 0) + corner(m, t, 1) + corner(m, t, 2)) / 3.0; }

TEST(Animals, PenguinsStandOnTheirFeetAndFitTheirTables) {
    const auto& animations = scenes::nivalis::Animations::shared();
    const std::pair<PenguinModel::Detail, int> kinds[] = {
        {PenguinModel::Detail::FINE, animations.animationPenguinIdle.textureWidth()},
        {PenguinModel::Detail::COARSE, animations.animationPenguinIdle2.textureWidth()}};
    for (const auto& [detail, width] : kinds) {
        const MeshData rest = PenguinModel::build(detail, {});
        EXPECT_LE(rest.vertices.size(), static_cast<std::size_t>(width));
        double lo = 1e9, hi = -1e9;
        for (const auto& v : rest.vertices) {
            lo = std::min(lo, v.position.z);
            hi = std::max(hi, v.position.z);
        }
        EXPECT_NEAR(lo, 0.45, 0.5);                               // feet on the ground
        EXPECT_NEAR(hi, PenguinModel::HEIGHT, PenguinModel::HEIGHT * 0.15);
        // At the scene's scales (0.65 to 0.9) a few tens of units tall.
        EXPECT_GT(hi * 0.65, 30.0);
        EXPECT_LT(hi * 0.9, 90.0);
        // The beak points to -Y, the way the walking animals face.
        double frontmost = 0.0;
        for (const auto& v : rest.vertices) {
            frontmost = std::min(frontmost, v.position.y);
        }
        EXPECT_LT(frontmost, -10.0);
    }
}

TEST(Animals, TheBirdBeatsItsWingsAndShowsFromBothSides) {
    const MeshData up = BirdModel::build(1.0);
    const MeshData level = BirdModel::build(0.0);
    const MeshData down = BirdModel::build(-1.0);
    ASSERT_EQ(up.vertices.size(), level.vertices.size());
    EXPECT_LE(level.vertices.size(), static_cast<std::size_t>(scenes::nivalis::Animations::shared().animationBird.textureWidth()));
    auto tip = [](const MeshData& m) {
        Vec3d best;
        for (const auto& v : m.vertices) {
            if (std::fabs(v.position.x) > std::fabs(best.x)) {
                best = v.position;
            }
        }
        return best;
    };
    EXPECT_NEAR(std::fabs(tip(level).x), BirdModel::HALF_SPAN, 1.0);
    EXPECT_GT(tip(up).z, 20.0);
    EXPECT_LT(tip(down).z, -20.0);
    // Every face has its mirror, so the flat wings show from above and from below.
    std::set<std::array<std::uint32_t, 3>> faces;
    for (std::size_t t = 0; t < triangles(level); ++t) {
        faces.insert({level.indices[t * 3], level.indices[t * 3 + 1], level.indices[t * 3 + 2]});
    }
    for (const auto& f : faces) {
        EXPECT_TRUE(faces.contains({f[0], f[2], f[1]}) || faces.contains({f[1], f[0], f[2]}) ||
                    faces.contains({f[2], f[1], f[0]}));
    }
}

TEST(Ship, FloatsWithTheBowForwardAndFacesOutward) {
    const MeshData ship = ShipModel::build();
    double minX = 1e9, maxX = -1e9, minZ = 1e9, maxZ = -1e9, maxY = 0.0;
    for (const auto& v : ship.vertices) {
        minX = std::min(minX, v.position.x);
        maxX = std::max(maxX, v.position.x);
        minZ = std::min(minZ, v.position.z);
        maxZ = std::max(maxZ, v.position.z);
        maxY = std::max(maxY, std::fabs(v.position.y));
    }
    EXPECT_NEAR(maxX - minX, ShipModel::LENGTH, 5.0);
    EXPECT_GT(maxX, -minX); // the bow is the +X end
    EXPECT_LT(minZ, 0.0);   // the hull reaches under the water line
    EXPECT_GT(maxZ, 60.0);
    EXPECT_LE(maxY * 2.0, ShipModel::BEAM + 1.0);
    // The hull's sides face away from the centre line.
    int outward = 0, inward = 0;
    for (std::size_t t = 0; t < triangles(ship); ++t) {
        const Vec3d c = centreOf(ship, t);
        const Vec3d n = normalOf(ship, t);
        if (c.z < 15.0 && std::fabs(c.y) > 15.0 && std::fabs(n.y) > 0.5) {
            (n.y * c.y > 0 ? outward : inward)++;
        }
    }
    EXPECT_GT(outward, 10);
    EXPECT_EQ(inward, 0);
}

} // namespace
