#include "tools/assetgen/io/WebpFile.h"

#include <webp/encode.h>

#include <stdexcept>

namespace tools::assetgen::io {

std::vector<std::uint8_t> WebpFile::encode(const core::Image& image) {
    const std::vector<std::uint8_t> pixels = image.toRgba8();
    std::uint8_t* output = nullptr;
    const std::size_t size =
        WebPEncodeLosslessRGBA(pixels.data(), image.width(), image.height(), image.width() * 4, &output);
    if (size == 0 || output == nullptr) {
        throw std::runtime_error("WebP encoding failed");
    }
    std::vector<std::uint8_t> file(output, output + size);
    WebPFree(output);
    return file;
}

} // namespace tools::assetgen::io
