#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace tools::assetgen::core {

/// An RGBA image of floats (0 to 1 for colours), row 0 first. Textures are painted here and
/// quantised to bytes only when they are written.
class Image {
public:
    using Pixel = std::array<float, 4>;

    /// A `width` x `height` image filled with `fill`.
    Image(int width, int height, Pixel fill = {0.0f, 0.0f, 0.0f, 1.0f});

    int width() const { return width_; }
    int height() const { return height_; }
    /// The pixel at column `x`, row `y` (no bounds check beyond the vector's).
    Pixel& at(int x, int y) { return pixels_[static_cast<std::size_t>(y) * width_ + x]; }
    const Pixel& at(int x, int y) const { return pixels_[static_cast<std::size_t>(y) * width_ + x]; }
    /// Bilinear sample at texel coordinates (x, y) with texel centres at .5, repeating on both axes.
    Pixel sampleRepeat(double x, double y) const;

    /// The next level of a mip chain: each side halved (never below 1) by averaging 2x2 texels.
    Image halved() const;
    /// 8-bit RGBA, row 0 first, each channel clamped to 0..1 and rounded.
    std::vector<std::uint8_t> toRgba8() const;

private:
    int width_;
    int height_;
    std::vector<Pixel> pixels_;
};

} // namespace tools::assetgen::core
