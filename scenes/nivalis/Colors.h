#pragma once

#include <array>

#include "scenes/nivalis/SceneColors.h"

namespace scenes::nivalis {

/// The colours of the four times of day, built once on first use.
class Colors {
public:
    /// One record per time of day, indexed by the ordinal of TimeOfDay (Day, Night, Sunrise, Sunset).
    std::array<SceneColors, 4> COLORS;

    /// The one instance.
    static const Colors& shared();

private:
    Colors();
};

} // namespace scenes::nivalis
