#include <gtest/gtest.h>

#include "renderer/BetoniaRenderer.h"
#include "renderer/ExampleRenderer.h"
#include "renderer/NivalisRenderer.h"
#include "scenes/betonia/BetoniaScene.h"
#include "scenes/example/ExampleScene.h"
#include "scenes/nivalis/NivalisScene.h"
#include "tests/renderer/support/RendererHarness.h"
#include "tests/renderer/support/SceneAssets.h"

namespace renderer {
namespace {

using test::RendererHarness;
TEST(UniformTablesTest, SharedRowContentsLiveInSeparateTables) {
    const auto& nivalis = NivalisRenderer::uniforms();
    const auto& example = ExampleRenderer::uniforms();
    EXPECT_EQ(nivalis.at("ColorAnimatedTextureChunked"), example.at("ColorAnimatedTextureChunked"));
    EXPECT_NE(&nivalis, &example);
    EXPECT_NE(&nivalis.at("ColorAnimatedTextureChunked"), &example.at("ColorAnimatedTextureChunked"));
    EXPECT_EQ(&NivalisRenderer::uniforms(), &nivalis); // made once
}

/// A scene renderer of a real scene on the fake, with stand-in assets.
class SceneRenderersTest : public ::testing::Test {
protected:
    SceneRenderer::Options options() {
        SceneRenderer::Options result = h.options();
        result.astcDecoding = AstcTexture::Decoding::GPU; // the stand-in blocks go up as they are
        return result;
    }

    RendererHarness h;
    std::pair<int, int> wallClock{12, 0};
    engine::utils::DynamicTimeOfDay::Clock clock() {
        return [this] { return wallClock; };
    }
};

TEST_F(SceneRenderersTest, NivalisDrawsBothTreesOnTheFake) {
    auto scene = std::make_shared<scenes::nivalis::NivalisScene>();
    test::SceneAssets::write(*scene, h.resources, "nivalis");
    NivalisRenderer renderer(h.gl, scene, "nivalis", options(), "day", clock());
    EXPECT_EQ(renderer.drawFrame(RendererHarness::target(320, 180)), 1);
    const std::size_t sharpDraws = h.gl.draws.size();
    EXPECT_GT(sharpDraws, 10u);
    EXPECT_TRUE(renderer.blurredPassesCache.empty());

    scene->settings.blurred = true;
    h.gl.clearCalls();
    EXPECT_EQ(renderer.drawFrame(RendererHarness::target(320, 180)), 1);
    ASSERT_EQ(renderer.blurredPassesCache.size(), 1u);
    const auto& chain = *renderer.blurredPassesCache.at(0);
    EXPECT_EQ(chain.height, 220); // minSize 220 at 16:9
    EXPECT_EQ(chain.width, 391);
    EXPECT_EQ(renderer.fullscreenQuadsCache.size(), 1u);
}

TEST_F(SceneRenderersTest, NivalisKeepsTheSceneAtTheTimeOfDay) {
    auto scene = std::make_shared<scenes::nivalis::NivalisScene>();
    test::SceneAssets::write(*scene, h.resources, "nivalis");
    using Scene = scenes::nivalis::TimeOfDay;
    const std::pair<std::string, Scene> fixed[] = {
        {"day", Scene::Day}, {"night", Scene::Night}, {"dawn", Scene::Sunrise}, {"dusk", Scene::Sunset}};
    for (const auto& [choice, expected] : fixed) {
        scene->settings.timeOfDay = Scene::Day;
        NivalisRenderer renderer(h.gl, scene, "nivalis", options(), choice, clock());
        EXPECT_EQ(scene->settings.timeOfDay, expected) << choice;
        // A fixed choice is written again at every poll.
        scene->settings.timeOfDay = Scene::Night == expected ? Scene::Day : Scene::Night;
        renderer.updateDynamicTimeOfDay();
        EXPECT_EQ(scene->settings.timeOfDay, expected) << choice;
    }

    // "auto" follows the wall clock: 07:00 is dawn, 18:00 dusk, 23:00 night.
    wallClock = {7, 0};
    NivalisRenderer renderer(h.gl, scene, "nivalis", options(), "auto", clock());
    EXPECT_EQ(scene->settings.timeOfDay, Scene::Sunrise);
    wallClock = {18, 0};
    renderer.updateDynamicTimeOfDay();
    EXPECT_EQ(scene->settings.timeOfDay, Scene::Sunset);
    wallClock = {23, 0};
    renderer.updateDynamicTimeOfDay();
    EXPECT_EQ(scene->settings.timeOfDay, Scene::Night);
}

TEST_F(SceneRenderersTest, NivalisStopsOnAnotherScene) {
    try {
        NivalisRenderer renderer(h.gl, h.scene, "scene", h.options());
        ADD_FAILURE() << "no stop";
    } catch (const Fatal::Stop& stop) {
        EXPECT_STREQ(stop.what(), "The scene of a NivalisRenderer is no NivalisScene");
    }
}

TEST_F(SceneRenderersTest, BetoniaDrawsEverythingButItsClock) {
    auto scene = std::make_shared<scenes::betonia::BetoniaScene>();
    test::SceneAssets::write(*scene, h.resources, "betonia");
    BetoniaRenderer renderer(h.gl, scene, "betonia", options());
    EXPECT_EQ(renderer.drawFrame(RendererHarness::target(200, 100)), 1);
    EXPECT_FALSE(h.gl.draws.empty());
    EXPECT_EQ(renderer.shaderUniforms().size(), 3u);
}

TEST_F(SceneRenderersTest, ExampleStartsButItsPasslessTreeDrawsNothing) {
    // The Example scene's tree holds no main pass: the walk finds nothing to run.
    auto scene = std::make_shared<scenes::example::ExampleScene>();
    test::SceneAssets::write(*scene, h.resources, "example");
    ExampleRenderer renderer(h.gl, scene, "example", options());
    EXPECT_TRUE(scene->loaded);
    EXPECT_EQ(renderer.drawFrame(RendererHarness::target(200, 100)), 0);
    EXPECT_TRUE(h.gl.draws.empty());
    EXPECT_EQ(scene->viewportWidth, 200);
}

} // namespace
} // namespace renderer
