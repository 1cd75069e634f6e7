#pragma once

#include "engine/Texture.h"
#include "tools/assetgen/catalogue/TextureContent.h"
#include "tools/assetgen/io/OutputTree.h"

namespace tools::assetgen::catalogue {

/// Writes a texture in the files its description names, as the loaders read them:
///
/// | format          | files                                       | content                      |
/// |-----------------|---------------------------------------------|------------------------------|
/// | RGBA8, RGB8     | `fileName`.webp                             | the image, lossless          |
/// | RGBA16F         | `fileName` as it stands                     | the raw bytes, width x height |
/// | ASTC, mipmaps 0 | `fileName`.astc                             | the image                    |
/// | ASTC, mipmaps M | `fileName`_0.astc ... `fileName`_M.astc     | the image, halved per level  |
class TextureWriter {
public:
    TextureWriter() = delete;

    /// Writes `content` for `texture` of the scene at `resourcesRoot`. Throws
    /// std::invalid_argument when the content does not fit the description: a raw table of the
    /// wrong size, a single-level ASTC image whose width is no multiple of the block width, a
    /// chain that does not halve down to its last level, a format without a loader.
    static void write(io::OutputTree& out, const std::string& resourcesRoot, const engine::Texture& texture,
                      const TextureContent& content);
};

} // namespace tools::assetgen::catalogue
