#include "renderer/GaussianBlurRenderPass.h"

#include <gtest/gtest.h>

#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/DrawBlurredCommand.h"
#include "engine/commands/MainPassCommand.h"
#include "renderer/SceneRenderer.h"
#include "tests/renderer/support/RendererHarness.h"

namespace renderer {
namespace {

using namespace engine::commands;
using test::GlCall;
using test::RendererHarness;

TEST(BlurChainSizeTest, ShortSideIsMinSizeAndTheLongOneRoundsHalfAway) {
    using Size = std::pair<int, int>;
    EXPECT_EQ(GaussianBlurRenderPass::chainSize(256, 1.6f), (Size{410, 256}));  // 409.6
    EXPECT_EQ(GaussianBlurRenderPass::chainSize(256, 0.5f), (Size{256, 512}));
    EXPECT_EQ(GaussianBlurRenderPass::chainSize(256, 1.0f), (Size{256, 256}));
    EXPECT_EQ(GaussianBlurRenderPass::chainSize(200, 16.0f / 9.0f), (Size{356, 200})); // 355.56
    EXPECT_EQ(GaussianBlurRenderPass::chainSize(3, 1.5f), (Size{5, 3}));               // 4.5 -> 5
    // A viewport without height gives no usable size.
    EXPECT_EQ(GaussianBlurRenderPass::chainSize(200, 1.0f / 0.0f).first, 0);
}

class BlurChainTest : public ::testing::Test {
protected:
    std::shared_ptr<BlurredPassCommand> blurredPass(std::int32_t id, std::int32_t minSize = 32) {
        auto pass = std::make_shared<BlurredPassCommand>();
        pass->id = id;
        pass->minSize = minSize;
        pass->name = "bloom" + std::to_string(id);
        return pass;
    }
    std::shared_ptr<MainPassCommand> mainPass(std::vector<std::shared_ptr<Command>> children) {
        return std::make_shared<MainPassCommand>(true, std::move(children));
    }
    std::unique_ptr<test::TableRenderer> frame(const std::vector<std::shared_ptr<Command>>& commands) {
        h.scene->commands = commands;
        auto renderer = h.makeRenderer();
        h.gl.clearCalls();
        renderer->drawFrame(RendererHarness::target(64, 32));
        return renderer;
    }

