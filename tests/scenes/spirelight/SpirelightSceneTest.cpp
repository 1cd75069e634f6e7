// The Spirelight scene: catalogue, the bloom and blurred trees with their shared nodes, draw states
// and hints, the aircraft lights, and the settings.

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/DrawBlurredCommand.h"
#include "engine/commands/DrawStaticMeshCommand.h"
#include "engine/commands/VignetteCommand.h"
#include "engine/math/Random.h"
#include "scenes/spirelight/Cameras.h"
#include "scenes/spirelight/Meshes.h"
#include "scenes/spirelight/Shaders.h"
#include "scenes/spirelight/SpirelightScene.h"
#include "scenes/spirelight/Textures.h"
#include "scenes/spirelight/Timers.h"
#include "tests/scenes/SceneTestSupport.h"

namespace {

using namespace scenes::spirelight;
using namespace scenes::testing;
using engine::AttributeType;
using engine::VertexAttribute;
using engine::VertexAttributesDescriptor;
using engine::VertexFormat;
using engine::commands::BlurredPassCommand;
using engine::commands::CommandType;
using engine::commands::DrawMeshCommand;
using engine::commands::DrawStaticMeshCommand;
using engine::commands::DrawTransformedMeshCommand;
using engine::commands::ShadingRate;
using engine::math::Vec4;

class Spirelight : public ::testing::Test {
protected:
    SpirelightScene scene;

    void SetUp() override {
        engine::math::Random::seed(7);
        scene.updateViewportSize(1920, 1080);
    }

    const std::vector<CommandPtr>& mainPass() { return children(children(scene.commands[0])[1]); }
    std::shared_ptr<DrawTransformedMeshCommand> plane(std::size_t index) {
        return as<DrawTransformedMeshCommand>(mainPass().at(9 + index));
    }
};

TEST_F(Spirelight, AircraftLightsCircleAroundTheirCentres) {
    scene.timers.set(Timers::Planes1, 0.0f);
    scene.timers.set(Timers::Planes2, 0.0f);
    scene.animate();
    const float atStart[6][2] = {{0, 990}, {0, -1390}, {0, -690}, {100, 1290}, {1090, 300}, {957.365f, -195}};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_NEAR(plane(i)->transform.translation.x, atStart[i][0], 0.01f) << i;
        EXPECT_NEAR(plane(i)->transform.translation.y, atStart[i][1], 0.01f) << i;
    }
    scene.timers.set(Timers::Planes1, 0.25f);
    scene.timers.set(Timers::Planes2, 0.5f);
    scene.animate();
    const float later[6][2] = {{990, 0}, {0, 590}, {990, 300}, {100, -690}, {100, -690}, {-757.365f, 795}};
    const float heights[6] = {380, 400, 350, 450, 430, 500};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_NEAR(plane(i)->transform.translation.x, later[i][0], 0.01f) << i;
        EXPECT_NEAR(plane(i)->transform.translation.y, later[i][1], 0.01f) << i;
        EXPECT_EQ(plane(i)->transform.translation.z, heights[i]);
    }
    // Their matrices follow in the same frame.
    const Matrix4 pv = multiply(widen(scene.matProjection), widen(scene.matView));
    const auto& p = plane(5)->transform.translation;
    expectMatrixNear(multiply(pv, placement(p.x, p.y, p.z, 0, 100, 100, 100)), floatsOf(plane(5)->uniforms[0]), 1e-4);

    engine::math::Vec3 result(1.0f, 2.0f, 3.0f);
    scene.updatePlanePosition(scene.PIf * 0.5f, 10.0f, 20.0f, result);
    EXPECT_NEAR(result.x, 1000.0f, 1e-3f);
    EXPECT_NEAR(result.y, 20.0f, 1e-3f);
    EXPECT_EQ(result.z, 3.0f);
}

TEST_F(Spirelight, PointSizeFollowsTheShorterSideButNotBelowTwoAndAHalf) {
    const std::pair<std::pair<int, int>, float> cases[] = {
        {{600, 400}, 2.5f}, {{1800, 1200}, 4.0f}, {{3000, 1500}, 5.0f}, {{1200, 3000}, 4.0f}, {{0, 0}, 2.5f}};
    for (const auto& [size, expected] : cases) {
        // A zero viewport keeps an aspect of 1 and a usable projection.
        scene.updateViewportSize(size.first, size.second);
        scene.animate();
        for (std::size_t i = 0; i < 6; ++i) {
            EXPECT_FLOAT_EQ(floatsOf(plane(i)->uniforms[1])[0], expected) << size.first << "x" << size.second;
        }
    }
}

TEST_F(Spirelight, CameraCutsNearTheEndAndTurnsOnImpulse) {
    scene.cameraAnimator.positionInterpolator.setTimer(0.995);
    bool cut = false;
    for (int i = 0; i < 40 && !cut; ++i) {
        scene.applySettings();
        cut = scene.cameraAnimator.currentCamera != 0;
    }
    EXPECT_TRUE(cut);

    scene.settings.cameraPeriod = 2.0f;
    scene.applySettings();
    EXPECT_FLOAT_EQ(scene.cameraAnimator.positionInterpolator.duration(), 58000.0f);

    scene.cameraAnimator.positionInterpolator.reverse = false;
    scene.cameraAnimator.positionInterpolator.setTimer(0.25);
    scene.changeSpeedImpulse(1.0f);
    EXPECT_TRUE(scene.cameraAnimator.positionInterpolator.reverse);
    EXPECT_FLOAT_EQ(scene.cameraAnimator.timer(), 0.75f);
    scene.changeSpeedImpulse(-1.0f);
    EXPECT_FALSE(scene.cameraAnimator.positionInterpolator.reverse);

    scene.nextCamera();
    EXPECT_EQ(scene.cameraAnimator.state, engine::camera::CameraState::TRANSITIONING);
    const int camera = scene.cameraAnimator.currentCamera;
    scene.randomCamera();
    EXPECT_EQ(scene.cameraAnimator.currentCamera, camera);
}

} // namespace
