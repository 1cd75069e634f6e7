#include "scenes/spirelight/SpirelightScene.h"

#include <algorithm>
#include <cmath>

#include "engine/CullFace.h"
#include "engine/DepthMode.h"
#include "engine/SetUniform.h"
#include "engine/VertexAttributesDescriptor.h"
#include "engine/commands/ClearCommand.h"
#include "engine/commands/MainPassCommand.h"
#include "engine/commands/UniformTextureValue.h"
#include "engine/commands/VrsHint.h"
#include "engine/math/Random.h"
#include "scenes/common/DrawBlurredResult.h"
#include "scenes/common/FrameCycle.h"
#include "scenes/common/TreeParts.h"
#include "scenes/spirelight/Cameras.h"
#include "scenes/spirelight/Meshes.h"
#include "scenes/spirelight/Shaders.h"
#include "scenes/spirelight/Textures.h"
#include "scenes/spirelight/Timers.h"

namespace scenes::spirelight {

using engine::AttributeType;
using engine::Blending;
using engine::BlendingFactor;
using engine::CullFace;
using engine::VertexAttribute;
using engine::VertexAttributesDescriptor;
using engine::VertexFormat;
using engine::commands::AffineTranformation;
using engine::commands::ClearCommand;
using engine::commands::Command;
using engine::commands::DrawMeshState;
using engine::commands::DrawStaticMeshCommand;
using engine::commands::DrawTransformedMeshCommand;
using engine::commands::GroupCommand;
using engine::commands::MainPassCommand;
using engine::commands::PrimitiveType;
using engine::commands::UniformFloatValue;
using engine::commands::UniformTextureValue;
using engine::math::Vec3;
using engine::math::Vec4;

namespace {

using Parts = common::TreeParts;


/// Every draw is placed at the origin at a scale of 100 unless it says otherwise.
AffineTranformation placed(const Vec3& translation = Vec3(0.0f, 0.0f, 0.0f), float rotationZ = 0.0f,
                           float scale = 100.0f) {
    return AffineTranformation(translation, Vec3(0.0f, 0.0f, rotationZ), Vec3(scale, scale, scale));
}

std::shared_ptr<DrawStaticMeshCommand> staticDraw(const std::shared_ptr<engine::Mesh>& mesh,
                                                  SpirelightScene::UniformList uniforms,
                                                  const std::shared_ptr<DrawMeshState>& state,
                                                  const AffineTranformation& transform,
                                                  PrimitiveType primitiveType = PrimitiveType::TRIANGLES) {
    return std::make_shared<DrawStaticMeshCommand>(mesh, std::move(uniforms), state, transform, 0, -1, -1, -1,
                                                   primitiveType);
}

} // namespace

SpirelightScene::SpirelightScene()
    : timers(), cameraAnimator(kCameraSpeed, kCameraMinDuration, kCameraTransitionDuration, true) {
    meshes = Meshes::shared().meshes;
    textures = Textures::shared().textures;
    shaders = Shaders::shared().shaders;
    coarseShadingHints = std::make_shared<engine::commands::HintList>(
        engine::commands::HintList{engine::commands::HINT_VRS_2X2});

    initializeTimers(timers);

    FOV_LANDSCAPE = 25.0f;
    FOV_PORTRAIT = 25.0f;
    Z_NEAR = 100.0f;
    Z_FAR = 20000.0f;

    settings = SpirelightSettings();
    cameraAnimator.setCameras(Cameras::shared().CAMERAS, false);
    cameraAnimator.setMinDurationCoefficient(settings.cameraPeriod);

    buildTree();
}

void SpirelightScene::buildTree() {
    const Meshes& m = Meshes::shared();
    const Textures& t = Textures::shared();
    const Shaders& s = Shaders::shared();

    auto additive = std::make_shared<Blending>();
    additive->enabled = true;
    additive->sourceFactorColor = BlendingFactor::ONE;
    additive->destinationFactorColor = BlendingFactor::ONE;

    const auto vertexHalf3 = VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::HALF3, 0);
    const auto vertexFloat3 = VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::FLOAT3, 0);
    const auto opaque = [](const std::shared_ptr<engine::Shader>& shader,
                           std::shared_ptr<VertexAttributesDescriptor> attributes) {
        return std::make_shared<DrawMeshState>(shader, engine::BLENDING_NONE, engine::DEPTH_TEST_ENABLED,
                                               CullFace::BACK, std::move(attributes));
    };

    const auto stateBuilding =
        opaque(s.shaderBuilding, Parts::layout({vertexHalf3, VertexAttribute(AttributeType::UV0, 1, VertexFormat::HALF2, 6),
                                         VertexAttribute(AttributeType::NORMAL, 2, VertexFormat::HALF3, 10)},
                                        16));
    const auto stateLamps = opaque(s.shaderColor, Parts::layout({vertexHalf3}, 8));
    // The distant buildings' state reads the coordinates as signed bytes while the model file
    // declares unsigned ones; the pair is kept as the assets were made.
    const auto stateDistant = opaque(
        s.shaderDiffuseFog,
        Parts::layout({vertexHalf3, VertexAttribute(AttributeType::UV0, 1, VertexFormat::BYTE2_NORMALIZED, 6)}, 8));
    const auto stateFogged = opaque(s.shaderColorFog, Parts::layout({vertexHalf3}, 8));
    const auto stateStars = opaque(s.shaderColor, Parts::layout({vertexFloat3}, 12));
    const auto stateSky = opaque(
        s.shaderSkyDither, Parts::layout({vertexHalf3, VertexAttribute(AttributeType::UV0, 1, VertexFormat::HALF2, 6)}, 12));
    const auto stateNeon = std::make_shared<DrawMeshState>(
        s.shaderDiffuse, additive, engine::DEPTH_NO_WRITE, CullFace::BACK,
        Parts::layout({vertexHalf3, VertexAttribute(AttributeType::UV0, 1, VertexFormat::UBYTE2_NORMALIZED, 6)}, 8));
    const auto stateSprites = std::make_shared<DrawMeshState>(s.shaderPointSpritesColored, additive,
                                                              engine::DEPTH_NO_WRITE, CullFace::DISABLED,
                                                              Parts::layout({vertexFloat3}, 12));
    const auto statePlane = std::make_shared<DrawMeshState>(s.shaderPointSpriteColored, additive,
                                                            engine::DEPTH_NO_WRITE, CullFace::DISABLED, nullptr);

    fogColor = Parts::floats({0.145f, 0.137f, 0.141f, 1.0f});
    fogUniforms = UniformList{fogColor, Parts::floats({fogStart}), Parts::floats({fogEnd})};
    const auto withFog = [this](UniformList uniforms) {
        uniforms.insert(uniforms.end(), fogUniforms.begin(), fogUniforms.end());
        return uniforms;
    };

    // The towers, twice from one mesh: as seen, and their emissive part alone for the bloom.
    const auto buildings = [&](const Vec4& base, const Vec4& shade, float emission) {
        UniformList uniforms{Parts::matrix(),
                             Parts::matrix(),
                             Parts::floats({0.707106f, 0.707106f, 0.0f}),
                             Parts::floats({0.05f, 0.6f}),
                             Parts::floats({0.0f, 0.0f, 0.0f}),
                             Parts::texture(t.texBuildingsDiffuse),
                             Parts::texture(t.texBuildingsEmission),
                             Parts::texture(t.texBuildingsCubemap),
                             Parts::floats({base.x, base.y, base.z, base.w}),
                             Parts::floats({shade.x, shade.y, shade.z, shade.w}),
                             Parts::floats({emission}),
                             Parts::floats({1.0f - settings.lights})};
        return std::make_shared<DrawStaticMeshCommand>(m.meshBuilding, std::move(uniforms), stateBuilding, placed(), 0,
                                                       1, -1, -1, PrimitiveType::TRIANGLES);
    };
    commandBuildings = buildings(Vec4(0.33f, 0.33f, 0.33f, 1.0f), Vec4(0.3f, 0.3f, 0.3f, 1.0f), 1.8f);
    commandBuildingsBloom = buildings(Vec4(0.0f, 0.0f, 0.0f, 1.0f), Vec4(0.0f, 0.0f, 0.0f, 1.0f), 2.0f);

    // The bloom pass.
    auto clearColorBloom = std::make_shared<engine::commands::ClearColorCommand>();
    clearColorBloom->name = "clear color bloom";
    clearColorBloom->color = Vec4(0.0f, 0.0f, 0.0f, 1.0f);
    auto clearBloomGroup = std::make_shared<GroupCommand>(
        true, std::vector<std::shared_ptr<Command>>{clearColorBloom, std::make_shared<ClearCommand>()});
    auto redLights = staticDraw(m.meshRedSprites,
                                UniformList{Parts::matrix(), Parts::floats({4.0f}), Parts::texture(t.texFlare), Parts::floats({1.0f, 0.2f, 0.2f, 1.0f})},
                                stateSprites, placed(), PrimitiveType::POINTS);
    auto neonBloom = staticDraw(m.meshNeon, UniformList{Parts::matrix(), Parts::texture(t.texNeon2)}, stateNeon, placed());
    auto bloomObjects = std::make_shared<GroupCommand>(
        true, std::vector<std::shared_ptr<Command>>{commandBuildingsBloom, redLights, neonBloom});
    bloomPass = std::make_shared<engine::commands::BlurredPassCommand>();
    bloomPass->name = "bloom-objects";
    bloomPass->id = 0;
    bloomPass->minSize = 180;
    bloomPass->brightness = 1.0f;
    bloomPass->blurSize = engine::commands::BlurSize::KERNEL_4;
    bloomPass->additionalBlur = false;
    bloomPass->commands = {clearBloomGroup, bloomObjects};

    // The main pass.
    clearColor = std::make_shared<engine::commands::ClearColorCommand>();
    clearColor->name = "clear color";
    clearColor->color = Vec4(0.0f, 10.0f / 255.0f, 20.0f / 255.0f, 1.0f);
    clearGroup = std::make_shared<GroupCommand>(true, std::vector<std::shared_ptr<Command>>{
                                                          clearColor, std::make_shared<ClearCommand>()});

    auto redLamps = std::make_shared<DrawTransformedMeshCommand>(
        m.meshRed, UniformList{Parts::matrix(), Parts::floats({1.0f, 0.3f, 0.3f, 1.0f})}, stateLamps, placed(), 0, -1, -1, -1,
        PrimitiveType::TRIANGLES);
    redLamps->hints = coarseShadingHints;
    auto distant = staticDraw(m.meshBuildingsDistant, withFog({Parts::matrix(), Parts::texture(t.texBuildingsDistant)}), stateDistant,
                              placed());
    auto distantTurned = staticDraw(m.meshBuildingsDistant, withFog({Parts::matrix(), Parts::texture(t.texBuildingsDistant)}),
                                    stateDistant, placed(Vec3(0.0f, 0.0f, 0.0f), 180.0f));
    auto islands = staticDraw(m.meshIslands1, withFog({Parts::matrix(), Parts::floats({0.1171875f, 0.1171875f, 0.1171875f, 1.0f})}),
                              stateFogged, placed());
    auto water = staticDraw(m.meshWater, withFog({Parts::matrix(), Parts::floats({0.0f, 0.01953125f, 0.01953125f, 1.0f})}),
                            stateFogged, placed());
    commandStars = std::make_shared<DrawTransformedMeshCommand>(
        m.meshStars, UniformList{Parts::matrix(), Parts::floats({0.35f, 0.35f, 0.35f, 1.0f})}, stateStars,
        placed(Vec3(0.0f, 0.0f, 0.0f), 0.0f, 0.055f), 0, -1, -1, -1, PrimitiveType::TRIANGLES);
    commandStars->hints = coarseShadingHints;
    auto sky = staticDraw(m.meshSky, UniformList{Parts::matrix(), Parts::texture(t.texSky), Parts::texture(t.texNoise)}, stateSky, placed());

    planeUniforms = UniformList{Parts::floats({3.0f}), Parts::texture(t.texDust), Parts::floats({1.2f, 1.2f, 1.2f, 1.0f})};
    constexpr std::array<float, 6> planeHeights{380.0f, 400.0f, 350.0f, 450.0f, 430.0f, 500.0f};
    for (std::size_t i = 0; i < planes.size(); ++i) {
        UniformList uniforms{Parts::matrix()};
        uniforms.insert(uniforms.end(), planeUniforms.begin(), planeUniforms.end());
        planes[i] = std::make_shared<DrawTransformedMeshCommand>(nullptr, std::move(uniforms), statePlane,
                                                                 placed(Vec3(0.0f, 0.0f, planeHeights[i])), 0, -1, -1,
                                                                 -1, PrimitiveType::POINTS);
        planes[i]->primitiveCount = 1;
    }

    auto neon = staticDraw(m.meshNeon, UniformList{Parts::matrix(), Parts::texture(t.texNeon)}, stateNeon, placed());

    drawBloom = std::make_shared<engine::commands::DrawBlurredCommand>();
    drawBloom->name = "draw bloom";
    drawBloom->id = 0;
    drawBloom->blending = additive;

    vignette = std::make_shared<engine::commands::VignetteCommand>();
    vignette->color0 = Vec4(0.45f, 0.45f, 0.45f, 1.0f);
    vignette->color1 = Vec4(1.0f, 1.0f, 1.0f, 1.0f);

    std::vector<std::shared_ptr<Command>> mainChildren{clearGroup, commandBuildings, redLamps, distant, distantTurned,
                                                       islands,    water,            commandStars, sky};
    mainChildren.insert(mainChildren.end(), planes.begin(), planes.end());
    mainChildren.insert(mainChildren.end(), {neon, drawBloom, vignette});
    auto mainPass = std::make_shared<MainPassCommand>(true, std::move(mainChildren));
    sharpTree = std::make_shared<GroupCommand>(true, std::vector<std::shared_ptr<Command>>{bloomPass, mainPass});

    // The blurred tree: the city without lamps, stars, aircraft and bloom.
    blurredPass = std::make_shared<engine::commands::BlurredPassCommand>();
    blurredPass->name = "blurred-main";
    blurredPass->id = 0;
    blurredPass->minSize = 180;
    blurredPass->brightness = 0.95f;
    blurredPass->blurSize = engine::commands::BlurSize::KERNEL_4;
    blurredPass->additionalBlur = false;
    blurredPass->commands = {clearBloomGroup, commandBuildings, distant, distantTurned, islands,
                             water,           sky,              neon,    vignette};
    drawBlurred = common::drawBlurredResult();
    auto blurredMainPass =
        std::make_shared<MainPassCommand>(true, std::vector<std::shared_ptr<Command>>{clearGroup, drawBlurred});
    blurredTree =
        std::make_shared<GroupCommand>(false, std::vector<std::shared_ptr<Command>>{blurredPass, blurredMainPass});

    commands = {sharpTree, blurredTree};
}

