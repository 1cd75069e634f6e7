// A raw half-float table, as the texture loader checks it against a scene's size, and its
// values as a vertex stage reads them. The input's first four bytes are the scene's width and
// height (16 bits each, little-endian), the rest the file.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>

#include "renderer/loaders/HalfFloat.h"
#include "renderer/textures/Fp16Texture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using renderer::textures::Fp16Texture;
    if (size < 4) {
        return 0;
    }
    const int width = data[0] | data[1] << 8;
    const int height = data[2] | data[3] << 8;
    const std::size_t fileSize = size - 4;
    try {
        Fp16Texture::check(fileSize, width, height, "fuzz.rgba.fp16");
    } catch (const std::logic_error&) {
        return 0;
    } catch (const std::runtime_error&) {
        return 0;
    }
    const std::size_t needed = Fp16Texture::byteSize(width, height);
    if (needed > fileSize) {
        __builtin_trap();
    }
    float sum = 0;
    for (std::size_t at = 4; at + 1 < 4 + needed; at += 2) {
        std::uint16_t half = 0;
        std::memcpy(&half, data + at, 2);
        sum += renderer::loaders::HalfFloat::toFloat(half);
    }
    volatile float sink = sum;
    (void)sink;
    return 0;
}
