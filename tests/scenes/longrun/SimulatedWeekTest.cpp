// Every scene run through a simulated week at 30 frames a second, sampled: a forty-second stretch
// of frames every hour, the clock jumping ahead between stretches (and once by a whole day, as
// after a sleep), with settings changed on the way. Nothing may throw, every matrix uniform stays
// finite, and the timers and the camera stay in their ranges.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "engine/math/Random.h"
#include "scenes/betonia/BetoniaScene.h"
#include "scenes/example/ExampleScene.h"
#include "scenes/nivalis/NivalisScene.h"
#include "scenes/nivalis/Timers.h"
#include "scenes/spirelight/SpirelightScene.h"
#include "scenes/spirelight/Timers.h"
#include "tests/scenes/SceneTestSupport.h"

namespace {

using scenes::testing::allMatricesFinite;

constexpr double kHour = 3600.0 * 1000.0;
constexpr double kFrame = 1000.0 / 30.0;
constexpr int kHours = 7 * 24;
constexpr int kFramesPerStretch = 1200;

struct RunReport {
    int frames = 0;
    int cameraChanges = 0;
    bool matricesFinite = true;
    bool cameraInRange = true;
};

/// Runs `scene` through the sampled week. `changeSettings(hour)` runs before each stretch;
/// `cameraIndexBound` is the number of paths the current camera list holds.
template <typename SceneT>
RunReport runWeek(SceneT& scene, const std::function<void(int)>& changeSettings) {
    RunReport report;
    double time = 5.0e6;
    scene.updateViewportSize(1920, 1080);
    for (int hour = 0; hour < kHours; ++hour) {
        changeSettings(hour);
        if (hour % 24 == 5) {
            scene.updateViewportSize(hour % 2 == 0 ? 1080 : 2560, hour % 2 == 0 ? 1920 : 1440);
        }
        for (int frame = 0; frame < kFramesPerStretch; ++frame) {
            const int camera = scene.cameraAnimator.currentCamera;
            scene.updateTimers(time);
            ++report.frames;
            if (scene.cameraAnimator.currentCamera != camera) {
                ++report.cameraChanges;
            }
            const float progress = scene.cameraAnimator.timer();
            const int current = scene.cameraAnimator.currentCamera;
            if (!(progress >= 0.0f && progress <= 1.0f) || current < 0 ||
                current >= static_cast<int>(scene.cameraAnimator.cameras.size())) {
                report.cameraInRange = false;
            }
            if (frame % 50 == 49 && !allMatricesFinite(scene.commands)) {
                report.matricesFinite = false;
            }
            time += kFrame;
        }
        EXPECT_EQ(scene.lastFrameTime, time - kFrame);
        // Jump to the next hour; once, a whole day passes between two frames.
        time += hour == 60 ? 24.0 * kHour : kHour - kFramesPerStretch * kFrame;
    }
    return report;
}

class SimulatedWeek : public ::testing::Test {
protected:
    void SetUp() override { engine::math::Random::seed(0x5eed); }
};

TEST_F(SimulatedWeek, Nivalis) {
    using namespace scenes::nivalis;
    NivalisScene scene;
    RunReport report;
    ASSERT_NO_THROW(report = runWeek(scene, [&](int hour) {
        const int clock = hour % 24;
        scene.settings.timeOfDay = clock < 6 || clock >= 19 ? TimeOfDay::Night
                                   : clock < 9              ? TimeOfDay::Sunrise
                                   : clock < 17             ? TimeOfDay::Day
                                                            : TimeOfDay::Sunset;
        scene.settings.blurred = hour % 11 == 3;
        scene.settings.vignette = hour % 5 != 0;
        scene.settings.cameraPeriod = hour % 7 == 0 ? 2.0f : 1.0f;
        if (hour % 13 == 0) {
            scene.nextCamera();
        }
        if (hour % 17 == 0) {
            scene.randomCamera();
        }
    }));
    EXPECT_EQ(report.frames, kHours * kFramesPerStretch);
    EXPECT_TRUE(report.matricesFinite);
    EXPECT_TRUE(report.cameraInRange);
    EXPECT_GT(report.cameraChanges, 0);
    for (Timers key : TIMERS_ENTRIES) {
        if (key != Timers::Camera) {
            const float phase = scene.timers.get(key);
            EXPECT_TRUE(phase >= 0.0f && phase < 1.0f) << toString(key) << " " << phase;
        }
    }
}

TEST_F(SimulatedWeek, Spirelight) {
    using namespace scenes::spirelight;
    SpirelightScene scene;
    RunReport report;
    ASSERT_NO_THROW(report = runWeek(scene, [&](int hour) {
        scene.settings.lights = static_cast<float>(hour % 5) * 0.25f;
        scene.settings.lowQuality = hour % 3 == 0;
        scene.settings.blurred = hour % 9 == 4;
        scene.settings.cameraPeriod = hour % 6 == 0 ? 1.5f : 1.0f;
        if (hour % 10 == 0) {
            scene.changeSpeedImpulse(hour % 20 == 0 ? 1.0f : -1.0f);
        }
        if (hour % 14 == 0) {
            scene.nextCamera();
        }
    }));
    EXPECT_TRUE(report.matricesFinite);
    EXPECT_TRUE(report.cameraInRange);
    for (Timers key : TIMERS_ENTRIES) {
        const float phase = scene.timers.get(key);
        EXPECT_TRUE(phase >= 0.0f && phase < 1.0f) << toString(key);
    }
}

TEST_F(SimulatedWeek, Betonia) {
    using namespace scenes::betonia;
    BetoniaScene scene;
    RunReport report;
    ASSERT_NO_THROW(report = runWeek(scene, [&](int hour) {
        scene.settings.lowQuality = hour % 4 == 1;
        scene.settings.colorMode = hour % 6 == 0 ? engine::common::ColorMode::Sepia : engine::common::ColorMode::Normal;
        scene.settings.blurred = hour % 8 == 2;
        scene.settings.clock = hour % 2 == 0;
        scene.settings.cameraPeriod = hour % 9 == 0 ? 0.5f : 1.0f;
        if (hour % 3 == 0) {
            scene.nextCameraOrRoom();
        }
    }));
    EXPECT_TRUE(report.matricesFinite);
    EXPECT_TRUE(report.cameraInRange);
    EXPECT_GT(report.cameraChanges, 0);
}

TEST_F(SimulatedWeek, Example) {
    using namespace scenes::example;
    ExampleScene scene;
    RunReport report;
    ASSERT_NO_THROW(report = runWeek(scene, [&](int hour) {
        if (hour % 12 == 0) {
            scene.cameraAnimator.nextCamera();
        }
    }));
    EXPECT_TRUE(report.matricesFinite);
    EXPECT_TRUE(report.cameraInRange);
    for (float v : scenes::testing::floatsOf(scene.uniformsAnimated[0])) {
        EXPECT_TRUE(std::isfinite(v));
    }
}

} // namespace
