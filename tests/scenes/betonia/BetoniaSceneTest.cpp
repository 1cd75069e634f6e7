// The Betonia scene: both top-level groups and their shared nodes, the rooms' draws and hints,
// settings, and the switching between rooms with its chances.

#include <gtest/gtest.h>

#include "engine/camera/CameraState.h"
#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/DrawBlurredCommand.h"
#include "engine/commands/DrawTransformedMeshCommand.h"
#include "engine/commands/VignetteCommand.h"
#include "engine/math/Random.h"
#include "scenes/betonia/BetoniaScene.h"
#include "scenes/betonia/Cameras.h"
#include "scenes/betonia/Meshes.h"
#include "scenes/betonia/Shaders.h"
#include "scenes/betonia/Textures.h"
#include "scenes/betonia/Timers.h"
#include "tests/scenes/SceneTestSupport.h"

namespace {

using namespace scenes::betonia;
using namespace scenes::testing;
using engine::camera::CameraState;
using engine::commands::BlurredPassCommand;
using engine::commands::BlurSize;
using engine::commands::CommandType;
using engine::commands::DrawMeshCommand;
using engine::commands::DrawTransformedMeshCommand;
using engine::commands::ShadingRate;

class Betonia : public ::testing::Test {
protected:
    BetoniaScene scene;

    void SetUp() override {
        engine::math::Random::seed(99);
        scene.updateViewportSize(1600, 900);
    }

    const std::vector<CommandPtr>& mainGroup() { return children(scene.commands[0]); }
    const std::vector<CommandPtr>& blurredGroup() { return children(scene.commands[1]); }
    std::shared_ptr<BlurredPassCommand> bloom1() { return as<BlurredPassCommand>(mainGroup()[0]); }
    std::shared_ptr<BlurredPassCommand> bloom2() { return as<BlurredPassCommand>(mainGroup()[1]); }
    const std::vector<CommandPtr>& mainPass() { return children(mainGroup()[2]); }
    CommandPtr room1() { return mainPass()[1]; }
    CommandPtr room2() { return mainPass()[2]; }
    std::shared_ptr<BlurredPassCommand> blurredMain() { return as<BlurredPassCommand>(blurredGroup()[0]); }
    std::shared_ptr<DrawMeshCommand> drawIn(const CommandPtr& group, std::size_t index) {
        return as<DrawMeshCommand>(children(group).at(index));
    }
    bool inRoom1() { return room1()->enabled && !room2()->enabled && bloom1()->enabled && !bloom2()->enabled; }
    bool inRoom2() { return !room1()->enabled && room2()->enabled && !bloom1()->enabled && bloom2()->enabled; }
};

TEST_F(Betonia, LowQualityNarrowsTheBloomsAndCoarsensTheSharedHint) {
    scene.settings.lowQuality = true;
    scene.applySettings();
    EXPECT_EQ(bloom1()->blurSize, BlurSize::KERNEL_3);
    EXPECT_EQ(bloom2()->blurSize, BlurSize::KERNEL_3);
    EXPECT_EQ(blurredMain()->blurSize, BlurSize::KERNEL_3);
    EXPECT_EQ(onlyRate(*drawIn(room1(), 0)->hints), ShadingRate::SHADING_RATE_2X2);
    EXPECT_EQ(onlyRate(*drawIn(room2(), 0)->hints), ShadingRate::SHADING_RATE_2X2);
    EXPECT_EQ(onlyRate(*drawIn(room2(), 1)->hints), ShadingRate::SHADING_RATE_4X4);

    scene.settings.lowQuality = false;
    scene.applySettings();
    EXPECT_EQ(bloom1()->blurSize, BlurSize::KERNEL_5);
    EXPECT_EQ(bloom2()->blurSize, BlurSize::KERNEL_5);
    EXPECT_EQ(blurredMain()->blurSize, BlurSize::KERNEL_3);
    EXPECT_EQ(onlyRate(*drawIn(room1(), 0)->hints), ShadingRate::SHADING_RATE_1X1);
}

TEST_F(Betonia, NextRoomSwapsRoomsBloomsAndPathsWithAHardCut) {
    scene.nextRoom();
    EXPECT_TRUE(inRoom1());
    EXPECT_EQ(scene.cameraAnimator.cameras, Cameras::shared().CAMERAS[0]);
    // A cut to a random path other than the first, started from its beginning.
    EXPECT_NE(scene.cameraAnimator.currentCamera, 0);
    EXPECT_LT(scene.cameraAnimator.currentCamera, 4);
    EXPECT_EQ(scene.cameraAnimator.timer(), 0.0f);
    EXPECT_EQ(scene.cameraAnimator.state, CameraState::ANIMATING);

    scene.nextRoom();
    EXPECT_TRUE(inRoom2());
    EXPECT_EQ(scene.cameraAnimator.cameras, Cameras::shared().CAMERAS[1]);
    EXPECT_NE(scene.cameraAnimator.currentCamera, 0);

    // With both rooms off there is nothing to switch.
    room2()->enabled = false;
    const int camera = scene.cameraAnimator.currentCamera;
    scene.nextRoom();
    EXPECT_FALSE(room1()->enabled);
    EXPECT_FALSE(room2()->enabled);
    EXPECT_EQ(scene.cameraAnimator.currentCamera, camera);
}

TEST_F(Betonia, RandomCameraOrNextRoomChangesRoomOneTimeInFourFromRoomTwo) {
    int roomChanges = 0;
    int cameraCuts = 0;
    const int trials = 4000;
    for (int i = 0; i < trials; ++i) {
        const int camera = scene.cameraAnimator.currentCamera;
        scene.randomCameraOrNextRoom();
        if (inRoom1()) {
            ++roomChanges;
            scene.nextRoom();
        } else {
            EXPECT_TRUE(inRoom2());
            cameraCuts += scene.cameraAnimator.currentCamera != camera ? 1 : 0;
        }
    }
    EXPECT_NEAR(static_cast<double>(roomChanges) / trials, 0.25, 0.03);
    EXPECT_EQ(cameraCuts + roomChanges, trials);
}

TEST_F(Betonia, SwitchesByItselfNearTheEndOfAPath) {
    const auto somethingChangesWithin = [&](int frames) {
        for (int i = 0; i < frames; ++i) {
            const int camera = scene.cameraAnimator.currentCamera;
            const bool room = room1()->enabled;
            scene.applySettings();
            if (scene.cameraAnimator.currentCamera != camera || room1()->enabled != room) {
                return true;
            }
        }
        return false;
    };
    scene.cameraAnimator.positionInterpolator.setTimer(0.98);
    EXPECT_FALSE(somethingChangesWithin(200));
    scene.cameraAnimator.positionInterpolator.setTimer(0.985);
    EXPECT_TRUE(somethingChangesWithin(40));
    scene.cameraAnimator.positionInterpolator.setTimer(0.999);
    scene.settings.autoSwitchCameras = false;
    EXPECT_FALSE(somethingChangesWithin(200));
}

} // namespace
