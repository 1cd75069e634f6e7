#pragma once

#include "scenes/nivalis/TimeOfDay.h"

namespace scenes::nivalis {

/// What the host may change in the scene. The host writes these fields between frames and the
/// scene carries them into its tree at the head of every frame, so a change needs no notification.
class NivalisSettings {
public:
    /// Selects the colours, the palette and the sky.
    TimeOfDay timeOfDay = TimeOfDay::Day;
    /// Coefficient on the shortest camera path time: 1.0 gives 23 s paths, 2.0 doubles that.
    float cameraPeriod = 1.0f;
    /// Shows the vignette.
    bool vignette = true;
    /// Swaps the sharp tree for the blurred one.
    bool blurred = false;
    /// Lets the scene cut to a random camera path near the end of a path.
    bool autoSwitchCameras = true;
    /// Stored for hosts that draw a clock; the scene itself draws none.
    bool clock = false;
    /// Stored; the scene has one quality only.
    bool lowQuality = false;
};

} // namespace scenes::nivalis
