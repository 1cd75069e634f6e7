// The Example scene: its tree, constants, cameras and timers, and the frame's hand-set matrices,
// the animal's timing and the water's phase.

#include <gtest/gtest.h>

#include <cmath>

#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/DrawTransformedMeshCommand.h"
#include "scenes/example/Cameras.h"
#include "scenes/example/ExampleScene.h"
#include "scenes/example/Meshes.h"
#include "scenes/example/Shaders.h"
#include "scenes/example/Textures.h"
#include "scenes/example/Timers.h"
#include "tests/scenes/SceneTestSupport.h"

namespace {

using namespace scenes::example;
using namespace scenes::testing;
using engine::commands::CommandType;
using engine::commands::DrawMeshCommand;
using engine::commands::DrawTransformedMeshCommand;

TEST(ExampleCatalogue, AnimalTextureCamerasAndTimers) {
    const auto& animal = *Textures::shared().texFp16;
    EXPECT_EQ(animal.fileName, "Alpaca/Eating/animal.rgba.fp16");
    EXPECT_EQ(animal.format, engine::TextureFormat::RGBA16F);
    EXPECT_EQ(animal.width, 362);
    EXPECT_EQ(animal.height, 19);
    EXPECT_EQ(Meshes::shared().meshes.size(), 16u);
    EXPECT_EQ(Meshes::shared().meshAlpaca->attributes, nullptr);

    const auto& cameras = Cameras::shared().CAMERAS;
    ASSERT_EQ(cameras.size(), 7u);
    const bool interactive[7] = {false, true, true, true, true, true, false};
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_EQ(cameras[i]->interactive, interactive[i]) << i;
        EXPECT_EQ(cameras[i]->name, "");
    }

    engine::timers::TimersMap timers;
    initializeTimers(timers);
    EXPECT_EQ(timers.size(), 9u);
    EXPECT_EQ(timers.params(Timers::Camera).period, 34000.0f);
    EXPECT_EQ(timers.params(Timers::Water).period, 2500.0f);
    EXPECT_EQ(timers.params(Timers::AnimalAnimation).period, 6000.0f);
}

class Example : public ::testing::Test {
protected:
    ExampleScene scene;

    void SetUp() override { scene.updateViewportSize(1280, 800); }

    std::shared_ptr<DrawMeshCommand> drawIn(std::size_t group, std::size_t index) {
        return as<DrawMeshCommand>(children(scene.commands.at(group)).at(index));
    }
    float animalRow() { return floatsOf(scene.uniformsAnimated[5])[2]; }
    void frameAt(float animal, float water = 0.0f) {
        scene.timers.set(Timers::AnimalAnimation, animal);
        scene.timers.set(Timers::Water, water);
        scene.animate();
    }
};

TEST_F(Example, TreeOfTwelveEntries) {
    const auto& c = scene.commands;
    ASSERT_EQ(c.size(), 12u);
    EXPECT_EQ(c[0]->type(), CommandType::NOOP);
    auto clearColor = as<engine::commands::ClearColorCommand>(children(c[1]).at(0));
    EXPECT_EQ(clearColor->name, "clear color");
    EXPECT_EQ(clearColor->color, engine::math::Vec4(0.55859375f, 0.7578125f, 0.87890625f, 1.0f));
    EXPECT_EQ(children(c[1]).at(1)->type(), CommandType::CLEAR);

    auto animal = as<DrawMeshCommand>(c[2]);
    ASSERT_NE(animal, nullptr);
    EXPECT_EQ(as<DrawTransformedMeshCommand>(c[2]), nullptr);
    EXPECT_EQ(animal->mesh, Meshes::shared().meshAlpaca);
    EXPECT_EQ(animal->state->shader->name, "ColorAnimatedTextureChunked");
    EXPECT_EQ(animal->uniforms, scene.uniformsAnimated);
    EXPECT_EQ(textureOf(scene.uniformsAnimated[4]), Textures::shared().texFp16);

    const std::vector<std::string> names{"", "", "", "hill", "grounds", "mountains", "water", "birds", "clouds",
                                         "sky objects", "shooting stars", ""};
    const std::vector<std::size_t> sizes{0, 2, 0, 2, 3, 2, 2, 0, 0, 3, 0, 0};
    for (std::size_t i = 3; i < 11; ++i) {
        EXPECT_EQ(c[i]->name, names[i]);
        EXPECT_EQ(children(c[i]).size(), sizes[i]) << names[i];
    }

    auto test = as<DrawMeshCommand>(c[11]);
    ASSERT_NE(test, nullptr);
    EXPECT_EQ(as<DrawTransformedMeshCommand>(c[11]), nullptr);
    EXPECT_EQ(test->mesh, Meshes::shared().meshStatic);
    EXPECT_EQ(test->state->shader->name, "Diffuse");
    EXPECT_EQ(textureOf(scene.uniformsDiffuseTest[1]), Textures::shared().texStatic);
}

