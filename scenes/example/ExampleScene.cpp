#include "scenes/example/ExampleScene.h"

#include <algorithm>
#include <cmath>

#include "engine/Blending.h"
#include "engine/CullFace.h"
#include "engine/DepthMode.h"
#include "engine/SetUniform.h"
#include "engine/VertexAttributesDescriptor.h"
#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/ClearCommand.h"
#include "engine/commands/DrawTransformedMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/NoopCommand.h"
#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/UniformIntValue.h"
#include "engine/commands/UniformTextureValue.h"
#include "scenes/common/FrameCycle.h"
#include "scenes/common/TreeParts.h"
#include "scenes/example/Cameras.h"
#include "scenes/example/Meshes.h"
#include "scenes/example/Shaders.h"
#include "scenes/example/Textures.h"
#include "scenes/example/Timers.h"

namespace scenes::example {

using engine::AttributeType;
using engine::VertexAttribute;
using engine::VertexFormat;
using engine::commands::AffineTranformation;
using engine::commands::Command;
using engine::commands::DrawMeshCommand;
using engine::commands::DrawMeshState;
using engine::commands::DrawTransformedMeshCommand;
using engine::commands::GroupCommand;
using engine::commands::PrimitiveType;
using engine::commands::UniformFloatValue;
using engine::math::Vec4;

namespace {

using Parts = common::TreeParts;

std::shared_ptr<UniformFloatValue> color(const Vec4& value) { return Parts::floats({value.x, value.y, value.z, value.w}); }

/// The animal's colour.
constexpr Vec4 ANIMAL_COLOR{0.1640625f, 0.1484375f, 0.1171875f, 1.0f};

} // namespace

ExampleScene::ExampleScene()
    : timers(), cameraAnimator(kCameraSpeed, kCameraMinDuration, kCameraTransitionDuration, true) {
    meshes = Meshes::shared().meshes;
    textures = Textures::shared().textures;
    shaders = Shaders::shared().shaders;

    FOV_LANDSCAPE = 35.0f;
    FOV_PORTRAIT = 60.0f;
    Z_NEAR = 50.0f;
    Z_FAR = 10000.0f;

    initializeTimers(timers);

    const auto& cameras = Cameras::shared().CAMERAS;
    cameraAnimator.setCameras(std::vector<std::shared_ptr<engine::camera::CameraPositionPair>>(cameras.begin(),
                                                                                                cameras.end()),
                              false);
    cameraAnimator.setMinDurationCoefficient(2.0f);

    buildTree();
}

void ExampleScene::buildTree() {
    const Meshes& m = Meshes::shared();
    const Textures& t = Textures::shared();
    const Shaders& s = Shaders::shared();

    const auto colorLayout = std::make_shared<engine::VertexAttributesDescriptor>(
        std::vector{VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::HALF3, 0)}, 8);
    const auto stateColor = std::make_shared<DrawMeshState>(s.shaderColor, engine::BLENDING_NONE,
                                                            engine::DEPTH_TEST_ENABLED, engine::CullFace::BACK, colorLayout);
    const auto stateWater = std::make_shared<DrawMeshState>(s.shaderColor, engine::BLENDING_NONE, engine::DEPTH_NO_WRITE,
                                                            engine::CullFace::BACK, colorLayout);
    const auto stateWaterHighlights = std::make_shared<DrawMeshState>(
        s.shaderWater, engine::BLENDING_NONE, engine::DEPTH_TEST_ENABLED, engine::CullFace::BACK, colorLayout);
    const auto stateAnimated = std::make_shared<DrawMeshState>(
        s.shaderAnimated, engine::BLENDING_NONE, engine::DEPTH_TEST_ENABLED, engine::CullFace::BACK, nullptr);
    const auto stateDiffuse = std::make_shared<DrawMeshState>(
        s.shaderDiffuse, engine::BLENDING_NONE, engine::DEPTH_TEST_ENABLED, engine::CullFace::BACK,
        std::make_shared<engine::VertexAttributesDescriptor>(
            std::vector{VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::HALF3, 0),
                        VertexAttribute(AttributeType::UV0, 1, VertexFormat::HALF2, 6)},
            12));

    const auto draw = [](const std::shared_ptr<engine::Mesh>& mesh, UniformList uniforms,
                         const std::shared_ptr<DrawMeshState>& state) {
        return std::make_shared<DrawTransformedMeshCommand>(mesh, std::move(uniforms), state, AffineTranformation(), 0,
                                                            -1, -1, -1, PrimitiveType::TRIANGLES);
    };
    const auto colored = [&](const std::shared_ptr<engine::Mesh>& mesh, const Vec4& value) {
        return draw(mesh, UniformList{Parts::matrix(), color(value)}, stateColor);
    };

    auto clearColor = std::make_shared<engine::commands::ClearColorCommand>();
    clearColor->name = "clear color";
    clearColor->color = Vec4(0.55859375f, 0.7578125f, 0.87890625f, 1.0f);
    auto clearGroup = std::make_shared<GroupCommand>(
        true, std::vector<std::shared_ptr<Command>>{clearColor, std::make_shared<engine::commands::ClearCommand>()});

    uniformsAnimated = UniformList{Parts::matrix(),
                                   color(Vec4(0.0f, 0.0f, 0.0f, 0.0f)),
                                   std::make_shared<engine::commands::UniformIntValue>(std::vector<std::int32_t>{0}),
                                   Parts::floats({0.0f}),
                                   std::make_shared<engine::commands::UniformTextureValue>(t.texFp16),
                                   Parts::floats({0.0f, 0.0f, 0.0f, 0.0f})};
    auto animal = std::make_shared<DrawMeshCommand>(m.meshAlpaca, uniformsAnimated, stateAnimated,
                                                    PrimitiveType::TRIANGLES, -1);

    auto hill = Parts::namedGroup("hill", {colored(m.meshCenterRockBright, Vec4(0.37890625f, 0.375f, 0.33984375f, 1.0f)),
                                    colored(m.meshCenterRockDark, Vec4(0.26953125f, 0.265625f, 0.23828125f, 1.0f))});
    auto grounds = Parts::namedGroup("grounds", {colored(m.meshGround1, Vec4(0.15625f, 0.359375f, 0.25390625f, 1.0f)),
                                          colored(m.meshHills, Vec4(0.08984375f, 0.26953125f, 0.23828125f, 1.0f)),
                                          colored(m.meshGround2, Vec4(0.33203125f, 0.578125f, 0.62890625f, 1.0f))});
    auto mountains =
        Parts::namedGroup("mountains", {colored(m.meshMountainsBright, Vec4(0.55078125f, 0.703125f, 0.77734375f, 1.0f)),
                                 colored(m.meshMountainsDark, Vec4(0.42578125f, 0.62890625f, 0.73828125f, 1.0f))});

    uniformsWaterHighlights = UniformList{Parts::matrix(), color(Vec4(0.74609375f, 0.85546875f, 0.921875f, 1.0f)), Parts::floats({0.0f})};
    auto water = Parts::namedGroup(
        "water", {draw(m.meshWater, UniformList{Parts::matrix(), color(Vec4(0.55859375f, 0.7578125f, 0.81640625f, 1.0f))},
                       stateWater),
                  draw(m.meshWaterHighlights, uniformsWaterHighlights, stateWaterHighlights)});

    const Vec4 skyColor(0.99609375f, 0.99609375f, 0.86328125f, 1.0f);
    auto sun = colored(m.meshSun, skyColor);
    sun->enabled = false;
    auto stars = colored(m.meshStars, skyColor);
    stars->enabled = false;
    auto skyObjects = Parts::namedGroup("sky objects", {sun, colored(m.meshSunSmall, skyColor), stars});

    uniformsDiffuseTest =
        UniformList{Parts::matrix(), std::make_shared<engine::commands::UniformTextureValue>(t.texStatic)};
    auto testModel = std::make_shared<DrawMeshCommand>(m.meshStatic, uniformsDiffuseTest, stateDiffuse,
                                                       PrimitiveType::TRIANGLES, -1);

    commands = {std::make_shared<engine::commands::NoopCommand>(),
                clearGroup,
                animal,
                hill,
                grounds,
                mountains,
                water,
                Parts::namedGroup("birds", {}),
                Parts::namedGroup("clouds", {}),
                skyObjects,
                Parts::namedGroup("shooting stars", {}),
                testModel};
}

