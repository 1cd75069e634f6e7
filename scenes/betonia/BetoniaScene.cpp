#include "scenes/betonia/BetoniaScene.h"

#include <string>
#include <vector>

#include "engine/Blending.h"
#include "engine/CullFace.h"
#include "engine/DepthMode.h"
#include "engine/VertexAttributesDescriptor.h"
#include "engine/commands/ClearCommand.h"
#include "engine/commands/DrawTransformedMeshCommand.h"
#include "engine/commands/MainPassCommand.h"
#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/UniformTextureValue.h"
#include "engine/commands/VrsHint.h"
#include "engine/math/Random.h"
#include "scenes/betonia/Cameras.h"
#include "scenes/betonia/Meshes.h"
#include "scenes/betonia/Shaders.h"
#include "scenes/betonia/Textures.h"
#include "scenes/common/DrawBlurredResult.h"
#include "scenes/common/FrameCycle.h"
#include "scenes/common/TreeParts.h"

namespace scenes::betonia {

using engine::AttributeType;
using engine::VertexAttribute;
using engine::VertexFormat;
using engine::commands::AffineTranformation;
using engine::commands::BlurSize;
using engine::commands::Command;
using engine::commands::DrawMeshState;
using engine::commands::DrawTransformedMeshCommand;
using engine::commands::GroupCommand;
using engine::commands::HintList;
using engine::commands::PrimitiveType;
using engine::math::Vec4;

namespace {

using Parts = common::TreeParts;

std::shared_ptr<engine::commands::BlurredPassCommand> blurredPass(const std::string& name, bool enabled,
                                                                  std::int32_t id, std::int32_t minSize,
                                                                  float brightness, BlurSize blurSize) {
    auto pass = std::make_shared<engine::commands::BlurredPassCommand>();
    pass->name = name;
    pass->enabled = enabled;
    pass->id = id;
    pass->minSize = minSize;
    pass->brightness = brightness;
    pass->blurSize = blurSize;
    return pass;
}

std::shared_ptr<HintList> coarseHints() {
    return std::make_shared<HintList>(HintList{engine::commands::HINT_VRS_4X4});
}

} // namespace

BetoniaScene::BetoniaScene()
    : timers(), cameraAnimator(kCameraSpeed, kCameraMinDuration, kCameraTransitionDuration, true) {
    meshes = Meshes::shared().meshes;
    textures = Textures::shared().textures;
    shaders = Shaders::shared().shaders;

    FOV_LANDSCAPE = 85.0f;
    FOV_PORTRAIT = 100.0f;
    Z_NEAR = 20.0f;
    Z_FAR = 10000.0f;

    buildTree();

    cameraAnimator.cameras = Cameras::shared().CAMERAS[1];
    cameraAnimator.currentCamera = 0;
    cameraAnimator.updateCurrentCamera();
    cameraAnimator.setMinDurationCoefficient(settings.cameraPeriod);
}

void BetoniaScene::buildTree() {
    const Meshes& m = Meshes::shared();
    const Textures& t = Textures::shared();

    const auto diffuseState = [] {
        return std::make_shared<DrawMeshState>(
            Shaders::shared().shaderDiffuse, engine::BLENDING_NONE, engine::DEPTH_TEST_ENABLED, engine::CullFace::BACK,
            std::make_shared<engine::VertexAttributesDescriptor>(
                std::vector{VertexAttribute(AttributeType::VERTEX, 0, VertexFormat::HALF3, 0),
                            VertexAttribute(AttributeType::UV0, 1, VertexFormat::HALF2, 6)},
                12));
    };
    // The glow passes draw the same meshes with equal settings, but through a state object of
    // their own: the renderer skips the state of a draw whose state object is the one it drew
    // last, also across passes, so the main pass's first room draw must not share the object
    // that the glow pass drew last, or it would run with the blur's pipeline.
    const auto roomState = diffuseState();
    const auto glowState = diffuseState();
    const auto draw = [](const std::shared_ptr<DrawMeshState>& state, const std::shared_ptr<engine::Mesh>& mesh,
                         const std::shared_ptr<engine::Texture>& texture, const std::shared_ptr<HintList>& hints) {
        auto command = std::make_shared<DrawTransformedMeshCommand>(
            mesh,
            std::vector<std::shared_ptr<engine::commands::UniformValue>>{
                std::make_shared<engine::commands::UniformFloatValue>(std::vector<float>(16, 0.0f)),
                std::make_shared<engine::commands::UniformTextureValue>(texture)},
            state, AffineTranformation(), 0, -1, -1, -1, PrimitiveType::TRIANGLES);
        command->hints = hints;
        return command;
    };

    sharedHints = std::make_shared<HintList>(HintList{engine::commands::HINT_VRS_NONE});

    clearColor = std::make_shared<engine::commands::ClearColorCommand>();
    clearColor->name = "clear color";
    clearColor->color = colorWhite;
    clearGroup = std::make_shared<GroupCommand>(
        true, std::vector<std::shared_ptr<Command>>{clearColor, std::make_shared<engine::commands::ClearCommand>()});

    room1 = Parts::namedGroup("room1", {draw(roomState, m.meshRoom1, t.texRoom1, sharedHints)});
    room1->enabled = false;
    room2 = Parts::namedGroup("room2", {draw(roomState, m.meshRoom2Part0, t.texRoom20, sharedHints),
                                 draw(roomState, m.meshRoom2Part1, t.texRoom21, coarseHints()),
                                 draw(roomState, m.meshRoom2Part2, t.texRoom22, coarseHints())});
    room1Blurred = Parts::namedGroup("room1-blurred", {draw(glowState, m.meshRoom1, t.texRoom21, coarseHints())});
    room2Blurred = Parts::namedGroup("room2-blurred", {draw(glowState, m.meshRoom2Part0, t.texRoom21, coarseHints()),
                                                draw(glowState, m.meshRoom2Part1, t.texRoom21, coarseHints()),
                                                draw(glowState, m.meshRoom2Part2, t.texRoom22, coarseHints())});

    bloom1 = blurredPass("bloom1", false, 0, 170, 1.0f, BlurSize::KERNEL_5);
    bloom1->commands = {clearGroup, room1Blurred};
    bloom2 = blurredPass("bloom2", true, 1, 170, 1.0f, BlurSize::KERNEL_5);
    bloom2->commands = {clearGroup, room2Blurred};

    auto additive = std::make_shared<engine::Blending>();
    additive->enabled = true;
    additive->sourceFactorColor = engine::BlendingFactor::ONE;
    additive->destinationFactorColor = engine::BlendingFactor::ONE;
    // The glow is always read from result 0, also while room 2's bloom writes result 1.
    drawBloom = std::make_shared<engine::commands::DrawBlurredCommand>();
    drawBloom->name = "draw bloom";
    drawBloom->id = 0;
    drawBloom->blending = additive;

    vignette = std::make_shared<engine::commands::VignetteCommand>();
    vignette->color0 = Vec4(0.4f, 0.4f, 0.4f, 1.0f);
    vignette->color1 = Vec4(1.0f, 1.0f, 1.0f, 1.0f);

    clock = std::make_shared<DrawClockCommand>();
    clock->name = "clock";

    auto mainPass = std::make_shared<engine::commands::MainPassCommand>(
        true, std::vector<std::shared_ptr<Command>>{clearGroup, room1, room2, drawBloom, vignette, clock});
    mainGroup = Parts::namedGroup("mainGroup", {bloom1, bloom2, mainPass});

    blurredMain = blurredPass("blurred-main", true, 2, 200, 0.93f, BlurSize::KERNEL_3);
    blurredMain->commands = {clearGroup, room1, room2, vignette};
    // Like the glow, the blurred picture is read from result 0.
    drawBlurred = common::drawBlurredResult();
    auto blurredMainPass = std::make_shared<engine::commands::MainPassCommand>(
        true, std::vector<std::shared_ptr<Command>>{clearGroup, drawBlurred});
    blurredGroup = Parts::namedGroup("blurredGroup", {blurredMain, blurredMainPass});

    commands = {mainGroup, blurredGroup};
}

void BetoniaScene::initialize() {}

void BetoniaScene::updateTimers(double time) { common::runFrame(*this, time); }

void BetoniaScene::animate() {
    applySettings();
    calculateProjection(1.0f, viewportWidth, viewportHeight);
    lookAt(cameraAnimator.positionInterpolator.cameraPosition,
           cameraAnimator.positionInterpolator.cameraRotation);
    updateMeshTransformations(commands);
}

void BetoniaScene::applySettings() {
    mainGroup->enabled = !settings.blurred;
    blurredGroup->enabled = settings.blurred;
    const BlurSize bloomSize = settings.lowQuality ? BlurSize::KERNEL_3 : BlurSize::KERNEL_5;
    bloom1->blurSize = bloomSize;
    bloom2->blurSize = bloomSize;
    (*sharedHints)[0] = settings.lowQuality ? engine::commands::HINT_VRS_2X2 : engine::commands::HINT_VRS_NONE;
    vignette->enabled = settings.vignette;
    if (cameraAnimator.minDurationCoefficient != settings.cameraPeriod) {
        cameraAnimator.setMinDurationCoefficient(settings.cameraPeriod);
    }
    clock->enabled = settings.clock;
    if (cameraAnimator.positionInterpolator.timer > 0.98f && settings.autoSwitchCameras) {
        if (engine::math::Random::nextFloat() < 0.5f) {
            randomCameraOrNextRoom();
        }
    }
    clearColor->color = settings.colorMode == engine::common::ColorMode::Sepia ? colorSepia : colorWhite;
}

void BetoniaScene::nextCamera() { cameraAnimator.nextCamera(); }

void BetoniaScene::nextRoom() {
    const auto& cameras = Cameras::shared().CAMERAS;
    if (room1->enabled) {
        room1->enabled = false;
        room2->enabled = true;
        bloom1->enabled = false;
        bloom2->enabled = true;
        // Assigning into the existing list reuses its storage: room 2's list set its capacity.
        cameraAnimator.cameras = cameras[1];
    } else if (room2->enabled) {
        room1->enabled = true;
        room2->enabled = false;
        bloom1->enabled = true;
        bloom2->enabled = false;
        cameraAnimator.cameras = cameras[0];
    } else {
        return;
    }
    cameraAnimator.currentCamera = 0;
    cameraAnimator.updateCurrentCamera();
    cameraAnimator.randomCamera();
}

void BetoniaScene::randomCameraOrNextRoom() {
    if (cameraAnimator.state == engine::camera::CameraState::TRANSITIONING) {
        return;
    }
    const float chance = room1->enabled ? 0.75f : 0.25f;
    if (engine::math::Random::nextFloat() < chance) {
        nextRoom();
    } else {
        cameraAnimator.positionInterpolator.reverse = engine::math::Random::nextFloat() < 0.5f;
        cameraAnimator.randomCamera();
    }
}

void BetoniaScene::nextCameraOrRoom() {
    if (cameraAnimator.state == engine::camera::CameraState::TRANSITIONING) {
        return;
    }
    const float chance = room1->enabled ? 0.75f : 0.25f;
    if (!(engine::math::Random::nextFloat() < chance)) {
        cameraAnimator.nextCamera();
    } else {
        nextRoom();
    }
}

} // namespace scenes::betonia
