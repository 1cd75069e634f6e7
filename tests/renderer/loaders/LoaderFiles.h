#pragma once

// Small resource sets for the loader tests, made on the fly: temporary directories, model file
// pairs, ASTC files encoded with libastcenc, WebP files encoded with libwebp and raw
// half-float tables.

#include <astcenc.h>
#include <webp/encode.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace renderer::test {

/// A fresh directory below the system's temporary directory, removed with all it holds.
class TempDir {
public:
    TempDir() {
        static std::atomic<int> counter{0};
        path_ = std::filesystem::temp_directory_path() /
                ("nivalis-loaders-" + std::to_string(::getpid()) + "-" + std::to_string(counter++));
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~TempDir() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& path() const { return path_; }

    /// Writes `bytes` to `relative` below the directory, making folders as needed.
    void write(const std::string& relative, const std::vector<std::byte>& bytes) const {
        const auto file = path_ / relative;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream out(file, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        if (!out) {
            throw std::runtime_error("cannot write " + file.string());
        }
    }

private:
    std::filesystem::path path_;
};

/// `count` bytes counting up from `first` (wrapping at 256), to tell any byte from any other.
inline std::vector<std::byte> countingBytes(std::size_t count, int first = 0) {
    std::vector<std::byte> bytes(count);
    for (std::size_t i = 0; i < count; ++i) {
        bytes[i] = static_cast<std::byte>((first + static_cast<int>(i)) & 0xFF);
    }
    return bytes;
}

/// An `.astc` file: the 16-byte header (magic 0x5CA1AB13, 2D) and then `blocks` as given.
inline std::vector<std::byte> astcFile(int width, int height, int blockWidth, int blockHeight,
                                       const std::vector<std::byte>& blocks, std::uint32_t magic = 0x5CA1AB13) {
    std::vector<std::byte> file(16 + blocks.size());
    auto put = [&](std::size_t at, unsigned value) { file[at] = static_cast<std::byte>(value & 0xFF); };
    for (int i = 0; i < 4; ++i) {
        put(static_cast<std::size_t>(i), magic >> (8 * i));
    }
    put(4, static_cast<unsigned>(blockWidth));
    put(5, static_cast<unsigned>(blockHeight));
    put(6, 1);
    for (int i = 0; i < 3; ++i) {
        put(static_cast<std::size_t>(7 + i), static_cast<unsigned>(width) >> (8 * i));
        put(static_cast<std::size_t>(10 + i), static_cast<unsigned>(height) >> (8 * i));
    }
    put(13, 1);
    if (!blocks.empty()) {
        std::memcpy(file.data() + 16, blocks.data(), blocks.size());
    }
    return file;
}

/// Compresses `width` * `height` RGBA8 pixels (first row first) into ASTC blocks of the given
/// size with libastcenc, as linear LDR data.
inline std::vector<std::byte> encodeAstc(const std::vector<std::uint8_t>& rgba, int width, int height,
                                         int blockWidth, int blockHeight) {
    astcenc_config config{};
    if (astcenc_config_init(ASTCENC_PRF_LDR, static_cast<unsigned>(blockWidth), static_cast<unsigned>(blockHeight),
                            1, ASTCENC_PRE_MEDIUM, 0, &config) != ASTCENC_SUCCESS) {
        throw std::runtime_error("astcenc_config_init");
    }
    astcenc_context* context = nullptr;
    if (astcenc_context_alloc(&config, 1, &context) != ASTCENC_SUCCESS) {
        throw std::runtime_error("astcenc_context_alloc");
    }
    std::vector<std::uint8_t> copy = rgba;
    void* slices[] = {copy.data()};
    astcenc_image image{static_cast<unsigned>(width), static_cast<unsigned>(height), 1, ASTCENC_TYPE_U8, slices};
    const astcenc_swizzle identity{ASTCENC_SWZ_R, ASTCENC_SWZ_G, ASTCENC_SWZ_B, ASTCENC_SWZ_A};
    const std::size_t blocks = static_cast<std::size_t>((width + blockWidth - 1) / blockWidth) *
                               static_cast<std::size_t>((height + blockHeight - 1) / blockHeight);
    std::vector<std::byte> out(blocks * 16);
    const astcenc_error error = astcenc_compress_image(context, &image, &identity,
                                                       reinterpret_cast<std::uint8_t*>(out.data()), out.size(), 0);
    astcenc_context_free(context);
    if (error != ASTCENC_SUCCESS) {
        throw std::runtime_error("astcenc_compress_image");
    }
    return out;
}

/// A picture of four solid quadrants: top left red, top right green, bottom left blue, bottom
/// right a grey with half alpha.
inline std::vector<std::uint8_t> quadrants(int width, int height) {
    std::vector<std::uint8_t> rgba(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool right = x >= width / 2;
            const bool bottom = y >= height / 2;
            std::uint32_t colour = !bottom ? (right ? 0x00FF00FFu : 0xFF0000FFu) : (right ? 0x80808080u : 0x0000FFFFu);
            std::uint8_t* p = rgba.data() + (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + x) * 4;
            p[0] = static_cast<std::uint8_t>(colour >> 24);
            p[1] = static_cast<std::uint8_t>(colour >> 16);
            p[2] = static_cast<std::uint8_t>(colour >> 8);
            p[3] = static_cast<std::uint8_t>(colour);
        }
    }
    return rgba;
}

/// The RGBA of pixel (x, y) of a first-row-first RGBA8 picture, packed as 0xRRGGBBAA.
inline std::uint32_t pixelAt(const std::vector<std::uint8_t>& rgba, int width, int x, int y) {
    const std::uint8_t* p = rgba.data() + (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + x) * 4;
    return (std::uint32_t{p[0]} << 24) | (std::uint32_t{p[1]} << 16) | (std::uint32_t{p[2]} << 8) | p[3];
}

/// The largest difference of one channel between two packed colours.
inline int channelDistance(std::uint32_t a, std::uint32_t b) {
    int largest = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const int d = std::abs(static_cast<int>((a >> shift) & 0xFF) - static_cast<int>((b >> shift) & 0xFF));
        largest = std::max(largest, d);
    }
    return largest;
}

