// Counts heap allocations while frames are drawn, through the program's counting operator new.
#include <gtest/gtest.h>

#include "renderer/scenes/NivalisRenderer.h"
#include "scenes/nivalis/NivalisScene.h"
#include "tests/renderer/support/NullGl.h"
#include "tests/renderer/support/RendererHarness.h"
#include "tests/renderer/support/SceneAssets.h"
#include "tests/support/AllocationCounter.h"

namespace renderer {
namespace {

using tests::support::allocationsDuring;

TEST(FrameAllocationTest, FramesAfterTheFirstAllocateNothing) {
    test::TestResources resources;
    auto scene = std::make_shared<::scenes::nivalis::NivalisScene>();
    test::SceneAssets::write(*scene, resources, "nivalis");
    test::NullGl gl;
    double seconds = 10.0;
    SceneRenderer::Options options;
    options.resources = resources.path();
    options.clock = [&seconds] { return seconds; };
    options.astcDecoding = loaders::AstcTexture::Decoding::GPU;
    scenes::NivalisRenderer renderer(gl, scene, "nivalis", options, "day");
    const FrameTarget target{0, 640, 360};

    for (bool blurred : {false, true}) {
        scene->settings.blurred = blurred;
        // Pipelines, chains and quads are made in the first frame of each tree.
        EXPECT_GT(allocationsDuring([&] { renderer.drawFrame(target); }), 0u);
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
