// One file for the scene class: building its tree and animating it are two halves of one
// contract (the nodes that the tree builds are the ones each frame rewrites), and reading them
// side by side is how a change to either is checked.
#include "scenes/nivalis/NivalisScene.h"

#include <cmath>

#include "engine/Blending.h"
#include "engine/CullFace.h"
#include "engine/DepthMode.h"
#include "engine/SetUniform.h"
#include "engine/VertexAttributesDescriptor.h"
#include "engine/commands/ClearCommand.h"
#include "engine/commands/MainPassCommand.h"
#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/UniformIntValue.h"
#include "engine/commands/VrsHint.h"
#include "engine/math/Random.h"
#include "scenes/common/DrawBlurredResult.h"
#include "scenes/common/FrameCycle.h"
#include "scenes/common/TreeParts.h"
#include "scenes/nivalis/Animations.h"
#include "scenes/nivalis/Cameras.h"
#include "scenes/nivalis/Colors.h"
#include "scenes/nivalis/Meshes.h"
#include "scenes/nivalis/Penguins.h"
#include "scenes/nivalis/Seals.h"
#include "scenes/nivalis/Shaders.h"
#include "scenes/nivalis/ShipsConfig.h"
#include "scenes/nivalis/Textures.h"
#include "scenes/nivalis/Timers.h"

