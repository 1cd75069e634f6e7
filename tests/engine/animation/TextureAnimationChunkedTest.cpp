#include "engine/animation/TextureAnimationChunked.h"

#include <gtest/gtest.h>

namespace {

using engine::animation::TextureAnimationChunked;

TEST(TextureAnimationChunkedTest, ChunkCountRoundsUp) {
    const TextureAnimationChunked three(100, 250, 10);
    EXPECT_EQ(three.textureHeight(), 33);
    EXPECT_FLOAT_EQ(three.chunkSize(), 1.0f / 3.0f);
    EXPECT_FLOAT_EQ(three.texelHeight(), 1.0f / 33.0f);
    EXPECT_FLOAT_EQ(three.texelHalfWidth(), 0.005f);

    EXPECT_EQ(TextureAnimationChunked(64, 64, 4).textureHeight(), 5);
    EXPECT_EQ(TextureAnimationChunked(64, 65, 4).textureHeight(), 10);
    EXPECT_FLOAT_EQ(TextureAnimationChunked(64, 65, 4).chunkSize(), 0.5f);
    EXPECT_EQ(TextureAnimationChunked(64, 1, 4).textureHeight(), 5);
}

TEST(TextureAnimationChunkedTest, RowCoordinatesAddressRowCentres) {
    const TextureAnimationChunked animal(362, 362, 18);
    // Row r of 19 has its centre at (r + 0.5) / 19.
    EXPECT_FLOAT_EQ(animal.animateStartToEnd(0.0f), 0.5f / 19.0f);
    EXPECT_FLOAT_EQ(animal.animateStartToEnd(1.0f), 17.5f / 19.0f);
    EXPECT_FLOAT_EQ(animal.animateStartToEnd(0.5f), 9.0f / 19.0f);

    // Forward to the last frame at 0.5, then back.
    EXPECT_FLOAT_EQ(animal.animateStartEndStart(0.0f), 0.5f / 19.0f);
    EXPECT_FLOAT_EQ(animal.animateStartEndStart(0.25f), 9.0f / 19.0f);
    EXPECT_FLOAT_EQ(animal.animateStartEndStart(0.75f), 9.0f / 19.0f);
    EXPECT_FLOAT_EQ(animal.animateStartEndStart(0.5f), animal.animateStartToEnd(1.0f));
    EXPECT_FLOAT_EQ(animal.animateStartEndStart(1.0f), animal.animateStartEndStart(0.0f));
    EXPECT_FLOAT_EQ(animal.animateStartEndStart(0.4999f), 17.4966f / 19.0f);

    // A single frame always reads row 0.
    const TextureAnimationChunked still(16, 40, 1);
    for (float t : {0.0f, 0.3f, 0.5f, 1.0f}) {
        EXPECT_EQ(still.animateStartToEnd(t), still.texelHalfHeight());
        EXPECT_EQ(still.animateStartEndStart(t), still.texelHalfHeight());
    }
}

} // namespace