void SpirelightScene::initialize() {}

void SpirelightScene::updateTimers(double time) { common::runFrame(*this, time); }

void SpirelightScene::applySettings() {
    sharpTree->enabled = !settings.blurred;
    blurredTree->enabled = settings.blurred;
    vignette->enabled = settings.vignette;
    blurredPass->additionalBlur = !settings.lowQuality;
    bloomPass->additionalBlur = !settings.lowQuality;
    engine::setUniform(commandBuildings->uniforms[11], 1.0f - settings.lights);
    engine::setUniform(commandBuildingsBloom->uniforms[11], 1.0f - settings.lights);
    if (cameraAnimator.minDurationCoefficient != settings.cameraPeriod) {
        cameraAnimator.setMinDurationCoefficient(settings.cameraPeriod);
    }
    if (cameraAnimator.positionInterpolator.timer > 0.99f && settings.autoSwitchCameras) {
        if (engine::math::Random::nextFloat() < 0.5f) {
            randomCamera();
        }
    }
}

void SpirelightScene::animate() {
    applySettings();
    calculateProjection(1.0f, viewportWidth, viewportHeight);
    const Vec3& eye = cameraAnimator.positionInterpolator.cameraPosition;
    lookAt(eye, cameraAnimator.positionInterpolator.cameraRotation);
    updatePlanes();
    updateMeshTransformations(commands);
    engine::setUniform(commandBuildings->uniforms[4], eye);
    engine::setUniform(commandBuildingsBloom->uniforms[4], eye);
}

