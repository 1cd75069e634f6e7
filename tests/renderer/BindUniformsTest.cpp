#include <gtest/gtest.h>

#include <cmath>

#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/MainPassCommand.h"
#include "engine/commands/VignetteCommand.h"
#include "renderer/SceneRenderer.h"
#include "tests/renderer/support/RendererHarness.h"

namespace renderer {
namespace {

using namespace engine::commands;
using test::GlCall;
using test::RendererHarness;
using Values = std::vector<double>;

class BindUniformsTest : public ::testing::Test {
protected:
    void SetUp() override {
        mesh = h.addMesh("a");
        numbers = RendererHarness::state(h.addShader("Numbers"));
        textured = RendererHarness::state(h.addShader("Textured"));
        flat = RendererHarness::state(h.addShader("Flat"));
        t0 = h.addTexture("t0");
        t1 = h.addTexture("t1");
        renderer = h.makeRenderer();
        gpu::RenderPassDescriptor descriptor;
        descriptor.width = descriptor.height = 4;
        renderer->encoder.begin(descriptor, "test");
        h.gl.clearCalls();
    }

    void draw(const std::shared_ptr<DrawMeshState>& state, std::vector<std::shared_ptr<UniformValue>> uniforms) {
        renderer->drawMesh(*RendererHarness::draw(mesh, state, std::move(uniforms)), renderer->encoder);
    }

    GLuint glTexture(const std::shared_ptr<engine::Texture>& texture) const {
        return renderer->textures[static_cast<std::size_t>(texture->id)];
    }
    GLuint glSampler(const std::shared_ptr<engine::Texture>& texture) const {
        return renderer->samplers[static_cast<std::size_t>(texture->id)];
    }

    std::vector<std::shared_ptr<UniformValue>> texturedValues(const std::shared_ptr<engine::Texture>& first,
                                                              const std::shared_ptr<engine::Texture>& second) {
        return {RendererHarness::floats(std::vector<float>(16)), RendererHarness::texture(first),
                RendererHarness::texture(second), RendererHarness::texture(first)};
    }

