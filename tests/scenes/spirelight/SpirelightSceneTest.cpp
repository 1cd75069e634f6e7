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

TEST(SpirelightCatalogue, AssetsAndTimers) {
    EXPECT_EQ(Meshes::shared().meshes.size(), 9u);
    EXPECT_EQ(Meshes::shared().meshes.back()->fileName, "red-lights");
    const Textures& t = Textures::shared();
    ASSERT_EQ(t.textures.size(), 10u);
    for (const auto& texture : t.textures) {
        EXPECT_EQ(texture->format, engine::TextureFormat::ASTC);
        EXPECT_EQ(texture->type == engine::TextureType::CUBEMAP, texture == t.texBuildingsCubemap) << texture->name;
    }
    EXPECT_EQ(t.texBuildingsCubemap->fileName, "cubemaps/1/sky");
    // One letter apart, two shaders.
    EXPECT_EQ(Shaders::shared().shaders.size(), 8u);
    EXPECT_EQ(Shaders::shared().shaderPointSpritesColored->name, "PointSpritesColored");
    EXPECT_EQ(Shaders::shared().shaderPointSpriteColored->name, "PointSpriteColored");
    EXPECT_EQ(Cameras::shared().CAMERAS.size(), 5u);

    engine::timers::TimersMap timers;
    initializeTimers(timers);
    EXPECT_EQ(timers.size(), 2u);
    EXPECT_EQ(timers.params(Timers::Planes1).period, 80000.0f);
    EXPECT_EQ(timers.params(Timers::Planes2).period, 70000.0f);
}

class Spirelight : public ::testing::Test {
protected:
    SpirelightScene scene;

    void SetUp() override {
        engine::math::Random::seed(7);
        scene.updateViewportSize(1920, 1080);
    }

    std::shared_ptr<BlurredPassCommand> bloomPass() { return as<BlurredPassCommand>(children(scene.commands[0])[0]); }
    const std::vector<CommandPtr>& mainPass() { return children(children(scene.commands[0])[1]); }
    std::shared_ptr<BlurredPassCommand> blurredPass() { return as<BlurredPassCommand>(children(scene.commands[1])[0]); }
    std::shared_ptr<DrawMeshCommand> mainDraw(std::size_t index) { return as<DrawMeshCommand>(mainPass().at(index)); }
    std::shared_ptr<DrawTransformedMeshCommand> plane(std::size_t index) {
        return as<DrawTransformedMeshCommand>(mainPass().at(9 + index));
    }
};

TEST_F(Spirelight, SharpTreeDrawsTheBloomFirstThenTheCity) {
    ASSERT_EQ(scene.commands.size(), 2u);
    EXPECT_TRUE(scene.commands[0]->enabled);
    EXPECT_FALSE(scene.commands[1]->enabled);
    ASSERT_EQ(children(scene.commands[0]).size(), 2u);

    auto bloom = bloomPass();
    ASSERT_NE(bloom, nullptr);
    ASSERT_EQ(bloom->commands.size(), 2u);
    const auto& clearBloom = children(bloom->commands[0]);
    auto clearColorBloom = as<engine::commands::ClearColorCommand>(clearBloom.at(0));
    EXPECT_EQ(clearColorBloom->color, Vec4(0.0f, 0.0f, 0.0f, 1.0f));
    EXPECT_EQ(clearBloom.at(1)->type(), CommandType::CLEAR);
    const auto& glowing = children(bloom->commands[1]);
    ASSERT_EQ(glowing.size(), 3u);
    EXPECT_EQ(glowing[0], scene.commandBuildingsBloom);
    EXPECT_EQ(as<DrawMeshCommand>(glowing[1])->mesh, Meshes::shared().meshRedSprites);
    EXPECT_EQ(as<DrawMeshCommand>(glowing[2])->mesh, Meshes::shared().meshNeon);
    EXPECT_EQ(textureOf(as<DrawMeshCommand>(glowing[2])->uniforms[1]), Textures::shared().texNeon2);

    const auto& main = mainPass();
    EXPECT_EQ(children(scene.commands[0])[1]->type(), CommandType::MAIN_PASS);
    ASSERT_EQ(main.size(), 18u);
    auto clearColor = as<engine::commands::ClearColorCommand>(children(main[0]).at(0));
    EXPECT_EQ(clearColor->color, Vec4(0.0f, 10.0f / 255.0f, 20.0f / 255.0f, 1.0f));
    EXPECT_EQ(main[1], scene.commandBuildings);
    const Meshes& m = Meshes::shared();
    const std::vector<std::shared_ptr<engine::Mesh>> meshes{m.meshRed,     m.meshBuildingsDistant, m.meshBuildingsDistant,
                                                            m.meshIslands1, m.meshWater,           m.meshStars,
                                                            m.meshSky};
    for (std::size_t i = 0; i < meshes.size(); ++i) {
        EXPECT_EQ(mainDraw(2 + i)->mesh, meshes[i]) << i;
    }
    EXPECT_EQ(main[7], scene.commandStars);
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(plane(i)->mesh, nullptr);
    }
    EXPECT_EQ(mainDraw(15)->mesh, m.meshNeon);
    EXPECT_EQ(textureOf(mainDraw(15)->uniforms[1]), Textures::shared().texNeon);
    auto drawBloom = as<engine::commands::DrawBlurredCommand>(main[16]);
    EXPECT_EQ(drawBloom->id, 0);
    EXPECT_TRUE(drawBloom->blending->enabled);
    EXPECT_EQ(drawBloom->blending->sourceFactorColor, engine::BlendingFactor::ONE);
    EXPECT_EQ(drawBloom->blending->destinationFactorColor, engine::BlendingFactor::ONE);
    auto vignette = as<engine::commands::VignetteCommand>(main[17]);
    EXPECT_EQ(vignette->color0, Vec4(0.45f, 0.45f, 0.45f, 1.0f));
    EXPECT_EQ(vignette->color1, Vec4(1.0f, 1.0f, 1.0f, 1.0f));
}

