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

TEST_F(NivalisSettingsEffect, ChangedCameraPeriodRestartsThePathWithTheNewDuration) {
    scene.cameraAnimator.positionInterpolator.setTimer(0.4);
    scene.settings.cameraPeriod = 2.0f;
    scene.applySettings();
    EXPECT_EQ(scene.cameraAnimator.minDurationCoefficient, 2.0f);
    EXPECT_EQ(scene.cameraAnimator.timer(), 0.0f);
    EXPECT_FLOAT_EQ(scene.cameraAnimator.positionInterpolator.duration(), 46000.0f);
    EXPECT_EQ(scene.cameraAnimator.currentCamera, 0);
}

TEST_F(NivalisSettingsEffect, CutsToAnotherPathNearTheEnd) {
    scene.cameraAnimator.positionInterpolator.setTimer(0.995);
    // A fair coin each frame: a cut within 40 frames fails only with odds of 2^-40.
    ASSERT_TRUE(cutsWithin(40));
    EXPECT_NE(scene.cameraAnimator.currentCamera, 0);
    EXPECT_EQ(scene.cameraAnimator.timer(), 0.0f);
    EXPECT_EQ(scene.cameraAnimator.state, CameraState::ANIMATING);
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

} // namespace
