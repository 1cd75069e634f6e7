// The GLSL library: every shader compiles and links on the software rasteriser, takes exactly
// the uniforms of its table row (name and type by stage and slot) and its vertex attributes at
// the locations of the draw states, and the shaders with arithmetic of their own draw what
// they should.

#include <epoxy/gl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "renderer/gl/EpoxyGl.h"
#include "renderer/headless/HeadlessContext.h"
#include "renderer/headless/OffscreenTarget.h"
#include "renderer/headless/PngFile.h"

namespace renderer::headless {
namespace {

std::string readSource(const std::string& name) {
    const auto path = std::filesystem::path(NIVALIS_RESOURCES_DIR) / "shaders" / name;
    std::ifstream in(path);
    if (!in) {
        ADD_FAILURE() << "missing shader source " << path;
        return {};
    }
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

class ShadersGlTest : public ::testing::Test {
protected:
    HeadlessContext context;
    gl::EpoxyGl gl;

    GLuint build(const std::string& name) {
        std::string log;
        const GLuint program = gl.createProgram(readSource(name + ".vert"), readSource(name + ".frag"), log);
        EXPECT_NE(program, 0u) << name << ": " << log;
        return program;
    }

    /// Active uniforms of `program`: name -> GL type.
    static std::map<std::string, GLenum> activeUniforms(GLuint program) {
        std::map<std::string, GLenum> result;
        GLint count = 0;
        glGetProgramiv(program, GL_ACTIVE_UNIFORMS, &count);
        for (GLint i = 0; i < count; ++i) {
            char name[128];
            GLint size = 0;
            GLenum type = 0;
            glGetActiveUniform(program, static_cast<GLuint>(i), sizeof name, nullptr, &size, &type, name);
            result[name] = type;
        }
        return result;
    }

    /// Active vertex inputs of `program`: location -> GL type.
    static std::map<GLint, GLenum> activeAttributes(GLuint program) {
        std::map<GLint, GLenum> result;
        GLint count = 0;
        glGetProgramiv(program, GL_ACTIVE_ATTRIBUTES, &count);
        for (GLint i = 0; i < count; ++i) {
            char name[128];
            GLint size = 0;
            GLenum type = 0;
            glGetActiveAttrib(program, static_cast<GLuint>(i), sizeof name, nullptr, &size, &type, name);
            if (std::string(name).starts_with("gl_")) {
                continue;
            }
            result[glGetAttribLocation(program, name)] = type;
        }
        return result;
    }
};

/// The largest difference of one channel between two colours packed as 0xRRGGBBAA.
int distance(std::uint32_t a, std::uint32_t b) {
    int largest = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        largest = std::max(largest, std::abs(static_cast<int>((a >> shift) & 0xFF) - static_cast<int>((b >> shift) & 0xFF)));
    }
    return largest;
}

struct ShaderInterface {
    const char* name;
    std::map<std::string, GLenum> uniforms;
    std::map<GLint, GLenum> attributes;
};

// Built from the uniform tables (stage and slot give the name, the value's length the type) and
// the vertex layouts of the draw states that use each shader.
const std::vector<ShaderInterface>& interfaces() {
    static const std::vector<ShaderInterface> all = [] {
        const std::map<std::string, GLenum> blur = {
            {"uFragmentTexture0", GL_SAMPLER_2D}, {"uFragment1", GL_FLOAT_VEC2}, {"uFragment2", GL_FLOAT}};
        const std::map<GLint, GLenum> quad = {{0, GL_FLOAT_VEC2}, {1, GL_FLOAT_VEC2}};
        return std::vector<ShaderInterface>{
            {"Vignette", {{"uVertex1", GL_FLOAT_VEC4}, {"uVertex2", GL_FLOAT_VEC4}}, {{0, GL_FLOAT_VEC2}, {1, GL_FLOAT}}},
            {"FullscreenQuad", {{"uFragmentTexture0", GL_SAMPLER_2D}}, quad},
            {"Diffuse", {{"uVertex1", GL_FLOAT_MAT4}, {"uFragmentTexture0", GL_SAMPLER_2D}},
             {{0, GL_FLOAT_VEC3}, {1, GL_FLOAT_VEC2}}},
            {"Color", {{"uVertex1", GL_FLOAT_MAT4}, {"uFragment1", GL_FLOAT_VEC4}}, {{0, GL_FLOAT_VEC3}}},
            {"ColorAnimatedTextureChunked",
             {{"uVertex1", GL_FLOAT_MAT4}, {"uFragment1", GL_FLOAT_VEC4}, {"uVertex2", GL_INT},
              {"uVertex3", GL_FLOAT}, {"uVertexTexture0", GL_SAMPLER_2D}, {"uVertex4", GL_FLOAT_VEC4}},
             {}},
            {"DiffuseAnimatedTextureChunked",
             {{"uVertex1", GL_FLOAT_MAT4}, {"uFragmentTexture0", GL_SAMPLER_2D}, {"uVertex2", GL_INT},
              {"uVertex3", GL_FLOAT}, {"uVertexTexture0", GL_SAMPLER_2D}, {"uVertex4", GL_FLOAT_VEC4}},
             {{0, GL_FLOAT_VEC2}}},
            {"Palette", {{"uVertex1", GL_FLOAT_MAT4}, {"uFragmentTexture0", GL_SAMPLER_2D}},
             {{0, GL_FLOAT_VEC3}, {1, GL_FLOAT}}},
            {"SkyDither",
             {{"uVertex1", GL_FLOAT_MAT4}, {"uFragmentTexture0", GL_SAMPLER_2D}, {"uFragmentTexture1", GL_SAMPLER_2D}},
             {{0, GL_FLOAT_VEC3}, {1, GL_FLOAT_VEC2}}},
            {"Cloud", {{"uVertex1", GL_FLOAT_MAT4}, {"uFragment1", GL_FLOAT_VEC4}, {"uVertex2", GL_FLOAT}},
             {{0, GL_FLOAT_VEC3}, {1, GL_FLOAT}}},
            {"CausticsWater",
             {{"uVertex1", GL_FLOAT_MAT4}, {"uFragmentTexture0", GL_SAMPLER_2D}, {"uFragment1", GL_FLOAT},
              {"uFragment2", GL_FLOAT}, {"uFragment3", GL_FLOAT}, {"uVertex4", GL_FLOAT_VEC2},
              {"uVertex5", GL_FLOAT_VEC4}, {"uVertex2", GL_FLOAT_VEC4}, {"uVertex3", GL_FLOAT_VEC4}},
             {{0, GL_FLOAT_VEC3}, {1, GL_FLOAT_VEC2}}},
            {"DiffuseZFog",
             {{"uVertex1", GL_FLOAT_MAT4}, {"uFragmentTexture0", GL_SAMPLER_2D}, {"uFragment1", GL_FLOAT_VEC4},
              {"uVertex2", GL_FLOAT_VEC2}},
             {{0, GL_FLOAT_VEC3}, {1, GL_FLOAT}}},
            {"Water", {{"uVertex1", GL_FLOAT_MAT4}, {"uFragment1", GL_FLOAT_VEC4}, {"uVertex2", GL_FLOAT}},
             {{0, GL_FLOAT_VEC3}}},
            {"GaussianBlur", blur, quad},
            {"GaussianBlur4", blur, quad},
            {"GaussianBlur3", blur, quad},
            {"GaussianBlur2", blur, quad},
        };
    }();
    return all;
}

TEST_F(ShadersGlTest, EveryShaderTakesExactlyItsTablesUniformsAndAttributes) {
    for (const auto& expected : interfaces()) {
        SCOPED_TRACE(expected.name);
        const GLuint program = build(expected.name);
        if (program == 0) {
            continue;
        }
        // Exactly: a uniform the shader ignores or one no table fills would both be faults.
        EXPECT_EQ(activeUniforms(program), expected.uniforms);
        EXPECT_EQ(activeAttributes(program), expected.attributes);
        gl.deleteProgram(program);
    }
}

/// Draws with raw GL into a small target and reads the picture back.
class ShaderDrawGlTest : public ShadersGlTest {
protected:
    GLuint vertexArray = 0;
    std::vector<GLuint> buffers;
    std::vector<GLuint> textures;

