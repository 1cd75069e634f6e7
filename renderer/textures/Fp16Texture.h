#pragma once

#include <filesystem>
#include <string>

#include "renderer/gl/Gl.h"
#include "renderer/textures/LoadedTexture.h"

namespace renderer::textures {

/// Raw half-float images such as the vertex animation tables ("bird.rgba.fp16"): no header,
/// `width` * `height` pixels of four IEEE half floats (red, green, blue, alpha), 8 bytes a pixel,
/// rows one after another without padding. The size is not in the file; the scene's texture
/// description gives it. Uploaded as GL_RGBA16F with one level, so that a vertex stage can read
/// exact values with texelFetch.
class Fp16Texture {
public:
    Fp16Texture() = delete;

    /// Bytes that a `width` by `height` image takes.
    static std::size_t byteSize(int width, int height);

    /// Loads `<directory>/<name>` (the name carries its own extension). Throws
    /// std::runtime_error with "File not found in bundle: " + `name` or
    /// "Cannot read resource " + `name`, and for an empty file or one shorter than the size
    /// needs; std::invalid_argument for a size below 1. Bytes past the image are ignored.
    static LoadedTexture load(gl::Gl& gl, const std::string& name, const std::filesystem::path& directory,
                              int width, int height);
};

} // namespace renderer::textures
