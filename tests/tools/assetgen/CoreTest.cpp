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

TEST(Half, DecodesEveryFiniteHalfBackToItself) {
    for (std::uint32_t bits = 0; bits < 0x10000; ++bits) {
        const auto h = static_cast<std::uint16_t>(bits);
        if ((h & 0x7C00) == 0x7C00) {
            continue; // infinities and NaNs
        }
        ASSERT_EQ(Half::fromFloat(Half::toFloat(h)), h) << bits;
    }
    EXPECT_FLOAT_EQ(Half::toFloat(0x3555), 0.33325195f);
}

TEST(VertexLayout, PacksAttributesAtTheirOffsetsAndLeavesPaddingZero) {
    using Layout = tools::assetgen::mesh::VertexLayout;
    const Layout layout({{AttributeType::VERTEX, VertexFormat::HALF3, 0}, {AttributeType::U0, VertexFormat::HALF, 6}}, 8);
    tools::assetgen::mesh::MeshData mesh;
    tools::assetgen::mesh::Vertex v;
    v.position = {1.0, -2.0, 0.5};
    v.u0 = 0.25;
    mesh.add(v);
    mesh.add(v);
    const auto bytes = layout.pack(mesh);
    ASSERT_EQ(bytes.size(), 16u);
    const std::uint8_t expected[8] = {0x00, 0x3C, 0x00, 0xC0, 0x00, 0x38, 0x00, 0x34};
    EXPECT_EQ(std::memcmp(bytes.data(), expected, 8), 0);
    EXPECT_EQ(std::memcmp(bytes.data() + 8, expected, 8), 0);

    const Layout clouds({{AttributeType::VERTEX, VertexFormat::FLOAT3, 0},
                         {AttributeType::U0, VertexFormat::UBYTE_NORMALIZED, 12}},
                        16);
    tools::assetgen::mesh::MeshData one;
    v.u0 = 0.5;
    one.add(v);
    const auto cloud = clouds.pack(one);
    float x = 0.0f;
    std::memcpy(&x, cloud.data(), 4);
    EXPECT_EQ(x, 1.0f);
    EXPECT_EQ(cloud[12], 128); // 0.5 * 255 rounded
    EXPECT_EQ(cloud[13], 0);
    EXPECT_EQ(cloud[15], 0);
}

TEST(VertexLayout, RejectsAnAttributeOutsideTheStride) {
    using Layout = tools::assetgen::mesh::VertexLayout;
    const Layout layout({{AttributeType::UV0, VertexFormat::FLOAT2, 0}}, 4); // 8 bytes in a stride of 4
    tools::assetgen::mesh::MeshData mesh;
    mesh.add({});
    EXPECT_THROW(layout.pack(mesh), std::invalid_argument);
}

TEST(ModelFile, IndicesAreLittleEndianAndBelowTheVertexCount) {
    using tools::assetgen::io::ModelFile;
    const auto bytes = ModelFile::packIndices({0, 1, 0x1234}, 0x1235);
    const std::vector<std::uint8_t> expected = {0, 0, 1, 0, 0x34, 0x12};
    EXPECT_EQ(bytes, expected);
    EXPECT_THROW(ModelFile::packIndices({0, 1, 2}, 2), std::invalid_argument);
    EXPECT_THROW(ModelFile::packIndices({0, 1, 2}, 70000), std::invalid_argument);
}

TEST(AnimationTable, CutsVerticesIntoChunksOfFramesPlusOneRows) {
    using tools::assetgen::io::AnimationTable;
    // 5 vertices, 2 per row, 3 frames: 3 chunks of 4 rows, 2 texels wide.
    std::vector<std::vector<tools::assetgen::core::Vec3d>> poses(3);
    for (int f = 0; f < 3; ++f) {
        for (int i = 0; i < 5; ++i) {
            poses[f].push_back({static_cast<double>(i), static_cast<double>(f), 0.5});
        }
    }
    EXPECT_EQ(AnimationTable::chunks(5, 2), 3);
    EXPECT_EQ(AnimationTable::chunks(4, 2), 2);
    const auto bytes = AnimationTable::pack(poses, 2, 3);
    ASSERT_EQ(bytes.size(), 2u * 12u * 8u);
    auto channel = [&](int x, int row, int c) {
        const std::size_t at = (static_cast<std::size_t>(row) * 2 + x) * 8 + c * 2;
        return Half::toFloat(static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8));
    };
    // Vertex 3 is column 1 of chunk 1 (rows 4..7); frame 2 is row 6.
    EXPECT_EQ(channel(1, 6, 0), 3.0f);
    EXPECT_EQ(channel(1, 6, 1), 2.0f);
    EXPECT_EQ(channel(1, 6, 2), 0.5f);
    EXPECT_EQ(channel(1, 6, 3), 1.0f);
    // Vertex 4 is column 0 of chunk 2; its block's last row repeats frame 0.
    EXPECT_EQ(channel(0, 8 + 3, 0), 4.0f);
    EXPECT_EQ(channel(0, 8 + 3, 1), 0.0f);
    // The unused texel of the last chunk stays zero.
    EXPECT_EQ(channel(1, 9, 0), 0.0f);
    EXPECT_EQ(channel(1, 9, 3), 0.0f);
    EXPECT_THROW(AnimationTable::pack(poses, 2, 4), std::invalid_argument);
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

TEST(BlueNoise, RanksEveryTexelOnceAndSpreadsEachThresholdEvenly) {
    using tools::assetgen::shared::BlueNoise;
    constexpr int size = 32;
    const auto ranks = BlueNoise::ranks(size, 99);
    std::vector<int> sorted = ranks;
    std::sort(sorted.begin(), sorted.end());
    for (int i = 0; i < size * size; ++i) {
        ASSERT_EQ(sorted[i], i);
    }
    // The darkest tenth: no two of its texels touch, on the torus. White noise of that density
    // puts many pairs side by side.
    std::vector<std::pair<int, int>> dots;
    for (int i = 0; i < size * size; ++i) {
        if (ranks[i] < size * size / 10) {
            dots.push_back({i % size, i / size});
        }
    }
    double nearest = 1e9;
    for (std::size_t i = 0; i < dots.size(); ++i) {
        for (std::size_t j = i + 1; j < dots.size(); ++j) {
            int dx = std::abs(dots[i].first - dots[j].first);
            int dy = std::abs(dots[i].second - dots[j].second);
            dx = std::min(dx, size - dx);
            dy = std::min(dy, size - dy);
            nearest = std::min(nearest, std::hypot(dx, dy));
        }
    }
    EXPECT_GE(nearest, 2.0);
    EXPECT_EQ(BlueNoise::ranks(size, 99), ranks); // the same seed, the same tile
}

} // namespace