    void SetUp() override {
        glGenVertexArrays(1, &vertexArray);
        glBindVertexArray(vertexArray);
        glDisable(GL_DEPTH_TEST);
        glDisable(GL_CULL_FACE);
        glDisable(GL_BLEND);
    }

    void TearDown() override {
        glBindVertexArray(0);
        glDeleteVertexArrays(1, &vertexArray);
        glDeleteBuffers(static_cast<GLsizei>(buffers.size()), buffers.data());
        glDeleteTextures(static_cast<GLsizei>(textures.size()), textures.data());
    }

    /// Float attribute `location` with `components` per vertex from `data`.
    void attribute(GLuint location, int components, const std::vector<float>& data) {
        GLuint buffer = 0;
        glGenBuffers(1, &buffer);
        buffers.push_back(buffer);
        glBindBuffer(GL_ARRAY_BUFFER, buffer);
        glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(data.size() * sizeof(float)), data.data(),
                     GL_STATIC_DRAW);
        glEnableVertexAttribArray(location);
        glVertexAttribPointer(location, components, GL_FLOAT, GL_FALSE, 0, nullptr);
    }

    /// A texture of `width` * `height` texels on `unit`, nearest filtering, no mipmaps.
    GLuint texture(GLuint unit, int width, int height, GLenum internalFormat, GLenum type, const void* data) {
        GLuint name = 0;
        glGenTextures(1, &name);
        textures.push_back(name);
        glActiveTexture(GL_TEXTURE0 + unit);
        glBindTexture(GL_TEXTURE_2D, name);
        glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
        glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(internalFormat), width, height, 0, GL_RGBA, type, data);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
        glActiveTexture(GL_TEXTURE0);
        return name;
    }

