// The Betonia scene: both top-level groups and their shared nodes, the rooms' draws and hints,
// settings, and the switching between rooms with its chances.

#include <gtest/gtest.h>

#include "engine/camera/CameraState.h"
#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/ClearColorCommand.h"
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
using engine::common::ColorMode;
using engine::math::Vec4;

TEST(BetoniaCatalogue, RoomsAndTheirPaths) {
    for (const auto& mesh : Meshes::shared().meshes) {
        EXPECT_EQ(mesh->name, "");
        EXPECT_EQ(mesh->attributes, Meshes::shared().attribs);
    }
    EXPECT_EQ(Meshes::shared().meshes.size(), 4u);
    EXPECT_EQ(Meshes::shared().meshRoom2Part2->fileName, "room2-optimized2");
    const Textures& t = Textures::shared();
    EXPECT_EQ(t.texRoom1->anisotropy, 3);
    EXPECT_EQ(t.texRoom20->wrapping, engine::TextureWrapping::CLAMP_TO_EDGE);
    EXPECT_EQ(t.texRoom22->minFilter, engine::TextureFiltering::LINEAR);
    EXPECT_EQ(Cameras::shared().CAMERAS[0].size(), 4u);
    EXPECT_EQ(Cameras::shared().CAMERAS[1].size(), 9u);
}

TEST(BetoniaClock, IsACustomCommand) {
    DrawClockCommand clock;
    EXPECT_EQ(clock.type(), CommandType::CUSTOM);
    EXPECT_TRUE(clock.enabled);
}

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

TEST_F(Betonia, MainGroupHoldsBothBloomsAndTheMainPass) {
    ASSERT_EQ(scene.commands.size(), 2u);
    ASSERT_EQ(mainGroup().size(), 3u);

    EXPECT_FALSE(bloom1()->enabled);
    EXPECT_EQ(bloom1()->id, 0);
    EXPECT_TRUE(bloom2()->enabled);
    EXPECT_EQ(bloom2()->id, 1);
    const auto& clearGroup = mainPass()[0];
    EXPECT_EQ(bloom1()->commands, (std::vector<CommandPtr>{clearGroup, bloom1()->commands[1]}));
    EXPECT_EQ(bloom2()->commands[0], clearGroup);

    EXPECT_EQ(mainGroup()[2]->type(), CommandType::MAIN_PASS);
    ASSERT_EQ(mainPass().size(), 6u);
    // The glow is always read from result 0, whichever room's bloom wrote.
    auto drawBloom = as<engine::commands::DrawBlurredCommand>(mainPass()[3]);
    EXPECT_EQ(drawBloom->id, 0);
    EXPECT_TRUE(drawBloom->blending->enabled);
    EXPECT_EQ(drawBloom->blending->sourceFactorColor, engine::BlendingFactor::ONE);
    EXPECT_EQ(drawBloom->blending->destinationFactorColor, engine::BlendingFactor::ONE);
    auto vignette = as<engine::commands::VignetteCommand>(mainPass()[4]);
    EXPECT_EQ(vignette->color0, Vec4(0.4f, 0.4f, 0.4f, 1.0f));
    EXPECT_EQ(vignette->color1, Vec4(1.0f, 1.0f, 1.0f, 1.0f));
    EXPECT_NE(as<DrawClockCommand>(mainPass()[5]), nullptr);

    auto clearColor = as<engine::commands::ClearColorCommand>(children(clearGroup)[0]);
    EXPECT_EQ(clearColor->color, scene.colorWhite);
    EXPECT_EQ(children(clearGroup)[1]->type(), CommandType::CLEAR);
}

TEST_F(Betonia, BlurredGroupSharesTheRoomsAndTheVignette) {
    ASSERT_EQ(blurredGroup().size(), 2u);
    auto pass = blurredMain();
    EXPECT_EQ(pass->id, 2); // its own result, apart from the blooms' 0 and 1
    EXPECT_EQ(pass->commands, (std::vector<CommandPtr>{mainPass()[0], room1(), room2(), mainPass()[4]}));
    const auto& shown = children(blurredGroup()[1]);
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0], mainPass()[0]);
    auto drawBlurred = as<engine::commands::DrawBlurredCommand>(shown[1]);
    EXPECT_EQ(drawBlurred->id, 0);
    EXPECT_FALSE(drawBlurred->blending->enabled);
}

