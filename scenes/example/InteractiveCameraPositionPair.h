#pragma once

#include <string>
#include <utility>

#include "engine/camera/CameraPositionPair.h"

namespace scenes::example {

/// A camera path with a label and a flag saying whether a host may let the user steer along it.
/// Neither extra field is read by the scene or the engine.
class InteractiveCameraPositionPair : public engine::camera::CameraPositionPair {
public:
    /// A label for the path.
    std::string name;
    /// Whether the path is meant for user control.
    bool interactive = false;

    /// A path (start, end, speedMultiplier) with its label and flag.
    InteractiveCameraPositionPair(const engine::camera::CameraPosition& start, const engine::camera::CameraPosition& end,
                                  float speedMultiplier, std::string name, bool interactive)
        : CameraPositionPair(start, end, speedMultiplier), name(std::move(name)), interactive(interactive) {}
};

} // namespace scenes::example
