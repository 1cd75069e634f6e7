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

constexpr double kPi = 3.14159265358979323846;

/// Difference of two headings in degrees, folded into -180..180.
double headingDifference(double a, double b) {
    double d = std::fmod(a - b, 360.0);
    if (d > 180.0) {
        d -= 360.0;
    }
    if (d < -180.0) {
        d += 360.0;
    }
    return d;
}

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
    std::shared_ptr<DrawMeshCommand> sharpChild(std::size_t index) {
        return as<DrawMeshCommand>(children(scene.sharpTree->commands[0]).at(index));
    }
    std::shared_ptr<DrawMeshCommand> distantMountains() {
        return as<DrawMeshCommand>(children(children(scene.sharpTree->commands[0])[6])[1]);
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
        // Heights and sizes stay as built.
        EXPECT_EQ(transform.translation.z, 10000.0f + 1000.0f * static_cast<float>(i));
        EXPECT_EQ(transform.scale, engine::math::Vec3(6.0f, 3.0f, 3.0f));
        EXPECT_EQ(transform.rotation.x, 0.0f);
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

TEST_F(NivalisFrame, BirdsHaveOneColourAtEveryTimeOfDayAndFlyEvenWhenHidden) {
    const std::vector<float> color{0.1640625f, 0.1484375f, 0.1171875f, 1.0f};
    for (TimeOfDay time : TIME_OF_DAY_ENTRIES) {
        scene.settings.timeOfDay = time;
        frameAt({{Timers::BirdsFly, 0.25f}});
        for (const auto& node : scene.groupBirds->commands) {
            EXPECT_EQ(floatsOf(as<DrawMeshCommand>(node)->uniforms[1]), color) << toString(time);
        }
        EXPECT_NEAR(draw(scene.groupBirds, 0)->transform.translation.x, 19000.0f, 0.05f) << toString(time);
    }
}

TEST_F(NivalisFrame, ShipsStandOnTheKnotsOfTheirCourses) {
    // At phase 0 every course starts at its third point.
    frameAt({{Timers::Ships, 0.0f}});
    const float starts[3][2] = {{24566.402f, -2645.747f}, {5714.381f, 17442.656f}, {-16359.059f, -28069.041f}};
    const float scales[3] = {1.1f, 1.7f, 1.4f};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto& transform = draw(scene.groupShips, i)->transform;
        EXPECT_FLOAT_EQ(transform.translation.x, starts[i][0]) << "ship " << i;
        EXPECT_FLOAT_EQ(transform.translation.y, starts[i][1]) << "ship " << i;
        EXPECT_EQ(transform.translation.z, 0.0f);
        EXPECT_EQ(transform.scale, engine::math::Vec3(scales[i], scales[i], scales[i]));
        EXPECT_EQ(transform.rotation.x, 0.0f);
        EXPECT_EQ(transform.rotation.y, 0.0f);
    }
    // Ship 0 has 28 points: phases 0.25 and 0.5 fall on points 9 and 16 of its knots.
    frameAt({{Timers::Ships, 0.25f}});
    EXPECT_FLOAT_EQ(draw(scene.groupShips, 0)->transform.translation.x, -1738.169f);
    EXPECT_FLOAT_EQ(draw(scene.groupShips, 0)->transform.translation.y, 141.75342f);
    frameAt({{Timers::Ships, 0.5f}});
    EXPECT_FLOAT_EQ(draw(scene.groupShips, 0)->transform.translation.x, -28770.12f);
    EXPECT_FLOAT_EQ(draw(scene.groupShips, 0)->transform.translation.y, 1871.8082f);
}