    GLuint solidTexture(GLuint unit, std::uint32_t rgba) {
        const std::uint8_t texel[4] = {static_cast<std::uint8_t>(rgba >> 24), static_cast<std::uint8_t>(rgba >> 16),
                                       static_cast<std::uint8_t>(rgba >> 8), static_cast<std::uint8_t>(rgba)};
        return texture(unit, 1, 1, GL_RGBA8, GL_UNSIGNED_BYTE, texel);
    }

    static void setMatrix(GLuint program, const char* name, const std::array<float, 16>& columns) {
        glUniformMatrix4fv(glGetUniformLocation(program, name), 1, GL_FALSE, columns.data());
    }

    static constexpr std::array<float, 16> IDENTITY = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

    /// Two triangles covering the clip square, in the layout of the quad drawn by blur passes:
    /// positions at location 0, texture coordinates with v = 0 at the top at location 1.
    void fullscreenQuad() {
        attribute(0, 2, {-1, -1, 1, -1, -1, 1, -1, 1, 1, -1, 1, 1});
        attribute(1, 2, {0, 1, 1, 1, 0, 0, 0, 0, 1, 1, 1, 0});
    }

    /// Two triangles covering x0..x1 of the clip square at height z, positions of 3 floats.
    static std::vector<float> rectangle(float x0, float x1, float z) {
        return {x0, -1, z, x1, -1, z, x0, 1, z, x0, 1, z, x1, -1, z, x1, 1, z};
    }

    static PngFile::Image picture(const OffscreenTarget& target) {
        return PngFile::Image{target.width(), target.height(), target.readPixels()};
    }
};

