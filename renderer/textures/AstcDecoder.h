#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "renderer/textures/AstcFormat.h"

namespace renderer::textures {

/// Decodes ASTC blocks into RGBA8 pixels on the processor, for drivers without
/// GL_KHR_texture_compression_astc_ldr. The blocks are decoded as linear LDR data, the same as
/// the GPU formats that the loader would pick, so both paths give the same picture.
class AstcDecoder {
public:
    AstcDecoder() = delete;

    /// Decodes `blocks` (the blocks of one image level, row by row, `format`'s block size) into
    /// `width` * `height` RGBA8 pixels, first block row first. Throws std::runtime_error when
    /// `blocks` holds fewer blocks than the size needs, or when the decoder refuses.
    static std::vector<std::uint8_t> decode(std::span<const std::byte> blocks, const AstcFormat& format, int width,
                                            int height);
};

} // namespace renderer::textures
