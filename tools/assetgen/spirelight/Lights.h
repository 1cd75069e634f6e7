#pragma once

#include "tools/assetgen/core/Image.h"

namespace tools::assetgen::spirelight {

/// The night city's textures, painted: facades and their lit windows (one layout, so that a
/// window glows where the facade has glass), the neon signs, the far skyline, the sky's gradient
/// and the stacked faces of the sky around the city that the glass reflects, and the sprites.
/// Everything is seeded and the same on every run.
class Lights {
public:
    Lights() = delete;

    /// "diffuse2": City::COLUMNS x City::FLOORS windows of 16 x 16 texels in three styles and a
    /// plain roof band; alpha is how glassy a texel is.
    static core::Image facades();
    /// "emission2": the windows that are lit, warm or cold, in the same layout.
    static core::Image windows();
    /// "neon": 4 x 4 signs of 128 x 64 texels on black; "neon2" is it made small.
    static core::Image neon();
    /// "distant": the far skyline's walls, dark with a scatter of lit windows.
    static core::Image distant();
    /// "sky-night": the gradient from the zenith (row 0) to below the horizon, as the dome's v.
    static core::Image sky();
    /// "cubemaps/1/sky": six faces of `size` texels stacked +x, -x, +y, -y, +z, -z.
    static core::Image skyFaces(int size);
    /// "flare": a soft round glow with faint rays.
    static core::Image flare(int size);
    /// "dust": a small soft dot.
    static core::Image dust(int size);
};

} // namespace tools::assetgen::spirelight
