#include "tools/render/SceneSetup.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>

#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "scenes/nivalis/Meshes.h"

#include "scenes/betonia/BetoniaScene.h"
#include "scenes/example/ExampleScene.h"
#include "scenes/nivalis/NivalisScene.h"
#include "scenes/spirelight/SpirelightScene.h"

namespace tools::render {
namespace {

RenderOptions options(std::vector<std::string> arguments) { return RenderOptions::parse(arguments); }

std::string errorOf(engine::Scene& scene, std::vector<std::string> arguments) {
    try {
        SceneSetup::apply(scene, options(std::move(arguments)));
    } catch (const std::invalid_argument& e) {
        return e.what();
    }
    return "(no error)";
}

std::string errorOfHiding(engine::Scene& scene, std::vector<std::string> arguments) {
    try {
        SceneSetup::hide(scene, options(std::move(arguments)));
    } catch (const std::invalid_argument& e) {
        return e.what();
    }
    return "(no error)";
}

TEST(SceneSetupTest, MakesEachSceneByName) {
    EXPECT_NE(dynamic_cast<scenes::nivalis::NivalisScene*>(SceneSetup::create("nivalis").get()), nullptr);
    EXPECT_NE(dynamic_cast<scenes::betonia::BetoniaScene*>(SceneSetup::create("betonia").get()), nullptr);
    EXPECT_NE(dynamic_cast<scenes::example::ExampleScene*>(SceneSetup::create("example").get()), nullptr);
    EXPECT_NE(dynamic_cast<scenes::spirelight::SpirelightScene*>(SceneSetup::create("spirelight").get()), nullptr);
    EXPECT_THROW(SceneSetup::create("harbour"), std::invalid_argument);
    EXPECT_EQ(SceneSetup::resourcesRoot("nivalis"), "nivalis");
}

TEST(SceneSetupTest, WritesNivalisSettingsAndTimeOfDay) {
    scenes::nivalis::NivalisScene scene;
    SceneSetup::apply(scene, options({"--time-of-day", "sunset", "--set", "vignette=false", "--set", "blurred=true",
                                      "--set", "lowQuality=1"}));
    EXPECT_EQ(scene.settings.timeOfDay, scenes::nivalis::TimeOfDay::Sunset);
    EXPECT_FALSE(scene.settings.vignette);
    EXPECT_TRUE(scene.settings.blurred);
    EXPECT_TRUE(scene.settings.lowQuality);
    // Neither camera nor progress asked for: the scene keeps cutting by itself.
    EXPECT_TRUE(scene.settings.autoSwitchCameras);
}

TEST(SceneSetupTest, TheTimeOfDayOptionWinsOverASettingsField) {
    scenes::nivalis::NivalisScene scene;
    SceneSetup::apply(scene, options({"--set", "timeOfDay=NIGHT", "--time-of-day", "sunrise"}));
    EXPECT_EQ(scene.settings.timeOfDay, scenes::nivalis::TimeOfDay::Sunrise);
    SceneSetup::apply(scene, options({"--set", "timeOfDay=night"}));
    EXPECT_EQ(scene.settings.timeOfDay, scenes::nivalis::TimeOfDay::Night);
}

TEST(SceneSetupTest, PutsTheCameraOnThePathAndKeepsItThereThroughTheFirstFrame) {
    scenes::nivalis::NivalisScene scene;
    SceneSetup::apply(scene, options({"--camera", "3", "--path-at", "0.5", "--set", "cameraPeriod=2"}));
    EXPECT_EQ(scene.cameraAnimator.currentCamera, 3);
    EXPECT_FALSE(scene.settings.autoSwitchCameras);
    EXPECT_FLOAT_EQ(scene.cameraAnimator.minDurationCoefficient, 2.0f);
    // Half way along path 3, eased symmetrically: the middle of its start and end eyes,
    // (1058.602, -6343.349, 7252.608) and (10627.578, -5523.65, 952.352).
    scene.updateViewportSize(320, 180);
    scene.updateTimers(60000.0);
    const auto& eye = scene.cameraAnimator.positionInterpolator.cameraPosition;
    EXPECT_NEAR(eye.x, 5843.09f, 0.5f);
    EXPECT_NEAR(eye.y, -5933.4995f, 0.5f);
    EXPECT_NEAR(eye.z, 4102.48f, 0.5f);
    EXPECT_EQ(scene.cameraAnimator.currentCamera, 3);
}

TEST(SceneSetupTest, ProgressAloneStaysOnTheFirstPath) {
    scenes::nivalis::NivalisScene scene;
    SceneSetup::apply(scene, options({"--path-at", "1"}));
    EXPECT_EQ(scene.cameraAnimator.currentCamera, 0);
    EXPECT_FLOAT_EQ(scene.cameraAnimator.timer(), 1.0f);
    EXPECT_FALSE(scene.settings.autoSwitchCameras);
}

TEST(SceneSetupTest, WhatAnyOneSceneLacksIsAnErrorThatNamesIt) {
    scenes::nivalis::NivalisScene nivalis;
    EXPECT_EQ(errorOf(nivalis, {"--camera", "9"}), "Scene nivalis has no camera path 9 (paths 0 to 8)");
    EXPECT_EQ(errorOf(nivalis, {"--time-of-day", "dawn"}),
              "Scene nivalis has no time of day 'dawn' (day, night, sunrise, sunset)");
    EXPECT_EQ(errorOf(nivalis, {"--set", "vignette=maybe"}),
              "Invalid value 'maybe' for setting vignette: expected true or false");
    EXPECT_EQ(errorOf(nivalis, {"--set", "cameraPeriod=fast"}),
              "Invalid value 'fast' for setting cameraPeriod: expected a number");
    EXPECT_NE(errorOf(nivalis, {"--set", "colorMode=Sepia"}).find("Scene nivalis has no setting colorMode"),
              std::string::npos);
    EXPECT_NE(errorOf(nivalis, {"--set", "timeOfDay=noon"}).find("one of Day, Night, Sunrise, Sunset"),
              std::string::npos);

    scenes::betonia::BetoniaScene betonia;
    EXPECT_EQ(errorOf(betonia, {"--time-of-day", "day"}), "Scene betonia has no time of day");
    scenes::example::ExampleScene example;
    EXPECT_EQ(errorOf(example, {"--set", "vignette=false"}), "Scene example has no setting vignette (it has no settings)");
    EXPECT_EQ(errorOf(example, {"--camera", "7"}), "Scene example has no camera path 7 (paths 0 to 6)");
}

TEST(SceneSetupTest, WritesBetoniaSettingsAndItsCamera) {
    scenes::betonia::BetoniaScene scene;
    SceneSetup::apply(scene, options({"--set", "colorMode=sepia", "--set", "clock=true", "--camera", "2"}));
    EXPECT_EQ(scene.settings.colorMode, engine::common::ColorMode::Sepia);
    EXPECT_TRUE(scene.settings.clock);
    EXPECT_FALSE(scene.settings.autoSwitchCameras);
    EXPECT_EQ(scene.cameraAnimator.currentCamera, 2);
}

// How often each node stands in a list of the tree, counting every list it stands in.
std::map<const engine::commands::Command*, int> places(const engine::Scene& scene) {
    std::map<const engine::commands::Command*, int> count;
    std::set<const engine::commands::GroupCommand*> walked;
    std::function<void(const engine::Scene::CommandList&)> walk = [&](const engine::Scene::CommandList& list) {
        for (const auto& node : list) {
            ++count[node.get()];
            const auto* group = dynamic_cast<const engine::commands::GroupCommand*>(node.get());
            if (group && walked.insert(group).second) {
                walk(group->commands);
            }
        }
    };
    walk(scene.commands);
    return count;
}

const engine::commands::Command* drawOf(const engine::Scene& scene, const std::shared_ptr<engine::Mesh>& mesh) {
    for (const auto& [node, n] : places(scene)) {
        const auto* draw = dynamic_cast<const engine::commands::DrawMeshCommand*>(node);
        if (draw && draw->mesh == mesh) {
            return node;
        }
    }
    return nullptr;
}

const engine::commands::Command* groupNamed(const engine::Scene& scene, const std::string& name) {
    for (const auto& [node, n] : places(scene)) {
        if (node && node->name == name && dynamic_cast<const engine::commands::GroupCommand*>(node)) {
            return node;
        }
    }
    return nullptr;
}

TEST(SceneSetupTest, HidingTakesAPartOutOfEveryListAndLeavesTheRest) {
    scenes::nivalis::NivalisScene scene;
    const auto& meshes = scenes::nivalis::Meshes::shared();
    const auto before = places(scene);
    // The sharp pass and the blurred pass both hold ships, animals, terrain, water and sky; the
    // birds only fly in the sharp one.
    const auto* mountains = groupNamed(scene, "mountains");
    const auto* water = drawOf(scene, meshes.meshWater);
    const auto* sky = drawOf(scene, meshes.meshSky);
    ASSERT_NE(mountains, nullptr);
    ASSERT_NE(water, nullptr);
    ASSERT_NE(sky, nullptr);
    EXPECT_EQ(before.at(scene.groupShips.get()), 2);
    EXPECT_EQ(before.at(water), 2);
    EXPECT_EQ(before.at(scene.groupBirds.get()), 1);

    SceneSetup::hide(scene, options({"--hide", "ships", "--hide", "animals", "--hide", "mountains", "--hide",
                                     "water"}));
    auto after = places(scene);
    for (const auto* gone : {static_cast<const engine::commands::Command*>(scene.groupShips.get()),
                             static_cast<const engine::commands::Command*>(scene.groupAnimalsAnimated.get()),
                             static_cast<const engine::commands::Command*>(scene.groupAnimalsSleeping.get()),
                             mountains, water}) {
        EXPECT_EQ(after.count(gone), 0u);
    }
    // Whatever stood below a hidden group goes with it; everything else keeps its places.
    EXPECT_EQ(after.count(scene.groupPenguinsIdle.get()), 0u);
    for (const auto* kept : {static_cast<const engine::commands::Command*>(scene.groupBirds.get()),
                             static_cast<const engine::commands::Command*>(scene.commandClouds.get()),
                             static_cast<const engine::commands::Command*>(scene.commandStars.get()),
                             static_cast<const engine::commands::Command*>(scene.commandSun.get()),
                             static_cast<const engine::commands::Command*>(scene.vignette.get()), sky}) {
        EXPECT_EQ(after[kept], before.at(kept));
    }

    // The frames rewrite the flags of the hidden nodes, but never put them back.
    scene.updateViewportSize(320, 180);
    scene.updateTimers(60000.0);
    scene.updateTimers(61000.0);
    EXPECT_EQ(places(scene).count(scene.groupShips.get()), 0u);
    EXPECT_EQ(drawOf(scene, meshes.meshWater), nullptr);

    // Again, and with the rest: no harm, and nothing of the named parts remains.
    SceneSetup::hide(scene, options({"--hide", "water", "--hide", "birds", "--hide", "sky", "--hide", "clouds",
                                     "--hide", "stars", "--hide", "sun"}));
    after = places(scene);
    EXPECT_EQ(after.count(scene.groupBirds.get()), 0u);
    EXPECT_EQ(after.count(scene.commandClouds.get()), 0u);
    EXPECT_EQ(after.count(scene.commandStars.get()), 0u);
    EXPECT_EQ(after.count(scene.commandSun.get()), 0u);
    EXPECT_EQ(after.count(scene.commandSunLow.get()), 0u);
    EXPECT_EQ(after.count(sky), 0u);
    EXPECT_EQ(after[scene.vignette.get()], before.at(scene.vignette.get()));
    EXPECT_EQ(after[scene.clearGroup.get()], before.at(scene.clearGroup.get()));
}

TEST(SceneSetupTest, OnlyNivalisHasPartsToHide) {
    scenes::betonia::BetoniaScene betonia;
    EXPECT_EQ(errorOfHiding(betonia, {"--scene", "betonia", "--hide", "ships"}),
              "Scene betonia has no parts to hide (only nivalis has)");
    scenes::example::ExampleScene example;
    EXPECT_EQ(errorOfHiding(example, {"--scene", "example", "--hide", "water"}),
              "Scene example has no parts to hide (only nivalis has)");
    EXPECT_EQ(errorOfHiding(example, {"--scene", "example"}), "(no error)");

    // A name that did not come through the parser is refused too.
    scenes::nivalis::NivalisScene nivalis;
    RenderOptions odd;
    odd.hide = {"penguins"};
    EXPECT_THROW(SceneSetup::hide(nivalis, odd), std::invalid_argument);
}

} // namespace
} // namespace tools::render