/// A lossless WebP file of `width` * `height` RGBA8 pixels.
inline std::vector<std::byte> encodeWebp(const std::vector<std::uint8_t>& rgba, int width, int height) {
    std::uint8_t* output = nullptr;
    const std::size_t size = WebPEncodeLosslessRGBA(rgba.data(), width, height, width * 4, &output);
    if (size == 0) {
        throw std::runtime_error("WebPEncodeLosslessRGBA");
    }
    std::vector<std::byte> file(size);
    std::memcpy(file.data(), output, size);
    WebPFree(output);
    return file;
}

/// IEEE half-float bits of a value that halves hold exactly (tests use such values only).
inline std::uint16_t halfBits(float value) {
    if (value == 0.0f) {
        return std::signbit(value) ? 0x8000 : 0;
    }
    std::uint32_t bits;
    std::memcpy(&bits, &value, 4);
    const std::uint32_t sign = (bits >> 16) & 0x8000;
    const int exponent = static_cast<int>((bits >> 23) & 0xFF) - 127 + 15;
    const std::uint32_t mantissa = (bits >> 13) & 0x3FF;
    return static_cast<std::uint16_t>(sign | (static_cast<std::uint32_t>(exponent) << 10) | mantissa);
}

/// A raw half-float table: the given values, two bytes each, little-endian.
inline std::vector<std::byte> fp16File(const std::vector<float>& values) {
    std::vector<std::byte> file;
    for (float v : values) {
        const std::uint16_t h = halfBits(v);
        file.push_back(static_cast<std::byte>(h & 0xFF));
        file.push_back(static_cast<std::byte>(h >> 8));
    }
    return file;
}

} // namespace renderer::test
