#include <epoxy/gl.h>
#include <gtest/gtest.h>

#include "renderer/AstcTexture.h"
#include "renderer/FullModel.h"
#include "renderer/gl/EpoxyGl.h"
#include "renderer/headless/HeadlessContext.h"
#include "renderer/headless/OffscreenTarget.h"
#include "renderer/textures/Fp16Texture.h"
#include "renderer/textures/WebpTexture.h"
#include "tests/renderer/loaders/LoaderFiles.h"

namespace renderer {
namespace {

using test::channelDistance;
using test::pixelAt;
using test::TempDir;

class LoadersGlTest : public ::testing::Test {
protected:
    headless::HeadlessContext context;
    gl::EpoxyGl gl;
    TempDir dir;

    /// Level `level` of `texture` as a shader sees it (texelFetch), read back as RGBA8, first
    /// row first. Sampling rather than glGetTexImage: the drivers that keep ASTC compressed
    /// need not read it back.
    static std::vector<std::uint8_t> readLevel(GLuint texture, int level, int width, int height) {
        static const char* vertex = R"(#version 330 core
void main() {
    vec2 corner = vec2(float((gl_VertexID << 1) & 2), float(gl_VertexID & 2));
    gl_Position = vec4(corner * 2.0 - 1.0, 0.0, 1.0);
})";
        static const char* fragment = R"(#version 330 core
uniform sampler2D uTexture;
uniform int uLevel;
uniform int uHeight;
out vec4 fragColor;
void main() {
    ivec2 texel = ivec2(int(gl_FragCoord.x), uHeight - 1 - int(gl_FragCoord.y));
    fragColor = texelFetch(uTexture, texel, uLevel);
})";
        headless::OffscreenTarget target(width, height);
        std::string log;
        gl::EpoxyGl epoxy;
        const GLuint program = epoxy.createProgram(vertex, fragment, log);
        EXPECT_NE(program, 0u) << log;
        GLuint vertexArray = 0;
        glGenVertexArrays(1, &vertexArray);
        glBindVertexArray(vertexArray);
        target.bind();
        glUseProgram(program);
        glActiveTexture(GL_TEXTURE0);
        glBindTexture(GL_TEXTURE_2D, texture);
        glUniform1i(glGetUniformLocation(program, "uTexture"), 0);
        glUniform1i(glGetUniformLocation(program, "uLevel"), level);
        glUniform1i(glGetUniformLocation(program, "uHeight"), height);
        glDisable(GL_BLEND);
        glDisable(GL_DEPTH_TEST);
        glDrawArrays(GL_TRIANGLES, 0, 3);
        auto pixels = target.readPixels();
        glBindTexture(GL_TEXTURE_2D, 0);
        glUseProgram(0);
        glBindVertexArray(0);
        glDeleteVertexArrays(1, &vertexArray);
        glDeleteProgram(program);
        glBindFramebuffer(GL_FRAMEBUFFER, 0);
        return pixels;
    }

    static GLint levelParameter(GLuint texture, int level, GLenum name) {
        GLint value = 0;
        glBindTexture(GL_TEXTURE_2D, texture);
        glGetTexLevelParameteriv(GL_TEXTURE_2D, level, name, &value);
        glBindTexture(GL_TEXTURE_2D, 0);
        return value;
    }

    /// Writes `<name>.astc`: the four-quadrant picture, `blocks` blocks a quadrant side.
    void writeQuadrants(const std::string& name, int bw, int bh, int& width, int& height) {
        width = bw * 4;
        height = bh * 4;
        const auto blocks = test::encodeAstc(test::quadrants(width, height), width, height, bw, bh);
        dir.write(name + ".astc", test::astcFile(width, height, bw, bh, blocks));
    }

    static void expectQuadrants(const std::vector<std::uint8_t>& pixels, int width, int height, const char* path) {
        for (int y : {0, height / 2 - 1, height / 2, height - 1}) {
            for (int x : {0, width / 2 - 1, width / 2, width - 1}) {
                const std::uint32_t expected = y < height / 2 ? (x < width / 2 ? 0xFF0000FFu : 0x00FF00FFu)
                                                              : (x < width / 2 ? 0x0000FFFFu : 0x80808080u);
                EXPECT_LE(channelDistance(pixelAt(pixels, width, x, y), expected), 1)
                    << path << " at " << x << "," << y << ": " << std::hex << pixelAt(pixels, width, x, y);
            }
        }
    }
};

