#pragma once

#include "scenes/nivalis/TimeOfDay.h"
#include "tools/assetgen/core/Image.h"
#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::nivalis {

/// The sky: a sphere around the centre of the world, seen from inside, and its four gradient
/// images. The sphere reaches 30 degrees below the horizon so that the sea's far edge always
/// has sky behind it. Texture coordinates: u runs once around (azimuth / 360, from +X towards
/// +Y), v from the zenith (0) to the lowest ring (1), so an image reads like a picture of the sky.
class SkyDome {
public:
    /// Elevation of the lowest ring in degrees.
    static constexpr double LOWEST = -30.0;

    SkyDome() = delete;

    /// The sphere with positions and UV0.
    static mesh::MeshData mesh();
    /// The gradient for `time`, `width` x `height`: clear cool blue by day, gold at sunrise,
    /// violet and rose at sunset, deep blue at night, each with the glow of its sun or moon.
    static core::Image image(scenes::nivalis::TimeOfDay time, int width, int height);
    /// Elevation in degrees at texture coordinate v.
    static double elevationAt(double v) { return 90.0 - v * (90.0 - LOWEST); }
};

} // namespace tools::assetgen::nivalis
