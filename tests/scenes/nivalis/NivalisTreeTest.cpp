// The Nivalis command tree as built: both trees and their shared nodes, child order, draw states,
// hints, uniform families and initial placements.

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "engine/SetUniform.h"
#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/ClearCommand.h"
#include "engine/commands/DrawBlurredCommand.h"
#include "engine/commands/DrawStaticMeshCommand.h"
#include "engine/commands/MainPassCommand.h"
#include "engine/commands/VignetteCommand.h"
#include "scenes/nivalis/Cameras.h"
#include "scenes/nivalis/Meshes.h"
#include "scenes/nivalis/NivalisScene.h"
#include "scenes/nivalis/Shaders.h"
#include "scenes/nivalis/Textures.h"
#include "tests/scenes/SceneTestSupport.h"

namespace {

using namespace scenes::nivalis;
using namespace scenes::testing;
using engine::AttributeType;
using engine::VertexAttribute;
using engine::VertexAttributesDescriptor;
using engine::VertexFormat;
using engine::commands::CommandType;
using engine::commands::DrawMeshCommand;
using engine::commands::DrawStaticMeshCommand;
using engine::commands::DrawTransformedMeshCommand;
using engine::commands::ShadingRate;

class NivalisTree : public ::testing::Test {
protected:
    NivalisScene scene;

