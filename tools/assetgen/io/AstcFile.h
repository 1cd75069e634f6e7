#pragma once

#include <cstdint>
#include <vector>

#include "tools/assetgen/core/Image.h"

namespace tools::assetgen::io {

/// ASTC files in the standard 16-byte container (magic, block size, 24-bit image size), LDR,
/// encoded with libastcenc. Encoding is deterministic: the same pixels give the same bytes.
class AstcFile {
public:
    AstcFile() = delete;

    /// Search effort of the encoder, from quick to thorough.
    enum class Effort { FAST, MEDIUM, THOROUGH };

    /// The whole file for `image` in blocks of `blockWidth` x `blockHeight`.
    /// Throws std::runtime_error when the encoder refuses.
    static std::vector<std::uint8_t> encode(const core::Image& image, int blockWidth, int blockHeight,
                                            Effort effort);
};

} // namespace tools::assetgen::io