TEST_F(NivalisFrame, ShipsHeadAlongTheirCourses) {
    // The heading is the direction of travel, measured from +X towards +Y.
    for (float t : {0.1f, 0.37f, 0.8f}) {
        frameAt({{Timers::Ships, t}});
        std::array<engine::math::Vec3, 3> here;
        std::array<float, 3> heading;
        for (std::size_t i = 0; i < 3; ++i) {
            here[i] = draw(scene.groupShips, i)->transform.translation;
            heading[i] = draw(scene.groupShips, i)->transform.rotation.z;
        }
        frameAt({{Timers::Ships, t + 0.0005f}});
        for (std::size_t i = 0; i < 3; ++i) {
            const auto& ahead = draw(scene.groupShips, i)->transform.translation;
            const double travel = std::atan2(ahead.y - here[i].y, ahead.x - here[i].x) * 180.0 / kPi;
            EXPECT_NEAR(headingDifference(heading[i], travel), 0.0, 1.0) << "ship " << i << " at " << t;
        }
    }
}

TEST_F(NivalisFrame, WalkingSealsFollowTheirLoopsTurnedAQuarter) {
    // Eight points a loop: phase 0.5 falls on point 6.
    frameAt({{Timers::SealWalkSpline, 0.5f}, {Timers::SealWalkAnim, 0.3f}});
    const auto& seal0 = draw(scene.groupSealWalking, 0)->transform;
    EXPECT_FLOAT_EQ(seal0.translation.x, -11556.869f);
    EXPECT_FLOAT_EQ(seal0.translation.y, -11507.325f);
    EXPECT_FLOAT_EQ(seal0.translation.z, 204.81567f);
    EXPECT_EQ(seal0.scale, engine::math::Vec3(25.0f, 25.0f, 25.0f));
    EXPECT_EQ(draw(scene.groupSealWalking, 1)->transform.scale, engine::math::Vec3(22.0f, 22.0f, 22.0f));

    // Walking rows play forward only: 13 rows, 12 poses, phases 0.7, 0.9 and 0.18 after the offsets.
    EXPECT_NEAR(row(draw(scene.groupSealWalking, 0)), (0.5f + 0.7f * 11.0f) / 13.0f, 1e-5f);
    EXPECT_NEAR(row(draw(scene.groupSealWalking, 1)), (0.5f + 0.9f * 11.0f) / 13.0f, 1e-5f);
    EXPECT_NEAR(row(draw(scene.groupSealWalking, 2)), (0.5f + 0.18f * 11.0f) / 13.0f, 1e-5f);

    // The model faces a quarter turn from its direction of travel.
    for (float s : {0.05f, 0.5f, 0.71f}) {
        frameAt({{Timers::SealWalkSpline, s}});
        std::array<engine::math::Vec3, 3> here;
        std::array<float, 3> heading;
        for (std::size_t i = 0; i < 3; ++i) {
            here[i] = draw(scene.groupSealWalking, i)->transform.translation;
            heading[i] = draw(scene.groupSealWalking, i)->transform.rotation.z;
        }
        frameAt({{Timers::SealWalkSpline, s + 0.0005f}});
        for (std::size_t i = 0; i < 3; ++i) {
            const auto& ahead = draw(scene.groupSealWalking, i)->transform.translation;
            const double travel = std::atan2(ahead.y - here[i].y, ahead.x - here[i].x) * 180.0 / kPi;
            EXPECT_NEAR(headingDifference(heading[i], travel + 90.0), 0.0, 1.0) << "seal " << i << " at " << s;
        }
    }
}

