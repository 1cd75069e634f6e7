#include "renderer/textures/TextureFiles.h"

#include <gtest/gtest.h>

#include "renderer/textures/Fp16Texture.h"
#include "renderer/textures/WebpTexture.h"
#include "tests/renderer/loaders/LoaderFiles.h"
#include "tests/renderer/support/RecordingGl.h"

namespace renderer::textures {
namespace {

using test::GlCall;
using test::RecordingGl;
using test::TempDir;

engine::Texture description(const std::string& fileName, engine::TextureFormat format, int mipmaps = 0) {
    engine::Texture texture;
    texture.name = fileName;
    texture.fileName = fileName;
    texture.format = format;
    texture.mipmaps = mipmaps;
    return texture;
}

class TextureFilesTest : public ::testing::Test {
protected:
    TempDir dir;
    RecordingGl gl;

    void writeAstc(const std::string& name, int size) {
        dir.write(name, test::astcFile(size, size, 4, 4,
                                       test::countingBytes(static_cast<std::size_t>((size + 3) / 4 * ((size + 3) / 4)) * 16)));
    }
};

TEST_F(TextureFilesTest, EightBitFormatsReadWebpFiles) {
    dir.write("palette-day.webp", test::encodeWebp(test::quadrants(4, 2), 4, 2));
    for (auto format : {engine::TextureFormat::RGBA8, engine::TextureFormat::RGB8}) {
        const auto loaded = TextureFiles::load(gl, description("palette-day", format), dir.path());
        ASSERT_TRUE(loaded.has_value());
        EXPECT_EQ(loaded->width, 4);
        EXPECT_EQ(loaded->height, 2);
        EXPECT_EQ(loaded->internalFormat, static_cast<GLenum>(GL_RGBA8));
    }
    EXPECT_EQ(gl.liveTextures(), 2u);
}

TEST_F(TextureFilesTest, AstcWithoutMipmapsReadsOneFileAndWithMipmapsOnePerLevel) {
    writeAstc("blue-noise-16.astc", 16);
    gl.extensions.insert("GL_KHR_texture_compression_astc_ldr");
    ASSERT_TRUE(TextureFiles::load(gl, description("blue-noise-16", engine::TextureFormat::ASTC), dir.path()));
    EXPECT_EQ(gl.count(GlCall::compressedTexImage2D), 1u);

    for (int level = 0, size = 8; level <= 3; ++level, size /= 2) {
        writeAstc("caustics1_" + std::to_string(level) + ".astc", size);
    }
    gl.clearCalls();
    const auto loaded = TextureFiles::load(gl, description("caustics1", engine::TextureFormat::ASTC, 3), dir.path());
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->levels, 4);
    EXPECT_EQ(gl.count(GlCall::compressedTexImage2D), 4u);
}

TEST_F(TextureFilesTest, LoaderErrorsComeThroughTryLoadWithTheirOwnWords) {
    try {
        TextureFiles::tryLoad(gl, description("sky-day", engine::TextureFormat::RGBA8), dir.path());
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_STREQ(e.what(), "Texture file not found in bundle: sky-day.webp");
    }
}

TEST_F(TextureFilesTest, HalfFloatFilesMustHoldTheWholeImage) {
    dir.write("bird.rgba.fp16", test::fp16File(std::vector<float>(4 * 4 * 4 + 8, 1.0f)));
    EXPECT_NO_THROW(Fp16Texture::load(gl, "bird.rgba.fp16", dir.path(), 4, 4)); // extra bytes ignored
    EXPECT_THROW(Fp16Texture::load(gl, "bird.rgba.fp16", dir.path(), 4, 5), std::runtime_error);
    EXPECT_THROW(Fp16Texture::load(gl, "bird.rgba.fp16", dir.path(), 0, 4), std::invalid_argument);
    dir.write("empty.rgba.fp16", {});
    EXPECT_THROW(Fp16Texture::load(gl, "empty.rgba.fp16", dir.path(), 1, 1), std::runtime_error);
    try {
        Fp16Texture::load(gl, "absent.rgba.fp16", dir.path(), 1, 1);
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_STREQ(e.what(), "File not found in bundle: absent.rgba.fp16");
    }
    EXPECT_EQ(gl.liveTextures(), 1u);
}

using TextureFilesDeathTest = TextureFilesTest;

TEST_F(TextureFilesDeathTest, AnyLoaderErrorStopsWithTheTexturesFileName) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(TextureFiles::load(gl, description("sky-day", engine::TextureFormat::RGBA8), dir.path()),
                ::testing::ExitedWithCode(1), "^Fatal error: Cannot load texture [^ ]*/sky-day\\.webp: file not found\n$");
    auto bird = description("bird.rgba.fp16", engine::TextureFormat::RGBA16F);
    bird.width = 133;
    bird.height = 4;
    EXPECT_EXIT(TextureFiles::load(gl, bird, dir.path()), ::testing::ExitedWithCode(1),
                "^Fatal error: Cannot load texture [^ ]*/bird\\.rgba\\.fp16: file not found\n$");
}

} // namespace
} // namespace renderer::textures
