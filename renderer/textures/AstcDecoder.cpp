#include "renderer/textures/AstcDecoder.h"

#include <astcenc.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace renderer::textures {

namespace {

struct ContextDeleter {
    void operator()(astcenc_context* context) const { astcenc_context_free(context); }
};

[[noreturn]] void fail(const char* step, astcenc_error error) {
    throw std::runtime_error(std::string("ASTC decoding failed in ") + step + ": " + astcenc_get_error_string(error));
}

} // namespace

std::vector<std::uint8_t> AstcDecoder::decode(std::span<const std::byte> blocks, const AstcFormat& format, int width,
                                               int height) {
    if (width < 0 || height < 0) {
        throw std::runtime_error("ASTC image of negative size");
    }
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    if (pixels.empty()) {
        return pixels;
    }
    const std::size_t needed = static_cast<std::size_t>(format.blocksAcross(width)) *
                               static_cast<std::size_t>(format.blocksDown(height)) * 16;
    if (blocks.size() < needed) {
        throw std::runtime_error("ASTC data holds " + std::to_string(blocks.size()) + " bytes where " +
                                 std::to_string(needed) + " are needed");
    }
    astcenc_config config{};
    astcenc_error error = astcenc_config_init(ASTCENC_PRF_LDR, static_cast<unsigned>(format.blockWidth),
                                              static_cast<unsigned>(format.blockHeight), 1, ASTCENC_PRE_FASTEST,
                                              ASTCENC_FLG_DECOMPRESS_ONLY, &config);
    if (error != ASTCENC_SUCCESS) {
        fail("configuration", error);
    }
    astcenc_context* raw = nullptr;
    error = astcenc_context_alloc(&config, 1, &raw);
    if (error != ASTCENC_SUCCESS) {
        fail("context allocation", error);
    }
    const std::unique_ptr<astcenc_context, ContextDeleter> context(raw);

    void* slices[] = {pixels.data()};
    astcenc_image image{};
    image.dim_x = static_cast<unsigned>(width);
    image.dim_y = static_cast<unsigned>(height);
    image.dim_z = 1;
    image.data_type = ASTCENC_TYPE_U8;
    image.data = slices;
    const astcenc_swizzle identity{ASTCENC_SWZ_R, ASTCENC_SWZ_G, ASTCENC_SWZ_B, ASTCENC_SWZ_A};
    error = astcenc_decompress_image(context.get(), reinterpret_cast<const std::uint8_t*>(blocks.data()), needed,
                                     &image, &identity, 0);
    if (error != ASTCENC_SUCCESS) {
        fail("decompression", error);
    }
    return pixels;
}

} // namespace renderer::textures