TEST_F(Spirelight, BlurredTreeSharesNineNodesAndLeavesOutLampsStarsPlanesAndBloom) {
    auto pass = blurredPass();
    ASSERT_NE(pass, nullptr);
    const auto& main = mainPass();
    const std::vector<CommandPtr> expected{bloomPass()->commands[0], main[1], main[3], main[4], main[5],
                                           main[6],                  main[8], main[15], main[17]};
    EXPECT_EQ(pass->commands, expected);
    EXPECT_FALSE(contains(pass->commands, main[2].get()));
    EXPECT_FALSE(contains(pass->commands, scene.commandStars.get()));
    EXPECT_FALSE(contains(pass->commands, main[16].get()));

    const auto& blurredMain = children(scene.commands[1])[1];
    EXPECT_EQ(blurredMain->type(), CommandType::MAIN_PASS);
    ASSERT_EQ(children(blurredMain).size(), 2u);
    EXPECT_EQ(children(blurredMain)[0], main[0]);
    auto drawBlurred = as<engine::commands::DrawBlurredCommand>(children(blurredMain)[1]);
    EXPECT_EQ(drawBlurred->id, 0);
    EXPECT_FALSE(drawBlurred->blending->enabled);
}

TEST_F(Spirelight, DrawStatesBlendingDepthAndCulling) {
    const Shaders& s = Shaders::shared();
    const auto half3 = VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::HALF3, 0);
    const auto float3 = VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::FLOAT3, 0);

    const auto& building = *scene.commandBuildings->state;
    EXPECT_EQ(building.shader, s.shaderBuilding);
    EXPECT_EQ(scene.commandBuildingsBloom->state, scene.commandBuildings->state);
    EXPECT_FALSE(building.blending->enabled);
    EXPECT_EQ(*building.vertexAttributes,
              VertexAttributesDescriptor({half3, VertexAttribute(AttributeType::UV0, 1, VertexFormat::HALF2, 6),
                                          VertexAttribute(AttributeType::NORMAL, 2, VertexFormat::HALF3, 10)},
                                         16));
    EXPECT_EQ(mainDraw(2)->state->shader, s.shaderColor);
    EXPECT_EQ(*mainDraw(2)->state->vertexAttributes, VertexAttributesDescriptor({half3}, 8));
    // The distant buildings read signed bytes where their file holds unsigned ones; kept so.
    EXPECT_EQ(mainDraw(3)->state, mainDraw(4)->state);
    EXPECT_EQ(*mainDraw(3)->state->vertexAttributes,
              VertexAttributesDescriptor({half3, VertexAttribute(AttributeType::UV0, 1, VertexFormat::BYTE2_NORMALIZED, 6)}, 8));
    EXPECT_EQ(mainDraw(5)->state, mainDraw(6)->state);
    EXPECT_EQ(mainDraw(5)->state->shader, s.shaderColorFog);
    EXPECT_EQ(*scene.commandStars->state->vertexAttributes, VertexAttributesDescriptor({float3}, 12));
    EXPECT_EQ(mainDraw(8)->state->shader, s.shaderSkyDither);

    for (const auto& opaque : {mainDraw(1), mainDraw(2), mainDraw(3), mainDraw(5), mainDraw(7), mainDraw(8)}) {
        EXPECT_FALSE(opaque->state->blending->enabled);
        EXPECT_TRUE(opaque->state->depthMode->depthTest);
        EXPECT_TRUE(opaque->state->depthMode->depthWrite);
        EXPECT_EQ(opaque->state->culling, engine::CullFace::BACK);
    }
    // Additive light: test depth without writing it.
    const auto neon = mainDraw(15);
    const auto redLights = as<DrawMeshCommand>(children(bloomPass()->commands[1])[1]);
    for (const auto& light : {neon, redLights, as<DrawMeshCommand>(plane(0))}) {
        EXPECT_TRUE(light->state->blending->enabled);
        EXPECT_EQ(light->state->blending->sourceFactorColor, engine::BlendingFactor::ONE);
        EXPECT_EQ(light->state->blending->destinationFactorColor, engine::BlendingFactor::ONE);
        EXPECT_EQ(light->state->blending->sourceFactorAlpha, engine::BlendingFactor::ZERO);
        EXPECT_TRUE(light->state->depthMode->depthTest);
        EXPECT_FALSE(light->state->depthMode->depthWrite);
    }
    EXPECT_EQ(neon->state->culling, engine::CullFace::BACK);
    EXPECT_EQ(neon->state->shader, s.shaderDiffuse);
    EXPECT_EQ(redLights->state->culling, engine::CullFace::DISABLED);
    EXPECT_EQ(redLights->state->shader, s.shaderPointSpritesColored);
    EXPECT_EQ(redLights->primitiveType, engine::commands::PrimitiveType::POINTS);
    EXPECT_EQ(redLights->primitiveCount, -1);
    // The aircraft lights: one point each, no mesh and no vertex layout.
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(plane(i)->state, plane(0)->state);
        EXPECT_EQ(plane(i)->primitiveType, engine::commands::PrimitiveType::POINTS);
        EXPECT_EQ(plane(i)->primitiveCount, 1);
    }
    EXPECT_EQ(plane(0)->state->shader, s.shaderPointSpriteColored);
    EXPECT_EQ(plane(0)->state->vertexAttributes, nullptr);
    EXPECT_EQ(plane(0)->state->culling, engine::CullFace::DISABLED);
}