TEST_F(ShaderDrawGlTest, AnimatedVerticesComeFromTheirChunkColumnAndPoseRow) {
    // A table 3 wide for 6 vertices: 2 chunks of 2 frames, so blocks of 3 rows and 6 rows in
    // all. Texel (column c, row r) holds the clip position of pixel (c + 3 * chunk, frame) of
    // a 6 by 2 target, so each pose lights its own row of pixels.
    const int width = 3;
    const int frames = 2;
    const int blocks = 2;
    const int height = blocks * (frames + 1);
    std::vector<float> table(static_cast<std::size_t>(width * height) * 4, 0.0f);
    for (int chunk = 0; chunk < blocks; ++chunk) {
        for (int frame = 0; frame < frames; ++frame) {
            for (int column = 0; column < width; ++column) {
                const int row = chunk * (frames + 1) + frame;
                const int pixelX = column + width * chunk;
                float* texel = table.data() + (static_cast<std::size_t>(row) * width + column) * 4;
                texel[0] = (static_cast<float>(pixelX) + 0.5f) / 6.0f * 2.0f - 1.0f;
                texel[1] = (static_cast<float>(frame) + 0.5f) / 2.0f * 2.0f - 1.0f;
                texel[3] = 1.0f;
            }
        }
    }
    for (const char* name : {"ColorAnimatedTextureChunked", "DiffuseAnimatedTextureChunked"}) {
        SCOPED_TRACE(name);
        const GLuint program = build(name);
        texture(8, width, height, GL_RGBA32F, GL_FLOAT, table.data());
        const bool diffuse = std::string(name) == "DiffuseAnimatedTextureChunked";
        if (diffuse) {
            solidTexture(0, 0xFFFFFFFFu);
            attribute(0, 2, std::vector<float>(12, 0.5f));
        }
        OffscreenTarget target(6, 2);
        for (int frame = 0; frame < frames; ++frame) {
            target.bind();
            glClearColor(0, 0, 0, 1);
            glClear(GL_COLOR_BUFFER_BIT);
            glUseProgram(program);
            setMatrix(program, "uVertex1", IDENTITY);
            glUniform4f(glGetUniformLocation(program, "uFragment1"), 1.0f, 1.0f, 1.0f, 1.0f);
            glUniform1i(glGetUniformLocation(program, "uFragmentTexture0"), 0);
            glUniform1i(glGetUniformLocation(program, "uVertexTexture0"), 8);
            glUniform1i(glGetUniformLocation(program, "uVertex2"), width);
            glUniform1f(glGetUniformLocation(program, "uVertex3"), 1.0f / height);
            // Row coordinate of the frame's centre inside the first block; block height 1/2.
            const float rowCoordinate = (static_cast<float>(frame) + 0.5f) / static_cast<float>(height);
            glUniform4f(glGetUniformLocation(program, "uVertex4"), static_cast<float>(width), 0.5f / width,
                        rowCoordinate, 1.0f / blocks);
            glDrawArrays(GL_POINTS, 0, 6);
            const auto image = picture(target);
            // Picture rows run from the top: frame 0 is the bottom row.
            for (int x = 0; x < 6; ++x) {
                EXPECT_EQ(image.rgba(x, 1 - frame), 0xFFFFFFFFu) << "vertex " << x << " frame " << frame;
                EXPECT_EQ(image.rgba(x, frame), 0x000000FFu) << "vertex " << x << " frame " << frame;
            }
        }
        glDeleteProgram(program);
    }
}

