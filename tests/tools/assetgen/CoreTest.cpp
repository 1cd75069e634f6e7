// The generator's building blocks: half floats, vertex packing, index files, animation tables,
// the Delaunay triangulation and blue noise.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <set>

#include "engine/AttributeType.h"
#include "engine/VertexFormat.h"
#include "tools/assetgen/core/Delaunay.h"
#include "tools/assetgen/core/Half.h"
#include "tools/assetgen/core/Rng.h"
#include "tools/assetgen/io/AnimationTable.h"
#include "tools/assetgen/io/ModelFile.h"
#include "tools/assetgen/mesh/VertexLayout.h"
#include "tools/assetgen/shared/BlueNoise.h"

namespace {

using tools::assetgen::core::Half;
using engine::AttributeType;
using engine::VertexFormat;

TEST(Half, EncodesExactAndRoundedValues) {
    EXPECT_EQ(Half::fromFloat(1.0f), 0x3C00);
    EXPECT_EQ(Half::fromFloat(-2.0f), 0xC000);
    EXPECT_EQ(Half::fromFloat(65504.0f), 0x7BFF);           // largest finite half
    EXPECT_EQ(Half::fromFloat(65520.0f), 0x7C00);           // rounds up to infinity
    EXPECT_EQ(Half::fromFloat(0.1f), 0x2E66);               // 0.0999755859375
    EXPECT_EQ(Half::fromFloat(5.9604645e-8f), 0x0001);      // smallest subnormal
    EXPECT_EQ(Half::fromFloat(2049.0f), 0x6800);            // tie goes to the even 2048
    EXPECT_EQ(Half::fromFloat(2051.0f), 0x6802);            // tie goes to the even 2052
    EXPECT_EQ(Half::fromFloat(1e-9f), 0x0000);
    EXPECT_TRUE(std::isnan(Half::toFloat(Half::fromFloat(std::nanf("")))));
}

TEST(ModelFile, IndicesAreLittleEndianAndBelowTheVertexCount) {
    using tools::assetgen::io::ModelFile;
    const auto bytes = ModelFile::packIndices({0, 1, 0x1234}, 0x1235);
    const std::vector<std::uint8_t> expected = {0, 0, 1, 0, 0x34, 0x12};
    EXPECT_EQ(bytes, expected);
    EXPECT_THROW(ModelFile::packIndices({0, 1, 2}, 2), std::invalid_argument);
    EXPECT_THROW(ModelFile::packIndices({0, 1, 2}, 70000), std::invalid_argument);
}

TEST(Delaunay, TriangulatesCounterClockwiseWithEmptyCircumcircles) {
    using tools::assetgen::core::Delaunay;
    tools::assetgen::core::Rng rng(7);
    std::vector<Delaunay::Point> points;
    // A square's corners keep the hull simple; the rest is random, with one duplicate.
    points.push_back({0, 0});
    points.push_back({100, 0});
    points.push_back({100, 100});
    points.push_back({0, 100});
    for (int i = 0; i < 300; ++i) {
        points.push_back({rng.uniform(1, 99), rng.uniform(1, 99)});
    }
    points.push_back(points[10]);
    const auto triangles = Delaunay::triangulate(points);
    // Euler: 2n - 2 - hull triangles for n distinct points with a hull of 4.
    EXPECT_EQ(triangles.size(), 2u * 304u - 2u - 4u);
    std::set<std::uint32_t> used;
    for (const auto& t : triangles) {
        const auto& a = points[t[0]];
        const auto& b = points[t[1]];
        const auto& c = points[t[2]];
        ASSERT_GT((b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x), 0.0);
        // Circumcentre, and no point strictly inside the circle.
        const double d = 2 * (a.x * (b.y - c.y) + b.x * (c.y - a.y) + c.x * (a.y - b.y));
        const double ux = ((a.x * a.x + a.y * a.y) * (b.y - c.y) + (b.x * b.x + b.y * b.y) * (c.y - a.y) +
                           (c.x * c.x + c.y * c.y) * (a.y - b.y)) / d;
        const double uy = ((a.x * a.x + a.y * a.y) * (c.x - b.x) + (b.x * b.x + b.y * b.y) * (a.x - c.x) +
                           (c.x * c.x + c.y * c.y) * (b.x - a.x)) / d;
        const double r2 = (a.x - ux) * (a.x - ux) + (a.y - uy) * (a.y - uy);
        for (const auto& p : points) {
            ASSERT_GE((p.x - ux) * (p.x - ux) + (p.y - uy) * (p.y - uy), r2 * (1.0 - 1e-9));
        }
        used.insert(t.begin(), t.end());
    }
    EXPECT_EQ(used.size(), 304u); // every point but the duplicate
    EXPECT_FALSE(used.contains(304u));
}

} // namespace
