#include "renderer/textures/AstcInfo.h"

#include <stdexcept>

namespace renderer::textures {

namespace {

int byteAt(std::span<const std::byte> file, std::size_t offset) { return std::to_integer<int>(file[offset]); }

int uint24At(std::span<const std::byte> file, std::size_t offset) {
    return byteAt(file, offset) | (byteAt(file, offset + 1) << 8) | (byteAt(file, offset + 2) << 16);
}

} // namespace

AstcInfo AstcInfo::parse(std::span<const std::byte> file, const std::string& name) {
    if (file.size() < HEADER_SIZE) {
        throw std::runtime_error("Truncated ASTC header in " + name);
    }
    AstcInfo info;
    info.blockWidth = byteAt(file, 4);
    info.blockHeight = byteAt(file, 5);
    info.width = uint24At(file, 7);
    info.height = uint24At(file, 10);
    return info;
}

std::string AstcInfo::toString() const {
    return "AstcInfo(width=" + std::to_string(width) + ", height=" + std::to_string(height) +
           ", blockWidth=" + std::to_string(blockWidth) + ", blockHeight=" + std::to_string(blockHeight) + ")";
}

} // namespace renderer::textures
