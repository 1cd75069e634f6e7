#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "renderer/gl/Gl.h"
#include "renderer/textures/AstcFormat.h"
#include "renderer/textures/AstcInfo.h"
#include "renderer/textures/LoadedTexture.h"

namespace renderer::loaders {

/// Loading of ASTC-compressed textures from `.astc` files: one file for a texture without
/// mipmaps, or one file per level (`<fileName>_<level>.astc`). The blocks go to the GPU as they
/// stand where the driver decodes ASTC (GL_KHR_texture_compression_astc_ldr); elsewhere they are
/// decoded to RGBA8 on the processor first. The header's block size picks the format, 4 by 4
/// for sizes outside the table.
///
/// Row lengths follow the two loaders' own rules: a single-level file is read with
/// (`width` / `blockWidth`) * 16 bytes a block row, the division truncated, a level of a
/// mipmapped texture with the count of blocks rounded up. For widths that are a multiple of the
/// block width, as the asset generator makes them, both are the plain layout; otherwise the
/// single-level rule reads each row one block short, overlapping the next.
///
/// Each file is checked whole before anything is allocated for it (AstcInfo::read): magic, block
/// size, image size and a block count that fills the image exactly.
///
/// Every failure throws std::runtime_error (std::invalid_argument for a negative mip count),
/// a textures::LoadError naming the file for anything wrong with a file: "File not found in
/// bundle: " + name, "Cannot read resource " + name, an empty file, a header that fails its
/// checks. The caller turns it into the "Cannot load texture" stop.
class AstcTexture {
public:
    /// Where ASTC blocks are decoded.
    enum class Decoding {
        /// On the GPU where the driver can, else on the processor.
        AUTO,
        /// Always on the GPU (compressed upload).
        GPU,
        /// Always on the processor (RGBA8 upload).
        CPU,
    };

    AstcTexture() = delete;

    /// Whether `decoding` means a compressed upload on the context behind `gl`.
    static bool uploadsCompressed(const gl::Gl& gl, Decoding decoding);

    /// Loads `<directory>/<fileName>.astc` into a texture with one level.
    static textures::LoadedTexture load(gl::Gl& gl, const std::string& fileName,
                                        const std::filesystem::path& directory, Decoding decoding = Decoding::AUTO);
    /// Loads `<directory>/<fileName>_0.astc` to `<fileName>_<mipCount>.astc`, both included,
    /// into the levels 0 to `mipCount` of one texture. The first file sets the format and size.
    static textures::LoadedTexture loadMipmapped(gl::Gl& gl, const std::string& fileName,
                                                 const std::filesystem::path& directory, int mipCount,
                                                 Decoding decoding = Decoding::AUTO);

    /// The blocks of one level as the GPU reads them: `format`'s count of blocks across and down
    /// the `width` by `height` level, block row r taken from byte r * `rowBytes` of `blocks`.
    /// Throws std::runtime_error naming `name` when `blocks` ends before the last block needed.
    static std::vector<std::byte> levelBlocks(std::span<const std::byte> blocks, const textures::AstcFormat& format,
                                              int width, int height, std::size_t rowBytes, const std::string& name);
};

} // namespace renderer::loaders
