// A `.webp` file, as the texture loader decodes it.
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>

#include "renderer/textures/WebpTexture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using renderer::textures::WebpTexture;
    try {
        const auto pixels = WebpTexture::decode({reinterpret_cast<const std::byte*>(data), size}, "fuzz.webp");
        if (pixels.rgba.size() !=
            static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height) * 4) {
            __builtin_trap();
        }
    } catch (const std::runtime_error&) {
    }
    return 0;
}
