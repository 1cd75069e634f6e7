#pragma once

#include "tools/assetgen/betonia/Interior.h"

namespace tools::assetgen::betonia {

/// The two concrete interiors, sized around their camera paths (every eye inside, clear of
/// pillars and walls by more than the near plane).
///
/// Room 1: a hall of 3850 x 3750 x 1100 with four pillars, two tall windows to the west with the
/// afternoon sun coming through, a ribbon window high on the east wall, a skylight, a doorway to
/// the south and a wide opening to the north, each with bright daylight behind it.
///
/// Room 2: a hall of 3950 x 3150 x 1750 with a sunken pit, a gallery along the north wall, four
/// pillars, tall windows to the east with the morning sun, clerestory windows to the south and a
/// long window above the gallery. Part 0 is the concrete shell, part 1 the hanging light strips,
/// part 2 the window glass.
class Rooms {
public:
    Rooms() = delete;

    static Interior room1();
    static Interior room2();
};

} // namespace tools::assetgen::betonia
