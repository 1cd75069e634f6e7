#include "renderer/textures/AstcDecoder.h"
#include "renderer/textures/WebpTexture.h"

#include <gtest/gtest.h>

#include "tests/renderer/loaders/LoaderFiles.h"

namespace renderer::textures {
namespace {

using test::channelDistance;
using test::pixelAt;

struct BlockSize {
    int width;
    int height;
};

class AstcDecoderTest : public ::testing::TestWithParam<BlockSize> {};

TEST_P(AstcDecoderTest, DecodesAnEncodedPictureBackToItsColours) {
    const auto [bw, bh] = GetParam();
    // Quadrants two blocks wide and high, so that no block straddles two colours.
    const int width = bw * 4;
    const int height = bh * 4;
    const auto original = test::quadrants(width, height);
    const auto blocks = test::encodeAstc(original, width, height, bw, bh);
    const auto decoded = AstcDecoder::decode(blocks, AstcFormat::forBlockSize(bw, bh), width, height);
    ASSERT_EQ(decoded.size(), original.size());
    const std::pair<int, int> probes[] = {{0, 0}, {width - 1, 0}, {0, height - 1}, {width - 1, height - 1},
                                          {width / 2 - 1, height / 2 - 1}, {width / 2, height / 2}};
    for (const auto& [x, y] : probes) {
        // Expected: red, green, blue and half-transparent grey, as the quadrants were drawn.
        const std::uint32_t expected = y < height / 2 ? (x < width / 2 ? 0xFF0000FFu : 0x00FF00FFu)
                                                      : (x < width / 2 ? 0x0000FFFFu : 0x80808080u);
        EXPECT_LE(channelDistance(pixelAt(decoded, width, x, y), expected), 1)
            << bw << "x" << bh << " at " << x << "," << y << ": " << std::hex << pixelAt(decoded, width, x, y);
    }
}

INSTANTIATE_TEST_SUITE_P(BlockSizes, AstcDecoderTest,
                         ::testing::Values(BlockSize{4, 4}, BlockSize{6, 5}, BlockSize{8, 8}, BlockSize{12, 12}));

TEST(WebpDecodeTest, LosslessFileDecodesToTheExactPixelsFirstRowFirst) {
    const auto original = test::quadrants(6, 4);
    const auto file = test::encodeWebp(original, 6, 4);
    const auto pixels = WebpTexture::decode(file, "palette-day.webp");
    EXPECT_EQ(pixels.width, 6);
    EXPECT_EQ(pixels.height, 4);
    EXPECT_EQ(pixels.rgba, original);
    EXPECT_EQ(pixelAt(pixels.rgba, 6, 0, 0), 0xFF0000FFu);
}

TEST(WebpDecodeTest, DataThatIsNoWebpNamesTheFile) {
    const auto junk = test::countingBytes(64);
    try {
        WebpTexture::decode(junk, "sky-day.webp");
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_STREQ(e.what(), "Cannot read texture sky-day.webp");
    }
    EXPECT_THROW(WebpTexture::decode({}, "empty.webp"), std::runtime_error);
    // A real file cut in half is no image either.
    auto cut = test::encodeWebp(test::quadrants(16, 16), 16, 16);
    cut.resize(cut.size() / 2);
    EXPECT_THROW(WebpTexture::decode(cut, "cut.webp"), std::runtime_error);
}

} // namespace
} // namespace renderer::textures