TEST_F(ShaderDrawGlTest, SkyIsDitheredByAtMostOneStepAroundItsColour) {
    const GLuint program = build("SkyDither");
    solidTexture(0, 0x808080FFu);
    // A 4 by 4 noise tile holding 16 distinct levels.
    std::vector<std::uint8_t> noise;
    for (int i = 0; i < 16; ++i) {
        const auto v = static_cast<std::uint8_t>(i * 16 + 8);
        noise.insert(noise.end(), {v, v, v, 255});
    }
    texture(1, 4, 4, GL_RGBA8, GL_UNSIGNED_BYTE, noise.data());
    attribute(0, 3, {-1, -1, 0, 3, -1, 0, -1, 3, 0});
    attribute(1, 2, {0, 0, 0, 0, 0, 0});
    OffscreenTarget target(16, 16);
    target.bind();
    glUseProgram(program);
    setMatrix(program, "uVertex1", IDENTITY);
    glUniform1i(glGetUniformLocation(program, "uFragmentTexture0"), 0);
    glUniform1i(glGetUniformLocation(program, "uFragmentTexture1"), 1);
    glDrawArrays(GL_TRIANGLES, 0, 3);
    const auto image = picture(target);
    std::map<std::uint32_t, int> seen;
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            const std::uint32_t red = image.rgba(x, y) >> 24;
            EXPECT_GE(red, 127u);
            EXPECT_LE(red, 129u);
            ++seen[red];
        }
    }
    EXPECT_GE(seen.size(), 2u) << "no dithering";
    // The tile repeats every 4 pixels.
    EXPECT_EQ(image.rgba(1, 2), image.rgba(5, 2));
    EXPECT_EQ(image.rgba(1, 2), image.rgba(1, 14));
    glDeleteProgram(program);
}

TEST_F(ShaderDrawGlTest, DistantMountainsFadeIntoTheFogTowardsTheirFeet) {
    const GLuint program = build("DiffuseZFog");
    solidTexture(0, 0x000000FFu);
    // Left half of the target at height 0, right half at height 3000; z is squeezed into the
    // clip volume by the matrix.
    auto left = rectangle(-1, 0, 0.0f);
    const auto right = rectangle(0, 1, 3000.0f);
    left.insert(left.end(), right.begin(), right.end());
    attribute(0, 3, left);
    attribute(1, 1, std::vector<float>(12, 0.0f));
    OffscreenTarget target(4, 2);
    target.bind();
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glUseProgram(program);
    setMatrix(program, "uVertex1", {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1.0f / 4000.0f, 0, 0, 0, 0, 1});
    glUniform4f(glGetUniformLocation(program, "uFragment1"), 1.0f, 1.0f, 1.0f, 0.75f);
    glUniform2f(glGetUniformLocation(program, "uVertex2"), 0.0f, 1500.0f);
    glUniform1i(glGetUniformLocation(program, "uFragmentTexture0"), 0);
    glDrawArrays(GL_TRIANGLES, 0, 12);
    const auto image = picture(target);
    // At the foot three quarters fog (0.75 * 255 = 191.25); above the range none.
    EXPECT_LE(std::abs(static_cast<int>(image.rgba(0, 1) >> 24) - 191), 8);
    EXPECT_EQ(image.rgba(3, 1), 0x000000FFu);
    glDeleteProgram(program);
}

