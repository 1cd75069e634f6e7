#pragma once

#include <array>
#include <memory>
#include <vector>

#include "engine/Texture.h"

namespace scenes::nivalis {

/// The scene's fifteen textures, built once on first use; all 2D. Three entries look odd and are
/// meant so: the water's mipmapped filter is its `magFilter`; the second penguin texture carries
/// the same `name` as the first (textures are told apart by object, not by name); the animation
/// textures repeat and filter by nearest texel although they hold vertex data.
class Textures {
public:
    /// "palette-day", RGBA8, nearest, clamped.
    std::shared_ptr<engine::Texture> texPaletteDay;
    /// "palette-night".
    std::shared_ptr<engine::Texture> texPaletteNight;
    /// "palette-sunrise".
    std::shared_ptr<engine::Texture> texPaletteSunrise;
    /// "palette-sunset".
    std::shared_ptr<engine::Texture> texPaletteSunset;
    /// "sky-day", RGBA8, linear, clamped.
    std::shared_ptr<engine::Texture> texSkyDay;
    /// "sky-night".
    std::shared_ptr<engine::Texture> texSkyNight;
    /// "sky-sunrise".
    std::shared_ptr<engine::Texture> texSkySunrise;
    /// "sky-sunset".
    std::shared_ptr<engine::Texture> texSkySunset;
    /// "blue-noise-16", ASTC, nearest, repeated: the sky's dither.
    std::shared_ptr<engine::Texture> texNoise;
    /// "caustics1", ASTC with 6 mipmaps; min LINEAR, mag LINEAR_MIPMAP_LINEAR.
    std::shared_ptr<engine::Texture> texWater;
    /// "bird", file "bird.rgba.fp16", RGBA16F 133 x 4.
    std::shared_ptr<engine::Texture> texBird;
    /// "penguin-idle", file "penguin/idle/animal.rgba.fp16", RGBA16F 341 x 16.
    std::shared_ptr<engine::Texture> texPenguinIdle;
    /// "penguin-idle" as well, file "penguin/idle2/animal.rgba.fp16", RGBA16F 238 x 11.
    std::shared_ptr<engine::Texture> texPenguinIdle2;
    /// "seal-idle", file "seal/idle/animal.rgba.fp16", RGBA16F 263 x 10.
    std::shared_ptr<engine::Texture> texSealIdle;
    /// "seal-walk", file "seal/walk/animal.rgba.fp16", RGBA16F 263 x 13.
    std::shared_ptr<engine::Texture> texSealWalk;

    /// All fifteen, in the order above.
    std::vector<std::shared_ptr<engine::Texture>> textures;
    /// The palettes, indexed by the ordinal of TimeOfDay.
    std::array<std::shared_ptr<engine::Texture>, 4> palettes;
    /// The skies, indexed by the ordinal of TimeOfDay.
    std::array<std::shared_ptr<engine::Texture>, 4> skies;

    /// The one instance.
    static const Textures& shared();

private:
    Textures();
};

} // namespace scenes::nivalis
