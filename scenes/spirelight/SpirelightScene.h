#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "engine/Blending.h"
#include "engine/Scene.h"
#include "engine/camera/CameraPathAnimator.h"
#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/DrawBlurredCommand.h"
#include "engine/commands/DrawStaticMeshCommand.h"
#include "engine/commands/DrawTransformedMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/Hint.h"
#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/VignetteCommand.h"
#include "engine/math/Vec3.h"
#include "engine/timers/TimersMap.h"
#include "scenes/spirelight/SpirelightSettings.h"

namespace scenes::spirelight {

/// A night city: towers on a dark sea, neon signs, red warning lamps and six aircraft lights
/// circling over the towers, with bloom on what shines.
///
/// Unlike Nivalis the picture is built on additive light. The sharp tree first draws the
/// emissive parts (the towers' bloom copy, the red lights, the neon) into an off-screen pass that
/// is blurred, then the main pass draws the opaque city, the additive neon and aircraft lights,
/// and adds the blurred bloom on top. The blurred tree draws a reduced city into a blurred pass
/// and shows it. `settings.blurred` picks one of the two.
///
/// Per frame only the trees, the vignette, the light strength, the aircraft positions and the
/// eye position change. Nothing is allocated on that path.
class SpirelightScene : public engine::Scene {
public:
    using UniformList = std::vector<std::shared_ptr<engine::commands::UniformValue>>;

    /// The two circles of the aircraft lights.
    engine::timers::TimersMap timers;
    /// The camera: five paths of at least 29 s each (times `settings.cameraPeriod`), 2 s flights
    /// between them, eased; starts on path 0.
    engine::camera::CameraPathAnimator cameraAnimator;
    /// What a host may change; read again at every frame.
    SpirelightSettings settings;
    /// The star field, scaled to 0.055.
    std::shared_ptr<engine::commands::DrawTransformedMeshCommand> commandStars;
    /// The towers as seen: base colour (0.33, 0.33, 0.33, 1), (0.3, 0.3, 0.3, 1), 1.8.
    std::shared_ptr<engine::commands::DrawStaticMeshCommand> commandBuildings;
    /// The towers in the bloom pass: no base colour, only what emits light.
    std::shared_ptr<engine::commands::DrawStaticMeshCommand> commandBuildingsBloom;
    /// Pi in single precision.
    float PIf = 3.1415927f;

    /// Builds the asset lists, the timers, the camera on path 0 and both trees.
    SpirelightScene();

    /// Does nothing: the tree is complete after construction.
    void initialize() override;
    /// The frame: timers, camera, animate(), then `lastFrameTime`.
    void updateTimers(double time) override;

    /// Writes one frame: settings, projection, view, aircraft, matrices, and the eye position
    /// for the towers' reflections.
    void animate();
    /// Carries `settings` into the tree (trees, vignette, the passes' extra-blur flag, light
    /// strength, camera coefficient) and, near the end of a path, may cut to a random path.
    void applySettings();
    /// Moves the six aircraft lights along their circles and sizes their sprites to the viewport.
    void updatePlanes();
    /// One aircraft's place: `result.x` = sin(angle) R + centerX, `result.y` = cos(angle) R +
    /// centerY, R being the flight radius; z is left alone.
    void updatePlanePosition(float angle, float centerX, float centerY, engine::math::Vec3& result) const;
    /// Starts the flight to the next path.
    void nextCamera();
    /// Cuts to a random other path, flown backwards one time in two; does nothing during a flight.
    void randomCamera();
    /// Travel backwards along the path for an impulse of 0 or more, forwards for a negative one.
    void changeSpeedImpulse(float impulse);

private:
    static constexpr float kCameraSpeed = 1000000.0f;
    static constexpr float kCameraMinDuration = 29000.0f;
    static constexpr float kCameraTransitionDuration = 2000.0f;

    std::shared_ptr<engine::commands::GroupCommand> sharpTree;
    std::shared_ptr<engine::commands::GroupCommand> blurredTree;
    std::shared_ptr<engine::commands::BlurredPassCommand> blurredPass;
    std::shared_ptr<engine::commands::BlurredPassCommand> bloomPass;
    std::shared_ptr<engine::commands::GroupCommand> clearGroup;
    std::shared_ptr<engine::commands::ClearColorCommand> clearColor;
    std::shared_ptr<engine::commands::VignetteCommand> vignette;
    std::shared_ptr<engine::commands::DrawBlurredCommand> drawBlurred;
    std::shared_ptr<engine::commands::DrawBlurredCommand> drawBloom;
    std::shared_ptr<engine::commands::HintList> coarseShadingHints;
    /// The fog's colour, the first of `fogUniforms`.
    std::shared_ptr<engine::commands::UniformFloatValue> fogColor;
    /// Fog colour, start and end, shared by the distant buildings, islands and water.
    UniformList fogUniforms;
    /// The six aircraft lights: one point each, no mesh.
    std::array<std::shared_ptr<engine::commands::DrawTransformedMeshCommand>, 6> planes;
    /// Point size, sprite texture and colour, shared by all six aircraft lights.
    UniformList planeUniforms;
    float cameraSpeed = kCameraSpeed;
    float cameraMinDuration = kCameraMinDuration;
    float cameraTransitionDuration = kCameraTransitionDuration;
    /// Declared for hosts that animate the field of view; not read.
    float FOV_TRANSITION = 100.0f;
    float fogStart = 2300.0f;
    float fogEnd = 2500.0f;
    float planeFlightRadius = 990.0f;

    void buildTree();
};

} // namespace scenes::spirelight
