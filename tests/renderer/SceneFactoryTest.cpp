// Swapping scenes as the desktop does, through the factory on one GL: each renderer's live GL
// objects are the same every time its scene comes back, and a renderer's end leaves none behind.
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>

#include "renderer/scenes/SceneFactory.h"
#include "tests/renderer/support/RecordingGl.h"
#include "tests/renderer/support/SceneAssets.h"

namespace renderer {
namespace {

using Live = std::array<std::size_t, 7>;

Live live(const test::RecordingGl& gl) {
    return {gl.liveBuffers(),      gl.liveTextures(),      gl.liveSamplers(),     gl.livePrograms(),
            gl.liveVertexArrays(), gl.liveFramebuffers(), gl.liveRenderbuffers()};
}

TEST(SceneFactoryTest, TwentySwapsLeaveNoGlObjectBehind) {
    test::TestResources resources;
    test::RecordingGl gl;
    std::map<std::string, Live> whileShown;
    std::set<std::string> written;
    for (int swap = 0; swap < 20; ++swap) {
        const std::string name(
            scenes::SceneFactory::NAMES[static_cast<std::size_t>(swap) % scenes::SceneFactory::NAMES.size()]);
        SCOPED_TRACE("swap " + std::to_string(swap) + " to " + name);
        auto scene = scenes::SceneFactory::makeScene(name);
        if (written.insert(name).second) {
            test::SceneAssets::write(*scene, resources, name);
        }
        SceneRenderer::Options options;
        options.resources = resources.path();
        double seconds = 10.0;
        options.clock = [&seconds] { return seconds += 0.5; };
        options.astcDecoding = loaders::AstcTexture::Decoding::GPU;
        {
            auto renderer = scenes::SceneFactory::makeRenderer(gl, name, scene, options, "day");
            for (int frame = 0; frame < 3; ++frame) {
                renderer->drawFrame({0, 320, 180});
            }
            const auto [known, added] = whileShown.emplace(name, live(gl));
            EXPECT_EQ(live(gl), known->second) << "the same objects each time the scene is shown";
        }
        EXPECT_EQ(live(gl), Live{}) << "the renderer took its objects with it";
    }
}

TEST(SceneFactoryTest, NamesPickTheirSceneAndAnUnknownOneIsNivalis) {
    for (std::string_view name : scenes::SceneFactory::NAMES) {
        EXPECT_EQ(scenes::SceneFactory::known(name), name);
    }
    EXPECT_EQ(scenes::SceneFactory::known("harbour"), "nivalis");
    EXPECT_EQ(scenes::SceneFactory::known(""), "nivalis");
    EXPECT_EQ(typeid(*scenes::SceneFactory::makeScene("harbour")), typeid(*scenes::SceneFactory::makeScene("nivalis")));
    EXPECT_NE(typeid(*scenes::SceneFactory::makeScene("spirelight")),
              typeid(*scenes::SceneFactory::makeScene("nivalis")));
}

} // namespace
} // namespace renderer
