#include "engine/camera/CameraState.h"

namespace engine::camera {

std::string_view toString(CameraState state) {
    switch (state) {
    case CameraState::ANIMATING:
        return "ANIMATING";
    case CameraState::TRANSITIONING:
        return "TRANSITIONING";
    }
    return "";
}

int value(CameraState state) { return static_cast<int>(state); }

} // namespace engine::camera
