#include "renderer/headless/PngFile.h"

#include <png.h>

#include <cstring>
#include <stdexcept>

namespace renderer::headless {

std::uint32_t PngFile::Image::rgba(int x, int y) const {
    if (x < 0 || y < 0 || x >= width || y >= height) {
        throw std::out_of_range("Pixel " + std::to_string(x) + "," + std::to_string(y) + " outside the image");
    }
    const std::uint8_t* p = pixels.data() + (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + x) * 4;
    return (std::uint32_t{p[0]} << 24) | (std::uint32_t{p[1]} << 16) | (std::uint32_t{p[2]} << 8) | p[3];
}

void PngFile::write(const std::string& path, int width, int height, const std::vector<std::uint8_t>& pixels) {
    if (width < 1 || height < 1 ||
        pixels.size() != static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4) {
        throw std::invalid_argument("Pixel data of " + std::to_string(pixels.size()) + " bytes does not fit " +
                                    std::to_string(width) + "x" + std::to_string(height) + " RGBA8");
    }
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGBA;
    if (!png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr)) {
        const std::string reason = image.message;
        png_image_free(&image);
        throw std::runtime_error("Cannot write PNG " + path + ": " + reason);
    }
}

PngFile::Image PngFile::read(const std::string& path) {
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str())) {
        const std::string reason = image.message;
        png_image_free(&image);
        throw std::runtime_error("Cannot read PNG " + path + ": " + reason);
    }
    image.format = PNG_FORMAT_RGBA;
    Image result;
    result.width = static_cast<int>(image.width);
    result.height = static_cast<int>(image.height);
    result.pixels.resize(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, result.pixels.data(), 0, nullptr)) {
        const std::string reason = image.message;
        png_image_free(&image);
        throw std::runtime_error("Cannot read PNG " + path + ": " + reason);
    }
    return result;
}

} // namespace renderer::headless