    const std::vector<CommandPtr>& sharpMain() { return children(scene.sharpTree->commands[0]); }
    const std::vector<CommandPtr>& blurredChildren() { return scene.blurredPass->commands; }
    std::shared_ptr<DrawMeshCommand> drawAt(std::size_t index) { return as<DrawMeshCommand>(sharpMain()[index]); }
};

TEST_F(NivalisTree, TopLevelHoldsTheSharpTreeThenTheDisabledBlurredTree) {
    ASSERT_EQ(scene.commands.size(), 2u);
    EXPECT_EQ(scene.commands[0], scene.sharpTree);
    EXPECT_EQ(scene.commands[1], scene.blurredTree);
    EXPECT_TRUE(scene.sharpTree->enabled);
    EXPECT_FALSE(scene.blurredTree->enabled);
    ASSERT_EQ(scene.sharpTree->commands.size(), 1u);
    EXPECT_EQ(scene.sharpTree->commands[0]->type(), CommandType::MAIN_PASS);
    EXPECT_TRUE(scene.sharpTree->commands[0]->enabled);
}

TEST_F(NivalisTree, SharpMainPassHasTwelveChildrenInDrawingOrder) {
    const auto& main = sharpMain();
    ASSERT_EQ(main.size(), 12u);
    EXPECT_EQ(main[0], scene.clearGroup);
    EXPECT_EQ(main[1], scene.groupBirds);
    EXPECT_EQ(main[2], scene.groupShips);
    EXPECT_EQ(main[3], scene.groupAnimalsAnimated);
    EXPECT_EQ(main[4], scene.groupAnimalsSleeping);
    EXPECT_EQ(main[5]->name, "sun");
    EXPECT_EQ(children(main[5]), (std::vector<CommandPtr>{scene.commandSun, scene.commandSunLow}));
    EXPECT_EQ(main[6]->name, "mountains");
    EXPECT_EQ(as<DrawMeshCommand>(main[7])->mesh, Meshes::shared().meshWater);
    EXPECT_EQ(main[8], scene.commandStars);
    EXPECT_EQ(main[9], scene.commandClouds);
    EXPECT_EQ(as<DrawMeshCommand>(main[10])->mesh, Meshes::shared().meshSky);
    EXPECT_EQ(main[11], scene.vignette);

    const auto& mountains = children(main[6]);
    ASSERT_EQ(mountains.size(), 2u);
    EXPECT_EQ(as<DrawStaticMeshCommand>(mountains[0])->mesh, Meshes::shared().meshMountains1);
    EXPECT_EQ(as<DrawStaticMeshCommand>(mountains[1])->mesh, Meshes::shared().meshMountainsDistant);
    EXPECT_EQ(as<DrawMeshCommand>(mountains[0])->uniforms, scene.uniformsMountains);
    EXPECT_EQ(as<DrawMeshCommand>(mountains[1])->uniforms, scene.uniformsDistantMountains);
    EXPECT_NE(as<DrawStaticMeshCommand>(main[7]), nullptr);
    EXPECT_NE(as<DrawStaticMeshCommand>(main[10]), nullptr);
    EXPECT_EQ(as<DrawMeshCommand>(main[7])->uniforms, scene.uniformsWater);
}

TEST_F(NivalisTree, ClearsAndVignette) {
    ASSERT_EQ(scene.clearGroup->commands.size(), 2u);
    EXPECT_EQ(scene.clearGroup->commands[0], scene.clearColor);
    EXPECT_EQ(scene.clearColor->color, engine::math::Vec4(1.0f, 0.0f, 1.0f, 1.0f));
    auto clear = as<engine::commands::ClearCommand>(scene.clearGroup->commands[1]);
    ASSERT_NE(clear, nullptr);
    EXPECT_EQ(clear->clearType, engine::commands::ClearCommandClearType::COLOR_AND_DEPTH);
}

TEST_F(NivalisTree, BlurredTreeReusesTheSharpNodesWithoutBirds) {
    ASSERT_EQ(scene.blurredTree->commands.size(), 2u);
    EXPECT_EQ(scene.blurredTree->commands[0], scene.blurredPass);
    const auto& pass = *scene.blurredPass;
    EXPECT_EQ(pass.id, 0);
    EXPECT_FALSE(pass.additionalBlur);

    const auto& main = sharpMain();
    std::vector<CommandPtr> expected{main[0]};
    expected.insert(expected.end(), main.begin() + 2, main.end());
    EXPECT_EQ(pass.commands, expected);
    EXPECT_EQ(pass.commands.size(), 11u);
    EXPECT_FALSE(contains(pass.commands, scene.groupBirds.get()));

    const auto& blurredMain = children(scene.blurredTree->commands[1]);
    EXPECT_EQ(scene.blurredTree->commands[1]->type(), CommandType::MAIN_PASS);
    ASSERT_EQ(blurredMain.size(), 2u);
    EXPECT_EQ(blurredMain[0], scene.clearGroup);
    EXPECT_EQ(blurredMain[1], scene.drawBlurred);
    EXPECT_EQ(scene.drawBlurred->id, 0);
    EXPECT_FALSE(scene.drawBlurred->blending->enabled);
}

TEST_F(NivalisTree, SharedNodesChangeInBothTrees) {
    // The vignette is one object: switching it off takes it out of both trees.
    scene.vignette->enabled = false;
    const auto& main = sharpMain();
    EXPECT_FALSE(main[11]->enabled);
    EXPECT_FALSE(scene.blurredPass->commands[10]->enabled);

    // A uniform written through the sharp tree's water is what the blurred tree's water holds.
    auto sharpWater = as<DrawMeshCommand>(main[7]);
    auto blurredWater = as<DrawMeshCommand>(scene.blurredPass->commands[6]);
    ASSERT_NE(sharpWater, nullptr);
    EXPECT_EQ(sharpWater, blurredWater);
    engine::setUniform(sharpWater->uniforms[4], 42.0f);
    EXPECT_EQ(floatsOf(blurredWater->uniforms[4])[0], 42.0f);
}

TEST_F(NivalisTree, GroupsHoldTheirDrawsOfTheRightKind) {
    struct Expected {
        std::shared_ptr<engine::commands::GroupCommand> group;
        std::size_t count;
        bool isStatic;
        std::shared_ptr<engine::Mesh> mesh;
    };
    const Meshes& m = Meshes::shared();
    for (const Expected& e : {Expected{scene.groupBirds, 6, false, m.meshBird}, Expected{scene.groupShips, 3, false, m.meshShip},
                              Expected{scene.groupPenguinsIdle, 9, true, m.meshPenguinIdle},
                              Expected{scene.groupPenguinsIdle2, 6, true, m.meshPenguinIdle2},
                              Expected{scene.groupSealIdle, 8, true, m.meshSeal},
                              Expected{scene.groupSealWalking, 3, false, m.meshSeal},
                              Expected{scene.groupAnimalsSleeping, 1, true, m.meshAnimalsSleeping}}) {
        ASSERT_EQ(e.group->commands.size(), e.count);
        for (const auto& node : e.group->commands) {
            auto transformed = as<DrawTransformedMeshCommand>(node);
            ASSERT_NE(transformed, nullptr);
            EXPECT_EQ(as<DrawStaticMeshCommand>(node) != nullptr, e.isStatic);
            EXPECT_EQ(transformed->mesh, e.mesh);
        }
    }
    EXPECT_EQ(scene.groupAnimalsAnimated->commands,
              (std::vector<CommandPtr>{scene.groupPenguinsIdle, scene.groupPenguinsIdle2, scene.groupSealIdle,
                                       scene.groupSealWalking}));
}

TEST_F(NivalisTree, FortyFourOpaqueDrawsShareNineStates) {
    const auto draws = allDraws(scene.commands);
    ASSERT_EQ(draws.size(), 44u);
    std::set<const engine::commands::DrawMeshState*> states;
    for (const auto& draw : draws) {
        states.insert(draw->state.get());
        EXPECT_FALSE(draw->state->blending->enabled);
        EXPECT_TRUE(draw->state->depthMode->depthTest);
        EXPECT_TRUE(draw->state->depthMode->depthWrite);
        EXPECT_EQ(draw->state->culling, engine::CullFace::BACK);
        EXPECT_EQ(draw->primitiveType, engine::commands::PrimitiveType::TRIANGLES);
        EXPECT_EQ(draw->primitiveCount, -1);
        auto transformed = std::dynamic_pointer_cast<DrawTransformedMeshCommand>(draw);
        ASSERT_NE(transformed, nullptr);
        EXPECT_EQ(transformed->indexUniformMvp, 0);
        EXPECT_EQ(transformed->indexUniformModel, -1);
        EXPECT_EQ(transformed->indexUniformView, -1);
        EXPECT_EQ(transformed->indexUniformProjection, -1);
        EXPECT_EQ(floatsOf(draw->uniforms[0]).size(), 16u);
    }
    EXPECT_EQ(states.size(), 9u);
}

TEST_F(NivalisTree, StatesPairShadersWithTheirVertexLayouts) {
    const Shaders& s = Shaders::shared();
    const auto half3 = VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::HALF3, 0);
    const auto float3 = VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::FLOAT3, 0);
    const auto u0Half = VertexAttribute(AttributeType::U0, 1, VertexFormat::HALF, 6);

    // Birds: no vertex stream at all.
    auto bird = as<DrawMeshCommand>(scene.groupBirds->commands[0]);
    EXPECT_EQ(bird->state->shader, s.shaderAnimated);
    EXPECT_EQ(bird->state->vertexAttributes, nullptr);

    auto ship = as<DrawMeshCommand>(scene.groupShips->commands[0]);
    EXPECT_EQ(ship->state->shader, s.shaderPalette);
    EXPECT_EQ(*ship->state->vertexAttributes, VertexAttributesDescriptor({half3, u0Half}, 8));
    auto mountains = as<DrawMeshCommand>(children(sharpMain()[6])[0]);
    EXPECT_EQ(mountains->state, ship->state);

    auto penguin = as<DrawMeshCommand>(scene.groupPenguinsIdle->commands[0]);
    auto walkingSeal = as<DrawMeshCommand>(scene.groupSealWalking->commands[2]);
    EXPECT_EQ(penguin->state->shader, s.shaderAnimatedTextured);
    EXPECT_EQ(penguin->state, walkingSeal->state);
    EXPECT_EQ(*penguin->state->vertexAttributes,
              VertexAttributesDescriptor({VertexAttribute(AttributeType::UV0, 0, VertexFormat::HALF2, 0)}, 4));

    EXPECT_EQ(scene.commandSun->state->shader, s.shaderDiffuse);
    EXPECT_EQ(scene.commandSun->state, scene.commandSunLow->state);
    EXPECT_EQ(as<DrawMeshCommand>(scene.groupAnimalsSleeping->commands[0])->state, scene.commandSun->state);
    EXPECT_EQ(*scene.commandSun->state->vertexAttributes,
              VertexAttributesDescriptor({float3, VertexAttribute(AttributeType::UV0, 1, VertexFormat::HALF2, 12)}, 16));

    auto distant = as<DrawMeshCommand>(children(sharpMain()[6])[1]);
    EXPECT_EQ(distant->state->shader, s.shaderDiffuseZFog);
    EXPECT_EQ(*distant->state->vertexAttributes, VertexAttributesDescriptor({half3, u0Half}, 8));
    EXPECT_NE(distant->state, ship->state);

    auto water = drawAt(7);
    EXPECT_EQ(water->state->shader, s.shaderCausticsWater);
    EXPECT_EQ(*water->state->vertexAttributes,
              VertexAttributesDescriptor({half3, VertexAttribute(AttributeType::UV0, 1, VertexFormat::HALF2, 6)}, 12));

    EXPECT_EQ(scene.commandStars->state->shader, s.shaderColor);
    EXPECT_EQ(*scene.commandStars->state->vertexAttributes, VertexAttributesDescriptor({float3}, 12));

    EXPECT_EQ(scene.commandClouds->state->shader, s.shaderCloud);
    EXPECT_EQ(*scene.commandClouds->state->vertexAttributes,
              VertexAttributesDescriptor(
                  {float3, VertexAttribute(AttributeType::U0, 1, VertexFormat::UBYTE_NORMALIZED, 12)}, 16));

    auto sky = drawAt(10);
    EXPECT_EQ(sky->state->shader, s.shaderSkyDither);
    EXPECT_EQ(*sky->state->vertexAttributes,
              VertexAttributesDescriptor({float3, VertexAttribute(AttributeType::UV0, 1, VertexFormat::HALF2, 12)}, 16));
}