namespace scenes::nivalis {

using engine::AttributeType;
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
using engine::commands::UniformIntValue;
using engine::commands::UniformTextureValue;
using engine::math::Vec3;
using engine::math::Vec4;

namespace {

using Parts = common::TreeParts;

/// An opaque draw state: the shared disabled blending, depth test and write, back faces culled.
std::shared_ptr<DrawMeshState> opaqueState(const std::shared_ptr<engine::Shader>& shader,
                                           std::shared_ptr<VertexAttributesDescriptor> attributes) {
    return std::make_shared<DrawMeshState>(shader, engine::BLENDING_NONE, engine::DEPTH_TEST_ENABLED,
                                           engine::CullFace::BACK, std::move(attributes));
}

/// Every model draw of the scene has its MVP matrix at uniform 0 and no other matrix.
std::shared_ptr<DrawStaticMeshCommand> staticDraw(const std::shared_ptr<engine::Mesh>& mesh,
                                                  NivalisScene::UniformList uniforms,
                                                  const std::shared_ptr<DrawMeshState>& state,
                                                  const AffineTranformation& transform) {
    return std::make_shared<DrawStaticMeshCommand>(mesh, std::move(uniforms), state, transform, 0, -1, -1, -1,
                                                   PrimitiveType::TRIANGLES);
}

std::shared_ptr<DrawTransformedMeshCommand> movingDraw(const std::shared_ptr<engine::Mesh>& mesh,
                                                       NivalisScene::UniformList uniforms,
                                                       const std::shared_ptr<DrawMeshState>& state,
                                                       const AffineTranformation& transform) {
    return std::make_shared<DrawTransformedMeshCommand>(mesh, std::move(uniforms), state, transform, 0, -1, -1, -1,
                                                        PrimitiveType::TRIANGLES);
}

AffineTranformation standing(const AnimatedObjectInfo& info) {
    return AffineTranformation(info.position, info.rotation, Vec3(info.scale, info.scale, info.scale));
}

/// Bird flight: which of the two circles, the centre's offset, and the wing-beat timer and offset.
struct BirdFlight {
    bool firstCircle;
    float offsetX;
    float offsetY;
    Timers wings;
    float wingOffset;
};

constexpr std::array<BirdFlight, 6> BIRD_FLIGHTS{{
    {true, 0.0f, 0.0f, Timers::BirdWings1, 0.0f},
    {false, 0.0f, -4000.0f, Timers::BirdWings2, 0.0f},
    {false, 0.0f, 3000.0f, Timers::BirdWings1, 0.3f},
    {true, 7000.0f, 3000.0f, Timers::BirdWings2, 0.5f},
    {false, 5000.0f, 3000.0f, Timers::BirdWings1, 0.5f},
    {true, -5000.0f, 7000.0f, Timers::BirdWings2, 0.6f},
}};

/// The birds' colour at every time of day.
constexpr Vec4 BIRD_COLOR{0.1640625f, 0.1484375f, 0.1171875f, 1.0f};

} // namespace

NivalisScene::NivalisScene()
    : timers(), cameraAnimator(kCameraSpeed, kCameraMinDuration, kCameraTransitionDuration, true) {
    meshes = Meshes::shared().meshes;
    textures = Textures::shared().textures;
    shaders = Shaders::shared().shaders;
    coarseShadingHints = std::make_shared<engine::commands::HintList>(
        engine::commands::HintList{engine::commands::HINT_VRS_4X4});

    initializeTimers(timers);

    FOV_LANDSCAPE = 50.0f;
    FOV_PORTRAIT = 75.0f;
    Z_NEAR = 20.0f;
    Z_FAR = 115000.0f;

    settings = NivalisSettings();
    cameraAnimator.setCameras(Cameras::shared().CAMERAS, false);
    cameraAnimator.setMinDurationCoefficient(settings.cameraPeriod);

    buildTree();
}

void NivalisScene::buildTree() {
    const Meshes& m = Meshes::shared();
    const Textures& t = Textures::shared();
    const Shaders& s = Shaders::shared();

    // The nine draw states of the scene.
    const auto paletteLayout = Parts::layout({VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::HALF3, 0),
                                       VertexAttribute(AttributeType::U0, 1, VertexFormat::HALF, 6)},
                                      8);
    const auto stateBirds = opaqueState(s.shaderAnimated, nullptr);
    const auto statePalette = opaqueState(s.shaderPalette, paletteLayout);
    const auto stateAnimated = opaqueState(
        s.shaderAnimatedTextured, Parts::layout({VertexAttribute(AttributeType::UV0, 0, VertexFormat::HALF2, 0)}, 4));
    const auto diffuseLayout = Parts::layout({VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::FLOAT3, 0),
                                       VertexAttribute(AttributeType::UV0, 1, VertexFormat::HALF2, 12)},
                                      16);
    const auto stateDiffuse = opaqueState(s.shaderDiffuse, diffuseLayout);
    const auto stateZFog = opaqueState(s.shaderDiffuseZFog,
                                       Parts::layout({VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::HALF3, 0),
                                               VertexAttribute(AttributeType::U0, 1, VertexFormat::HALF, 6)},
                                              8));
    const auto stateWater = opaqueState(s.shaderCausticsWater,
                                        Parts::layout({VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::HALF3, 0),
                                                VertexAttribute(AttributeType::UV0, 1, VertexFormat::HALF2, 6)},
                                               12));
    const auto stateStars =
        opaqueState(s.shaderColor, Parts::layout({VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::FLOAT3, 0)}, 12));
    const auto stateClouds = opaqueState(
        s.shaderCloud, Parts::layout({VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::FLOAT3, 0),
                               VertexAttribute(AttributeType::U0, 1, VertexFormat::UBYTE_NORMALIZED, 12)},
                              16));
    const auto stateSky = opaqueState(s.shaderSkyDither,
                                      Parts::layout({VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::FLOAT3, 0),
                                              VertexAttribute(AttributeType::UV0, 1, VertexFormat::HALF2, 12)},
                                             16));

    uniformPaletteTexture = Parts::texture(t.texPaletteDay);
    uniformSkyTexture = Parts::texture(t.texSkyDay);

    const auto coarse = [this](auto draw) {
        draw->hints = coarseShadingHints;
        return draw;
    };
    const auto animalUniforms = [this](const std::shared_ptr<engine::Texture>& animationTexture) {
        return UniformList{Parts::zeros(16), uniformPaletteTexture, Parts::ints(1), Parts::zeros(1), Parts::texture(animationTexture),
                           Parts::zeros(4)};
    };
    const AffineTranformation identity;

    // 1. Clears.
    clearColor = std::make_shared<engine::commands::ClearColorCommand>();
    clearColor->name = "clear color";
    clearColor->color = Vec4(1.0f, 0.0f, 1.0f, 1.0f);
    clearGroup = std::make_shared<GroupCommand>(true, std::vector<std::shared_ptr<Command>>{
                                                          clearColor, std::make_shared<ClearCommand>()});

    // 2. Birds, each at its own height.
    groupBirds = std::make_shared<GroupCommand>();
    for (int i = 0; i < 6; ++i) {
        const AffineTranformation placement(Vec3(0.0f, 0.0f, 10000.0f + 1000.0f * static_cast<float>(i)),
                                            Vec3(0.0f, 0.0f, 0.0f), Vec3(6.0f, 3.0f, 3.0f));
        auto bird = coarse(movingDraw(
            m.meshBird, UniformList{Parts::zeros(16), Parts::zeros(4), Parts::ints(1), Parts::zeros(1), Parts::texture(t.texBird), Parts::zeros(4)},
            stateBirds, placement));
        birdCommands.push_back(bird);
        groupBirds->commands.push_back(bird);
    }

    // 3. Ships.
    groupShips = std::make_shared<GroupCommand>();
    for (std::size_t i = 0; i < ShipsConfig::shared().SHIPS.size(); ++i) {
        auto ship = coarse(movingDraw(m.meshShip, UniformList{Parts::zeros(16), uniformPaletteTexture}, statePalette, identity));
        shipCommands.push_back(ship);
        groupShips->commands.push_back(ship);
    }

    // 4. Live animals.
    const auto herd = [&](const std::vector<AnimatedObjectInfo>& infos, const std::shared_ptr<engine::Mesh>& mesh,
                          const std::shared_ptr<engine::Texture>& animationTexture,
                          std::vector<std::shared_ptr<DrawStaticMeshCommand>>& typed) {
        auto group = std::make_shared<GroupCommand>();
        for (const AnimatedObjectInfo& info : infos) {
            auto animal = coarse(staticDraw(mesh, animalUniforms(animationTexture), stateAnimated, standing(info)));
            typed.push_back(animal);
            group->commands.push_back(animal);
        }
        return group;
    };
    groupPenguinsIdle = herd(Penguins::shared().IDLE, m.meshPenguinIdle, t.texPenguinIdle, penguinIdleCommands);
    groupPenguinsIdle2 = herd(Penguins::shared().IDLE2, m.meshPenguinIdle2, t.texPenguinIdle2, penguinIdle2Commands);
    groupSealIdle = herd(Seals::shared().IDLE, m.meshSeal, t.texSealIdle, sealIdleCommands);
    groupSealWalking = std::make_shared<GroupCommand>();
    for (std::size_t i = 0; i < Seals::shared().WALKING.size(); ++i) {
        auto seal = coarse(movingDraw(m.meshSeal, animalUniforms(t.texSealWalk), stateAnimated, identity));
        sealWalkingCommands.push_back(seal);
        groupSealWalking->commands.push_back(seal);
    }
    groupAnimalsAnimated = std::make_shared<GroupCommand>(
        true, std::vector<std::shared_ptr<Command>>{groupPenguinsIdle, groupPenguinsIdle2, groupSealIdle,
                                                    groupSealWalking});

    // 5. Sleeping animals.
    groupAnimalsSleeping = std::make_shared<GroupCommand>(
        true, std::vector<std::shared_ptr<Command>>{coarse(staticDraw(
                  m.meshAnimalsSleeping, UniformList{Parts::zeros(16), uniformPaletteTexture}, stateDiffuse, identity))});

    // 6. Suns.
    commandSun = coarse(staticDraw(m.meshSun, UniformList{Parts::zeros(16), uniformPaletteTexture}, stateDiffuse, identity));
    commandSunLow =
        coarse(staticDraw(m.meshSunLow, UniformList{Parts::zeros(16), uniformPaletteTexture}, stateDiffuse, identity));
    auto groupSun = std::make_shared<GroupCommand>(true, std::vector<std::shared_ptr<Command>>{commandSun, commandSunLow});
    groupSun->name = "sun";

    // 7. Mountains.
    uniformsMountains = UniformList{Parts::zeros(16), uniformPaletteTexture};
    uniformsDistantMountains = UniformList{Parts::zeros(16), uniformPaletteTexture, Parts::zeros(4), Parts::zeros(2)};
    auto groupMountains = std::make_shared<GroupCommand>(
        true, std::vector<std::shared_ptr<Command>>{
                  coarse(staticDraw(m.meshMountains1, uniformsMountains, statePalette, identity)),
                  coarse(staticDraw(m.meshMountainsDistant, uniformsDistantMountains, stateZFog, identity))});
    groupMountains->name = "mountains";

    // 8. Water, with no hint.
    uniformsWater = UniformList{Parts::zeros(16), Parts::texture(t.texWater), Parts::zeros(1), Parts::zeros(1), Parts::zeros(1),
                                Parts::zeros(2),  Parts::zeros(4),           Parts::zeros(4), Parts::zeros(4)};
    auto water = staticDraw(m.meshWater, uniformsWater, stateWater, identity);

    // 9. Stars.
    uniformsStars = UniformList{Parts::zeros(16), Parts::zeros(4)};
    commandStars = coarse(staticDraw(m.meshStars, uniformsStars, stateStars, identity));

    // 10. Clouds.
    uniformsClouds = UniformList{Parts::zeros(16), Parts::zeros(4), Parts::zeros(1)};
    commandClouds = coarse(movingDraw(m.meshClouds, uniformsClouds, stateClouds, identity));

    // 11. Sky, with no hint.
    auto sky = staticDraw(m.meshSky, UniformList{Parts::zeros(16), uniformSkyTexture, Parts::texture(t.texNoise)}, stateSky, identity);

    // 12. Vignette.
    vignette = std::make_shared<engine::commands::VignetteCommand>();
    vignette->color0 = Vec4(0.65f, 0.65f, 0.65f, 1.0f);
    vignette->color1 = Vec4(1.0f, 1.0f, 1.0f, 1.0f);

    auto sharpPass = std::make_shared<MainPassCommand>(
        true, std::vector<std::shared_ptr<Command>>{clearGroup, groupBirds, groupShips, groupAnimalsAnimated,
                                                    groupAnimalsSleeping, groupSun, groupMountains, water,
                                                    commandStars, commandClouds, sky, vignette});
    sharpTree = std::make_shared<GroupCommand>(true, std::vector<std::shared_ptr<Command>>{sharpPass});

    blurredPass = std::make_shared<engine::commands::BlurredPassCommand>();
    blurredPass->name = "blurred-main";
    blurredPass->id = 0;
    blurredPass->minSize = 220;
    blurredPass->brightness = 0.91f;
    blurredPass->blurSize = engine::commands::BlurSize::KERNEL_4;
    blurredPass->additionalBlur = false;
    blurredPass->commands = {clearGroup,     groupShips,   groupAnimalsAnimated, groupAnimalsSleeping,
                             groupSun,       groupMountains, water,              commandStars,
                             commandClouds,  sky,          vignette};

    drawBlurred = common::drawBlurredResult();
    auto blurredMainPass =
        std::make_shared<MainPassCommand>(true, std::vector<std::shared_ptr<Command>>{clearGroup, drawBlurred});
    blurredTree =
        std::make_shared<GroupCommand>(false, std::vector<std::shared_ptr<Command>>{blurredPass, blurredMainPass});

    commands = {sharpTree, blurredTree};
}

