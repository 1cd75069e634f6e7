#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "renderer/gl/Gl.h"
#include "renderer/textures/LoadedTexture.h"

namespace renderer::textures {

/// Plain images in WebP, decoded with libwebp into RGBA8 without any colour conversion and
/// uploaded as one level, first row first. The size comes from the file.
class WebpTexture {
public:
    /// Decoded pixels: `width` * `height` RGBA8, first row first.
    struct Pixels {
        int width = 0;
        int height = 0;
        std::vector<std::uint8_t> rgba;
    };

    /// The largest width or height accepted.
    static constexpr int MAX_SIZE = 8192;

    WebpTexture() = delete;

    /// Decodes a WebP file held in memory. Throws LoadError with "Cannot read texture " + `name`
    /// when it is no WebP image, its size is outside 1 to MAX_SIZE pixels each way (checked
    /// before any pixel is allocated) or its data is cut short or corrupt.
    static Pixels decode(std::span<const std::byte> file, const std::string& name);
    /// Loads `<directory>/<name>` (the name carries its ".webp"). Throws std::runtime_error with
    /// "Texture file not found in bundle: " + `name` when it is absent and
    /// "Cannot read texture " + `name` when it cannot be read or decoded.
    static LoadedTexture load(gl::Gl& gl, const std::string& name, const std::filesystem::path& directory);
};

} // namespace renderer::textures