TEST_F(NivalisFrame, PenguinsPlayForwardAndBackWithOffsetsCarriedPastOne) {
    frameAt({{Timers::PenguinIdle, 0.5f}, {Timers::PenguinIdle2, 0.1f}});
    // 16 rows and 15 poses: offset 0.5 wraps to phase 0 (first row); 0.77 gives 0.27; 0.8 gives 0.3.
    EXPECT_NEAR(row(draw(scene.groupPenguinsIdle, 0)), 0.5f / 16.0f, 1e-5f);
    EXPECT_NEAR(row(draw(scene.groupPenguinsIdle, 2)), (0.5f + 0.54f * 14.0f) / 16.0f, 1e-5f);
    EXPECT_NEAR(row(draw(scene.groupPenguinsIdle, 7)), (0.5f + 0.6f * 14.0f) / 16.0f, 1e-5f);
    // 11 rows and 10 poses: offsets 0.2 and 0.5 give phases 0.3 and 0.6.
    EXPECT_NEAR(row(draw(scene.groupPenguinsIdle2, 0)), (0.5f + 0.6f * 9.0f) / 11.0f, 1e-5f);
    EXPECT_NEAR(row(draw(scene.groupPenguinsIdle2, 2)), (0.5f + 0.8f * 9.0f) / 11.0f, 1e-5f);
    const auto animation = floatsOf(draw(scene.groupPenguinsIdle2, 0)->uniforms[5]);
    EXPECT_EQ(animation[0], 238.0f);
    EXPECT_FLOAT_EQ(animation[1], 0.5f / 238.0f);
    EXPECT_EQ(intsOf(draw(scene.groupPenguinsIdle2, 0)->uniforms[2]), std::vector<std::int32_t>{238});
    EXPECT_FLOAT_EQ(floatsOf(draw(scene.groupPenguinsIdle2, 0)->uniforms[3])[0], 1.0f / 11.0f);
}

