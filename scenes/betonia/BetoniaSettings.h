#pragma once

#include "engine/common/ColorMode.h"

namespace scenes::betonia {

/// What a host may change in the concrete rooms. Written between frames; read again at every frame.
class BetoniaSettings {
public:
    /// Sepia turns the clear colour warm; the other modes act on nothing here.
    engine::common::ColorMode colorMode = engine::common::ColorMode::Normal;
    /// Coefficient on the shortest camera path time.
    float cameraPeriod = 1.0f;
    /// Narrower bloom kernels and a coarser shading hint.
    bool lowQuality = false;
    /// Shows the vignette.
    bool vignette = true;
    /// Shows the clock command.
    bool clock = false;
    /// Shows the whole scene blurred, as a background.
    bool blurred = false;
    /// Lets the scene change camera, and now and then room, by itself.
    bool autoSwitchCameras = true;
};

} // namespace scenes::betonia