void ExampleScene::initialize() {}

void ExampleScene::updateTimers(double time) { common::runFrame(*this, time); }

void ExampleScene::animate() {
    calculateProjection(1.0f, viewportWidth, viewportHeight);
    lookAt(cameraAnimator.positionInterpolator.cameraPosition,
           cameraAnimator.positionInterpolator.cameraRotation);
    updateMeshTransformations(commands);

    calculateMVPMatrix(0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 8.0f, 8.0f, 8.0f);
    engine::setUniform(uniformsDiffuseTest[0], matMVP);

    // The animal plays through 1/1.1 of the period and rests in its first pose for the remainder.
    const float scaled = timers.get(Timers::AnimalAnimation) * 1.1f;
    const float t = std::isnan(scaled) ? scaled : std::min(scaled, 1.0f);
    calculateMVPMatrix(1.554f, -0.796f, -2.327f, 0.0f, 0.0f, 0.0f, 0.4f, 0.4f, 0.4f);
    engine::setUniform(uniformsAnimated[0], matMVP);
    engine::setUniform(uniformsAnimated[1], ANIMAL_COLOR);
    engine::setUniform(uniformsAnimated[2], static_cast<std::int32_t>(animationAnimal.textureWidth()));
    engine::setUniform(uniformsAnimated[3], 1.0f / static_cast<float>(animationAnimal.textureHeight()));
    engine::setUniform(uniformsAnimated[5], static_cast<float>(animationAnimal.textureWidth()),
                       animationAnimal.texelHalfWidth(), animationAnimal.animateStartEndStart(t),
                       animationAnimal.chunkSize());

    const float phase = timers.get(Timers::Water) * 3.1415927f;
    engine::setUniform(uniformsWaterHighlights[2], phase + phase);
}

} // namespace scenes::example