TEST_F(Example, FlatDrawsHaveTheirColoursAndStates) {
    const auto colour = [&](std::size_t group, std::size_t index) { return floatsOf(drawIn(group, index)->uniforms.at(1)); };
    EXPECT_EQ(drawIn(3, 0)->mesh->fileName, "center_rock_bright");
    EXPECT_EQ(colour(3, 0), (std::vector<float>{0.37890625f, 0.375f, 0.33984375f, 1.0f}));
    EXPECT_EQ(colour(3, 1), (std::vector<float>{0.26953125f, 0.265625f, 0.23828125f, 1.0f}));
    EXPECT_EQ(drawIn(4, 1)->mesh->fileName, "hills");
    EXPECT_EQ(colour(4, 2), (std::vector<float>{0.33203125f, 0.578125f, 0.62890625f, 1.0f}));
    EXPECT_EQ(colour(5, 1), (std::vector<float>{0.42578125f, 0.62890625f, 0.73828125f, 1.0f}));

    // The water does not write depth; its highlights use the Water shader with a phase.
    EXPECT_TRUE(drawIn(6, 0)->state->depthMode->depthTest);
    EXPECT_FALSE(drawIn(6, 0)->state->depthMode->depthWrite);
    EXPECT_EQ(drawIn(6, 0)->state->shader->name, "Color");
    EXPECT_EQ(drawIn(6, 1)->state->shader->name, "Water");
    EXPECT_EQ(drawIn(6, 1)->uniforms, scene.uniformsWaterHighlights);
    EXPECT_EQ(scene.uniformsWaterHighlights.size(), 3u);
    EXPECT_EQ(colour(6, 1), (std::vector<float>{0.74609375f, 0.85546875f, 0.921875f, 1.0f}));

    // Sky objects: only the small sun shows.
    EXPECT_FALSE(drawIn(9, 0)->enabled);
    EXPECT_TRUE(drawIn(9, 1)->enabled);
    EXPECT_FALSE(drawIn(9, 2)->enabled);
    EXPECT_EQ(drawIn(9, 1)->mesh->fileName, "sun_small");
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(colour(9, i), (std::vector<float>{0.99609375f, 0.99609375f, 0.86328125f, 1.0f}));
    }
    for (std::size_t group : {3u, 4u, 5u}) {
        for (const auto& node : children(scene.commands[group])) {
            auto draw = as<DrawTransformedMeshCommand>(node);
            ASSERT_NE(draw, nullptr);
            EXPECT_EQ(draw->state->shader->name, "Color");
            EXPECT_TRUE(draw->state->depthMode->depthWrite);
            EXPECT_FALSE(draw->state->blending->enabled);
            EXPECT_EQ(draw->state->culling, engine::CullFace::BACK);
            EXPECT_EQ(draw->indexUniformMvp, 0);
            EXPECT_EQ(draw->transform, engine::commands::AffineTranformation());
        }
    }
}