    RendererHarness h;
};

TEST_F(BlurChainTest, ThePassDrawsIntoTheChainAndTwoPassesBlurIt) {
    auto mesh = h.addMesh("a");
    auto pass = blurredPass(2);
    pass->blurSize = BlurSize::KERNEL_3;
    pass->brightness = 0.75f;
    pass->commands = {RendererHarness::draw(mesh, RendererHarness::state(h.addShader("Flat")))};
    auto renderer = frame({pass});
    const GaussianBlurRenderPass& chain = *renderer->blurredPassesCache.at(2);
    EXPECT_EQ(renderer->activeBlurredPass, &chain);

    ASSERT_EQ(h.gl.draws.size(), 3u);
    EXPECT_EQ(h.drawnPrograms(), (std::vector<std::string>{"Flat", "GaussianBlur3", "GaussianBlur3"}));
    // The scene goes into the 4-sample target, with clockwise front faces as a fresh pass has.
    EXPECT_EQ(h.gl.draws[0].drawFramebuffer, chain.framebufferRTT);
    EXPECT_EQ(h.gl.draws[0].frontFace, GLenum(GL_CW));
    // Horizontal from image 1 into image 2, then vertical back into image 1, same brightness.
    EXPECT_EQ(h.gl.draws[1].drawFramebuffer, chain.framebufferBlurPass2);
    EXPECT_EQ(h.gl.draws[1].textures[0], chain.textureOffscreenBlurPass1);
    EXPECT_EQ(h.gl.draws[1].uniforms.at("uFragment1"), (std::vector<double>{1, 0}));
    EXPECT_EQ(h.gl.draws[1].uniforms.at("uFragment2"), (std::vector<double>{0.75}));
    EXPECT_EQ(h.gl.draws[2].drawFramebuffer, chain.framebufferBlurPass1);
    EXPECT_EQ(h.gl.draws[2].textures[0], chain.textureOffscreenBlurPass2);
    EXPECT_EQ(h.gl.draws[2].uniforms.at("uFragment1"), (std::vector<double>{0, 1}));
    EXPECT_EQ(h.gl.draws[2].uniforms.at("uFragment2"), (std::vector<double>{0.75}));
    EXPECT_EQ(h.gl.draws[2].mode, GLenum(GL_TRIANGLE_STRIP));
    EXPECT_EQ(h.gl.draws[2].count, 4);
    // The blur draws are not culled, whatever the scene's draw left.
    EXPECT_FALSE(h.gl.draws[1].cullFace);
    // The resolve goes into image 1, and the 4-sample targets are dropped afterwards.
    EXPECT_EQ(h.gl.log({GlCall::invalidateFramebuffer}).front(), "invalidateFramebuffer(36008, 36064, 36096)");
}

TEST_F(BlurChainTest, KernelsPickTheirShaders) {
    const std::pair<BlurSize, std::string> kernels[] = {{BlurSize::KERNEL_5, "GaussianBlur"},
                                                        {BlurSize::KERNEL_4, "GaussianBlur4"},
                                                        {BlurSize::KERNEL_2, "GaussianBlur2"}};
    for (const auto& [size, shader] : kernels) {
        auto pass = blurredPass(0);
        pass->blurSize = size;
        auto renderer = frame({pass});
        EXPECT_EQ(h.drawnPrograms(), (std::vector<std::string>{shader, shader}));
    }
    auto odd = blurredPass(0);
    odd->blurSize = static_cast<BlurSize>(9);
    h.scene->commands = {odd};
    auto renderer = h.makeRenderer();
    EXPECT_THROW(renderer->drawFrame(RendererHarness::target()), Fatal::Stop);
}

TEST_F(BlurChainTest, DrawBlurredShowsTheChainThatRanLastWithTheFirstBlendingOfItsId) {
    auto additive = std::make_shared<engine::Blending>();
    additive->enabled = true;
    additive->sourceFactorColor = engine::BlendingFactor::ONE;
    additive->destinationFactorColor = engine::BlendingFactor::ONE;
    auto show = std::make_shared<DrawBlurredCommand>();
    show->id = 1;
    show->blending = additive;
    auto showAgain = std::make_shared<DrawBlurredCommand>();
    showAgain->id = 1; // same quad: its own (absent) blending is never looked at

    // Before any chain ran there is nothing to show.
    auto renderer = frame({mainPass({show}), blurredPass(1), blurredPass(2), mainPass({show, showAgain})});
    EXPECT_EQ(renderer->fullscreenQuadsCache.size(), 1u);
    const auto& second = *renderer->blurredPassesCache.at(2);
    std::vector<test::DrawSnapshot> quads;
    for (const auto& draw : h.gl.draws) {
        if (h.programName(draw.program) == "FullscreenQuad") quads.push_back(draw);
    }
    ASSERT_EQ(quads.size(), 2u);
    for (const auto& quad : quads) {
        EXPECT_EQ(quad.textures[0], second.textureOffscreenBlurPass1); // id 1 asked, chain 2 shown
        EXPECT_TRUE(quad.blend);
        EXPECT_EQ(quad.blendFactors[0], GLenum(GL_ONE));
        EXPECT_EQ(quad.blendFactors[1], GLenum(GL_ONE));
        EXPECT_EQ(quad.mode, GLenum(GL_TRIANGLE_STRIP));
        EXPECT_FALSE(quad.depthMask);
    }
    EXPECT_EQ(renderer->activeDepthStencilState, nullptr);
}

} // namespace
} // namespace renderer