void NivalisScene::initialize() {}

void NivalisScene::updateTimers(double time) { common::runFrame(*this, time); }

void NivalisScene::applySettings() {
    sharpTree->enabled = !settings.blurred;
    blurredTree->enabled = settings.blurred;
    vignette->enabled = settings.vignette;
    if (cameraAnimator.minDurationCoefficient != settings.cameraPeriod) {
        cameraAnimator.setMinDurationCoefficient(settings.cameraPeriod);
    }
    if (cameraAnimator.positionInterpolator.timer > 0.99f && settings.autoSwitchCameras) {
        if (engine::math::Random::nextFloat() < 0.5f) {
            randomCamera();
        }
    }
}

void NivalisScene::nextCamera() { cameraAnimator.nextCamera(); }

void NivalisScene::randomCamera() {
    if (cameraAnimator.state == engine::camera::CameraState::TRANSITIONING) {
        return;
    }
    cameraAnimator.positionInterpolator.reverse = engine::math::Random::nextFloat() < 0.5f;
    cameraAnimator.randomCamera();
}

void NivalisScene::setAnimationUniforms(const engine::animation::TextureAnimationChunked& animation,
                                        const UniformList& uniforms, bool pingPong, float time) {
    const float phase = std::fmod(time, 1.0f);
    const float texelHeight = 1.0f / static_cast<float>(animation.textureHeight());
    engine::setUniform(uniforms[2], static_cast<std::int32_t>(animation.textureWidth()));
    engine::setUniform(uniforms[3], texelHeight);
    float u = phase;
    if (pingPong) {
        u = phase < 0.5f ? phase * 2.0f : (1.0f - phase) * 2.0f;
    }
    engine::setUniform(uniforms[5], static_cast<float>(animation.textureWidth()), animation.texelHalfWidth(),
                       animation.texelHalfHeight() + u * texelHeight * static_cast<float>(animation.frames() - 1),
                       animation.chunkSize());
}

