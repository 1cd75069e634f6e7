#include "tools/assetgen/io/AstcFile.h"

#include <astcenc.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

namespace tools::assetgen::io {

namespace {

void check(astcenc_error status, const char* what) {
    if (status != ASTCENC_SUCCESS) {
        throw std::runtime_error(std::string(what) + ": " + astcenc_get_error_string(status));
    }
}

void put24(std::vector<std::uint8_t>& bytes, unsigned value) {
    bytes.push_back(static_cast<std::uint8_t>(value & 0xFFu));
    bytes.push_back(static_cast<std::uint8_t>((value >> 8) & 0xFFu));
    bytes.push_back(static_cast<std::uint8_t>((value >> 16) & 0xFFu));
}

} // namespace

std::vector<std::uint8_t> AstcFile::encode(const core::Image& image, int blockWidth, int blockHeight, Effort effort) {
    const float quality = effort == Effort::FAST     ? ASTCENC_PRE_FAST
                          : effort == Effort::MEDIUM ? ASTCENC_PRE_MEDIUM
                                                     : ASTCENC_PRE_THOROUGH;
    astcenc_config config{};
    check(astcenc_config_init(ASTCENC_PRF_LDR, static_cast<unsigned>(blockWidth), static_cast<unsigned>(blockHeight),
                              1, quality, 0, &config),
          "ASTC configuration");

    constexpr unsigned threads = 2;
    astcenc_context* raw = nullptr;
    check(astcenc_context_alloc(&config, threads, &raw), "ASTC context");
    std::unique_ptr<astcenc_context, decltype(&astcenc_context_free)> context(raw, &astcenc_context_free);

    std::vector<std::uint8_t> pixels = image.toRgba8();
    void* slices[1] = {pixels.data()};
    astcenc_image source{static_cast<unsigned>(image.width()), static_cast<unsigned>(image.height()), 1,
                         ASTCENC_TYPE_U8, slices};
    const astcenc_swizzle swizzle{ASTCENC_SWZ_R, ASTCENC_SWZ_G, ASTCENC_SWZ_B, ASTCENC_SWZ_A};

    const unsigned blocksX = (static_cast<unsigned>(image.width()) + blockWidth - 1) / blockWidth;
    const unsigned blocksY = (static_cast<unsigned>(image.height()) + blockHeight - 1) / blockHeight;
    std::vector<std::uint8_t> blocks(static_cast<std::size_t>(blocksX) * blocksY * 16);

    astcenc_error results[threads] = {ASTCENC_SUCCESS, ASTCENC_SUCCESS};
    std::thread helper([&] {
        results[1] = astcenc_compress_image(context.get(), &source, &swizzle, blocks.data(), blocks.size(), 1);
    });
    results[0] = astcenc_compress_image(context.get(), &source, &swizzle, blocks.data(), blocks.size(), 0);
    helper.join();
    check(results[0], "ASTC encoding");
    check(results[1], "ASTC encoding");

    std::vector<std::uint8_t> file = {0x13, 0xAB, 0xA1, 0x5C, static_cast<std::uint8_t>(blockWidth),
                                      static_cast<std::uint8_t>(blockHeight), 1};
    put24(file, static_cast<unsigned>(image.width()));
    put24(file, static_cast<unsigned>(image.height()));
    put24(file, 1);
    file.insert(file.end(), blocks.begin(), blocks.end());
    return file;
}

} // namespace tools::assetgen::io