    RendererHarness h;
    std::shared_ptr<engine::Mesh> mesh;
    std::shared_ptr<DrawMeshState> numbers, textured, flat;
    std::shared_ptr<engine::Texture> t0, t1;
    std::unique_ptr<test::TableRenderer> renderer;
};

TEST_F(BindUniformsTest, EachDataTypeReachesItsStageAndSlot) {
    // Numbers: VERTEX INT32 2; VERTEX INT16 3; VERTEX FP32 4; FRAGMENT FP16 2; FRAGMENT FP16 3.
    draw(numbers, {RendererHarness::ints({-7}), RendererHarness::ints({-32768, 0, 32767}),
                   RendererHarness::floats({0.1f, 0.2f, 0.3f, 0.4f, 0.5f}), RendererHarness::floats({0.1f, 2049.0f}),
                   RendererHarness::ints({1, 2, 3, 4, 5, 6})});
    const auto& uniforms = h.gl.draws.at(0).uniforms;
    EXPECT_EQ(uniforms.at("uVertex2"), (Values{-7}));
    EXPECT_EQ(uniforms.at("uVertex3"), (Values{-32768, 0, 32767}));
    EXPECT_EQ(uniforms.at("uVertex4"), (Values{0.1f, 0.2f, 0.3f, 0.4f, 0.5f}));
    // Half floats: 0.1 becomes 0x2E66 = 1638 / 16384; 2049 ties to the even 2048.
    EXPECT_EQ(uniforms.at("uFragment2"), (Values{1638.0 / 16384.0, 2048.0}));
    // An integer value at a slot that is not INT32 goes as 16-bit integers.
    EXPECT_EQ(uniforms.at("uFragment3"), (Values{1, 2, 3, 4, 5, 6}));
    // GLSL types from the element count: int, ivec3, float[5], vec2, int[6].
    // Arguments: location, components, count; float[5] is five scalars, vec2 one pair.
    const auto floatCalls = h.gl.log({GlCall::uniformFloats});
    ASSERT_EQ(floatCalls.size(), 2u);
    EXPECT_NE(floatCalls[0].find(", 1, 5, "), std::string::npos);
    EXPECT_NE(floatCalls[1].find(", 2, 1, "), std::string::npos);
}

TEST_F(BindUniformsTest, TextureSlotsAreCachedUntilReset) {
    draw(textured, texturedValues(t0, t1));
    // Fragment slots 0 and 1 with their samplers, vertex slot 0 on unit 8 without one.
    EXPECT_EQ(h.gl.log({GlCall::bindTexture, GlCall::bindSampler}),
              (std::vector<std::string>{
                  "bindSampler(0, " + std::to_string(glSampler(t0)) + ")",
                  "bindTexture(0, " + std::to_string(glTexture(t0)) + ")",
                  "bindSampler(1, " + std::to_string(glSampler(t1)) + ")",
                  "bindTexture(1, " + std::to_string(glTexture(t1)) + ")",
                  "bindTexture(8, " + std::to_string(glTexture(t0)) + ")",
              }));
    EXPECT_EQ(renderer->activeVertexTextures[0], glTexture(t0));

    h.gl.clearCalls();
    draw(textured, texturedValues(t0, t1));
    EXPECT_EQ(h.gl.count(GlCall::bindTexture) + h.gl.count(GlCall::bindSampler), 0u);

    h.gl.clearCalls();
    draw(textured, texturedValues(t1, t1)); // slot 0 and vertex slot 0 change
    EXPECT_EQ(h.gl.count(GlCall::bindTexture), 2u);
    EXPECT_EQ(h.gl.count(GlCall::bindSampler), 1u);

    // A vignette empties the caches: the next draw binds all again.
    renderer->drawVignette(VignetteCommand(), renderer->encoder);
    EXPECT_EQ(renderer->activeFragmentTextures, (std::array<GLuint, 8>{}));
    h.gl.clearCalls();
    auto other = RendererHarness::state(textured->shader);
    draw(other, texturedValues(t1, t1));
    EXPECT_EQ(h.gl.count(GlCall::bindTexture), 3u);
    EXPECT_EQ(h.gl.count(GlCall::bindSampler), 2u);
    // Every draw saw its textures on their units.
    EXPECT_EQ(h.gl.draws.back().textures[0], glTexture(t1));
    EXPECT_EQ(h.gl.draws.back().samplers[1], glSampler(t1));
    EXPECT_EQ(h.gl.draws.back().textures[8], glTexture(t1));
}

TEST_F(BindUniformsTest, TheMainPassResetsTheCachesAndABlurredPassDoesNot) {
    auto blurredDraw = RendererHarness::draw(mesh, RendererHarness::state(textured->shader), texturedValues(t0, t0));
    auto mainDraw = RendererHarness::draw(mesh, textured, texturedValues(t0, t0));
    auto blurred = std::make_shared<BlurredPassCommand>();
    blurred->commands = {blurredDraw};
    renderer->encoder.end();
    h.scene->commands = {std::make_shared<MainPassCommand>(true, std::vector<std::shared_ptr<Command>>{mainDraw})};
    renderer->drawFrame(RendererHarness::target());
    h.scene->commands = {blurred,
                         std::make_shared<MainPassCommand>(true, std::vector<std::shared_ptr<Command>>{mainDraw})};
    h.gl.clearCalls();
    renderer->drawFrame(RendererHarness::target());
    // The blurred pass takes t0 for bound from the last frame's main pass; the main pass binds
    // it again after its reset.
    std::vector<std::string> binds;
    for (const auto& call : h.gl.calls) {
        if (call.kind == GlCall::bindTexture && call.args[1] == glTexture(t0)) binds.push_back(call.toString());
        if (call.kind == GlCall::drawElements) binds.push_back("draw");
    }
    const std::string t = std::to_string(glTexture(t0));
    EXPECT_EQ(binds, (std::vector<std::string>{"draw", "bindTexture(0, " + t + ")", "bindTexture(1, " + t + ")",
                                               "bindTexture(8, " + t + ")", "draw"}));
}

} // namespace
} // namespace renderer