void SpirelightScene::updatePlanes() {
    float a = timers.get(Timers::Planes1) * PIf;
    a = a + a;
    float b = timers.get(Timers::Planes2) * PIf;
    b = b + b;
    updatePlanePosition(a, 0.0f, 0.0f, planes[0]->transform.translation);
    updatePlanePosition(-b - PIf, 0.0f, -400.0f, planes[1]->transform.translation);
    updatePlanePosition(-a - PIf, 0.0f, 300.0f, planes[2]->transform.translation);
    updatePlanePosition(b, 100.0f, 300.0f, planes[3]->transform.translation);
    updatePlanePosition(a + PIf * 0.5f, 100.0f, 300.0f, planes[4]->transform.translation);
    updatePlanePosition(b + PIf / 1.5f, 100.0f, 300.0f, planes[5]->transform.translation);

    const float size = static_cast<float>(std::min(viewportWidth, viewportHeight)) / 300.0f;
    engine::setUniform(planes[0]->uniforms[1], std::isnan(size) ? size : std::max(size, 2.5f));
}

void SpirelightScene::updatePlanePosition(float angle, float centerX, float centerY, Vec3& result) const {
    result.x = std::sin(angle) * planeFlightRadius + centerX;
    result.y = std::cos(angle) * planeFlightRadius + centerY;
}

void SpirelightScene::nextCamera() { cameraAnimator.nextCamera(); }

void SpirelightScene::randomCamera() {
    if (cameraAnimator.state == engine::camera::CameraState::TRANSITIONING) {
        return;
    }
    cameraAnimator.positionInterpolator.reverse = engine::math::Random::nextFloat() < 0.5f;
    cameraAnimator.randomCamera();
}

void SpirelightScene::changeSpeedImpulse(float impulse) { cameraAnimator.changeDirection(impulse); }

} // namespace scenes::spirelight