TEST_F(NivalisTree, EveryDrawButWaterAndSkyCarriesTheCoarseHint) {
    ASSERT_NE(scene.coarseShadingHints, nullptr);
    EXPECT_EQ(onlyRate(*scene.coarseShadingHints), ShadingRate::SHADING_RATE_4X4);
    const auto water = drawAt(7);
    const auto sky = drawAt(10);
    for (const auto& draw : allDraws(scene.commands)) {
        if (draw == water || draw == sky) {
            EXPECT_TRUE(draw->hints->empty());
            EXPECT_NE(draw->hints, scene.coarseShadingHints);
        } else {
            EXPECT_EQ(draw->hints, scene.coarseShadingHints) << draw->mesh->name;
        }
    }
}

TEST_F(NivalisTree, UniformFamiliesByPosition) {
    const Textures& t = Textures::shared();
    const auto sizes = [](const DrawMeshCommand& draw) {
        std::vector<int> result;
        for (const auto& uniform : draw.uniforms) {
            if (auto f = std::dynamic_pointer_cast<engine::commands::UniformFloatValue>(uniform)) {
                result.push_back(static_cast<int>(f->value.size()));
            } else if (auto i = std::dynamic_pointer_cast<engine::commands::UniformIntValue>(uniform)) {
                result.push_back(-static_cast<int>(i->value.size()));
            } else {
                result.push_back(0);  // a texture
            }
        }
        return result;
    };
    // Floats by count, integers negated, textures as 0.
    EXPECT_EQ(sizes(*as<DrawMeshCommand>(scene.groupBirds->commands[3])), (std::vector<int>{16, 4, -1, 1, 0, 4}));
    EXPECT_EQ(sizes(*as<DrawMeshCommand>(scene.groupSealIdle->commands[0])), (std::vector<int>{16, 0, -1, 1, 0, 4}));
    EXPECT_EQ(sizes(*as<DrawMeshCommand>(scene.groupShips->commands[0])), (std::vector<int>{16, 0}));
    EXPECT_EQ(sizes(*scene.commandSun), (std::vector<int>{16, 0}));
    EXPECT_EQ(sizes(*as<DrawMeshCommand>(children(sharpMain()[6])[1])), (std::vector<int>{16, 0, 4, 2}));
    EXPECT_EQ(sizes(*drawAt(7)), (std::vector<int>{16, 0, 1, 1, 1, 2, 4, 4, 4}));
    EXPECT_EQ(sizes(*scene.commandStars), (std::vector<int>{16, 4}));
    EXPECT_EQ(sizes(*scene.commandClouds), (std::vector<int>{16, 4, 1}));
    EXPECT_EQ(sizes(*drawAt(10)), (std::vector<int>{16, 0, 0}));

    // Textures by position.
    EXPECT_EQ(textureOf(drawAt(7)->uniforms[1]), t.texWater);
    EXPECT_EQ(drawAt(10)->uniforms[1], scene.uniformSkyTexture);
    EXPECT_EQ(textureOf(drawAt(10)->uniforms[2]), t.texNoise);
    EXPECT_EQ(textureOf(as<DrawMeshCommand>(scene.groupBirds->commands[0])->uniforms[4]), t.texBird);
    EXPECT_EQ(textureOf(as<DrawMeshCommand>(scene.groupSealWalking->commands[0])->uniforms[4]), t.texSealWalk);
    EXPECT_EQ(textureOf(as<DrawMeshCommand>(scene.groupSealIdle->commands[0])->uniforms[4]), t.texSealIdle);
    EXPECT_EQ(textureOf(scene.uniformPaletteTexture), t.texPaletteDay);
    EXPECT_EQ(textureOf(scene.uniformSkyTexture), t.texSkyDay);

    // The second penguin texture reaches its six draws although its name is the first one's.
    for (const auto& node : scene.groupPenguinsIdle2->commands) {
        EXPECT_EQ(textureOf(as<DrawMeshCommand>(node)->uniforms[4]), t.texPenguinIdle2);
    }
    for (const auto& node : scene.groupPenguinsIdle->commands) {
        EXPECT_EQ(textureOf(as<DrawMeshCommand>(node)->uniforms[4]), t.texPenguinIdle);
    }
}