TEST_F(Spirelight, OnlyLampsAndStarsCarryTheCoarseHint) {
    const auto lamps = mainDraw(2);
    EXPECT_EQ(onlyRate(*lamps->hints), ShadingRate::SHADING_RATE_2X2);
    EXPECT_EQ(lamps->hints, scene.commandStars->hints);
    for (const auto& draw : allDraws(scene.commands)) {
        if (draw != lamps && draw != scene.commandStars) {
            EXPECT_TRUE(draw->hints->empty());
        }
    }
}

TEST_F(Spirelight, UniformsByPositionAndTheirSharing) {
    const Textures& t = Textures::shared();
    const auto& u = scene.commandBuildings->uniforms;
    ASSERT_EQ(u.size(), 12u);
    EXPECT_EQ(scene.commandBuildings->indexUniformMvp, 0);
    EXPECT_EQ(scene.commandBuildings->indexUniformModel, 1);
    EXPECT_EQ(scene.commandBuildings->indexUniformView, -1);
    EXPECT_EQ(floatsOf(u[4]).size(), 3u);
    EXPECT_EQ(textureOf(u[5]), t.texBuildingsDiffuse);
    EXPECT_EQ(textureOf(u[6]), t.texBuildingsEmission);
    EXPECT_EQ(textureOf(u[7]), t.texBuildingsCubemap);
    const auto& bloom = scene.commandBuildingsBloom->uniforms;
    EXPECT_EQ(floatsOf(bloom[8]), (std::vector<float>{0.0f, 0.0f, 0.0f, 1.0f}));
    EXPECT_EQ(floatsOf(bloom[9]), (std::vector<float>{0.0f, 0.0f, 0.0f, 1.0f}));
    EXPECT_EQ(floatsOf(bloom[10]), std::vector<float>{2.0f});
    EXPECT_NE(bloom[11], u[11]);

    // One fog, shared by the distant buildings, the islands and the water.
    const auto fogged = {mainDraw(3), mainDraw(4), mainDraw(5), mainDraw(6)};
    for (const auto& draw : fogged) {
        ASSERT_EQ(draw->uniforms.size(), 5u);
        EXPECT_EQ(draw->uniforms[2], mainDraw(3)->uniforms[2]);
        EXPECT_EQ(draw->uniforms[3], mainDraw(3)->uniforms[3]);
        EXPECT_EQ(draw->uniforms[4], mainDraw(3)->uniforms[4]);
    }
    EXPECT_EQ(textureOf(mainDraw(3)->uniforms[1]), t.texBuildingsDistant);
    EXPECT_EQ(textureOf(mainDraw(8)->uniforms[1]), t.texSky);
    EXPECT_EQ(textureOf(mainDraw(8)->uniforms[2]), t.texNoise);

    // The aircraft lights share all but their matrix.
    for (std::size_t i = 0; i < 6; ++i) {
        ASSERT_EQ(plane(i)->uniforms.size(), 4u);
        for (std::size_t k = 1; k < 4; ++k) {
            EXPECT_EQ(plane(i)->uniforms[k], plane(0)->uniforms[k]);
        }
        if (i > 0) {
            EXPECT_NE(plane(i)->uniforms[0], plane(0)->uniforms[0]);
        }
    }
    EXPECT_EQ(textureOf(plane(0)->uniforms[2]), t.texDust);
}

