// The night city's frames allocate nothing once its pipelines, chains and quads exist, also with
// its meshless aircraft and point sprites, in both trees.
#include <gtest/gtest.h>

#include "renderer/scenes/SpirelightRenderer.h"
#include "scenes/spirelight/SpirelightScene.h"
#include "tests/renderer/support/NullGl.h"
#include "tests/renderer/support/SceneAssets.h"
#include "tests/support/AllocationCounter.h"

namespace renderer {
namespace {

using tests::support::allocationsDuring;

TEST(SpirelightFrameAllocationTest, FramesAfterTheFirstAllocateNothing) {
    test::TestResources resources;
    auto scene = std::make_shared<::scenes::spirelight::SpirelightScene>();
    test::SceneAssets::write(*scene, resources, "spirelight");
    test::NullGl gl;
    double seconds = 10.0;
    SceneRenderer::Options options;
    options.resources = resources.path();
    options.clock = [&seconds] { return seconds; };
    options.astcDecoding = loaders::AstcTexture::Decoding::GPU;
    scenes::SpirelightRenderer renderer(gl, scene, "spirelight", options);
    const FrameTarget target{0, 640, 360};

    // The first frame makes the pipelines and the chain (which the blurred tree shares).
    EXPECT_GT(allocationsDuring([&] { renderer.drawFrame(target); }), 0u);
    for (bool blurred : {false, true}) {
        scene->settings.blurred = blurred;
        renderer.drawFrame(target);
        const std::size_t counted = allocationsDuring([&] {
            for (int frame = 0; frame < 60; ++frame) {
                seconds += 1.0 / 30.0;
                renderer.drawFrame(target);
            }
        });
        EXPECT_EQ(counted, 0u) << (blurred ? "blurred tree" : "sharp tree");
    }
}

} // namespace
} // namespace renderer
