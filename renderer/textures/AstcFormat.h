#pragma once

#include <epoxy/gl.h>

#include <string>

namespace renderer::textures {

/// The GPU format that ASTC blocks are read with: the linear (never sRGB) LDR format of a block
/// size, and that block size. Every block size outside the thirteen of the table reads as 4 by 4.
struct AstcFormat {
    /// GL_COMPRESSED_RGBA_ASTC_<w>x<h>_KHR.
    GLenum glFormat = GL_COMPRESSED_RGBA_ASTC_4x4_KHR;
    int blockWidth = 4;
    int blockHeight = 4;

    /// The format for a header's block size; 4 by 4 for any pair outside the table, without a
    /// word (so 8 by 7 reads as 4 by 4 blocks).
    static AstcFormat forBlockSize(int blockWidth, int blockHeight);

    /// Blocks across an image `width` pixels wide (rounded up).
    int blocksAcross(int width) const { return (width + blockWidth - 1) / blockWidth; }
    /// Blocks down an image `height` pixels high (rounded up).
    int blocksDown(int height) const { return (height + blockHeight - 1) / blockHeight; }

    bool operator==(const AstcFormat&) const = default;
    /// "ASTC_6x5".
    std::string toString() const;
};

} // namespace renderer::textures
