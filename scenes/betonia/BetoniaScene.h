#pragma once

#include <cstdint>
#include <memory>

#include "engine/Scene.h"
#include "engine/camera/CameraPathAnimator.h"
#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/DrawBlurredCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/Hint.h"
#include "engine/commands/VignetteCommand.h"
#include "engine/math/Vec4.h"
#include "engine/timers/TimersMap.h"
#include "scenes/betonia/BetoniaSettings.h"
#include "scenes/betonia/DrawClockCommand.h"

namespace scenes::betonia {

/// Two concrete interiors with baked lighting, shown one at a time: a room of textured meshes, a
/// soft additive glow from a blurred copy of the same room, a vignette and a clock marker, and a
/// camera that wanders along hand-placed paths and now and then changes the room.
///
/// The first top-level group holds the two bloom passes (one per room) and the main pass; the
/// second draws both rooms (only the enabled one shows) into a blurred pass and shows that, for
/// use as a background. `settings.blurred` picks one. The scene opens in room 2.
class BetoniaScene : public engine::Scene {
public:
    /// Stays empty: the camera keeps its own clock.
    engine::timers::TimersMap timers;
    /// The camera: the paths of the room shown, at least 22 s each (times
    /// `settings.cameraPeriod`), 3.5 s flights between them, eased.
    engine::camera::CameraPathAnimator cameraAnimator;
    /// What a host may change; read again at every frame.
    BetoniaSettings settings;
    /// Declared for hosts that animate the field of view; not read.
    float FOV_TRANSITION = 20.0f;
    /// The clear colour in every mode but sepia.
    engine::math::Vec4 colorWhite{1.0f, 1.0f, 1.0f, 1.0f};
    /// The clear colour in sepia mode.
    engine::math::Vec4 colorSepia{0.74f, 0.55f, 0.3f, 1.0f};

    /// Builds the asset lists, both trees and the camera on the first path of room 2.
    BetoniaScene();

    /// Does nothing: the tree is complete after construction.
    void initialize() override;
    /// The frame: timers, camera, animate(), then `lastFrameTime`.
    void updateTimers(double time) override;

    /// Writes one frame: settings, projection, view, and the matrices of every draw.
    void animate();
    /// Carries `settings` into the tree (trees, bloom kernels, shading hint, vignette, clock, clear
    /// colour, camera coefficient) and, near the end of a path, may change camera or room.
    void applySettings();
    /// Starts the flight to the next path of the room shown.
    void nextCamera();
    /// A hard cut to the other room, on a random one of its paths.
    void nextRoom();
    /// The host's request for something new: the next path (a smooth flight) or, by chance, the
    /// other room; nothing during a flight.
    void nextCameraOrRoom();
    /// The scene's own change: the other room by chance (likelier from room 1), else a cut to a
    /// random path flown either way; nothing during a flight.
    void randomCameraOrNextRoom();

private:
    static constexpr float kCameraSpeed = 1000000.0f;
    static constexpr float kCameraMinDuration = 22000.0f;
    static constexpr float kCameraTransitionDuration = 3500.0f;

    std::shared_ptr<engine::commands::GroupCommand> clearGroup;
    std::shared_ptr<engine::commands::ClearColorCommand> clearColor;
    std::shared_ptr<engine::commands::GroupCommand> room1;
    std::shared_ptr<engine::commands::GroupCommand> room2;
    std::shared_ptr<engine::commands::GroupCommand> room1Blurred;
    std::shared_ptr<engine::commands::GroupCommand> room2Blurred;
    std::shared_ptr<engine::commands::BlurredPassCommand> bloom1;
    std::shared_ptr<engine::commands::BlurredPassCommand> bloom2;
    std::shared_ptr<engine::commands::BlurredPassCommand> blurredMain;
    std::shared_ptr<engine::commands::DrawBlurredCommand> drawBloom;
    std::shared_ptr<engine::commands::DrawBlurredCommand> drawBlurred;
    std::shared_ptr<engine::commands::VignetteCommand> vignette;
    std::shared_ptr<DrawClockCommand> clock;
    std::shared_ptr<engine::commands::GroupCommand> mainGroup;
    std::shared_ptr<engine::commands::GroupCommand> blurredGroup;
    /// Starts with HINT_VRS_NONE; element 0 follows `settings.lowQuality`.
    std::shared_ptr<engine::commands::HintList> sharedHints;

    void buildTree();
};

} // namespace scenes::betonia