void NivalisScene::animate() {
    applySettings();
    calculateProjection(1.0f, viewportWidth, viewportHeight);
    lookAt(cameraAnimator.positionInterpolator.cameraPosition,
           cameraAnimator.positionInterpolator.cameraRotation);

    const std::size_t ordinal = static_cast<std::size_t>(settings.timeOfDay);
    const SceneColors& c = Colors::shared().COLORS.at(ordinal);
    commandStars->enabled = !c.isDay;
    groupBirds->enabled = c.isDay;
    groupAnimalsAnimated->enabled = c.isDay;
    groupAnimalsSleeping->enabled = !c.isDay;
    groupShips->enabled = c.isDay;

    uniformPaletteTexture->value = Textures::shared().palettes.at(ordinal);
    uniformSkyTexture->value = Textures::shared().skies.at(ordinal);

    commandSun->enabled = !c.isLowSun;
    commandSunLow->enabled = c.isLowSun;

    animateBirds();
    animateShips();
    animateAnimals();

    // Water: a sawtooth of the small pattern (16 rises from 0 to 5 in one period), the large
    // pattern's phase, and fixed shaping values.
    engine::setUniform(uniformsWater[2], std::fmod(timers.get(Timers::Water) * 80.0f * 0.2f, 1.0f) / 0.2f);
    engine::setUniform(uniformsWater[3], timers.get(Timers::WaterLarge));
    engine::setUniform(uniformsWater[4], 15.0f);
    engine::setUniform(uniformsWater[7], c.waterColorNear);
    engine::setUniform(uniformsWater[8], c.waterColorFar);
    engine::setUniform(uniformsWater[5], 10000.0f, 15000.0f);
    engine::setUniform(uniformsWater[6], 5000.0f, 2000.0f, 1.0f, settings.blurred ? 100.0f : 20000.0f);

    engine::setUniform(uniformsDistantMountains[2], c.distantZFogColor);
    engine::setUniform(uniformsDistantMountains[3], 0.0f, 1500.0f);

    engine::setUniform(uniformsStars[1], c.stars);

    engine::setUniform(uniformsClouds[1], c.clouds);
    engine::setUniform(uniformsClouds[2], std::sin(timers.get(Timers::CloudsAnimation) * PIf * 2.0f));
    commandClouds->transform.rotation.z = timers.get(Timers::CloudsRotation) * 360.0f;

    updateMeshTransformations(commands);
}

