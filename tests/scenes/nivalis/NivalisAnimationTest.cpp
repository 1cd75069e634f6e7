// Values that one Nivalis frame writes for chosen timer phases: birds, ships, animals, water, fog,
// stars, clouds, the flags of each time of day, and the matrices.

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <stdexcept>
#include <utility>

#include "engine/commands/DrawStaticMeshCommand.h"
#include "scenes/nivalis/Colors.h"
#include "scenes/nivalis/NivalisScene.h"
#include "scenes/nivalis/Textures.h"
#include "scenes/nivalis/Timers.h"
#include "tests/scenes/SceneTestSupport.h"

namespace {

using namespace scenes::nivalis;
using namespace scenes::testing;
using engine::commands::DrawMeshCommand;
using engine::commands::DrawTransformedMeshCommand;
using engine::math::Vec4;

class NivalisFrame : public ::testing::Test {
protected:
    NivalisScene scene;

    void SetUp() override { scene.updateViewportSize(1920, 1080); }

    /// Sets the given phases and animates one frame without moving any clock.
    void frameAt(std::initializer_list<std::pair<Timers, float>> phases) {
        for (const auto& [key, value] : phases) {
            scene.timers.set(key, value);
        }
        scene.animate();
    }

    std::shared_ptr<DrawTransformedMeshCommand> draw(const std::shared_ptr<engine::commands::GroupCommand>& group,
                                                     std::size_t index) {
        return as<DrawTransformedMeshCommand>(group->commands.at(index));
    }
    /// Row coordinate written into uniform 5 of a draw.
    float row(const std::shared_ptr<DrawTransformedMeshCommand>& command) { return floatsOf(command->uniforms[5])[2]; }
};

TEST_F(NivalisFrame, BirdsAfterAQuarterCircle) {
    // a = pi/2 for the first group; b = -3 pi/2 for the second, whose sine is +1.
    frameAt({{Timers::BirdsFly, 0.25f}});
    const float expected[6][3] = {{19000, 0, 0},     {19000, -4000, 180}, {19000, 3000, 180},
                                  {26000, 3000, 0},  {24000, 3000, 180},  {14000, 7000, 0}};
    for (std::size_t i = 0; i < 6; ++i) {
        const auto& transform = draw(scene.groupBirds, i)->transform;
        EXPECT_NEAR(transform.translation.x, expected[i][0], 0.05f) << "bird " << i;
        EXPECT_NEAR(transform.translation.y, expected[i][1], 0.05f) << "bird " << i;
        EXPECT_NEAR(transform.rotation.z, expected[i][2], 1e-3f) << "bird " << i;
    }
}

TEST_F(NivalisFrame, WingBeatsPlayForwardAndBackWithTheirOffsets) {
    // Bird texture: 4 rows, 3 poses; the row centre is (0.5 + 2u) / 4 for a ping-pong position u.
    frameAt({{Timers::BirdWings1, 0.1f}, {Timers::BirdWings2, 0.5f}});
    const float expectedRows[6] = {0.225f, 0.625f, 0.525f, 0.125f, 0.525f, 0.225f};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_NEAR(row(draw(scene.groupBirds, i)), expectedRows[i], 1e-5f) << "bird " << i;
    }
    // Texture width, half a texel, and the row height of a 4-row texture.
    const auto animation = floatsOf(draw(scene.groupBirds, 5)->uniforms[5]);
    EXPECT_EQ(animation[0], 133.0f);
    EXPECT_FLOAT_EQ(animation[1], 0.5f / 133.0f);
    EXPECT_EQ(animation[3], 1.0f);
    EXPECT_EQ(intsOf(draw(scene.groupBirds, 5)->uniforms[2]), std::vector<std::int32_t>{133});
    EXPECT_FLOAT_EQ(floatsOf(draw(scene.groupBirds, 5)->uniforms[3])[0], 0.25f);
}

TEST_F(NivalisFrame, ShipsStandOnTheKnotsOfTheirCourses) {
    // At phase 0 every course starts at its third point.
    frameAt({{Timers::Ships, 0.0f}});
    const float starts[3][2] = {{24566.402f, -2645.747f}, {5714.381f, 17442.656f}, {-16359.059f, -28069.041f}};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto& transform = draw(scene.groupShips, i)->transform;
        EXPECT_FLOAT_EQ(transform.translation.x, starts[i][0]) << "ship " << i;
        EXPECT_FLOAT_EQ(transform.translation.y, starts[i][1]) << "ship " << i;
    }
    // Ship 0 has 28 points: phases 0.25 and 0.5 fall on points 9 and 16 of its knots.
    frameAt({{Timers::Ships, 0.25f}});
    EXPECT_FLOAT_EQ(draw(scene.groupShips, 0)->transform.translation.x, -1738.169f);
    EXPECT_FLOAT_EQ(draw(scene.groupShips, 0)->transform.translation.y, 141.75342f);
    frameAt({{Timers::Ships, 0.5f}});
    EXPECT_FLOAT_EQ(draw(scene.groupShips, 0)->transform.translation.x, -28770.12f);
    EXPECT_FLOAT_EQ(draw(scene.groupShips, 0)->transform.translation.y, 1871.8082f);
}

