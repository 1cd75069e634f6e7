#pragma once

#include <cstdint>
#include <vector>

#include "tools/assetgen/core/Image.h"

namespace tools::assetgen::io {

/// WebP files, written lossless with libwebp: palettes must keep their exact colours, and skies
/// their smooth gradients.
class WebpFile {
public:
    WebpFile() = delete;

    /// The lossless WebP file of `image`. Throws std::runtime_error when libwebp fails.
    static std::vector<std::uint8_t> encode(const core::Image& image);
};

} // namespace tools::assetgen::io
