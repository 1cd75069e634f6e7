#include "renderer/loaders/AstcTexture.h"

#include <gtest/gtest.h>

#include "renderer/textures/AstcDecoder.h"
#include "tests/renderer/loaders/LoaderFiles.h"
#include "tests/renderer/support/RecordingGl.h"

namespace renderer {
namespace {

using test::astcFile;
using test::countingBytes;
using test::GlCall;
using test::RecordingGl;
using test::TempDir;
using textures::AstcFormat;
using textures::AstcInfo;

TEST(AstcInfoTest, ReadsBlockSizeAndTwentyFourBitLittleEndianDimensions) {
    auto file = astcFile(0x012345, 0x00ABCD, 6, 5, {});
    const AstcInfo info = AstcInfo::parse(file, "t");
    EXPECT_EQ(info, (AstcInfo{74565, 43981, 6, 5}));
    EXPECT_EQ(info.toString(), "AstcInfo(width=74565, height=43981, blockWidth=6, blockHeight=5)");
}

class AstcTextureLoadTest : public ::testing::Test {
protected:
    TempDir dir;
    RecordingGl gl;

    void writeSolid(const std::string& name, int width, int height, int bw, int bh) {
        const AstcFormat format = AstcFormat::forBlockSize(bw, bh);
        const auto size = static_cast<std::size_t>(format.blocksAcross(width) * format.blocksDown(height)) * 16;
        dir.write(name, astcFile(width, height, bw, bh, countingBytes(size)));
    }
};

TEST_F(AstcTextureLoadTest, CompressedUploadKeepsTheBlocksAndTheFormat) {
    writeSolid("noise.astc", 12, 10, 6, 5);
    const auto loaded = loaders::AstcTexture::load(gl, "noise", dir.path(), loaders::AstcTexture::Decoding::GPU);
    EXPECT_EQ(loaded.width, 12);
    EXPECT_EQ(loaded.height, 10);
    EXPECT_EQ(loaded.levels, 1);
    EXPECT_EQ(loaded.internalFormat, static_cast<GLenum>(GL_COMPRESSED_RGBA_ASTC_6x5_KHR));
    const auto t = std::to_string(loaded.texture);
    EXPECT_EQ(gl.log({GlCall::compressedTexImage2D, GlCall::texImage2D, GlCall::texParameteri}),
              (std::vector<std::string>{"compressedTexImage2D(" + t + ", 0, 37811, 12, 10, 64)",
                                        "texParameteri(" + t + ", 33084, 0)", "texParameteri(" + t + ", 33085, 0)"}));
}

TEST_F(AstcTextureLoadTest, CpuDecodingUploadsRgba8) {
    writeSolid("noise.astc", 8, 4, 4, 4);
    const auto loaded = loaders::AstcTexture::load(gl, "noise", dir.path(), loaders::AstcTexture::Decoding::CPU);
    EXPECT_EQ(loaded.internalFormat, static_cast<GLenum>(GL_RGBA8));
    EXPECT_EQ(gl.count(GlCall::compressedTexImage2D), 0u);
    EXPECT_EQ(gl.log({GlCall::texImage2D}),
              (std::vector<std::string>{"texImage2D(" + std::to_string(loaded.texture) + ", 0, 32856, 8, 4, 6408, 5121, 1)"}));
}

TEST_F(AstcTextureLoadTest, MipmappedTextureReadsOneFilePerLevelAndStopsAtTheCount) {
    writeSolid("caustics1_0.astc", 32, 32, 8, 8);
    writeSolid("caustics1_1.astc", 16, 16, 8, 8);
    writeSolid("caustics1_2.astc", 8, 8, 8, 8);
    writeSolid("caustics1_3.astc", 4, 4, 8, 8);
    writeSolid("caustics1_4.astc", 2, 2, 8, 8); // beyond the count: never read
    const auto loaded =
        loaders::AstcTexture::loadMipmapped(gl, "caustics1", dir.path(), 3, loaders::AstcTexture::Decoding::GPU);
    EXPECT_EQ(loaded.levels, 4);
    EXPECT_EQ(loaded.width, 32);
    const auto t = std::to_string(loaded.texture);
    EXPECT_EQ(gl.log({GlCall::compressedTexImage2D, GlCall::texParameteri}),
              (std::vector<std::string>{
                  "compressedTexImage2D(" + t + ", 0, 37815, 32, 32, 256)",
                  "compressedTexImage2D(" + t + ", 1, 37815, 16, 16, 64)",
                  "compressedTexImage2D(" + t + ", 2, 37815, 8, 8, 16)",
                  "compressedTexImage2D(" + t + ", 3, 37815, 4, 4, 16)",
                  "texParameteri(" + t + ", 33084, 0)",
                  "texParameteri(" + t + ", 33085, 3)",
              }));
}

TEST_F(AstcTextureLoadTest, MipLevelsRoundTheirRowLengthUp) {
    // 10 pixels of 4-wide blocks: three full blocks a row, 3 * 3 blocks in all.
    writeSolid("odd_0.astc", 10, 10, 4, 4);
    EXPECT_NO_THROW(loaders::AstcTexture::loadMipmapped(gl, "odd", dir.path(), 0, loaders::AstcTexture::Decoding::GPU));
    // A file holding only the 3 * 2 + 1 blocks that the single-level loader's short rows reach
    // is still short of the image its header claims, for both loaders.
    dir.write("short_0.astc", astcFile(10, 10, 4, 4, countingBytes(7 * 16)));
    dir.write("short.astc", astcFile(10, 10, 4, 4, countingBytes(7 * 16)));
    EXPECT_THROW(loaders::AstcTexture::load(gl, "short", dir.path(), loaders::AstcTexture::Decoding::GPU),
                 std::runtime_error);
    EXPECT_THROW(loaders::AstcTexture::loadMipmapped(gl, "short", dir.path(), 0, loaders::AstcTexture::Decoding::GPU),
                 std::runtime_error);
}

TEST_F(AstcTextureLoadTest, MissingLevelIsNamedWithItsSuffixAndLeavesNoTexture) {
    writeSolid("room1_0.astc", 8, 8, 4, 4);
    writeSolid("room1_1.astc", 4, 4, 4, 4);
    try {
        loaders::AstcTexture::loadMipmapped(gl, "room1", dir.path(), 2, loaders::AstcTexture::Decoding::GPU);
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_STREQ(e.what(), "File not found in bundle: room1_2");
    }
    EXPECT_EQ(gl.liveTextures(), 0u);
}

TEST_F(AstcTextureLoadTest, FileFaultsAreErrorsNotCrashes) {
    try {
        loaders::AstcTexture::load(gl, "absent", dir.path());
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_STREQ(e.what(), "File not found in bundle: absent");
    }
    dir.write("empty.astc", {});
    EXPECT_THROW(loaders::AstcTexture::load(gl, "empty", dir.path()), std::runtime_error);
    dir.write("header.astc", countingBytes(10));
    EXPECT_THROW(loaders::AstcTexture::load(gl, "header", dir.path()), std::runtime_error);
    dir.write("cut.astc", astcFile(16, 16, 4, 4, countingBytes(15 * 16)));
    EXPECT_THROW(loaders::AstcTexture::load(gl, "cut", dir.path()), std::runtime_error);
    EXPECT_THROW(loaders::AstcTexture::loadMipmapped(gl, "cut", dir.path(), -1), std::invalid_argument);
    EXPECT_EQ(gl.liveTextures(), 0u);
}

} // namespace
} // namespace renderer