TEST_F(NivalisFrame, WaterUniforms) {
    frameAt({{Timers::Water, 0.1f}, {Timers::WaterLarge, 0.3f}});
    // The small pattern rises 16 times a period from 0 to 5: at 0.1 it stands at 0.6 of a rise.
    EXPECT_NEAR(floatsOf(scene.uniformsWater[2])[0], 3.0f, 1e-4f);
    EXPECT_FLOAT_EQ(floatsOf(scene.uniformsWater[3])[0], 0.3f);
    const SceneColors& day = Colors::shared().COLORS[0];
    EXPECT_EQ(floatsOf(scene.uniformsWater[7]),
              (std::vector<float>{day.waterColorNear.x, day.waterColorNear.y, day.waterColorNear.z, 0.0f}));
    EXPECT_FLOAT_EQ(floatsOf(scene.uniformsWater[7])[0], 55.0f / 255.0f);
    EXPECT_FLOAT_EQ(floatsOf(scene.uniformsWater[8])[2], 227.0f / 255.0f);

    frameAt({{Timers::Water, 0.05f}});
    EXPECT_NEAR(floatsOf(scene.uniformsWater[2])[0], 4.0f, 1e-4f);
    frameAt({{Timers::Water, 0.0626f}});
    EXPECT_NEAR(floatsOf(scene.uniformsWater[2])[0], 0.008f, 1e-3f);
}

TEST_F(NivalisFrame, FogStarsAndCloudsFollowTheTimeOfDay) {
    scene.settings.timeOfDay = TimeOfDay::Night;
    frameAt({{Timers::CloudsAnimation, 0.25f}, {Timers::CloudsRotation, 0.5f}});
    EXPECT_EQ(floatsOf(scene.uniformsDistantMountains[2]),
              (std::vector<float>{67.0f / 255.0f, 123.0f / 255.0f, 156.0f / 255.0f, 0.75f}));
    EXPECT_EQ(floatsOf(scene.uniformsDistantMountains[3]), (std::vector<float>{0.0f, 1500.0f}));
    EXPECT_EQ(floatsOf(scene.uniformsStars[1]), (std::vector<float>{1.0f, 1.0f, 1.0f, 1.0f}));
    EXPECT_EQ(floatsOf(scene.uniformsClouds[1]), (std::vector<float>{15.0f / 255.0f, 67.0f / 255.0f, 98.0f / 255.0f, 0.3f}));
    EXPECT_NEAR(floatsOf(scene.uniformsClouds[2])[0], 1.0f, 1e-6f);
    EXPECT_NEAR(scene.commandClouds->transform.rotation.z, 180.0f, 1e-4f);
    EXPECT_EQ(floatsOf(scene.uniformsWater[8]), (std::vector<float>{11.0f / 255.0f, 31.0f / 255.0f, 56.0f / 255.0f, 0.0f}));

    scene.settings.timeOfDay = TimeOfDay::Sunrise;
    frameAt({{Timers::CloudsAnimation, 0.75f}, {Timers::CloudsRotation, 0.125f}});
    EXPECT_NEAR(floatsOf(scene.uniformsClouds[2])[0], -1.0f, 1e-6f);
    EXPECT_NEAR(scene.commandClouds->transform.rotation.z, 45.0f, 1e-4f);
    EXPECT_FLOAT_EQ(floatsOf(scene.uniformsStars[1])[3], 0.3f);
    EXPECT_FLOAT_EQ(floatsOf(scene.uniformsDistantMountains[2])[0], 229.0f / 255.0f);
}

TEST_F(NivalisFrame, ATimeOfDayOutsideTheCatalogueFailsTheFrame) {
    scene.settings.timeOfDay = static_cast<TimeOfDay>(4);
    EXPECT_THROW(scene.animate(), std::out_of_range);
}

TEST_F(NivalisFrame, UpdateTimersAdvancesEverythingAndStoresTheTimeLast) {
    scene.updateTimers(1000.0);
    EXPECT_EQ(scene.lastFrameTime, 1000.0);
    // The first reading counts from 0: the 1-second wing beat has wrapped to 0, the 0.9-second one
    // stands at 1000 / 900 - 1.
    EXPECT_NEAR(scene.timers.get(Timers::BirdWings1), 0.0f, 1e-6f);
    EXPECT_NEAR(scene.timers.get(Timers::BirdWings2), 1.0f / 9.0f, 1e-5f);
    EXPECT_EQ(scene.cameraAnimator.timer(), 0.0f);
    // The animator's first frame only records the time, and the path's first step lets none pass.
    scene.updateTimers(2000.0);
    EXPECT_EQ(scene.cameraAnimator.timer(), 0.0f);
    scene.updateTimers(2000.0 + 11500.0);
    EXPECT_EQ(scene.lastFrameTime, 13500.0);
    // Half of a 23-second path has passed.
    EXPECT_NEAR(scene.cameraAnimator.timer(), 0.5f, 1e-5f);
    EXPECT_NEAR(scene.timers.get(Timers::BirdsFly), 13500.0f / 75000.0f, 1e-5f);
}

} // namespace