TEST_F(Spirelight, PlacementsAtScaleHundred) {
    expectMatrixNear(placement(0, 0, 0, 0, 100, 100, 100), scene.commandBuildings->modelMatrix);
    expectMatrixNear(placement(0, 0, 0, 180, 100, 100, 100), as<DrawStaticMeshCommand>(mainPass()[4])->modelMatrix);
    EXPECT_EQ(scene.commandStars->transform.scale, engine::math::Vec3(0.055f, 0.055f, 0.055f));
    const float heights[6] = {380, 400, 350, 450, 430, 500};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(plane(i)->transform.translation.z, heights[i]);
        EXPECT_EQ(plane(i)->transform.scale, engine::math::Vec3(100.0f, 100.0f, 100.0f));
    }
    EXPECT_FLOAT_EQ(scene.cameraAnimator.positionInterpolator.duration(), 29000.0f);
    EXPECT_EQ(scene.cameraAnimator.transitionDuration, 2000.0f);
    EXPECT_EQ(scene.cameraAnimator.currentCamera, 0);
}

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

TEST_F(Spirelight, SettingsReachTheTreeEachFrame) {
    scene.animate();
    // Defaults: lights full (uniform 11 is 0), the passes' extra blur on.
    EXPECT_EQ(floatsOf(scene.commandBuildings->uniforms[11])[0], 0.0f);
    EXPECT_TRUE(bloomPass()->additionalBlur);
    EXPECT_TRUE(blurredPass()->additionalBlur);

    scene.settings.lights = 0.25f;
    scene.settings.lowQuality = true;
    scene.settings.vignette = false;
    scene.settings.blurred = true;
    scene.animate();
    EXPECT_EQ(floatsOf(scene.commandBuildings->uniforms[11])[0], 0.75f);
    EXPECT_EQ(floatsOf(scene.commandBuildingsBloom->uniforms[11])[0], 0.75f);
    EXPECT_FALSE(bloomPass()->additionalBlur);
    EXPECT_FALSE(blurredPass()->additionalBlur);
    EXPECT_FALSE(mainPass()[17]->enabled);
    EXPECT_FALSE(blurredPass()->commands.back()->enabled);
    EXPECT_FALSE(scene.commands[0]->enabled);
    EXPECT_TRUE(scene.commands[1]->enabled);

    scene.settings.lights = 0.0f;
    scene.settings.blurred = false;
    scene.animate();
    EXPECT_EQ(floatsOf(scene.commandBuildings->uniforms[11])[0], 1.0f);
    EXPECT_TRUE(scene.commands[0]->enabled);
    EXPECT_FALSE(scene.commands[1]->enabled);
}

TEST_F(Spirelight, EyeReachesTheBuildingsAfterTheMatrices) {
    scene.cameraAnimator.positionInterpolator.setTimer(0.5);
    scene.animate();
    // Half way along path 0: the eye is the midpoint of its two positions.
    const std::vector<float> eye{(182.522f - 343.592f) / 2.0f, (451.945f + 309.3397f) / 2.0f,
                                 (100.427f + 121.102f) / 2.0f};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(floatsOf(scene.commandBuildings->uniforms[4])[i], eye[i], 1e-3f);
        EXPECT_NEAR(floatsOf(scene.commandBuildingsBloom->uniforms[4])[i], eye[i], 1e-3f);
    }
    // The towers get their model matrix too.
    expectMatrixNear(widen(scene.commandBuildings->modelMatrix), floatsOf(scene.commandBuildings->uniforms[1]));
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
