#pragma once

#include <string_view>

namespace engine::camera {

/// How a scene's settings want the camera to move; the animator itself doesn't read it.
enum class CameraMode : int {
    ROTATING = 0,
    RANDOM_POSITIONS = 1,
    FIXED = 2,
};

/// The constant's name: "ROTATING", "RANDOM_POSITIONS", "FIXED".
std::string_view toString(CameraMode mode);
/// The integer value of the constant, equal to its ordinal.
int value(CameraMode mode);

} // namespace engine::camera