TEST_F(ShaderDrawGlTest, WaterTurnsFromNearToFarColourAndCausticsFadeWithDistance) {
    const GLuint program = build("CausticsWater");
    solidTexture(0, 0xFFFFFFFFu); // caustic pattern at full light everywhere
    OffscreenTarget target(2, 2);
    // clip = (x, y, 0, z): the water lies at depth z in front of the eye.
    const std::array<float, 16> depthAsW = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0};
    auto drawAt = [&](float distance, float causticStrength, float reach) {
        glDeleteBuffers(static_cast<GLsizei>(buffers.size()), buffers.data());
        buffers.clear();
        const float d = distance;
        attribute(0, 3, {-d, -d, distance, 3 * d, -d, distance, -d, 3 * d, distance});
        attribute(1, 2, {0, 0, 1, 0, 0, 1});
        target.bind();
        glUseProgram(program);
        setMatrix(program, "uVertex1", depthAsW);
        glUniform1i(glGetUniformLocation(program, "uFragmentTexture0"), 0);
        glUniform1f(glGetUniformLocation(program, "uFragment1"), 2.5f);
        glUniform1f(glGetUniformLocation(program, "uFragment2"), 0.5f);
        glUniform1f(glGetUniformLocation(program, "uFragment3"), 15.0f);
        glUniform2f(glGetUniformLocation(program, "uVertex4"), 10000.0f, 15000.0f);
        glUniform4f(glGetUniformLocation(program, "uVertex5"), 5000.0f, 2000.0f, causticStrength, reach);
        glUniform4f(glGetUniformLocation(program, "uVertex2"), 0.2f, 0.4f, 0.6f, 0.0f);
        glUniform4f(glGetUniformLocation(program, "uVertex3"), 0.6f, 0.8f, 0.2f, 0.0f);
        glDrawArrays(GL_TRIANGLES, 0, 3);
        return picture(target).rgba(0, 0);
    };
    // Without caustics: the near colour (0.2, 0.4, 0.6) up to 10000, the far colour
    // (0.6, 0.8, 0.2) from 15000 on.
    EXPECT_LE(distance(drawAt(2000.0f, 0.0f, 20000.0f), 0x336699FFu), 1);
    EXPECT_LE(distance(drawAt(30000.0f, 0.0f, 20000.0f), 0x99CC33FFu), 1);
    // Caustics brighten the near water, but not past where they have faded out.
    const std::uint32_t lit = drawAt(2000.0f, 1.0f, 20000.0f);
    EXPECT_GT(lit >> 24, 0x33u + 20u);
    EXPECT_LE(distance(drawAt(6000.0f, 1.0f, 20000.0f), 0x336699FFu), 1);
    // A short reach (the blurred picture's) removes them even close by.
    EXPECT_LE(distance(drawAt(2000.0f, 1.0f, 100.0f), 0x336699FFu), 1);
    glDeleteProgram(program);
}

TEST_F(ShaderDrawGlTest, VignetteBlendsFromRimColourToMiddleColour) {
    const GLuint program = build("Vignette");
    // Left half of the target open 0 (rim), right half open 1 (middle).
    std::vector<float> positions;
    for (const auto& half : {rectangle(-1, 0, 0.0f), rectangle(0, 1, 0.0f)}) {
        for (std::size_t i = 0; i < half.size(); i += 3) {
            positions.insert(positions.end(), {half[i], half[i + 1]});
        }
    }
    attribute(0, 2, positions);
    attribute(1, 1, {0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1});
    OffscreenTarget target(4, 1);
    target.bind();
    glUseProgram(program);
    glUniform4f(glGetUniformLocation(program, "uVertex1"), 0.65f, 0.65f, 0.65f, 1.0f);
    glUniform4f(glGetUniformLocation(program, "uVertex2"), 1.0f, 1.0f, 1.0f, 1.0f);
    glDrawArrays(GL_TRIANGLES, 0, 12);
    const auto image = picture(target);
    EXPECT_LE(distance(image.rgba(0, 0), 0xA6A6A6FFu), 1); // 0.65 * 255 = 165.75
    EXPECT_EQ(image.rgba(3, 0), 0xFFFFFFFFu);
    glDeleteProgram(program);
}

TEST_F(ShaderDrawGlTest, FullscreenQuadShowsAPictureTheRightWayUp) {
    // The source picture is drawn by GL: green in its upper half, red in its lower half.
    OffscreenTarget source(4, 4);
    source.bind();
    glClearColor(1, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, 2, 4, 2);
    glClearColor(0, 1, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glDisable(GL_SCISSOR_TEST);

    const GLuint program = build("FullscreenQuad");
    fullscreenQuad();
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, source.colorTexture());
    OffscreenTarget target(4, 4);
    target.bind();
    glUseProgram(program);
    glUniform1i(glGetUniformLocation(program, "uFragmentTexture0"), 0);
    glDrawArrays(GL_TRIANGLES, 0, 6);
    const auto image = picture(target);
    EXPECT_EQ(image.rgba(1, 0), 0x00FF00FFu);
    EXPECT_EQ(image.rgba(2, 3), 0xFF0000FFu);
    glBindTexture(GL_TEXTURE_2D, 0);
    glDeleteProgram(program);
}

