#pragma once

namespace scenes::spirelight {

/// What a host may change in the night city. Written between frames; read again at every frame.
class SpirelightSettings {
public:
    /// Coefficient on the shortest camera path time.
    float cameraPeriod = 1.0f;
    /// Strength of the building lights; the buildings' shader gets 1 - lights.
    float lights = 1.0f;
    /// Shows the vignette.
    bool vignette = true;
    /// Swaps the sharp tree for the blurred one.
    bool blurred = false;
    /// Lets the scene cut to a random camera path near the end of a path.
    bool autoSwitchCameras = true;
    /// Clears `additionalBlur` of both blurred passes; nothing else.
    bool lowQuality = false;
    /// Stored; the scene draws no clock.
    bool clock = false;
};

} // namespace scenes::spirelight