TEST_F(Example, CameraPathsLastTwiceTheirMinimum) {
    EXPECT_EQ(scene.cameraAnimator.minDurationCoefficient, 2.0f);
    EXPECT_FLOAT_EQ(scene.cameraAnimator.positionInterpolator.duration(), 22000.0f);
    EXPECT_EQ(scene.cameraAnimator.transitionDuration, 1100.0f);
    EXPECT_EQ(scene.cameraAnimator.cameras.size(), 7u);
    EXPECT_EQ(scene.cameraAnimator.cameras[3], Cameras::shared().CAMERAS[3]);
    EXPECT_EQ(scene.cameraAnimator.currentCamera, 0);
    EXPECT_EQ(scene.animationAnimal.textureHeight(), 19);
}

TEST_F(Example, AnimalPlaysForwardAndBackThenRestsInItsFirstPose) {
    // 19 rows, 18 poses: the row centre is (0.5 + 2x * 17) / 19 for the folded phase x.
    frameAt(0.2f);
    EXPECT_NEAR(animalRow(), (0.5f + 0.44f * 17.0f) / 19.0f, 1e-5f);
    // Near 0.4545 the scaled phase is near 0.5: the last pose.
    frameAt(0.4545f);
    EXPECT_NEAR(animalRow(), 17.5f / 19.0f, 2e-3f);
    // From 1/1.1 on the animal rests in its first pose.
    frameAt(0.95f);
    EXPECT_NEAR(animalRow(), 0.5f / 19.0f, 1e-6f);
    frameAt(0.999f);
    EXPECT_NEAR(animalRow(), 0.5f / 19.0f, 1e-6f);

    const auto animation = floatsOf(scene.uniformsAnimated[5]);
    EXPECT_EQ(animation[0], 362.0f);
    EXPECT_FLOAT_EQ(animation[1], 0.5f / 362.0f);
    EXPECT_EQ(animation[3], 1.0f);
    EXPECT_EQ(intsOf(scene.uniformsAnimated[2]), std::vector<std::int32_t>{362});
    EXPECT_FLOAT_EQ(floatsOf(scene.uniformsAnimated[3])[0], 1.0f / 19.0f);
    EXPECT_EQ(floatsOf(scene.uniformsAnimated[1]), (std::vector<float>{0.1640625f, 0.1484375f, 0.1171875f, 1.0f}));
}

TEST_F(Example, PlainDrawsGetTheirMatricesFromAnimate) {
    frameAt(0.0f);
    const Matrix4 pv = multiply(widen(scene.matProjection), widen(scene.matView));
    expectMatrixNear(multiply(pv, placement(1.554, -0.796, -2.327, 0, 0.4, 0.4, 0.4)), floatsOf(scene.uniformsAnimated[0]),
                     1e-4);
    expectMatrixNear(multiply(pv, placement(0, 0, 0, 0, 8, 8, 8)), floatsOf(scene.uniformsDiffuseTest[0]), 1e-4);
    expectMatrixNear(pv, floatsOf(drawIn(4, 0)->uniforms[0]), 1e-4);
}

TEST_F(Example, WaterPhaseInRadians) {
    frameAt(0.0f, 0.25f);
    EXPECT_NEAR(floatsOf(scene.uniformsWaterHighlights[2])[0], 1.5707964f, 1e-6f);
    frameAt(0.0f, 0.5f);
    EXPECT_NEAR(floatsOf(scene.uniformsWaterHighlights[2])[0], 3.1415927f, 1e-6f);
}

TEST_F(Example, FirstFrameLooksAlongTheStartOfThePath) {
    scene.updateTimers(1000.0);
    const Matrix4 view = widen(scene.matView);
    const auto eye = apply(view, 4.84, -644.785, -25.362);
    EXPECT_NEAR(eye[0], 0.0, 1e-3);
    EXPECT_NEAR(eye[1], 0.0, 1e-3);
    EXPECT_NEAR(eye[2], 0.0, 1e-3);
    const auto target = apply(view, 4.673, -1.741, 4.447);
    EXPECT_NEAR(target[0], 0.0, 1e-3);
    EXPECT_NEAR(target[1], 0.0, 1e-3);
    EXPECT_LT(target[2], -600.0);
    EXPECT_EQ(scene.lastFrameTime, 1000.0);
}

} // namespace
