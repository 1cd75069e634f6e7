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

class Example : public ::testing::Test {
protected:
    ExampleScene scene;

    void SetUp() override { scene.updateViewportSize(1280, 800); }

    float animalRow() { return floatsOf(scene.uniformsAnimated[5])[2]; }
    void frameAt(float animal, float water = 0.0f) {
        scene.timers.set(Timers::AnimalAnimation, animal);
        scene.timers.set(Timers::Water, water);
        scene.animate();
    }
};

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

} // namespace