void NivalisScene::animateBirds() {
    const float radius = BIRD_FLIGHT_RADIUS;
    float a = timers.get(Timers::BirdsFly) * PIf;
    a = a + a;
    const float b = -a - PIf;
    const float headingFirst = (PIf * 0.5f - a) * 57.29578f;
    const float headingSecond = (a + PIf * 0.5f) * 57.29578f;
    const Animations& animations = Animations::shared();

    for (std::size_t i = 0; i < birdCommands.size() && i < BIRD_FLIGHTS.size(); ++i) {
        const BirdFlight& flight = BIRD_FLIGHTS[i];
        DrawTransformedMeshCommand& bird = *birdCommands[i];
        const float angle = flight.firstCircle ? a : b;
        bird.transform.translation.x = std::sin(angle) * radius + flight.offsetX;
        bird.transform.translation.y = std::cos(angle) * radius + flight.offsetY;
        bird.transform.rotation.z = flight.firstCircle ? headingFirst : headingSecond;
        setAnimationUniforms(animations.animationBird, bird.uniforms, true,
                             timers.get(flight.wings) + flight.wingOffset);
    }
    for (const auto& bird : birdCommands) {
        engine::setUniform(bird->uniforms[1], BIRD_COLOR);
    }
}

void NivalisScene::animateShips() {
    const double t = timers.get(Timers::Ships);
    const auto& ships = ShipsConfig::shared().SHIPS;
    for (std::size_t i = 0; i < ships.size() && i < shipCommands.size(); ++i) {
        const ShipConfig& config = ships[i];
        AffineTranformation& transform = shipCommands[i]->transform;
        const Vec3 position = config.spline->getCurrentPoint(t);
        const float heading = config.spline->getRotationLegacy(t).z;
        transform.translation = position;
        transform.rotation.z = heading + 180.0f;
        transform.scale = Vec3(config.scale, config.scale, config.scale);
    }
}

