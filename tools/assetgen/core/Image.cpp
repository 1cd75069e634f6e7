#include "tools/assetgen/core/Image.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace tools::assetgen::core {

Image::Image(int width, int height, Pixel fill) : width_(width), height_(height) {
    if (width <= 0 || height <= 0) {
        throw std::invalid_argument("Image size must be positive");
    }
    pixels_.assign(static_cast<std::size_t>(width) * height, fill);
}

Image::Pixel Image::sampleRepeat(double x, double y) const {
    x -= 0.5;
    y -= 0.5;
    const double fx = std::floor(x);
    const double fy = std::floor(y);
    const double tx = x - fx;
    const double ty = y - fy;
    auto wrapX = [&](double v) { return static_cast<int>(((static_cast<long long>(v) % width_) + width_) % width_); };
    auto wrapY = [&](double v) {
        return static_cast<int>(((static_cast<long long>(v) % height_) + height_) % height_);
    };
    const int x0 = wrapX(fx);
    const int x1 = wrapX(fx + 1);
    const int y0 = wrapY(fy);
    const int y1 = wrapY(fy + 1);
    Pixel result{};
    for (int c = 0; c < 4; ++c) {
        const double top = at(x0, y0)[c] * (1.0 - tx) + at(x1, y0)[c] * tx;
        const double bottom = at(x0, y1)[c] * (1.0 - tx) + at(x1, y1)[c] * tx;
        result[c] = static_cast<float>(top * (1.0 - ty) + bottom * ty);
    }
    return result;
}

Image Image::halved() const {
    const int w = std::max(1, width_ / 2);
    const int h = std::max(1, height_ / 2);
    Image result(w, h);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            Pixel sum{};
            int count = 0;
            for (int dy = 0; dy < 2; ++dy) {
                for (int dx = 0; dx < 2; ++dx) {
                    const int sx = std::min(width_ - 1, x * 2 + dx);
                    const int sy = std::min(height_ - 1, y * 2 + dy);
                    for (int c = 0; c < 4; ++c) {
                        sum[c] += at(sx, sy)[c];
                    }
                    ++count;
                }
            }
            for (int c = 0; c < 4; ++c) {
                sum[c] /= static_cast<float>(count);
            }
            result.at(x, y) = sum;
        }
    }
    return result;
}

std::vector<std::uint8_t> Image::toRgba8() const {
    std::vector<std::uint8_t> bytes(pixels_.size() * 4);
    for (std::size_t i = 0; i < pixels_.size(); ++i) {
        for (int c = 0; c < 4; ++c) {
            const float v = std::clamp(pixels_[i][c], 0.0f, 1.0f);
            bytes[i * 4 + c] = static_cast<std::uint8_t>(std::lround(v * 255.0f));
        }
    }
    return bytes;
}

} // namespace tools::assetgen::core
