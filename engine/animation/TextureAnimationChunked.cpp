#include "engine/animation/TextureAnimationChunked.h"

#include <cmath>
#include <limits>

namespace engine::animation {

namespace {

// ceil of a float quotient as a 32-bit count: NaN gives 0, out-of-range values saturate.
std::int32_t ceilToInt(float value) {
    if (std::isnan(value)) {
        return 0;
    }
    const float c = std::ceil(value);
    if (c >= 2147483648.0f) {
        return std::numeric_limits<std::int32_t>::max();
    }
    if (c <= -2147483648.0f) {
        return std::numeric_limits<std::int32_t>::min();
    }
    return static_cast<std::int32_t>(c);
}

// 32-bit arithmetic that wraps on overflow instead of being undefined.
std::int32_t wrap(std::int64_t value) { return static_cast<std::int32_t>(static_cast<std::uint32_t>(value)); }

} // namespace

TextureAnimationChunked::TextureAnimationChunked(std::int32_t textureWidth, std::int32_t vertices, std::int32_t frames)
    : textureWidth_(textureWidth), frames_(frames) {
    const std::int32_t chunks = ceilToInt(static_cast<float>(vertices) / static_cast<float>(textureWidth));
    textureHeight_ = wrap(static_cast<std::int64_t>(chunks) + wrap(static_cast<std::int64_t>(chunks) * frames));
    texelHalfWidth_ = (1.0f / static_cast<float>(textureWidth)) * 0.5f;
    texelHalfHeight_ = (1.0f / static_cast<float>(textureHeight_)) * 0.5f;
    texelHeight_ = 1.0f / static_cast<float>(textureHeight_);
    chunkSize_ = 1.0f / static_cast<float>(chunks);
}

float TextureAnimationChunked::animateStartToEnd(float timer) const {
    return texelHalfHeight_ + texelHeight_ * timer * static_cast<float>(wrap(static_cast<std::int64_t>(frames_) - 1));
}

float TextureAnimationChunked::animateStartEndStart(float timer) const {
    const float x = timer < 0.5f ? timer : 1.0f - timer;
    return texelHalfHeight_ + (x + x) * texelHeight_ * static_cast<float>(wrap(static_cast<std::int64_t>(frames_) - 1));
}

} // namespace engine::animation
