#pragma once

#include <memory>
#include <vector>

#include "engine/Texture.h"

namespace scenes::spirelight {

/// The night city's ten textures, built once on first use; all ASTC, `name` equal to
/// `fileName`, sizes taken from the files.
class Textures {
public:
    /// "sky-night": linear, clamped.
    std::shared_ptr<engine::Texture> texSky;
    /// "blue-noise-16": nearest, repeated; the sky's dither.
    std::shared_ptr<engine::Texture> texNoise;
    /// "diffuse2": the towers' base colour, 11 mipmaps.
    std::shared_ptr<engine::Texture> texBuildingsDiffuse;
    /// "emission2": the towers' lit windows, 11 mipmaps.
    std::shared_ptr<engine::Texture> texBuildingsEmission;
    /// "cubemaps/1/sky": the towers' reflections, a cube map.
    std::shared_ptr<engine::Texture> texBuildingsCubemap;
    /// "distant": 8 mipmaps, linear.
    std::shared_ptr<engine::Texture> texBuildingsDistant;
    /// "neon": the signs on screen, 9 mipmaps.
    std::shared_ptr<engine::Texture> texNeon;
    /// "flare": the red lights' sprite, 3 mipmaps.
    std::shared_ptr<engine::Texture> texFlare;
    /// "dust": the aircraft lights' sprite, nearest.
    std::shared_ptr<engine::Texture> texDust;
    /// "neon2": the signs in the bloom, 5 mipmaps.
    std::shared_ptr<engine::Texture> texNeon2;

    /// All ten, in the order above.
    std::vector<std::shared_ptr<engine::Texture>> textures;

    /// The one instance.
    static const Textures& shared();

private:
    Textures();
};

} // namespace scenes::spirelight
