// Counts every heap allocation of the process through the replaced global operator new, and
// checks that a scene's frame (timers, camera, animate, matrix walk) makes none once the first
// frame has run.

#include <gtest/gtest.h>

#include <cstddef>
#include <new>

#include "tests/engine/allocation/SyntheticScene.h"
#include "tests/support/AllocationCounter.h"

namespace {

using engine::testing::SyntheticScene;
using tests::support::allocationCount;

constexpr double FRAME_MS = 1000.0 / 60.0;
// The host's clock is not 0 at the first frame.
constexpr double START_MS = 123456.0;

TEST(FrameAllocationTest, CounterSeesAllocations) {
    const std::size_t before = allocationCount();
    void* volatile block = ::operator new(64);
    ::operator delete(block);
    EXPECT_EQ(allocationCount() - before, 1u);
}

TEST(FrameAllocationTest, FramesAfterTheFirstAllocateNothing) {
    SyntheticScene scene;
    scene.backendMode = engine::BackendMode::METAL;
    scene.initialize();
    scene.loaded = true;
    double now = START_MS;
    scene.updateTimers(now);

    // One minute at 60 frames a second: every path is ridden to its end and turned back at
    // least once, and groups and textures are toggled many times.
    const std::size_t before = allocationCount();
    for (int frame = 1; frame < 3600; ++frame) {
        now += FRAME_MS;
        if (frame == 600) {
            scene.updateViewportSize(1080, 1920);
        }
        if (frame == 1200) {
            scene.lowQuality = true;
        }
        scene.updateTimers(now);
    }
    const std::size_t during = allocationCount() - before;
    EXPECT_EQ(during, 0u);
    EXPECT_EQ(scene.frames, 3600);
}

TEST(FrameAllocationTest, CameraChangesBetweenFramesAllocateNothing) {
    SyntheticScene scene;
    double now = START_MS;
    scene.updateTimers(now);
    now += FRAME_MS;
    scene.updateTimers(now);

    const std::size_t before = allocationCount();
    for (int frame = 0; frame < 1200; ++frame) {
        if (frame % 300 == 0) {
            scene.cameraAnimator.nextCamera();
        }
        if (frame % 300 == 150) {
            scene.cameraAnimator.changeDirection(frame % 600 == 150 ? 1.0f : -1.0f);
        }
        if (frame == 1000) {
            scene.cameraAnimator.randomCamera();
        }
        now += FRAME_MS;
        scene.updateTimers(now);
    }
    EXPECT_EQ(allocationCount() - before, 0u);
}

TEST(FrameAllocationTest, FrameReallyDoesTheWork) {
    // Guards the two tests above against a frame that allocates nothing because it does
    // nothing: the walk must have written every visible matrix uniform.
    SyntheticScene scene;
    double now = START_MS;
    for (int frame = 0; frame < 3; ++frame) {
        scene.updateTimers(now);
        now += FRAME_MS;
    }
    int written = 0;
    for (const auto& group : scene.groups) {
        if (!group->enabled) {
            continue;
        }
        for (const auto& node : group->commands) {
            const auto& draw = static_cast<const engine::commands::DrawMeshCommand&>(*node);
            const auto* mvp = dynamic_cast<engine::commands::UniformFloatValue*>(draw.uniforms[0].get());
            ASSERT_NE(mvp, nullptr);
            EXPECT_NE(mvp->value[15], 0.0f) << "a perspective MVP has w depending on depth";
            ++written;
        }
    }
    EXPECT_EQ(written, (SyntheticScene::GROUPS - 1) * SyntheticScene::DRAWS_PER_GROUP);
}

} // namespace