void NivalisScene::animateAnimals() {
    const Animations& animations = Animations::shared();
    const auto idle = [this](const std::vector<AnimatedObjectInfo>& infos,
                             const std::vector<std::shared_ptr<DrawStaticMeshCommand>>& draws,
                             const engine::animation::TextureAnimationChunked& animation, bool pingPong, Timers timer) {
        const float phase = timers.get(timer);
        for (std::size_t i = 0; i < infos.size() && i < draws.size(); ++i) {
            setAnimationUniforms(animation, draws[i]->uniforms, pingPong, phase + infos[i].animTimerOffset);
        }
    };
    idle(Penguins::shared().IDLE, penguinIdleCommands, animations.animationPenguinIdle, true, Timers::PenguinIdle);
    idle(Penguins::shared().IDLE2, penguinIdle2Commands, animations.animationPenguinIdle2, true, Timers::PenguinIdle2);
    idle(Seals::shared().IDLE, sealIdleCommands, animations.animationSealIdle, false, Timers::SealIdleAnim);

    const double s = timers.get(Timers::SealWalkSpline);
    const float walkPhase = timers.get(Timers::SealWalkAnim);
    const auto& walking = Seals::shared().WALKING;
    for (std::size_t i = 0; i < walking.size() && i < sealWalkingCommands.size(); ++i) {
        const SplineAnimatedObjectInfo& info = walking[i];
        if (!info.spline) {
            continue;
        }
        DrawTransformedMeshCommand& seal = *sealWalkingCommands[i];
        const Vec3 position = info.spline->getCurrentPoint(s);
        const float heading = info.spline->getRotationLegacy(s).z;
        setAnimationUniforms(animations.animationSealWalk, seal.uniforms, false, walkPhase + info.animTimerOffset);
        seal.transform.translation = position;
        seal.transform.rotation.z = heading - 90.0f;
        seal.transform.scale = Vec3(info.scale, info.scale, info.scale);
    }
}

} // namespace scenes::nivalis
