#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "tools/assetgen/core/Image.h"
#include "tools/assetgen/io/AstcFile.h"

namespace tools::assetgen::catalogue {

/// What a texture holds, before it is put into the file format its description asks for: an
/// image (for WebP and ASTC) or ready bytes (for raw half-float tables).
struct TextureContent {
    /// The picture, level 0 of a mip chain.
    std::optional<core::Image> image;
    /// Raw file bytes, for RGBA16F.
    std::vector<std::uint8_t> raw;
    /// ASTC block size.
    int blockWidth = 4;
    int blockHeight = 4;
    io::AstcFile::Effort effort = io::AstcFile::Effort::MEDIUM;
    /// The next mip level from the one before; halving by 2x2 averages when empty.
    std::function<core::Image(const core::Image& previous, int level)> nextLevel;
};

} // namespace tools::assetgen::catalogue
