// The shaders shipped in the resources, run by the renderer on a real GL context: every one
// of them must link and take its uniforms in the shapes the renderer sends them.
#include <gtest/gtest.h>

#include <filesystem>

#include "renderer/NivalisRenderer.h"
#include "renderer/gl/EpoxyGl.h"
#include "renderer/headless/HeadlessContext.h"
#include "renderer/headless/OffscreenTarget.h"
#include "scenes/nivalis/NivalisScene.h"
#include "tests/renderer/support/RendererHarness.h"
#include "tests/renderer/support/SceneAssets.h"

namespace renderer {
namespace {

TEST(ShippedShadersGlTest, TheNivalisTreesDrawWithoutGlErrors) {
    const std::filesystem::path shipped = std::filesystem::path(NIVALIS_RESOURCES_DIR) / "shaders";
    if (!std::filesystem::is_directory(shipped)) {
        GTEST_SKIP() << "no shaders in " << shipped;
    }
    headless::HeadlessContext context;
    gl::EpoxyGl gl;
    test::ScopedFatalThrows throws;
    test::TestResources resources;
    std::filesystem::copy(shipped, resources.path() / "shaders");
    auto scene = std::make_shared<scenes::nivalis::NivalisScene>();
    test::SceneAssets::write(*scene, resources, "nivalis", false);

    SceneRenderer::Options options;
    options.resources = resources.path();
    double seconds = 5.0;
    options.clock = [&seconds] { return seconds; };
    NivalisRenderer renderer(gl, scene, "nivalis", options, "night");
    for (std::size_t i = 0; i < renderer.shaders.size(); ++i) {
        EXPECT_NE(renderer.shaders[i], nullptr) << scene->shaders[i]->name << " is missing";
    }
    headless::OffscreenTarget target(160, 90);
    for (bool blurred : {false, true}) {
        scene->settings.blurred = blurred;
        for (int frame = 0; frame < 3; ++frame) {
            seconds += 0.5;
            EXPECT_EQ(renderer.drawFrame(FrameTarget{target.framebuffer(), 160, 90}), 1);
            EXPECT_EQ(gl.getError(), GLenum(GL_NO_ERROR)) << (blurred ? "blurred" : "sharp") << " frame " << frame;
        }
    }
}

} // namespace
} // namespace renderer
