#pragma once

#include <string_view>

namespace engine::camera {

/// Whether the camera rides along a path or flies to the middle of the next one.
enum class CameraState : int {
    ANIMATING = 0,
    TRANSITIONING = 1,
};

/// The constant's name: "ANIMATING", "TRANSITIONING".
std::string_view toString(CameraState state);
/// The integer value of the constant, equal to its ordinal.
int value(CameraState state);

} // namespace engine::camera
