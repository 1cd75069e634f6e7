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

const Vec3d kCentre{Geography::CENTRE_X, Geography::CENTRE_Y, 0.0};

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

TEST(Animals, LoopingAnimationsEndWhereTheyBegin) {
    // Idle seals and walking seals play forward and wrap from their last frame to the first.
    for (const auto& poses : {SealModel::idleLoop(9), SealModel::walkLoop(12)}) {
        const MeshData first = SealModel::build(poses.front());
        const MeshData last = SealModel::build(poses.back());
        const MeshData middle = SealModel::build(poses[poses.size() / 2]);
        double closing = 0.0, moving = 0.0;
        for (std::size_t i = 0; i < first.vertices.size(); ++i) {
            closing = std::max(closing, (first.vertices[i].position - last.vertices[i].position).length());
            moving = std::max(moving, (first.vertices[i].position - middle.vertices[i].position).length());
        }
        EXPECT_LT(closing, 1e-9);
        EXPECT_GT(moving, SealModel::LENGTH * 0.05);
    }
    const MeshData seal = SealModel::build({});
    EXPECT_LE(seal.vertices.size(),
              static_cast<std::size_t>(scenes::nivalis::Animations::shared().animationSealIdle.textureWidth()));
    double lo = 1e9, frontmost = 1e9, rearmost = -1e9;
    for (const auto& v : seal.vertices) {
        lo = std::min(lo, v.position.z);
        frontmost = std::min(frontmost, v.position.y);
        rearmost = std::max(rearmost, v.position.y);
    }
    EXPECT_NEAR(lo, 0.0, 0.15); // lying on its belly
    EXPECT_NEAR(rearmost - frontmost, SealModel::LENGTH, 1.0);
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

TEST(Sky, TheDomeWrapsTheWorldFromInside) {
    const MeshData dome = SkyDome::mesh();
    double lowest = 0.0;
    for (const auto& v : dome.vertices) {
        if (v.v == 1.0 && v.u == 0.5) {
            continue; // the middle of the floor that closes the sphere underneath
        }
        EXPECT_NEAR((v.position - kCentre).length(), Geography::DOME_RADIUS, 1.0);
        lowest = std::min(lowest, v.position.z);
        EXPECT_GE(v.u, 0.0);
        EXPECT_LE(v.u, 1.0);
        EXPECT_GE(v.v, 0.0);
        EXPECT_LE(v.v, 1.0);
    }
    EXPECT_LT(lowest, -Geography::DOME_RADIUS * 0.4); // well below the horizon
    // The second half holds the same triangles wound the other way, for the blurred passes.
    for (std::size_t t = 0; t < triangles(dome) / 2; ++t) {
        ASSERT_GT(normalOf(dome, t).dot(kCentre - centreOf(dome, t)), 0.0) << "triangle " << t << " faces out";
    }
}

TEST(Sky, StarsHangOnlyAboveTheHorizonAndCloudsOverhead) {
    const MeshData stars = Heavens::stars();
    ASSERT_GT(stars.vertices.size(), 3000u);
    for (const auto& v : stars.vertices) {
        const Vec3d d = v.position - kCentre;
        EXPECT_GT(std::asin(d.z / d.length()) * 180.0 / 3.14159265, 4.0);
        EXPECT_LT(d.length(), Geography::DOME_RADIUS);
    }
    const MeshData clouds = Heavens::clouds();
    for (const auto& v : clouds.vertices) {
        EXPECT_GT(v.position.z, 14000.0); // above every camera, below the sky
        EXPECT_GT(v.u0, 0.0);
        EXPECT_LE(v.u0, 1.0);
        // The deck turns about the origin: every point stays inside the dome on its circle.
        EXPECT_LT(std::hypot(v.position.x, v.position.y) + std::hypot(kCentre.x, kCentre.y),
                  std::sqrt(Geography::DOME_RADIUS * Geography::DOME_RADIUS - v.position.z * v.position.z));
    }
    for (std::size_t t = 0; t < triangles(clouds); ++t) {
        ASSERT_LT(normalOf(clouds, t).z, 0.0) << "clouds are seen from below";
    }
}

TEST(Sky, SunsFaceTheWorldTheLowOneNearTheHorizon) {
    for (const MeshData& sun : {Heavens::highSun(), Heavens::lowSun()}) {
        for (std::size_t t = 0; t < triangles(sun); ++t) {
            ASSERT_GT(normalOf(sun, t).dot(kCentre - centreOf(sun, t)), 0.0);
        }
        for (const auto& v : sun.vertices) {
            EXPECT_LT((v.position - kCentre).length(), Geography::DOME_RADIUS);
            EXPECT_GT(v.position.z, 0.0);
        }
    }
    const auto& g = Geography::shared();
    EXPECT_GT(g.highSun().z, g.lowSun().z);
    EXPECT_LT(std::asin(g.lowSun().z) * 180.0 / 3.14159265, 6.0);
    // The ranges stay low under the low sun, so that it shows above them.
    const Vec3d low = g.lowSun();
    const double az = std::atan2(low.y, low.x);
    for (double r = Geography::RANGES_INNER; r < Geography::RANGES_OUTER; r += 250.0) {
        const double h = DistantRanges::height(kCentre.x + r * std::cos(az), kCentre.y + r * std::sin(az));
        EXPECT_LT(h, r * std::tan(std::asin(low.z)) * 0.8);
    }
}

TEST(Sky, SeaIsALevelDiscUnderTheRanges) {
    const MeshData sea = Sea::mesh();
    double reach = 0.0;
    for (const auto& v : sea.vertices) {
        EXPECT_EQ(v.position.z, 0.0);
        reach = std::max(reach, std::hypot(v.position.x - kCentre.x, v.position.y - kCentre.y));
    }
    EXPECT_NEAR(reach, Geography::SEA_RADIUS, 1.0);
    EXPECT_GT(reach, Geography::RANGES_OUTER);
    for (std::size_t t = 0; t < triangles(sea) / 2; ++t) { // then the same wound the other way
        ASSERT_GT(normalOf(sea, t).z, 0.99);
    }
}

double luminance(const std::array<float, 4>& c) { return 0.3 * c[0] + 0.59 * c[1] + 0.11 * c[2]; }

TEST(Palettes, FourMoodsInOneLayout) {
    std::map<TimeOfDay, tools::assetgen::core::Image> images;
    for (TimeOfDay t : scenes::nivalis::TIME_OF_DAY_ENTRIES) {
        images.emplace(t, Palette::image(t));
    }
    const Palette::Swatch all[] = {Palette::SNOW, Palette::ROCK, Palette::ICE, Palette::ICE_CLIFF, Palette::HULL,
                                   Palette::CABIN, Palette::PENGUIN_BACK, Palette::PENGUIN_BELLY, Palette::SEAL,
                                   Palette::SUN_CORE, Palette::SUN_RIM, Palette::DISTANT_SNOW};
    for (const auto& [time, image] : images) {
        for (const auto& swatch : all) {
            for (int s = 0; s < swatch.shades; ++s) {
                const int column = static_cast<int>(Palette::u(swatch, s) * Palette::WIDTH);
                const auto c = image.at(column, 1);
                EXPECT_FALSE(c[0] == 0.0f && c[1] == 1.0f && c[2] == 0.0f) << toString(time) << " column " << column;
                // Every row alike: a shader may read any of them.
                EXPECT_EQ(image.at(column, 0), image.at(column, Palette::HEIGHT - 1));
            }
            // Lit is never darker than shaded.
            const auto lit = image.at(static_cast<int>(Palette::u(swatch, 0) * Palette::WIDTH), 0);
            const auto dark = image.at(static_cast<int>(Palette::u(swatch, swatch.shades - 1) * Palette::WIDTH), 0);
            EXPECT_GE(luminance(lit), luminance(dark)) << toString(time);
        }
    }
    auto litSnow = [&](TimeOfDay t) { return images.at(t).at(static_cast<int>(Palette::u(Palette::SNOW, 0) * Palette::WIDTH), 0); };
    const auto day = litSnow(TimeOfDay::Day), night = litSnow(TimeOfDay::Night);
    const auto rise = litSnow(TimeOfDay::Sunrise), set = litSnow(TimeOfDay::Sunset);
    EXPECT_GE(day[2], day[0]);                               // day: cool
    EXPECT_LT(luminance(night), luminance(day) * 0.7);       // night: dark
    EXPECT_GT(night[2], night[0]);                           // and blue
    EXPECT_GT(rise[0], rise[2]);                             // sunrise: warm gold
    EXPECT_GT(rise[1], rise[2]);
    EXPECT_GT(set[0], set[1]);                               // sunset: rose and violet
    EXPECT_GT(set[2], set[1]);
}

TEST(Skies, GradientsAndGlowsWhereTheSunsStand) {
    constexpr int width = 128, height = 64;
    auto row = [](double elevation) { return static_cast<int>((90.0 - elevation) / (90.0 - SkyDome::LOWEST) * height); };
    const auto night = SkyDome::image(TimeOfDay::Night, width, height);
    EXPECT_LT(luminance(night.at(0, 0)), luminance(night.at(0, row(1.0)))); // darker overhead
    for (TimeOfDay t : {TimeOfDay::Sunrise, TimeOfDay::Sunset}) {
        const auto sky = SkyDome::image(t, width, height);
        const Vec3d sun = Geography::shared().lowSun();
        double az = std::atan2(sun.y, sun.x);
        az = az < 0 ? az + 2.0 * 3.14159265358979 : az;
        const int towards = static_cast<int>(az / (2.0 * 3.14159265358979) * width);
        const int away = (towards + width / 2) % width;
        EXPECT_GT(luminance(sky.at(towards, row(3.0))), luminance(sky.at(away, row(3.0))) + 0.05) << toString(t);
    }
}

TEST(Caustics, TileWithoutASeam) {
    constexpr int size = 64;
    const auto tile = Caustics::image(size, 3);
    // The step across the tile's edge, against the steps across every other line of texels.
    auto column = [&](int x) {
        double d = 0.0;
        for (int i = 0; i < size; ++i) {
            d += std::fabs(tile.at(x, i)[0] - tile.at((x + size - 1) % size, i)[0]);
        }
        return d;
    };
    auto row = [&](int y) {
        double d = 0.0;
        for (int i = 0; i < size; ++i) {
            d += std::fabs(tile.at(i, y)[0] - tile.at(i, (y + size - 1) % size)[0]);
        }
        return d;
    };
    double steepestColumn = 0.0, steepestRow = 0.0;
    for (int k = 1; k < size; ++k) {
        steepestColumn = std::max(steepestColumn, column(k));
        steepestRow = std::max(steepestRow, row(k));
    }
    EXPECT_LE(column(0), steepestColumn);
    EXPECT_LE(row(0), steepestRow);
    float brightest = 0.0f, darkest = 1.0f;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            brightest = std::max(brightest, tile.at(x, y)[0]);
            darkest = std::min(darkest, tile.at(x, y)[0]);
        }
    }
    EXPECT_GT(brightest, 0.8f);
    EXPECT_LT(darkest, 0.1f);
}

} // namespace
