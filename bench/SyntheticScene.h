#pragma once

#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

#include "engine/Blending.h"
#include "engine/DepthMode.h"
#include "engine/Mesh.h"
#include "engine/Scene.h"
#include "engine/SetUniform.h"
#include "engine/Shader.h"
#include "engine/Texture.h"
#include "engine/camera/CameraPathAnimator.h"
#include "engine/camera/CameraPositionPair.h"
#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/ClearCommand.h"
#include "engine/commands/DrawBlurredCommand.h"
#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/DrawStaticMeshCommand.h"
#include "engine/commands/DrawTransformedMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/MainPassCommand.h"
#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/UniformIntValue.h"
#include "engine/commands/UniformTextureValue.h"
#include "engine/commands/VignetteCommand.h"
#include "engine/commands/VrsHint.h"
#include "engine/math/Matrix.h"
#include "engine/timers/TimersMap.h"

namespace engine::testing {

/// A scene shaped like the real ones, for measuring the frame path: a blurred pass and a main
/// pass sharing five groups of ten transformed draws (two of which take turns), a few static draws, a plain draw moved
/// through setMvpUniform, a switched-off group, a shared hint list, timers and a camera animator
/// over three paths. Its frame writes settings-like values, toggles a group, rewrites transforms
/// and uniforms and then runs the matrix walk, as a concrete scene's animate() does.
class SyntheticScene : public Scene {
public:
    enum class Timers { Rotation, Pulse, Fade };

    static constexpr int GROUPS = 5;
    static constexpr int DRAWS_PER_GROUP = 10;

    timers::TimersMap timers;
    camera::CameraPathAnimator cameraAnimator{1000000.0f, 22000.0f, 3500.0f, true};

    /// Every transformed (moving) draw, in tree order.
    std::vector<std::shared_ptr<commands::DrawTransformedMeshCommand>> movers;
    std::vector<std::shared_ptr<commands::GroupCommand>> groups;
    std::shared_ptr<commands::GroupCommand> hiddenGroup;
    std::shared_ptr<commands::DrawMeshCommand> plainDraw;
    std::shared_ptr<commands::ClearColorCommand> clearColor;
    std::shared_ptr<commands::VignetteCommand> vignette;
    std::shared_ptr<commands::BlurredPassCommand> blurredPass;
    std::shared_ptr<commands::HintList> sharedHints;
    std::shared_ptr<commands::UniformFloatValue> fogColor;
    std::shared_ptr<commands::UniformFloatValue> pulse;
    std::shared_ptr<commands::UniformIntValue> frameIndex;
    std::shared_ptr<commands::UniformTextureValue> palette;
    std::shared_ptr<Texture> paletteDay;
    std::shared_ptr<Texture> paletteNight;
    std::int32_t frames = 0;
    bool lowQuality = false;

    SyntheticScene() {
        using namespace commands;
        FOV_LANDSCAPE = 60.0f;
        FOV_PORTRAIT = 80.0f;
        Z_NEAR = 20.0f;
        Z_FAR = 10000.0f;

        timers.add(Timers::Rotation, 20000.0f);
        timers.add(Timers::Pulse, 1500.0f);
        timers.add(Timers::Fade, 4000.0f, false);

        auto layout = std::make_shared<MeshAttributes>(
            std::vector<MeshAttribute>{{AttributeType::VERTEX, VertexFormat::HALF3, 0},
                                       {AttributeType::UV0, VertexFormat::HALF2, 6}},
            12);
        auto mesh = std::make_shared<Mesh>("rock", layout);
        auto shader = std::make_shared<Shader>("Diffuse");
        paletteDay = std::make_shared<Texture>();
        paletteNight = std::make_shared<Texture>();
        meshes = {mesh};
        shaders = {shader};
        textures = {paletteDay, paletteNight};
        auto state = std::make_shared<DrawMeshState>(shader, BLENDING_NONE, DEPTH_TEST_ENABLED, CullFace::BACK, nullptr);

        fogColor = std::make_shared<UniformFloatValue>(std::vector<float>{0.1f, 0.1f, 0.1f, 1.0f});
        pulse = std::make_shared<UniformFloatValue>(std::vector<float>{0.0f});
        frameIndex = std::make_shared<UniformIntValue>(std::vector<std::int32_t>{0, 0});
        palette = std::make_shared<UniformTextureValue>(paletteDay);
        sharedHints = std::make_shared<HintList>(HintList{HINT_VRS_NONE});

        for (int g = 0; g < GROUPS; ++g) {
            auto group = std::make_shared<GroupCommand>();
            for (int d = 0; d < DRAWS_PER_GROUP; ++d) {
                const float x = static_cast<float>(g * 400 - 800);
                const float y = static_cast<float>(d * 150 - 700);
                const AffineTranformation at({x, y, 0.0f}, {0.0f, 0.0f, static_cast<float>(d * 36)}, {1, 1, 1});
                // Half the draws take the model matrix as well, as lit models do.
                const bool lit = d % 2 == 0;
                std::vector<std::shared_ptr<UniformValue>> uniforms{matrix(), palette, fogColor, pulse};
                if (lit) {
                    uniforms.push_back(matrix());
                }
                auto draw = std::make_shared<DrawTransformedMeshCommand>(mesh, uniforms, state, at, 0, lit ? 4 : -1,
                                                                         -1, -1, PrimitiveType::TRIANGLES);
                draw->hints = sharedHints;
                movers.push_back(draw);
                group->commands.push_back(draw);
            }
            groups.push_back(group);
        }

        auto statics = std::make_shared<GroupCommand>();
        for (int s = 0; s < 6; ++s) {
            const AffineTranformation at({static_cast<float>(s * 100), 0, -50}, {90, 0, static_cast<float>(s * 60)},
                                         {2, 2, 2});
            statics->commands.push_back(std::make_shared<DrawStaticMeshCommand>(
                mesh, std::vector<std::shared_ptr<UniformValue>>{matrix(), matrix(), matrix(), matrix(), palette},
                state, at, 0, 1, 2, 3, PrimitiveType::TRIANGLES));
        }

        hiddenGroup = std::make_shared<GroupCommand>();
        hiddenGroup->enabled = false;
        hiddenGroup->commands.push_back(std::make_shared<DrawTransformedMeshCommand>(
            mesh, std::vector<std::shared_ptr<UniformValue>>{matrix()}, state, AffineTranformation(), 0, -1, -1, -1,
            PrimitiveType::TRIANGLES));

        plainDraw = std::make_shared<DrawMeshCommand>(
            mesh, std::vector<std::shared_ptr<UniformValue>>{matrix(), frameIndex}, state, PrimitiveType::POINTS, -1);

        clearColor = std::make_shared<ClearColorCommand>();
        clearColor->name = "clear color";
        auto clearGroup = std::make_shared<GroupCommand>(
            true, std::vector<std::shared_ptr<Command>>{clearColor, std::make_shared<ClearCommand>()});
        vignette = std::make_shared<VignetteCommand>();

        blurredPass = std::make_shared<BlurredPassCommand>();
        blurredPass->name = "blurred-main";
        blurredPass->commands = {clearGroup, groups[0], groups[1], statics, vignette};

        auto mainPass = std::make_shared<MainPassCommand>();
        mainPass->commands.push_back(clearGroup);
        for (const auto& group : groups) {
            mainPass->commands.push_back(group);
        }
        mainPass->commands.push_back(statics);
        mainPass->commands.push_back(hiddenGroup);
        mainPass->commands.push_back(plainDraw);
        mainPass->commands.push_back(nullptr);
        mainPass->commands.push_back(std::make_shared<DrawBlurredCommand>());
        mainPass->commands.push_back(vignette);
        commands = {blurredPass, mainPass};

        auto path = [](float x0, float y0, float x1, float y1) {
            return std::make_shared<camera::CameraPositionPair>(
                camera::CameraPosition({x0, y0, 100.0f}, {0.0f, 0.0f, 50.0f}),
                camera::CameraPosition({x1, y1, 120.0f}, {10.0f, 10.0f, 40.0f}), 1.0f);
        };
        cameraAnimator.setCameras({path(-2000, -2000, 2000, -1500), path(1500, 2000, -1500, 1800),
                                   path(0, -3000, 100, 3000)},
                                  false);
        viewportWidth = 1920;
        viewportHeight = 1080;
    }

