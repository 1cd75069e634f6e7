// The polar sea laid out around what the scene fixes: every animal stands on land at the height
// its table gives, the walking seals along the whole of their paths, the ships sail on open water
// with room for the hull, every camera eye stays above land and sea, and everything a camera
// sees lies within the far plane.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "scenes/nivalis/Cameras.h"
#include "scenes/nivalis/NivalisScene.h"
#include "scenes/nivalis/Penguins.h"
#include "scenes/nivalis/Seals.h"
#include "scenes/nivalis/ShipsConfig.h"
#include "tools/assetgen/core/Half.h"
#include "tools/assetgen/nivalis/DistantRanges.h"
#include "tools/assetgen/nivalis/Geography.h"
#include "tools/assetgen/nivalis/SealModel.h"
#include "tools/assetgen/nivalis/ShipModel.h"
#include "tools/assetgen/nivalis/Terrain.h"

namespace {

using tools::assetgen::nivalis::Geography;
using tools::assetgen::nivalis::Terrain;

const Terrain& terrain() { return Terrain::shared(); }

/// The generated mesh of the near land, as the GPU will read it (half floats).
class LandMesh {
public:
    LandMesh() {
        const std::filesystem::path stem = std::filesystem::path(NIVALIS_RESOURCES_DIR) / "nivalis/models/mountains1";
        std::ifstream v(stem.string() + "-strides.bin", std::ios::binary);
        std::ifstream i(stem.string() + "-indices.bin", std::ios::binary);
        const std::vector<unsigned char> vb((std::istreambuf_iterator<char>(v)), {});
        const std::vector<unsigned char> ib((std::istreambuf_iterator<char>(i)), {});
        for (std::size_t at = 0; at + 8 <= vb.size(); at += 8) {
            auto h = [&](std::size_t o) {
                return tools::assetgen::core::Half::toFloat(static_cast<std::uint16_t>(vb[at + o] | vb[at + o + 1] << 8));
            };
            points_.push_back({h(0), h(2), h(4)});
        }
        for (std::size_t at = 0; at + 2 <= ib.size(); at += 2) {
            indices_.push_back(ib[at] | ib[at + 1] << 8);
        }
    }
    bool empty() const { return indices_.empty(); }
    /// Height of the highest face over (x, y), or NaN where there is none.
    double heightAt(double x, double y) const {
        double best = std::nan("");
        for (std::size_t t = 0; t + 2 < indices_.size(); t += 3) {
            const auto& a = points_[indices_[t]];
            const auto& b = points_[indices_[t + 1]];
            const auto& c = points_[indices_[t + 2]];
            const double d = (b[1] - c[1]) * (a[0] - c[0]) + (c[0] - b[0]) * (a[1] - c[1]);
            if (std::fabs(d) < 1e-9) {
                continue;
            }
            const double l1 = ((b[1] - c[1]) * (x - c[0]) + (c[0] - b[0]) * (y - c[1])) / d;
            const double l2 = ((c[1] - a[1]) * (x - c[0]) + (a[0] - c[0]) * (y - c[1])) / d;
            const double l3 = 1.0 - l1 - l2;
            if (l1 >= -1e-6 && l2 >= -1e-6 && l3 >= -1e-6) {
                const double z = l1 * a[2] + l2 * b[2] + l3 * c[2];
                best = std::isnan(best) ? z : std::max(best, z);
            }
        }
        return best;
    }

private:
    std::vector<std::array<float, 3>> points_;
    std::vector<int> indices_;
};

const LandMesh& land() {
    static const LandMesh mesh;
    return mesh;
}

TEST(Geography, PenguinsStandOnLevelGroundAtTheirHeights) {
    const auto& penguins = scenes::nivalis::Penguins::shared();
    for (const auto* group : {&penguins.IDLE, &penguins.IDLE2}) {
        for (const auto& p : *group) {
            SCOPED_TRACE(p.position.toString());
            // Where the feet are: the point itself and a ring a few units around.
            for (double a = 0.0; a < 6.28; a += 0.785) {
                for (double r : {0.0, 8.0 * p.scale}) {
                    const double x = p.position.x + r * std::cos(a);
                    const double y = p.position.y + r * std::sin(a);
                    EXPECT_NEAR(terrain().height(x, y), p.position.z, 1e-3);
                }
            }
            ASSERT_FALSE(land().empty());
            // The mesh too: its half floats round 37.26 to 37.25 and 69.556 to 69.5625.
            EXPECT_NEAR(land().heightAt(p.position.x, p.position.y), p.position.z, 0.05);
        }
    }
}

TEST(Geography, RestingSealsLieOnLevelGroundUnderTheirWholeBodies) {
    for (const auto& s : scenes::nivalis::Seals::shared().IDLE) {
        SCOPED_TRACE(s.position.toString());
        // The body runs along the model's Y, turned by the seal's rotation about Z.
        const double a = (s.rotation.z + 90.0) * 3.14159265358979 / 180.0;
        const double half = tools::assetgen::nivalis::SealModel::LENGTH * 0.5 * s.scale;
        for (double t = -1.0; t <= 1.0; t += 0.25) {
            EXPECT_NEAR(terrain().height(s.position.x + std::cos(a) * half * t, s.position.y + std::sin(a) * half * t),
                        s.position.z, 1e-3);
        }
        EXPECT_NEAR(land().heightAt(s.position.x, s.position.y), s.position.z, 0.1);
    }
}

TEST(Geography, ShipsSailOnOpenWaterWithRoomForTheHull) {
    for (const auto& ship : scenes::nivalis::ShipsConfig::shared().SHIPS) {
        const double reach = tools::assetgen::nivalis::ShipModel::LENGTH * 0.5 * ship.scale + 100.0;
        for (int i = 0; i < 2000; ++i) {
            const auto p = ship.spline->getCurrentPoint(i / 2000.0);
            const double x = p.x, y = p.y;
            for (double a = 0.0; a < 6.28; a += 0.785) {
                for (double r : {0.0, reach * 0.5, reach}) {
                    ASSERT_LT(terrain().height(x + r * std::cos(a), y + r * std::sin(a)), -10.0)
                        << "course point " << i << " at " << x << ", " << y;
                }
            }
            EXPECT_LT(tools::assetgen::nivalis::DistantRanges::height(x, y), -10.0);
        }
    }
}

TEST(Geography, CameraEyesStayAboveLandAndSea) {
    for (const auto& pair : scenes::nivalis::Cameras::shared().CAMERAS) {
        const auto& a = pair->start.position;
        const auto& b = pair->end.position;
        for (int i = 0; i <= 400; ++i) {
            const double t = i / 400.0;
            const double x = a.x + (b.x - a.x) * t, y = a.y + (b.y - a.y) * t, z = a.z + (b.z - a.z) * t;
            ASSERT_GT(z, 100.0);
            // Land keeps well below the eye (the near plane is 20).
            ASSERT_LT(terrain().height(x, y), z - 200.0) << "eye at " << x << ", " << y << ", " << z;
            ASSERT_LT(tools::assetgen::nivalis::DistantRanges::height(x, y), z - 200.0);
        }
    }
}

} // namespace
