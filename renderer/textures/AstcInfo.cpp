#include "renderer/textures/AstcInfo.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>
#include <utility>

#include "renderer/textures/AstcFormat.h"
#include "renderer/textures/LoadError.h"

namespace renderer::textures {

namespace {

int byteAt(std::span<const std::byte> file, std::size_t offset) { return std::to_integer<int>(file[offset]); }

int uint24At(std::span<const std::byte> file, std::size_t offset) {
    return byteAt(file, offset) | (byteAt(file, offset + 1) << 8) | (byteAt(file, offset + 2) << 16);
}

constexpr std::array<std::byte, 4> MAGIC = {std::byte{0x13}, std::byte{0xAB}, std::byte{0xA1}, std::byte{0x5C}};

// The two-dimensional block sizes of the format.
constexpr std::array<std::pair<int, int>, 14> BLOCK_SIZES = {{{4, 4},
                                                              {5, 4},
                                                              {5, 5},
                                                              {6, 5},
                                                              {6, 6},
                                                              {8, 5},
                                                              {8, 6},
                                                              {8, 8},
                                                              {10, 5},
                                                              {10, 6},
                                                              {10, 8},
                                                              {10, 10},
                                                              {12, 10},
                                                              {12, 12}}};

std::string hex32(std::span<const std::byte> file) {
    char text[16];
    const unsigned value = static_cast<unsigned>(byteAt(file, 0)) | static_cast<unsigned>(byteAt(file, 1)) << 8 |
                           static_cast<unsigned>(byteAt(file, 2)) << 16 | static_cast<unsigned>(byteAt(file, 3)) << 24;
    std::snprintf(text, sizeof text, "0x%08X", value);
    return text;
}

} // namespace

AstcInfo AstcInfo::read(std::span<const std::byte> file, const std::string& fileName) {
    if (file.size() < HEADER_SIZE) {
        throw LoadError(fileName, "header cut short at " + std::to_string(file.size()) + " bytes");
    }
    if (!std::equal(MAGIC.begin(), MAGIC.end(), file.begin())) {
        throw LoadError(fileName, "magic " + hex32(file) + " is not the ASTC magic");
    }
    const AstcInfo info = parse(file, fileName);
    const int blockDepth = byteAt(file, 6);
    const int depth = uint24At(file, 13);
    const std::pair<int, int> blockSize{info.blockWidth, info.blockHeight};
    if (std::find(BLOCK_SIZES.begin(), BLOCK_SIZES.end(), blockSize) == BLOCK_SIZES.end()) {
        throw LoadError(fileName, "block size " + std::to_string(info.blockWidth) + "x" +
                                      std::to_string(info.blockHeight) + " is not an ASTC block size");
    }
    if (blockDepth != 1 || depth != 1) {
        throw LoadError(fileName, "depth " + std::to_string(depth) + " in blocks " + std::to_string(blockDepth) +
                                      " deep: only flat images are read");
    }
    if (info.width < 1 || info.height < 1 || info.width > MAX_SIZE || info.height > MAX_SIZE) {
        throw LoadError(fileName, "size " + std::to_string(info.width) + "x" + std::to_string(info.height) +
                                      " is outside 1 to " + std::to_string(MAX_SIZE) + " pixels");
    }
    const AstcFormat format = AstcFormat::forBlockSize(info.blockWidth, info.blockHeight);
    const std::size_t needed = static_cast<std::size_t>(format.blocksAcross(info.width)) *
                               static_cast<std::size_t>(format.blocksDown(info.height)) * 16;
    const std::size_t present = file.size() - HEADER_SIZE;
    if (present != needed) {
        throw LoadError(fileName, std::to_string(present) + " bytes of blocks where " + std::to_string(info.width) +
                                      "x" + std::to_string(info.height) + " in " + format.toString().substr(5) +
                                      " blocks needs " + std::to_string(needed));
    }
    return info;
}

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
