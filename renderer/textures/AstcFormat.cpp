#include "renderer/textures/AstcFormat.h"

#include <array>

namespace renderer::textures {

AstcFormat AstcFormat::forBlockSize(int blockWidth, int blockHeight) {
    static constexpr std::array<AstcFormat, 13> table = {{
        {GL_COMPRESSED_RGBA_ASTC_5x4_KHR, 5, 4},
        {GL_COMPRESSED_RGBA_ASTC_5x5_KHR, 5, 5},
        {GL_COMPRESSED_RGBA_ASTC_6x5_KHR, 6, 5},
        {GL_COMPRESSED_RGBA_ASTC_6x6_KHR, 6, 6},
        {GL_COMPRESSED_RGBA_ASTC_8x5_KHR, 8, 5},
        {GL_COMPRESSED_RGBA_ASTC_8x6_KHR, 8, 6},
        {GL_COMPRESSED_RGBA_ASTC_8x8_KHR, 8, 8},
        {GL_COMPRESSED_RGBA_ASTC_10x5_KHR, 10, 5},
        {GL_COMPRESSED_RGBA_ASTC_10x6_KHR, 10, 6},
        {GL_COMPRESSED_RGBA_ASTC_10x8_KHR, 10, 8},
        {GL_COMPRESSED_RGBA_ASTC_10x10_KHR, 10, 10},
        {GL_COMPRESSED_RGBA_ASTC_12x10_KHR, 12, 10},
        {GL_COMPRESSED_RGBA_ASTC_12x12_KHR, 12, 12},
    }};
    for (const AstcFormat& format : table) {
        if (format.blockWidth == blockWidth && format.blockHeight == blockHeight) {
            return format;
        }
    }
    return AstcFormat{};
}

std::string AstcFormat::toString() const {
    return "ASTC_" + std::to_string(blockWidth) + "x" + std::to_string(blockHeight);
}

} // namespace renderer::textures
