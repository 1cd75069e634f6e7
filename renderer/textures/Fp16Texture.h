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

    /// The largest width or height accepted, the common GPU texture limit.
    static constexpr int MAX_SIZE = 16384;

    /// Bytes that a `width` by `height` image takes.
    static std::size_t byteSize(int width, int height);

    /// Checks a file of `fileSize` bytes against the scene's size: std::invalid_argument for a
    /// size outside 1 to MAX_SIZE, LoadError for an empty file or one shorter than the image.
    static void check(std::size_t fileSize, int width, int height, const std::string& name);

    /// Loads `<directory>/<name>` (the name carries its own extension). Throws
    /// std::runtime_error with "File not found in bundle: " + `name` or
    /// "Cannot read resource " + `name`, and for an empty file or one shorter than the size
    /// needs (LoadError); std::invalid_argument for a size outside 1 to MAX_SIZE. Bytes past the
    /// image are ignored.
    static LoadedTexture load(gl::Gl& gl, const std::string& name, const std::filesystem::path& directory,
                              int width, int height);
};

} // namespace renderer::textures
