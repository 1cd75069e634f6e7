// How Nivalis settings reach the tree and the camera: the blurred swap, the vignette, the camera
// coefficient, the automatic cut near the end of a path, and the two camera operations.

#include <gtest/gtest.h>

#include "engine/camera/CameraState.h"
#include "engine/math/Random.h"
#include "scenes/nivalis/NivalisScene.h"
#include "tests/scenes/SceneTestSupport.h"

namespace {

using namespace scenes::nivalis;
using namespace scenes::testing;
using engine::camera::CameraState;

class NivalisSettingsEffect : public ::testing::Test {
protected:
    NivalisScene scene;

    void SetUp() override {
        engine::math::Random::seed(20240611);
        scene.updateViewportSize(1280, 720);
    }

    /// Calls applySettings up to `frames` times and reports whether the camera cut meanwhile.
    bool cutsWithin(int frames) {
        const int camera = scene.cameraAnimator.currentCamera;
        for (int i = 0; i < frames; ++i) {
            scene.applySettings();
            if (scene.cameraAnimator.currentCamera != camera) {
                return true;
            }
        }
        return false;
    }
};

TEST_F(NivalisSettingsEffect, BlurredSwapsTheTreesAndTheWaterDistance) {
    scene.settings.blurred = true;
    scene.animate();
    EXPECT_FALSE(scene.sharpTree->enabled);
    EXPECT_TRUE(scene.blurredTree->enabled);
    EXPECT_EQ(floatsOf(scene.uniformsWater[6])[3], 100.0f);

    scene.settings.blurred = false;
    scene.animate();
    EXPECT_TRUE(scene.sharpTree->enabled);
    EXPECT_FALSE(scene.blurredTree->enabled);
    EXPECT_EQ(floatsOf(scene.uniformsWater[6])[3], 20000.0f);
}

TEST_F(NivalisSettingsEffect, BlurredTreeGetsItsMatricesOnTheFrameItIsSwitchedOn) {
    scene.animate();
    const auto sky = as<engine::commands::DrawMeshCommand>(children(scene.sharpTree->commands[0])[10]);
    const auto before = floatsOf(sky->uniforms[0]);
    // The birds are not in the blurred tree; their matrices stay as the sharp frame left them.
    const auto bird = as<engine::commands::DrawMeshCommand>(scene.groupBirds->commands[0]);
    const auto birdBefore = floatsOf(bird->uniforms[0]);
    scene.settings.blurred = true;
    scene.updateViewportSize(720, 1280);
    scene.animate();
    EXPECT_NE(floatsOf(sky->uniforms[0]), before);
    expectMatrixNear(multiply(widen(scene.matProjection), widen(scene.matView)), floatsOf(sky->uniforms[0]));
    EXPECT_EQ(floatsOf(bird->uniforms[0]), birdBefore);
}

TEST_F(NivalisSettingsEffect, VignetteFollowsItsSettingInBothTrees) {
    scene.settings.vignette = false;
    scene.applySettings();
    EXPECT_FALSE(scene.vignette->enabled);
    EXPECT_FALSE(children(scene.sharpTree->commands[0]).back()->enabled);
    EXPECT_FALSE(scene.blurredPass->commands.back()->enabled);
    scene.settings.vignette = true;
    scene.applySettings();
    EXPECT_TRUE(scene.vignette->enabled);
}

TEST_F(NivalisSettingsEffect, ChangedCameraPeriodRestartsThePathWithTheNewDuration) {
    scene.cameraAnimator.positionInterpolator.setTimer(0.4);
    scene.settings.cameraPeriod = 2.0f;
    scene.applySettings();
    EXPECT_EQ(scene.cameraAnimator.minDurationCoefficient, 2.0f);
    EXPECT_EQ(scene.cameraAnimator.timer(), 0.0f);
    EXPECT_FLOAT_EQ(scene.cameraAnimator.positionInterpolator.duration(), 46000.0f);
    EXPECT_EQ(scene.cameraAnimator.currentCamera, 0);
}

TEST_F(NivalisSettingsEffect, UnchangedCameraPeriodLeavesThePathRunning) {
    scene.cameraAnimator.positionInterpolator.setTimer(0.4);
    scene.settings.cameraPeriod = 1.0f;
    scene.applySettings();
    EXPECT_FLOAT_EQ(scene.cameraAnimator.timer(), 0.4f);
    EXPECT_FLOAT_EQ(scene.cameraAnimator.positionInterpolator.duration(), 23000.0f);
}

TEST_F(NivalisSettingsEffect, CutsToAnotherPathNearTheEnd) {
    scene.cameraAnimator.positionInterpolator.setTimer(0.995);
    // A fair coin each frame: a cut within 40 frames fails only with odds of 2^-40.
    ASSERT_TRUE(cutsWithin(40));
    EXPECT_NE(scene.cameraAnimator.currentCamera, 0);
    EXPECT_EQ(scene.cameraAnimator.timer(), 0.0f);
    EXPECT_EQ(scene.cameraAnimator.state, CameraState::ANIMATING);
}

TEST_F(NivalisSettingsEffect, NoCutAtExactlyTheThresholdOrWithAutoSwitchOff) {
    scene.cameraAnimator.positionInterpolator.setTimer(0.99);
    EXPECT_FALSE(cutsWithin(200));
    scene.cameraAnimator.positionInterpolator.setTimer(0.999);
    scene.settings.autoSwitchCameras = false;
    EXPECT_FALSE(cutsWithin(200));
    EXPECT_FLOAT_EQ(scene.cameraAnimator.timer(), 0.999f);
}

TEST_F(NivalisSettingsEffect, CutsHappenAlmostAtOnceOnceTheLastHundredthIsReached) {
    // Run real frames at 30 per second: the camera cuts within a few frames of passing 0.99 and
    // so never reaches the end of its path.
    double time = 1000.0;
    int cuts = 0;
    int framesPastThreshold = 0;
    int longestWait = 0;
    for (int frame = 0; frame < 30 * 600; ++frame) {
        const int camera = scene.cameraAnimator.currentCamera;
        scene.updateTimers(time);
        time += 1000.0 / 30.0;
        if (scene.cameraAnimator.currentCamera != camera) {
            ++cuts;
            longestWait = std::max(longestWait, framesPastThreshold);
            framesPastThreshold = 0;
        } else if (scene.cameraAnimator.timer() > 0.99f) {
            ++framesPastThreshold;
        }
        EXPECT_FALSE(scene.cameraAnimator.positionInterpolator.reverse && scene.cameraAnimator.timer() == 1.0f);
    }
    // Ten minutes of 23-second paths.
    EXPECT_GE(cuts, 20);
    EXPECT_LE(longestWait, 30);
}

TEST_F(NivalisSettingsEffect, RandomCameraDuringATransitionDoesNothing) {
    scene.nextCamera();
    ASSERT_EQ(scene.cameraAnimator.state, CameraState::TRANSITIONING);
    ASSERT_EQ(scene.cameraAnimator.currentCamera, 1);
    for (bool reverse : {true, false}) {
        scene.cameraAnimator.positionInterpolator.reverse = reverse;
        for (int i = 0; i < 20; ++i) {
            scene.randomCamera();
        }
        EXPECT_EQ(scene.cameraAnimator.positionInterpolator.reverse, reverse);
        EXPECT_EQ(scene.cameraAnimator.currentCamera, 1);
        EXPECT_EQ(scene.cameraAnimator.state, CameraState::TRANSITIONING);
    }
}

TEST_F(NivalisSettingsEffect, RandomCameraCutsElsewhereAndFliesBothWays) {
    int reversed = 0;
    for (int i = 0; i < 200; ++i) {
        const int before = scene.cameraAnimator.currentCamera;
        scene.randomCamera();
        EXPECT_NE(scene.cameraAnimator.currentCamera, before);
        EXPECT_GE(scene.cameraAnimator.currentCamera, 0);
        EXPECT_LT(scene.cameraAnimator.currentCamera, 9);
        EXPECT_EQ(scene.cameraAnimator.timer(), 0.0f);
        reversed += scene.cameraAnimator.positionInterpolator.reverse ? 1 : 0;
    }
    EXPECT_GT(reversed, 60);
    EXPECT_LT(reversed, 140);
}

TEST_F(NivalisSettingsEffect, NextCameraIgnoresAutoSwitch) {
    scene.settings.autoSwitchCameras = false;
    scene.applySettings();
    scene.nextCamera();
    EXPECT_EQ(scene.cameraAnimator.state, CameraState::TRANSITIONING);
    EXPECT_EQ(scene.cameraAnimator.currentCamera, 1);
}

} // namespace
