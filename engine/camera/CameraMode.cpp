#include "engine/camera/CameraMode.h"

namespace engine::camera {

std::string_view toString(CameraMode mode) {
    switch (mode) {
    case CameraMode::ROTATING:
        return "ROTATING";
    case CameraMode::RANDOM_POSITIONS:
        return "RANDOM_POSITIONS";
    case CameraMode::FIXED:
        return "FIXED";
    }
    return "";
}

int value(CameraMode mode) { return static_cast<int>(mode); }

} // namespace engine::camera
