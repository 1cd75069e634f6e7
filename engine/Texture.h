#pragma once

#include <cstdint>
#include <string>

#include "engine/TextureFiltering.h"
#include "engine/TextureFormat.h"
#include "engine/TextureType.h"
#include "engine/TextureWrapping.h"

namespace engine {

/// A texture that a scene names. Made with no arguments, a 2D RGBA8 texture with linear filters,
/// repeat wrapping, no mipmaps and no anisotropy; a scene then fills in what differs. The renderer
/// loads it from `<resourcesRoot>/textures/<fileName>...` and records where it put it in `id` and
/// `loaded`. Held through shared pointers by the scene's list and by texture uniforms.
class Texture {
public:
    /// Dimensionality.
    TextureType type = TextureType::TEX_2D;
    /// The scene's label.
    std::string name;
    /// Stem of the texture file.
    std::string fileName;
    /// Filter when a texel covers less than a pixel.
    TextureFiltering minFilter = TextureFiltering::LINEAR;
    /// Filter when a texel covers more than a pixel.
    TextureFiltering magFilter = TextureFiltering::LINEAR;
    /// Wrapping on both axes.
    TextureWrapping wrapping = TextureWrapping::REPEAT;
    /// Pixel format of the file.
    TextureFormat format = TextureFormat::RGBA8;
    /// Position in the renderer's arrays, written at load.
    std::int32_t id = 0;
    /// Width in pixels, where the file format needs it from the scene.
    std::int32_t width = 0;
    /// Height in pixels, where the file format needs it from the scene.
    std::int32_t height = 0;
    /// Levels held by the file; above 0 the renderer loads mipmaps.
    std::int32_t mipmaps = 0;
    /// Largest anisotropy; 2 and above turns anisotropic filtering on.
    std::int32_t anisotropy = 0;
    /// Set by the renderer once the texture exists.
    bool loaded = false;

    /// "Texture(type=TEX_2D, name=..., fileName=..., minFilter=LINEAR, ..., loaded=false)".
    std::string toString() const;
};

} // namespace engine