TEST_F(Betonia, RoomsDrawTheirPartsWithTheirTexturesAndHints) {
    const Meshes& m = Meshes::shared();
    const Textures& t = Textures::shared();
    struct Expected {
        std::shared_ptr<engine::Mesh> mesh;
        std::shared_ptr<engine::Texture> texture;
        bool sharedHint;
    };
    const auto check = [&](const CommandPtr& group, std::vector<Expected> expected, bool glow) {
        ASSERT_EQ(children(group).size(), expected.size()) << group->name;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            auto draw = as<DrawTransformedMeshCommand>(children(group)[i]);
            ASSERT_NE(draw, nullptr);
            EXPECT_EQ(draw->mesh, expected[i].mesh) << group->name << " " << i;
            EXPECT_EQ(textureOf(draw->uniforms.at(1)), expected[i].texture) << group->name << " " << i;
            EXPECT_EQ(floatsOf(draw->uniforms[0]).size(), 16u);
            EXPECT_EQ(draw->indexUniformMvp, 0);
            EXPECT_EQ(draw->indexUniformModel, -1);
            EXPECT_EQ(draw->transform, engine::commands::AffineTranformation());
            // The glow passes have a state object of their own, equal in content: the main pass
            // must not start with the object the glow pass ended with.
            const auto& sameState = glow ? drawIn(bloom2()->commands[1], 0)->state : drawIn(room2(), 0)->state;
            EXPECT_EQ(draw->state, sameState);
            EXPECT_EQ(glow, draw->state != drawIn(room2(), 0)->state);
            EXPECT_EQ(draw->state->depthMode, engine::DEPTH_TEST_ENABLED);
            EXPECT_EQ(draw->state->culling, engine::CullFace::BACK);
            if (expected[i].sharedHint) {
                EXPECT_EQ(draw->hints, drawIn(room1(), 0)->hints) << group->name << " " << i;
                EXPECT_EQ(onlyRate(*draw->hints), ShadingRate::SHADING_RATE_1X1);
            } else {
                EXPECT_NE(draw->hints, drawIn(room1(), 0)->hints) << group->name << " " << i;
                EXPECT_EQ(onlyRate(*draw->hints), ShadingRate::SHADING_RATE_4X4);
            }
        }
    };
    check(room1(), {{m.meshRoom1, t.texRoom1, true}}, false);
    check(room2(), {{m.meshRoom2Part0, t.texRoom20, true},
                    {m.meshRoom2Part1, t.texRoom21, false},
                    {m.meshRoom2Part2, t.texRoom22, false}},
          false);
    check(bloom1()->commands[1], {{m.meshRoom1, t.texRoom21, false}}, true);
    check(bloom2()->commands[1], {{m.meshRoom2Part0, t.texRoom21, false},
                                  {m.meshRoom2Part1, t.texRoom21, false},
                                  {m.meshRoom2Part2, t.texRoom22, false}},
          true);

    const auto& state = *drawIn(room1(), 0)->state;
    EXPECT_EQ(state.shader, Shaders::shared().shaderDiffuse);
    EXPECT_FALSE(state.blending->enabled);
    EXPECT_TRUE(state.depthMode->depthTest && state.depthMode->depthWrite);
    EXPECT_EQ(state.culling, engine::CullFace::BACK);
    EXPECT_EQ(*state.vertexAttributes,
              engine::VertexAttributesDescriptor(
                  {engine::VertexAttribute(engine::AttributeType::VERTEX, 0, engine::VertexFormat::HALF3, 0),
                   engine::VertexAttribute(engine::AttributeType::UV0, 1, engine::VertexFormat::HALF2, 6)},
                  12));
}

TEST_F(Betonia, OpensInRoomTwoOnItsFirstPath) {
    EXPECT_TRUE(inRoom2());
    EXPECT_EQ(scene.cameraAnimator.cameras, Cameras::shared().CAMERAS[1]);
    EXPECT_EQ(scene.cameraAnimator.currentCamera, 0);
    EXPECT_EQ(scene.cameraAnimator.timer(), 0.0f);
    EXPECT_EQ(scene.cameraAnimator.positionInterpolator.cameraPosition,
              engine::math::Vec3(-842.0926f, -846.5076f, 129.9855f));
    EXPECT_FLOAT_EQ(scene.cameraAnimator.positionInterpolator.duration(), 22000.0f);
    EXPECT_EQ(scene.cameraAnimator.transitionDuration, 3500.0f);
    EXPECT_EQ(scene.timers.size(), 0u);
}

TEST_F(Betonia, FirstFrameSettlesTheGroupsFromTheSettings) {
    EXPECT_TRUE(scene.commands[1]->enabled);
    scene.updateTimers(500.0);
    EXPECT_TRUE(scene.commands[0]->enabled);
    EXPECT_FALSE(scene.commands[1]->enabled);
    EXPECT_FALSE(mainPass()[5]->enabled);
    EXPECT_TRUE(mainPass()[4]->enabled);
    // Room 2's draws have their matrices; room 1's were skipped.
    const Matrix4 pv = multiply(widen(scene.matProjection), widen(scene.matView));
    expectMatrixNear(pv, floatsOf(drawIn(room2(), 2)->uniforms[0]));
    EXPECT_EQ(floatsOf(drawIn(room1(), 0)->uniforms[0]), std::vector<float>(16, 0.0f));
}

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

