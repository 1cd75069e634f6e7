#pragma once

#include "scenes/nivalis/TimeOfDay.h"
#include "tools/assetgen/core/Image.h"

namespace tools::assetgen::nivalis {

/// The scene's colours. Models carry no colour of their own: each vertex holds a palette
/// coordinate that names a material and how much light it gets (lit snow, shaded rock, hull,
/// beak...). The four palette images share this one layout, so swapping the image repaints the
/// whole world for another time of day. Every row of an image is the same, so a shader may read
/// any row.
class Palette {
public:
    /// A material: its first column and how many shades (lit first, darkest last) follow it.
    struct Swatch {
        int column;
        int shades;
    };

    static constexpr Swatch SNOW{0, 4};
    static constexpr Swatch ROCK{4, 4};
    static constexpr Swatch ICE{8, 4};
    static constexpr Swatch ICE_CLIFF{12, 4};
    static constexpr Swatch SHORE{16, 2};
    static constexpr Swatch DISTANT_SNOW{18, 2};
    static constexpr Swatch DISTANT_ROCK{20, 2};
    static constexpr Swatch HULL{24, 2};
    static constexpr Swatch HULL_RED{26, 1};
    static constexpr Swatch DECK{27, 1};
    static constexpr Swatch CABIN{28, 2};
    static constexpr Swatch FUNNEL{30, 1};
    static constexpr Swatch FUNNEL_BAND{31, 1};
    static constexpr Swatch WINDOW{32, 1};
    static constexpr Swatch MAST{33, 1};
    static constexpr Swatch PENGUIN_BACK{36, 2};
    static constexpr Swatch PENGUIN_BELLY{38, 2};
    static constexpr Swatch PENGUIN_BEAK{40, 1};
    static constexpr Swatch PENGUIN_NECK{41, 1};
    static constexpr Swatch SEAL{42, 2};
    static constexpr Swatch SEAL_BELLY{44, 1};
    static constexpr Swatch SEAL_DARK{45, 1};
    static constexpr Swatch SUN_CORE{48, 1};
    static constexpr Swatch SUN_RIM{49, 1};

    /// Columns of each image.
    static constexpr int WIDTH = 64;
    /// Rows of each image, all alike.
    static constexpr int HEIGHT = 4;

    Palette() = delete;

    /// The coordinate of the centre of `swatch`'s shade `shade` (0 = lit), clamped to its shades.
    static double u(Swatch swatch, int shade = 0);
    /// The palette image for `time`.
    static core::Image image(scenes::nivalis::TimeOfDay time);
};

} // namespace tools::assetgen::nivalis
