#pragma once

#include <epoxy/gl.h>

namespace renderer::textures {

/// What a texture loader made: the GL texture and how it was stored. The texture is
/// two-dimensional, its levels 0 to `levels` - 1 are filled and GL_TEXTURE_MAX_LEVEL is set to
/// match, so that it is complete without a sampler (vertex stages read it with texelFetch).
struct LoadedTexture {
    GLuint texture = 0;
    int width = 0;
    int height = 0;
    /// Number of mip levels uploaded (1 without mipmaps).
    int levels = 1;
    /// The internal format: GL_RGBA8, GL_RGBA16F or a GL_COMPRESSED_RGBA_ASTC_* format.
    GLenum internalFormat = GL_RGBA8;

    bool operator==(const LoadedTexture&) const = default;
};

} // namespace renderer::textures