TEST_F(Betonia, SepiaWarmsTheClearColourAndOtherModesLeaveItWhite) {
    auto clearColor = as<engine::commands::ClearColorCommand>(children(mainPass()[0])[0]);
    scene.settings.colorMode = ColorMode::Sepia;
    scene.applySettings();
    EXPECT_EQ(clearColor->color, Vec4(0.74f, 0.55f, 0.3f, 1.0f));
    for (ColorMode mode : {ColorMode::Normal, ColorMode::Grayscale, ColorMode::HighContrast, ColorMode::LimitedColors}) {
        scene.settings.colorMode = mode;
        scene.applySettings();
        EXPECT_EQ(clearColor->color, Vec4(1.0f, 1.0f, 1.0f, 1.0f)) << toString(mode);
    }
}

TEST_F(Betonia, VignetteClockAndBlurredFlags) {
    scene.settings.vignette = false;
    scene.settings.clock = true;
    scene.settings.blurred = true;
    scene.applySettings();
    EXPECT_FALSE(mainPass()[4]->enabled);
    EXPECT_FALSE(blurredMain()->commands[3]->enabled);
    EXPECT_TRUE(mainPass()[5]->enabled);
    EXPECT_FALSE(scene.commands[0]->enabled);
    EXPECT_TRUE(scene.commands[1]->enabled);
    // The rooms keep following the room state inside the blurred pass.
    EXPECT_TRUE(inRoom2());
    scene.nextRoom();
    EXPECT_TRUE(blurredMain()->commands[1]->enabled);
    EXPECT_FALSE(blurredMain()->commands[2]->enabled);
}

TEST_F(Betonia, CameraPeriodRestartsThePathWithItsNewLength) {
    scene.cameraAnimator.positionInterpolator.setTimer(0.6);
    scene.settings.cameraPeriod = 2.0f;
    scene.applySettings();
    EXPECT_FLOAT_EQ(scene.cameraAnimator.positionInterpolator.duration(), 44000.0f);
    EXPECT_EQ(scene.cameraAnimator.timer(), 0.0f);
    scene.cameraAnimator.positionInterpolator.setTimer(0.6);
    scene.applySettings();
    EXPECT_FLOAT_EQ(scene.cameraAnimator.timer(), 0.6f);
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

TEST_F(Betonia, RandomCameraOrNextRoomLeavesRoomOneThreeTimesInFour) {
    int roomChanges = 0;
    const int trials = 4000;
    scene.nextRoom();
    for (int i = 0; i < trials; ++i) {
        scene.randomCameraOrNextRoom();
        if (inRoom2()) {
            ++roomChanges;
            scene.nextRoom();
        }
    }
    EXPECT_NEAR(static_cast<double>(roomChanges) / trials, 0.75, 0.03);
}

TEST_F(Betonia, NextCameraOrRoomFliesOnThreeTimesInFourFromRoomTwo) {
    int flights = 0;
    int roomChanges = 0;
    const int trials = 4000;
    for (int i = 0; i < trials; ++i) {
        scene.nextCameraOrRoom();
        if (scene.cameraAnimator.state == CameraState::TRANSITIONING) {
            ++flights;
            EXPECT_TRUE(inRoom2());
            scene.cameraAnimator.setCameraState(CameraState::ANIMATING);
        } else {
            EXPECT_TRUE(inRoom1());
            ++roomChanges;
            scene.nextRoom();
        }
    }
    EXPECT_NEAR(static_cast<double>(flights) / trials, 0.75, 0.03);
    EXPECT_EQ(flights + roomChanges, trials);
}

TEST_F(Betonia, NothingChangesDuringAFlight) {
    scene.nextCamera();
    ASSERT_EQ(scene.cameraAnimator.state, CameraState::TRANSITIONING);
    const int camera = scene.cameraAnimator.currentCamera;
    for (int i = 0; i < 50; ++i) {
        scene.randomCameraOrNextRoom();
        scene.nextCameraOrRoom();
    }
    EXPECT_TRUE(inRoom2());
    EXPECT_EQ(scene.cameraAnimator.currentCamera, camera);
    EXPECT_EQ(scene.cameraAnimator.state, CameraState::TRANSITIONING);
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

TEST_F(Betonia, WithoutAutoSwitchTheCameraGoesToAndFroOnOnePath) {
    scene.settings.autoSwitchCameras = false;
    double time = 1000.0;
    bool sawReverse = false;
    for (int frame = 0; frame < 30 * 120; ++frame) {
        scene.updateTimers(time);
        time += 1000.0 / 30.0;
        EXPECT_EQ(scene.cameraAnimator.currentCamera, 0);
        sawReverse = sawReverse || scene.cameraAnimator.positionInterpolator.reverse;
    }
    EXPECT_TRUE(inRoom2());
    EXPECT_TRUE(sawReverse);
}

} // namespace
