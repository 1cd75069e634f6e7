// Two monitors' renderers of one scene over one asset table, each in its own context of one
// share group: both draw exactly the picture of a renderer with assets of its own, and the
// second goes on drawing it after the first, and its context's objects, are gone.
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <vector>

#include "renderer/gl/EpoxyGl.h"
#include "renderer/headless/HeadlessContext.h"
#include "renderer/headless/OffscreenTarget.h"
#include "renderer/scenes/SceneFactory.h"

namespace renderer {
namespace {

using Pixels = std::vector<std::uint8_t>;

// One monitor: a Nivalis renderer at a fixed time and its target, in the context current now.
struct Monitor {
    Monitor(gl::Gl& gl, std::shared_ptr<assets::AssetTable> table)
        : renderer(scenes::SceneFactory::makeRenderer(gl, "nivalis", scenes::SceneFactory::makeScene("nivalis"),
                                                      options(std::move(table)), "day")) {}
    static SceneRenderer::Options options(std::shared_ptr<assets::AssetTable> table) {
        SceneRenderer::Options result;
        result.resources = NIVALIS_RESOURCES_DIR;
        result.clock = [] { return 60.0; };
        result.assets = std::move(table);
        return result;
    }
    Pixels draw() {
        target.clear(0.0f, 0.0f, 0.0f, 1.0f);
        renderer->drawFrame({target.framebuffer(), 160.0, 90.0});
        return target.readPixels();
    }
    std::unique_ptr<SceneRenderer> renderer;
    headless::OffscreenTarget target{160, 90};
};

TEST(SharedAssetsGlTest, RenderersInOneShareGroupDrawWhatARendererAloneDraws) {
    headless::HeadlessContext first;
    gl::EpoxyGl gl;
    const Pixels alone = std::make_unique<Monitor>(gl, nullptr)->draw();
    ASSERT_GT(std::set<std::uint8_t>(alone.begin(), alone.end()).size(), 50u) << "no picture";
    auto table = std::make_shared<assets::AssetTable>(gl);
    auto left = std::make_unique<Monitor>(gl, table);
    EXPECT_EQ(left->draw(), alone);
    {
        headless::HeadlessContext second(&first);
        auto right = std::make_unique<Monitor>(gl, table);
        table.reset();
        EXPECT_EQ(right->draw(), alone);
        first.makeCurrent();
        left.reset();
        second.makeCurrent();
        EXPECT_EQ(right->draw(), alone);
    }
}

} // namespace
} // namespace renderer
