#include "renderer/VignetteUtils.h"

#include <gtest/gtest.h>

#include "engine/commands/MainPassCommand.h"
#include "engine/commands/VignetteCommand.h"
#include "renderer/SceneRenderer.h"
#include "tests/renderer/support/RendererHarness.h"

namespace renderer {
namespace {

using namespace engine::commands;
using test::GlCall;
using test::RendererHarness;

std::shared_ptr<VignetteCommand> vignette(engine::math::Vec4 color0, engine::math::Vec4 color1) {
    auto command = std::make_shared<VignetteCommand>();
    command->color0 = color0;
    command->color1 = color1;
    return command;
}

class VignetteTest : public ::testing::Test {
protected:
    RendererHarness h;
};

TEST_F(VignetteTest, TheVignetteIsMultipliedWithItsColoursAsHalves) {
    h.scene->commands = {std::make_shared<MainPassCommand>(
        true, std::vector<std::shared_ptr<Command>>{vignette({0.1f, 0.2f, 0.3f, 1.0f}, {1.0f, 1.0f, 1.0f, 0.5f})})};
    auto renderer = h.makeRenderer();
    EXPECT_EQ(h.programName(renderer->vignettePipelineStateWithDepth->renderPipelineState->program().name()),
              "Vignette");
    renderer->drawFrame(RendererHarness::target());
    ASSERT_EQ(h.gl.draws.size(), 1u);
    const auto& draw = h.gl.draws[0];
    EXPECT_EQ(h.programName(draw.program), "Vignette");
    // 0.1, 0.2, 0.3 as the nearest halves: 1638/16384, 1638/8192, 1229/4096.
    EXPECT_EQ(renderer->colorVignette0_fp16, (std::array<std::uint16_t, 4>{0x2E66, 0x3266, 0x34CD, 0x3C00}));
    EXPECT_EQ(draw.uniforms.at("uVertex1"), (std::vector<double>{1638.0 / 16384, 1638.0 / 8192, 1229.0 / 4096, 1}));
    EXPECT_EQ(draw.uniforms.at("uVertex2"), (std::vector<double>{1, 1, 1, 0.5}));
    EXPECT_TRUE(draw.blend);
    EXPECT_EQ(draw.blendFactors, (std::array<GLenum, 4>{GL_ZERO, GL_SRC_COLOR, GL_ZERO, GL_SRC_COLOR}));
    EXPECT_EQ(draw.depthFunc, GLenum(GL_ALWAYS));
    EXPECT_FALSE(draw.depthMask);
    EXPECT_EQ(draw.mode, GLenum(GL_TRIANGLES));
    EXPECT_EQ(draw.count, 3);
    // The mesh's 8-byte vertices: two halves at 0, a normalised byte at 6.
    EXPECT_EQ(draw.attributes.at(0), (std::array<double, 6>{double(renderer->fmVignette->vertexBuffer()), 2,
                                                            GL_HALF_FLOAT, 0, 8, 0}));
    EXPECT_EQ(draw.attributes.at(1), (std::array<double, 6>{double(renderer->fmVignette->vertexBuffer()), 1,
                                                            GL_UNSIGNED_BYTE, 1, 8, 6}));
    // No cull mode is set for it.
    EXPECT_EQ(h.gl.count(GlCall::cullFace), 0u);
}

TEST_F(VignetteTest, WithoutItsShaderTheFirstVignetteStops) {
    std::filesystem::remove(h.resources.path() / "shaders" / "Vignette.vert");
    h.scene->commands = {std::make_shared<MainPassCommand>(
        true, std::vector<std::shared_ptr<Command>>{std::make_shared<VignetteCommand>()})};
    auto renderer = h.makeRenderer();
    EXPECT_FALSE(renderer->vignettePipelineStateWithDepth.has_value());
    EXPECT_THROW(renderer->drawFrame(RendererHarness::target()), Fatal::Stop);
}

TEST_F(VignetteTest, TheMultisampledTargetFollowsTheDrawableSize) {
    h.scene->commands = {std::make_shared<MainPassCommand>()};
    auto renderer = h.makeRenderer();
    const GLuint window = h.gl.createFramebuffer();
    renderer->drawFrame(RendererHarness::target(64, 32, window));
    const GLuint first = renderer->textureMsaa;
    EXPECT_EQ(h.gl.renderbufferStorage(first), (std::array<GLint, 4>{4, GL_RGBA8, 64, 32}));
    EXPECT_EQ(h.gl.renderbufferStorage(renderer->depthMsaa), (std::array<GLint, 4>{4, GL_DEPTH_COMPONENT32F, 64, 32}));

    renderer->drawFrame(RendererHarness::target(64.9, 32.2, window)); // same whole pixels
    EXPECT_EQ(renderer->textureMsaa, first);
    EXPECT_EQ(h.gl.count(GlCall::createRenderbuffer), 2u);

    h.gl.clearCalls();
    renderer->drawFrame(RendererHarness::target(80, 40, window));
    EXPECT_NE(renderer->textureMsaa, first);
    EXPECT_EQ(h.gl.renderbufferStorage(renderer->textureMsaa), (std::array<GLint, 4>{4, GL_RGBA8, 80, 40}));
    EXPECT_EQ(h.gl.liveRenderbuffers(), 2u); // the old pair is gone
    EXPECT_EQ(h.gl.liveFramebuffers(), 2u);  // the window's and the renderer's
    // Resolved into the window, then both 4-sample attachments are dropped.
    EXPECT_EQ(h.gl.log({GlCall::blitFramebuffer, GlCall::invalidateFramebuffer}),
              (std::vector<std::string>{"blitFramebuffer(0, 0, 80, 40, 0, 0, 80, 40, 16384, 9728, " +
                                            std::to_string(renderer->framebufferMsaa) + ", " + std::to_string(window) +
                                            ")",
                                        "invalidateFramebuffer(36008, 36064, 36096)"}));
}

} // namespace
} // namespace renderer
