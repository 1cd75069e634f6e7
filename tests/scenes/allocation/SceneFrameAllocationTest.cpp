// Counts every heap allocation of the process through the replaced global operator new, and
// checks that after their first frame the four scenes run frames, camera cuts and flights, room
// changes and setting changes without allocating.

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>

#include "engine/math/Random.h"
#include "scenes/betonia/BetoniaScene.h"
#include "scenes/example/ExampleScene.h"
#include "scenes/nivalis/NivalisScene.h"
#include "scenes/spirelight/SpirelightScene.h"
#include "tests/support/AllocationCounter.h"

namespace {

using tests::support::allocationCount;

constexpr double kFrame = 1000.0 / 30.0;

/// Runs two warm-up frames, then `frames` more with `between(frame)` called before each, and
/// returns the allocations made after the warm-up.
template <typename SceneT>
std::size_t allocationsAfterFirstFrame(SceneT& scene, int frames, const std::function<void(int)>& between) {
    double time = 10000.0;
    scene.updateViewportSize(1920, 1080);
    scene.updateTimers(time);
    scene.updateTimers(time += kFrame);
    const std::size_t before = allocationCount();
    for (int frame = 0; frame < frames; ++frame) {
        between(frame);
        scene.updateTimers(time += kFrame);
    }
    return allocationCount() - before;
}

TEST(SceneFrameAllocation, NivalisAllocatesNothingAfterItsFirstFrame) {
    using namespace scenes::nivalis;
    engine::math::Random::seed(1);
    NivalisScene scene;
    int cuts = 0;
    int camera = scene.cameraAnimator.currentCamera;
    const auto count = allocationsAfterFirstFrame(scene, 30 * 200, [&](int frame) {
        if (frame % 300 == 0) {
            scene.settings.timeOfDay = TIME_OF_DAY_ENTRIES[static_cast<std::size_t>(frame / 300) % 4];
            scene.settings.blurred = (frame / 300) % 3 == 1;
        }
        if (frame == 300) {
            scene.settings.cameraPeriod = 1.25f;
        }
        if (frame == 1000) {
            scene.nextCamera();
        }
        if (frame == 2000) {
            scene.randomCamera();
        }
        cuts += scene.cameraAnimator.currentCamera != camera ? 1 : 0;
        camera = scene.cameraAnimator.currentCamera;
    });
    EXPECT_EQ(count, 0u);
    EXPECT_GT(cuts, 3);
}

TEST(SceneFrameAllocation, SpirelightAllocatesNothingAfterItsFirstFrame) {
    using namespace scenes::spirelight;
    engine::math::Random::seed(2);
    SpirelightScene scene;
    const auto count = allocationsAfterFirstFrame(scene, 30 * 200, [&](int frame) {
        if (frame % 400 == 0) {
            scene.settings.lights = static_cast<float>(frame % 3) * 0.5f;
            scene.settings.lowQuality = !scene.settings.lowQuality;
            scene.settings.blurred = (frame / 400) % 3 == 2;
            scene.updateViewportSize(frame % 800 == 0 ? 1920 : 800, 1080);
        }
        if (frame == 1500) {
            scene.nextCamera();
        }
        if (frame == 3000) {
            scene.changeSpeedImpulse(1.0f);
        }
    });
    EXPECT_EQ(count, 0u);
}

TEST(SceneFrameAllocation, BetoniaAllocatesNothingAfterItsFirstFrameAcrossRoomChanges) {
    using namespace scenes::betonia;
    engine::math::Random::seed(3);
    BetoniaScene scene;
    int roomChanges = 0;
    bool room1 = false;
    const auto count = allocationsAfterFirstFrame(scene, 30 * 300, [&](int frame) {
        if (frame % 450 == 0) {
            scene.settings.lowQuality = !scene.settings.lowQuality;
            scene.settings.colorMode =
                frame % 900 == 0 ? engine::common::ColorMode::Sepia : engine::common::ColorMode::Normal;
            scene.settings.blurred = (frame / 450) % 4 == 3;
        }
        if (frame % 1000 == 0) {
            scene.nextRoom();
        }
        if (frame % 1000 == 500) {
            scene.nextCameraOrRoom();
        }
        const bool nowRoom1 = scene.cameraAnimator.cameras.size() == 4;
        roomChanges += nowRoom1 != room1 ? 1 : 0;
        room1 = nowRoom1;
    });
    EXPECT_EQ(count, 0u);
    EXPECT_GT(roomChanges, 2);
}

TEST(SceneFrameAllocation, ExampleAllocatesNothingAfterItsFirstFrame) {
    using namespace scenes::example;
    ExampleScene scene;
    const auto count = allocationsAfterFirstFrame(scene, 30 * 100, [&](int frame) {
        if (frame == 700) {
            scene.cameraAnimator.nextCamera();
        }
    });
    EXPECT_EQ(count, 0u);
}

} // namespace