TEST_F(LoadersGlTest, AstcDecodedOnTheProcessorShowsTheEncodedPicture) {
    for (const auto& [bw, bh] : std::vector<std::pair<int, int>>{{4, 4}, {6, 6}, {8, 5}}) {
        int width = 0;
        int height = 0;
        const std::string name = "cpu" + std::to_string(bw) + "x" + std::to_string(bh);
        writeQuadrants(name, bw, bh, width, height);
        const auto loaded = AstcTexture::load(gl, name, dir.path(), AstcTexture::Decoding::CPU);
        EXPECT_EQ(levelParameter(loaded.texture, 0, GL_TEXTURE_INTERNAL_FORMAT), GL_RGBA8);
        expectQuadrants(readLevel(loaded.texture, 0, width, height), width, height, name.c_str());
        gl.deleteTexture(loaded.texture);
    }
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(LoadersGlTest, AstcDecodedByTheDriverMatchesTheProcessorPath) {
    if (!context.hasExtension("GL_KHR_texture_compression_astc_ldr")) {
        GTEST_SKIP() << "the driver has no ASTC";
    }
    int width = 0;
    int height = 0;
    writeQuadrants("pic", 6, 5, width, height);
    const auto gpu = AstcTexture::load(gl, "pic", dir.path(), AstcTexture::Decoding::GPU);
    const auto cpu = AstcTexture::load(gl, "pic", dir.path(), AstcTexture::Decoding::CPU);
    EXPECT_EQ(levelParameter(gpu.texture, 0, GL_TEXTURE_INTERNAL_FORMAT), GL_COMPRESSED_RGBA_ASTC_6x5_KHR);
    const auto gpuPixels = readLevel(gpu.texture, 0, width, height);
    expectQuadrants(gpuPixels, width, height, "gpu");
    const auto cpuPixels = readLevel(cpu.texture, 0, width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            ASSERT_LE(channelDistance(pixelAt(gpuPixels, width, x, y), pixelAt(cpuPixels, width, x, y)), 1)
                << x << "," << y;
        }
    }
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(LoadersGlTest, MipChainFillsEachLevelFromItsOwnFile) {
    // Level L is solid in colour L: a level taken from the wrong file shows the wrong colour.
    const std::uint32_t colours[] = {0xFF0000FFu, 0x00FF00FFu, 0x0000FFFFu};
    for (int level = 0, size = 16; level < 3; ++level, size /= 2) {
        std::vector<std::uint8_t> rgba;
        for (int i = 0; i < size * size; ++i) {
            for (int shift = 24; shift >= 0; shift -= 8) {
                rgba.push_back(static_cast<std::uint8_t>(colours[level] >> shift));
            }
        }
        dir.write("chain_" + std::to_string(level) + ".astc",
                  test::astcFile(size, size, 4, 4, test::encodeAstc(rgba, size, size, 4, 4)));
    }
    for (auto decoding : {AstcTexture::Decoding::CPU, AstcTexture::Decoding::AUTO}) {
        const auto loaded = AstcTexture::loadMipmapped(gl, "chain", dir.path(), 2, decoding);
        for (int level = 0, size = 16; level < 3; ++level, size /= 2) {
            EXPECT_EQ(levelParameter(loaded.texture, level, GL_TEXTURE_WIDTH), size);
            const auto pixels = readLevel(loaded.texture, level, size, size);
            EXPECT_LE(channelDistance(pixelAt(pixels, size, size - 1, size - 1), colours[level]), 1) << level;
        }
        GLint maxLevel = 0;
        glBindTexture(GL_TEXTURE_2D, loaded.texture);
        glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, &maxLevel);
        glBindTexture(GL_TEXTURE_2D, 0);
        EXPECT_EQ(maxLevel, 2);
    }
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(LoadersGlTest, HalfFloatTableKeepsItsExactValues) {
    // Positions as an animation table holds them: signed, fractional, beyond 1.
    const std::vector<float> values = {-1.5f, 0.25f, 1024.0f, 1.0f, 3.75f, -0.125f, 0.0f, 1.0f,
                                       12.5f, -100.0f, 0.5f, 1.0f,  -2.0f, 7.0f,    64.25f, 1.0f};
    dir.write("bird.rgba.fp16", test::fp16File(values));
    const auto loaded = textures::Fp16Texture::load(gl, "bird.rgba.fp16", dir.path(), 2, 2);
    std::vector<float> read(values.size());
    glBindTexture(GL_TEXTURE_2D, loaded.texture);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_FLOAT, read.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    EXPECT_EQ(read, values);
    EXPECT_EQ(levelParameter(loaded.texture, 0, GL_TEXTURE_INTERNAL_FORMAT), GL_RGBA16F);
}

TEST_F(LoadersGlTest, WebpTextureHoldsTheImagesPixels) {
    const auto original = test::quadrants(10, 6);
    dir.write("palette-night.webp", test::encodeWebp(original, 10, 6));
    const auto loaded = textures::WebpTexture::load(gl, "palette-night.webp", dir.path());
    EXPECT_EQ(readLevel(loaded.texture, 0, 10, 6), original);
}

TEST_F(LoadersGlTest, ModelBuffersHoldTheFilesLengths) {
    dir.write("r/models/m-strides.bin", test::countingBytes(48));
    dir.write("r/models/m-indices.bin", test::countingBytes(13));
    FullModel model("m", "r");
    model.load(gl, dir.path());
    GLint size = 0;
    glBindBuffer(GL_COPY_READ_BUFFER, model.vertexBuffer());
    glGetBufferParameteriv(GL_COPY_READ_BUFFER, GL_BUFFER_SIZE, &size);
    EXPECT_EQ(size, 48);
    glBindBuffer(GL_COPY_READ_BUFFER, model.indexBuffer());
    glGetBufferParameteriv(GL_COPY_READ_BUFFER, GL_BUFFER_SIZE, &size);
    EXPECT_EQ(size, 13);
    glBindBuffer(GL_COPY_READ_BUFFER, 0);
    EXPECT_EQ(model.indexCount(), 6);
    model.release(gl);
    EXPECT_EQ(model.vertexBuffer(), 0u);
}

} // namespace
} // namespace renderer