TEST_F(NivalisTree, OnePaletteUniformServesEveryPaletteDraw) {
    std::size_t users = 0;
    for (const auto& draw : allDraws(scene.commands)) {
        if (draw->uniforms.size() > 1 && draw->uniforms[1] == scene.uniformPaletteTexture) {
            ++users;
        }
    }
    // Ships 3, penguins 15, seals 11, sleeping 1, suns 2, mountains 2.
    EXPECT_EQ(users, 34u);
    // Each draw owns its matrix.
    std::set<const engine::commands::UniformValue*> matrices;
    for (const auto& draw : allDraws(scene.commands)) {
        matrices.insert(draw->uniforms[0].get());
    }
    EXPECT_EQ(matrices.size(), 44u);
}

TEST_F(NivalisTree, InitialPlacements) {
    for (std::size_t i = 0; i < 6; ++i) {
        const auto& transform = as<DrawTransformedMeshCommand>(scene.groupBirds->commands[i])->transform;
        EXPECT_EQ(transform.translation, engine::math::Vec3(0.0f, 0.0f, 10000.0f + 1000.0f * static_cast<float>(i)));
        EXPECT_EQ(transform.scale, engine::math::Vec3(6.0f, 3.0f, 3.0f));
        EXPECT_EQ(transform.rotation, engine::math::Vec3(0.0f, 0.0f, 0.0f));
    }
    for (const auto& node : scene.groupShips->commands) {
        EXPECT_EQ(as<DrawTransformedMeshCommand>(node)->transform, engine::commands::AffineTranformation());
    }
    EXPECT_EQ(scene.commandClouds->transform, engine::commands::AffineTranformation());

    // Penguin 0 of the first group: (-10793.156, 7192.894, 37.26), turned by -160 degrees, scale 0.88.
    auto penguin = as<DrawStaticMeshCommand>(scene.groupPenguinsIdle->commands[0]);
    expectMatrixNear(placement(-10793.156, 7192.894, 37.26, -160.0, 0.88, 0.88, 0.88), penguin->modelMatrix);
    // Idle seal 3: (-8848.467, -10551.67, 163.703), turned by 270 degrees, scale 23.
    auto seal = as<DrawStaticMeshCommand>(scene.groupSealIdle->commands[3]);
    expectMatrixNear(placement(-8848.467, -10551.67, 163.703, 270.0, 23.0, 23.0, 23.0), seal->modelMatrix);
    // The rest stand at the origin unscaled.
    expectMatrixNear(placement(0, 0, 0, 0, 1, 1, 1), scene.commandSun->modelMatrix);
    expectMatrixNear(placement(0, 0, 0, 0, 1, 1, 1), scene.commandStars->modelMatrix);
}

TEST_F(NivalisTree, CameraStartsOnPathZeroFromItsBeginning) {
    EXPECT_EQ(scene.meshes, Meshes::shared().meshes);
    EXPECT_EQ(scene.shaders, Shaders::shared().shaders);
    const auto& animator = scene.cameraAnimator;
    EXPECT_EQ(animator.cameras, Cameras::shared().CAMERAS);
    EXPECT_EQ(animator.currentCamera, 0);
    EXPECT_EQ(animator.timer(), 0.0f);
    EXPECT_EQ(animator.minDurationCoefficient, 1.0f);
    // Every path is short against the speed, so it takes its minimum time.
    EXPECT_FLOAT_EQ(animator.positionInterpolator.duration(), 23000.0f);
    EXPECT_EQ(animator.positionInterpolator.cameraPosition, engine::math::Vec3(-20834.791f, 47426.33f, 2531.646f));
    EXPECT_EQ(animator.positionInterpolator.cameraRotation, engine::math::Vec3(-25922.844f, 23601.791f, 886.872f));
}

} // namespace