TEST_F(NivalisFrame, IdleSealsLoopForwardAndReachTheLastRowJustBeforeWrapping) {
    frameAt({{Timers::SealIdleAnim, 0.99f}});
    // 10 rows, 9 poses; the top row's centre is 0.85.
    EXPECT_NEAR(row(draw(scene.groupSealIdle, 2)), (0.5f + 0.99f * 8.0f) / 10.0f, 1e-5f);
    EXPECT_NEAR(row(draw(scene.groupSealIdle, 0)), (0.5f + 0.09f * 8.0f) / 10.0f, 1e-5f);
    frameAt({{Timers::SealIdleAnim, 0.0f}});
    EXPECT_NEAR(row(draw(scene.groupSealIdle, 2)), 0.05f, 1e-6f);
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

TEST_F(NivalisFrame, FlagsPaletteAndSkyOfEachTimeOfDay) {
    const Textures& t = Textures::shared();
    struct Expected {
        TimeOfDay time;
        bool lit;
        bool lowSun;
        std::shared_ptr<engine::Texture> palette;
        std::shared_ptr<engine::Texture> sky;
    };
    for (const Expected& e : {Expected{TimeOfDay::Day, true, false, t.texPaletteDay, t.texSkyDay},
                              Expected{TimeOfDay::Night, false, false, t.texPaletteNight, t.texSkyNight},
                              Expected{TimeOfDay::Sunrise, true, true, t.texPaletteSunrise, t.texSkySunrise},
                              Expected{TimeOfDay::Sunset, true, true, t.texPaletteSunset, t.texSkySunset}}) {
        scene.settings.timeOfDay = e.time;
        scene.animate();
        const auto name = toString(e.time);
        EXPECT_EQ(scene.commandStars->enabled, !e.lit) << name;
        EXPECT_EQ(scene.groupBirds->enabled, e.lit) << name;
        EXPECT_EQ(scene.groupShips->enabled, e.lit) << name;
        EXPECT_EQ(scene.groupAnimalsAnimated->enabled, e.lit) << name;
        EXPECT_EQ(scene.groupAnimalsSleeping->enabled, !e.lit) << name;
        EXPECT_EQ(scene.commandSun->enabled, !e.lowSun) << name;
        EXPECT_EQ(scene.commandSunLow->enabled, e.lowSun) << name;
        EXPECT_EQ(scene.uniformPaletteTexture->value, e.palette) << name;
        EXPECT_EQ(scene.uniformSkyTexture->value, e.sky) << name;
    }
    // Sunset keeps its birds although its record says not to draw them.
    EXPECT_FALSE(Colors::shared().COLORS[3].drawBirds);
}

TEST_F(NivalisFrame, ATimeOfDayOutsideTheCatalogueFailsTheFrame) {
    scene.settings.timeOfDay = static_cast<TimeOfDay>(4);
    EXPECT_THROW(scene.animate(), std::out_of_range);
}

TEST_F(NivalisFrame, ProjectionUsesTheLandscapeOrPortraitFieldOfView) {
    scene.animate();
    const double cot25 = 1.0 / std::tan(25.0 * kPi / 180.0);
    EXPECT_NEAR(scene.matProjection[5], cot25, 1e-4);
    EXPECT_NEAR(scene.matProjection[0], cot25 * 1080.0 / 1920.0, 1e-4);
    scene.updateViewportSize(1080, 1920);
    scene.animate();
    EXPECT_NEAR(scene.matProjection[5], 1.0 / std::tan(37.5 * kPi / 180.0), 1e-4);
}

TEST_F(NivalisFrame, ViewLooksFromThePathStartAtItsTarget) {
    scene.animate();
    const Matrix4 view = widen(scene.matView);
    const auto eye = apply(view, -20834.791, 47426.33, 2531.646);
    EXPECT_NEAR(eye[0], 0.0, 0.05);
    EXPECT_NEAR(eye[1], 0.0, 0.05);
    EXPECT_NEAR(eye[2], 0.0, 0.05);
    const double distance = std::sqrt(std::pow(-25922.844 + 20834.791, 2) + std::pow(23601.791 - 47426.33, 2) +
                                      std::pow(886.872 - 2531.646, 2));
    const auto target = apply(view, -25922.844, 23601.791, 886.872);
    EXPECT_NEAR(target[0], 0.0, 0.05);
    EXPECT_NEAR(target[1], 0.0, 0.05);
    EXPECT_NEAR(target[2], -distance, 0.1);
    // World Z is up on screen.
    EXPECT_GT(apply(view, -20834.791, 47426.33, 3531.646)[1], 0.0);
}

TEST_F(NivalisFrame, EveryDrawGetsProjectionTimesViewTimesModel) {
    frameAt({{Timers::BirdsFly, 0.25f}, {Timers::CloudsRotation, 0.25f}});
    const Matrix4 pv = multiply(widen(scene.matProjection), widen(scene.matView));
    // The water stands at the origin.
    expectMatrixNear(pv, floatsOf(sharpChild(7)->uniforms[0]));
    // Bird 3 after its quarter circle: (26000, 3000, 13000), heading 0, scale (6, 3, 3).
    const auto& bird = draw(scene.groupBirds, 3)->transform;
    expectMatrixNear(multiply(pv, placement(bird.translation.x, bird.translation.y, 13000.0, bird.rotation.z, 6, 3, 3)),
                     floatsOf(draw(scene.groupBirds, 3)->uniforms[0]), 1e-4);
    // The clouds turned by 90 degrees.
    expectMatrixNear(multiply(pv, placement(0, 0, 0, 90.0, 1, 1, 1)), floatsOf(scene.uniformsClouds[0]), 1e-4);
    // A penguin from its fixed model matrix.
    auto penguin = as<engine::commands::DrawStaticMeshCommand>(scene.groupPenguinsIdle->commands[4]);
    expectMatrixNear(multiply(pv, widen(penguin->modelMatrix)), floatsOf(penguin->uniforms[0]), 1e-4);
}

TEST_F(NivalisFrame, ExternalViewMatrixIsLeftAloneAndStillUsed) {
    scene.useExternalViewMatrix = true;
    scene.matView = {1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, -5000, 1};
    const auto before = scene.matView;
    scene.animate();
    EXPECT_EQ(scene.matView, before);
    expectMatrixNear(multiply(widen(scene.matProjection), widen(before)), floatsOf(sharpChild(7)->uniforms[0]));
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
