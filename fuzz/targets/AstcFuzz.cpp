// An `.astc` file, as the texture loader reads it: header checks, the block rows of the
// single-level layout, and decoding on the processor.
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>

#include "renderer/loaders/AstcTexture.h"
#include "renderer/textures/AstcDecoder.h"
#include "renderer/textures/AstcFormat.h"
#include "renderer/textures/AstcInfo.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace renderer;
    const std::span<const std::byte> file(reinterpret_cast<const std::byte*>(data), size);
    try {
        const auto info = textures::AstcInfo::read(file, "fuzz.astc");
        const auto format = textures::AstcFormat::forBlockSize(info.blockWidth, info.blockHeight);
        const auto blocks = file.subspan(textures::AstcInfo::HEADER_SIZE);
        const auto rowBytes = static_cast<std::size_t>(format.blocksAcross(info.width)) * 16;
        const auto level = loaders::AstcTexture::levelBlocks(blocks, format, info.width, info.height, rowBytes, "fuzz");
        const auto pixels = textures::AstcDecoder::decode(level, format, info.width, info.height);
        if (pixels.size() != static_cast<std::size_t>(info.width) * static_cast<std::size_t>(info.height) * 4) {
            __builtin_trap();
        }
    } catch (const std::runtime_error&) {
    }
    return 0;
}
