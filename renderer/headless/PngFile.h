#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace renderer::headless {

/// Reading and writing 8-bit RGBA PNG files, the output format of the headless renderer.
class PngFile {
public:
    /// A decoded picture: `width` * `height` RGBA8 pixels, rows from top to bottom.
    struct Image {
        int width = 0;
        int height = 0;
        std::vector<std::uint8_t> pixels;

        /// The four channels of the pixel at column `x`, row `y` (0 is the top row), packed as
        /// 0xRRGGBBAA. Throws std::out_of_range outside the picture.
        std::uint32_t rgba(int x, int y) const;
    };

    PngFile() = delete;

    /// Writes `pixels` (`width` * `height` RGBA8, top row first) to `path`, replacing the file.
    /// Throws std::invalid_argument if the pixel count does not match the size, and
    /// std::runtime_error with the path and libpng's reason if the file cannot be written.
    static void write(const std::string& path, int width, int height, const std::vector<std::uint8_t>& pixels);
    /// Reads any PNG file as RGBA8. Throws std::runtime_error with the path and the reason if it
    /// cannot be read.
    static Image read(const std::string& path);
};

} // namespace renderer::headless
