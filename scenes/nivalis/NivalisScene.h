#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "engine/Scene.h"
#include "engine/animation/TextureAnimationChunked.h"
#include "engine/camera/CameraPathAnimator.h"
#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/DrawBlurredCommand.h"
#include "engine/commands/DrawStaticMeshCommand.h"
#include "engine/commands/DrawTransformedMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/Hint.h"
#include "engine/commands/UniformTextureValue.h"
#include "engine/commands/VignetteCommand.h"
#include "engine/timers/TimersMap.h"
#include "scenes/nivalis/NivalisSettings.h"

namespace scenes::nivalis {

/// The main wallpaper: a polar sea with mountains, three ships, six birds, penguins and seals,
/// a sun or a star field, and a cloud deck, seen along nine slow camera paths.
///
/// The constructor builds two complete command trees that share their nodes: `sharpTree`
/// (enabled) draws the picture directly; `blurredTree` (disabled) draws the same nodes, birds
/// excepted, into a blurred pass and shows its result. `settings.blurred` picks one. The whole
/// picture is opaque, every draw uses the one disabled blending and the shared depth test, and
/// colour comes from small palette images that the time of day swaps through one shared uniform.
///
/// Each frame (`updateTimers`) advances the timers and the camera, then `animate` writes the
/// settings, the matrices, the flags of the time of day and every moving value into the tree.
/// Nothing is allocated on that path.
class NivalisScene : public engine::Scene {
public:
    using UniformList = std::vector<std::shared_ptr<engine::commands::UniformValue>>;

    /// The scene's phases, filled by initializeTimers.
    engine::timers::TimersMap timers;
    /// The camera: nine paths of at least 23 s each (times `settings.cameraPeriod`), 2 s flights
    /// between them, eased; starts on path 0 from its beginning.
    engine::camera::CameraPathAnimator cameraAnimator;

    /// First top-level group: the main pass drawn directly. Enabled unless `settings.blurred`.
    std::shared_ptr<engine::commands::GroupCommand> sharpTree;
    /// Second top-level group: the blurred pass, then a main pass showing its result.
    std::shared_ptr<engine::commands::GroupCommand> blurredTree;
    /// "blurred-main": id 0, minSize 220, brightness 0.91, KERNEL_4; the sharp tree's nodes
    /// without the birds.
    std::shared_ptr<engine::commands::BlurredPassCommand> blurredPass;
    /// The clear colour and a colour-and-depth clear, shared by all three passes.
    std::shared_ptr<engine::commands::GroupCommand> clearGroup;
    /// "clear color": magenta, a warning colour that the sky always covers.
    std::shared_ptr<engine::commands::ClearColorCommand> clearColor;
    /// The vignette, shared by both trees; follows `settings.vignette`.
    std::shared_ptr<engine::commands::VignetteCommand> vignette;
    /// "draw blurred": shows the result of blurred pass 0 in the blurred tree.
    std::shared_ptr<engine::commands::DrawBlurredCommand> drawBlurred;
    /// One 4x4 shading-rate hint, carried by every draw except the water and the sky.
    std::shared_ptr<engine::commands::HintList> coarseShadingHints;

    /// What the host may change; read again at every frame.
    NivalisSettings settings;

    /// The palette of the time of day, one object shared by every palette draw.
    std::shared_ptr<engine::commands::UniformTextureValue> uniformPaletteTexture;
    /// The sky of the time of day.
    std::shared_ptr<engine::commands::UniformTextureValue> uniformSkyTexture;
    /// Near mountains: matrix, palette.
    UniformList uniformsMountains;
    /// Distant mountains: matrix, palette, fog colour (4), fog range (2).
    UniformList uniformsDistantMountains;
    /// Water: matrix, caustics texture, small phase, large phase, scale, two floats, four floats,
    /// near colour, far colour.
    UniformList uniformsWater;
    /// Stars: matrix, colour.
    UniformList uniformsStars;
    /// Clouds: matrix, colour, pulse.
    UniformList uniformsClouds;

