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

} // namespace
} // namespace renderer
