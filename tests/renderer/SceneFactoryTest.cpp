// Swapping scenes as the desktop does, through the factory on one GL: each renderer's live GL
// objects are the same every time its scene comes back, and a renderer's end leaves none behind.
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>

#include "renderer/SceneFactory.h"
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
        const std::string name(SceneFactory::NAMES[static_cast<std::size_t>(swap) % SceneFactory::NAMES.size()]);
        SCOPED_TRACE("swap " + std::to_string(swap) + " to " + name);
        auto scene = SceneFactory::makeScene(name);
        if (written.insert(name).second) {
            test::SceneAssets::write(*scene, resources, name);
        }
        SceneRenderer::Options options;
        options.resources = resources.path();
        double seconds = 10.0;
        options.clock = [&seconds] { return seconds += 0.5; };
        options.astcDecoding = loaders::AstcTexture::Decoding::GPU;
        {
            auto renderer = SceneFactory::makeRenderer(gl, name, scene, options, "day");
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
    for (std::string_view name : SceneFactory::NAMES) {
        EXPECT_EQ(SceneFactory::known(name), name);
    }
    EXPECT_EQ(SceneFactory::known("harbour"), "nivalis");
    EXPECT_EQ(SceneFactory::known(""), "nivalis");
    EXPECT_EQ(typeid(*SceneFactory::makeScene("harbour")), typeid(*SceneFactory::makeScene("nivalis")));
    EXPECT_NE(typeid(*SceneFactory::makeScene("spirelight")), typeid(*SceneFactory::makeScene("nivalis")));
}

} // namespace
} // namespace renderer
