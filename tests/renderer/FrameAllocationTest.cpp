// Counts heap allocations while frames are drawn, through the program's counting operator new:
// every scene, in its sharp and its blurred tree, allocates nothing once its pipelines, chains
// and quads exist (the night city with its meshless aircraft and point sprites too).
#include <gtest/gtest.h>

#include "renderer/scenes/SceneFactory.h"
#include "scenes/betonia/BetoniaScene.h"
#include "scenes/nivalis/NivalisScene.h"
#include "scenes/spirelight/SpirelightScene.h"
#include "tests/renderer/support/NullGl.h"
#include "tests/renderer/support/SceneAssets.h"
#include "tests/support/AllocationCounter.h"

namespace renderer {
namespace {

using tests::support::allocationsDuring;

// Switches the scene's blurred tree on or off; false where the scene has none.
bool setBlurred(engine::Scene& scene, bool blurred) {
    if (auto* nivalis = dynamic_cast<::scenes::nivalis::NivalisScene*>(&scene)) {
        nivalis->settings.blurred = blurred;
    } else if (auto* spirelight = dynamic_cast<::scenes::spirelight::SpirelightScene*>(&scene)) {
        spirelight->settings.blurred = blurred;
    } else if (auto* betonia = dynamic_cast<::scenes::betonia::BetoniaScene*>(&scene)) {
        betonia->settings.blurred = blurred;
    } else {
        return false;
    }
    return true;
}

class FrameAllocationTest : public ::testing::TestWithParam<const char*> {};

TEST_P(FrameAllocationTest, FramesAfterTheFirstAllocateNothing) {
    const std::string name = GetParam();
    test::TestResources resources;
    std::shared_ptr<engine::Scene> scene = scenes::SceneFactory::makeScene(name);
    test::SceneAssets::write(*scene, resources, name);
    test::NullGl gl;
    double seconds = 10.0;
    SceneRenderer::Options options;
    options.resources = resources.path();
    options.clock = [&seconds] { return seconds; };
    options.astcDecoding = loaders::AstcTexture::Decoding::GPU;
    std::unique_ptr<SceneRenderer> renderer = scenes::SceneFactory::makeRenderer(gl, name, scene, options, "day");
    const FrameTarget target{0, 640, 360};

    for (bool blurred : {false, true}) {
        if (!setBlurred(*scene, blurred) && blurred) {
            break; // the sample valley has no blurred tree
        }
        // Pipelines, chains and quads are made in the first frame of each tree.
        renderer->drawFrame(target);
        const std::size_t counted = allocationsDuring([&] {
            for (int frame = 0; frame < 60; ++frame) {
                seconds += 1.0 / 30.0;
                renderer->drawFrame(target);
            }
        });
        EXPECT_EQ(counted, 0u) << (blurred ? "blurred tree" : "sharp tree");
    }
}

INSTANTIATE_TEST_SUITE_P(Scenes, FrameAllocationTest,
                         ::testing::Values("nivalis", "spirelight", "betonia", "example"));

} // namespace
} // namespace renderer