    /// The cloud deck, turned about Z once in five minutes.
    std::shared_ptr<engine::commands::DrawTransformedMeshCommand> commandClouds;
    /// The star field, on at night only.
    std::shared_ptr<engine::commands::DrawStaticMeshCommand> commandStars;
    /// Six birds circling in two groups; on whenever it is light.
    std::shared_ptr<engine::commands::GroupCommand> groupBirds;
    /// Three ships on their courses; on whenever it is light.
    std::shared_ptr<engine::commands::GroupCommand> groupShips;
    /// The four groups of live animals below; on whenever it is light.
    std::shared_ptr<engine::commands::GroupCommand> groupAnimalsAnimated;
    /// One static model of sleeping animals, on at night only.
    std::shared_ptr<engine::commands::GroupCommand> groupAnimalsSleeping;
    /// Nine idle penguins.
    std::shared_ptr<engine::commands::GroupCommand> groupPenguinsIdle;
    /// Six penguins of the second idle loop.
    std::shared_ptr<engine::commands::GroupCommand> groupPenguinsIdle2;
    /// Eight idle seals.
    std::shared_ptr<engine::commands::GroupCommand> groupSealIdle;
    /// Three walking seals.
    std::shared_ptr<engine::commands::GroupCommand> groupSealWalking;
    /// The high sun, on unless the sun is low.
    std::shared_ptr<engine::commands::DrawStaticMeshCommand> commandSun;
    /// The low sun of sunrise and sunset.
    std::shared_ptr<engine::commands::DrawStaticMeshCommand> commandSunLow;

    /// Camera speed; high enough that every path takes its minimum duration.
    float cameraSpeed = kCameraSpeed;
    /// Shortest camera path time in milliseconds, before `settings.cameraPeriod`.
    float cameraMinDuration = kCameraMinDuration;
    /// Time of a flight to the next path, in milliseconds.
    float cameraTransitionDuration = kCameraTransitionDuration;
    /// Declared for hosts that animate the field of view; the scene does not read it.
    float FOV_TRANSITION = 20.0f;
    /// Radius of the birds' circles.
    float BIRD_FLIGHT_RADIUS = 19000.0f;
    /// Pi in single precision.
    float PIf = 3.1415927f;

    /// Builds the assets lists, the timers, the camera on path 0 and both trees.
    NivalisScene();

    /// Does nothing: the tree is complete after construction.
    void initialize() override;
    /// The frame: timers, camera, animate(), then `lastFrameTime`.
    void updateTimers(double time) override;

    /// Writes one frame into the tree: settings, projection, view, the flags, palette and sky of
    /// the time of day, birds, ships, animals, water, fog, stars and clouds, and the matrices of
    /// every transformed draw. Throws std::out_of_range for a time of day outside the catalogue.
    void animate();
    /// Carries `settings` into the tree (trees, vignette, camera coefficient) and, near the end of
    /// a path, may cut to a random path when `settings.autoSwitchCameras` is set.
    void applySettings();
    /// Starts the flight to the next path.
    void nextCamera();
    /// Cuts to a random other path, flown backwards one time in two; does nothing during a flight.
    void randomCamera();
    /// Writes the animation uniforms 2, 3 and 5 of one animated draw for the phase
    /// fmod(`time`, 1); `pingPong` plays forward then back within one period.
    void setAnimationUniforms(const engine::animation::TextureAnimationChunked& animation,
                              const UniformList& uniforms, bool pingPong, float time);

private:
    static constexpr float kCameraSpeed = 1000000.0f;
    static constexpr float kCameraMinDuration = 23000.0f;
    static constexpr float kCameraTransitionDuration = 2000.0f;

    // Typed views of the groups' draws, in group order, so that the frame casts nothing.
    std::vector<std::shared_ptr<engine::commands::DrawTransformedMeshCommand>> birdCommands;
    std::vector<std::shared_ptr<engine::commands::DrawTransformedMeshCommand>> shipCommands;
    std::vector<std::shared_ptr<engine::commands::DrawStaticMeshCommand>> penguinIdleCommands;
    std::vector<std::shared_ptr<engine::commands::DrawStaticMeshCommand>> penguinIdle2Commands;
    std::vector<std::shared_ptr<engine::commands::DrawStaticMeshCommand>> sealIdleCommands;
    std::vector<std::shared_ptr<engine::commands::DrawTransformedMeshCommand>> sealWalkingCommands;

    void buildTree();
    void animateBirds();
    void animateShips();
    void animateAnimals();
};

} // namespace scenes::nivalis