    void updateTimers(double time) override {
        timers.iterate(time);
        cameraAnimator.animate(time);
        animate();
        lastFrameTime = time;
    }

    void updateViewportSize(std::int32_t width, std::int32_t height) override {
        viewportWidth = width;
        viewportHeight = height;
    }

    void animate() {
        ++frames;
        // Settings are applied again every frame.
        blurredPass->blurSize = lowQuality ? commands::BlurSize::KERNEL_2 : commands::BlurSize::KERNEL_4;
        (*sharedHints)[0] = lowQuality ? commands::HINT_VRS_2X2 : commands::HINT_VRS_NONE;
        palette->value = (frames / 100) % 2 == 0 ? paletteDay : paletteNight;
        hiddenGroup->enabled = false;
        // Two groups of equal size take turns, so every frame walks the same number of draws.
        const bool firstShown = (frames / 50) % 2 == 0;
        groups[GROUPS - 2]->enabled = firstShown;
        groups[GROUPS - 1]->enabled = !firstShown;

        calculateProjection(1.0f, viewportWidth, viewportHeight);
        const math::Vec3& eye = cameraAnimator.positionInterpolator.cameraPosition;
        const math::Vec3& target = cameraAnimator.positionInterpolator.cameraRotation;
        if (!useExternalViewMatrix) {
            math::Matrix::setLookAtM(matView, 0, eye.x, eye.y, eye.z, target.x, target.y, target.z, 0.0f, 0.0f, 1.0f);
        }

        const float turn = timers.get(Timers::Rotation) * 360.0f;
        const float wave = std::sin(timers.get(Timers::Pulse) * 6.2831855f);
        for (std::size_t i = 0; i < movers.size(); ++i) {
            auto& transform = movers[i]->transform;
            transform.rotation.z = turn + static_cast<float>(i) * 7.2f;
            transform.translation.z = wave * 10.0f;
            transform.scale.x = transform.scale.y = transform.scale.z = 1.0f + 0.1f * wave;
        }
        setUniform(pulse, wave);
        setUniform(fogColor, math::Vec4(0.145f, 0.137f, 0.141f, timers.get(Timers::Fade)));
        setUniform(frameIndex, frames, frames % 7);
        clearColor->color = math::Vec4(0.0f, 10.0f / 255.0f, 20.0f / 255.0f, 1.0f);
        vignette->color0 = math::Vec4(0.45f, 0.45f, 0.45f, 1.0f);

        updateMeshTransformations(commands);
        setMvpUniform(plainDraw->uniforms[0], 0.0f, 0.0f, 500.0f, 0.0f, 0.0f, turn, 3.0f, 3.0f, 3.0f);
    }

private:
    static std::shared_ptr<commands::UniformFloatValue> matrix() {
        return std::make_shared<commands::UniformFloatValue>(std::vector<float>(16, 0.0f));
    }
};

} // namespace engine::testing