TEST_F(ShaderDrawGlTest, BlurKernelsAreNormalisedAndSpreadByTheirOwnRadius) {
    // One lit column in the middle of a 21 texel wide picture; a horizontal pass spreads it as
    // far as the kernel reaches, and no farther. Each kernel keeps the total light.
    constexpr int width = 21;
    std::vector<float> column(static_cast<std::size_t>(width) * 4, 0.0f);
    for (int channel = 0; channel < 4; ++channel) {
        column[static_cast<std::size_t>(10 * 4 + channel)] = 1.0f;
    }
    const std::vector<std::pair<const char*, int>> kernels = {
        {"GaussianBlur", 5}, {"GaussianBlur4", 4}, {"GaussianBlur3", 3}, {"GaussianBlur2", 2}};
    fullscreenQuad();
    texture(0, width, 1, GL_RGBA32F, GL_FLOAT, column.data());
    for (const auto& [name, radius] : kernels) {
        SCOPED_TRACE(name);
        const GLuint program = build(name);
        OffscreenTarget target(width, 1);
        target.bind();
        glClearColor(0, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT);
        glUseProgram(program);
        glUniform1i(glGetUniformLocation(program, "uFragmentTexture0"), 0);
        glUniform2f(glGetUniformLocation(program, "uFragment1"), 1.0f, 0.0f);
        glUniform1f(glGetUniformLocation(program, "uFragment2"), 1.0f);
        glDrawArrays(GL_TRIANGLES, 0, 6);
        const auto image = picture(target);
        int total = 0;
        for (int x = 0; x < width; ++x) {
            const int red = static_cast<int>(image.rgba(x, 0) >> 24);
            total += red;
            const int offset = std::abs(x - 10);
            if (offset <= radius) {
                EXPECT_GT(red, 0) << "x " << x;
            } else {
                EXPECT_EQ(red, 0) << "x " << x;
            }
            if (offset > 0 && offset <= radius) {
                EXPECT_LE(red, static_cast<int>(image.rgba(x + (x < 10 ? 1 : -1), 0) >> 24)) << "falls off at " << x;
            }
        }
        EXPECT_NEAR(total, 255, static_cast<double>(2 * radius + 1)); // rounding of each texel
        glDeleteProgram(program);
    }
}

TEST_F(ShaderDrawGlTest, BlurBrightnessScalesAndDirectionTurnsThePass) {
    // A 1 texel wide lit column, blurred downwards, stays one column: the direction matters.
    constexpr int size = 9;
    std::vector<float> pixels(static_cast<std::size_t>(size * size) * 4, 0.0f);
    for (int y = 0; y < size; ++y) {
        for (int channel = 0; channel < 4; ++channel) {
            pixels[static_cast<std::size_t>((y * size + 4) * 4 + channel)] = 0.8f;
        }
    }
    fullscreenQuad();
    texture(0, size, size, GL_RGBA32F, GL_FLOAT, pixels.data());
    const GLuint program = build("GaussianBlur2");
    OffscreenTarget target(size, size);
    target.bind();
    glUseProgram(program);
    glUniform1i(glGetUniformLocation(program, "uFragmentTexture0"), 0);
    glUniform2f(glGetUniformLocation(program, "uFragment1"), 0.0f, 1.0f);
    glUniform1f(glGetUniformLocation(program, "uFragment2"), 0.5f);
    glDrawArrays(GL_TRIANGLES, 0, 6);
    const auto image = picture(target);
    // Away from the edges the column keeps its light times the brightness: 0.8 * 0.5 * 255.
    EXPECT_LE(distance(image.rgba(4, 4), 0x66666666u), 1);
    EXPECT_EQ(image.rgba(3, 4), 0u);
    glDeleteProgram(program);
}

} // namespace
} // namespace renderer::headless
