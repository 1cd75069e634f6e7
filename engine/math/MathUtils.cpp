#include "engine/math/MathUtils.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

#include "engine/math/Random.h"

namespace engine::math {

namespace {

/// The smaller of two floats, NaN if either is NaN, -0.0 below 0.0.
float minOf(float a, float b) {
    if (std::isnan(a) || std::isnan(b)) {
        return std::numeric_limits<float>::quiet_NaN();
    }
    if (a == b) {
        return std::signbit(a) ? a : b;
    }
    return a < b ? a : b;
}

/// The larger of two floats, NaN if either is NaN, 0.0 above -0.0.
float maxOf(float a, float b) {
    if (std::isnan(a) || std::isnan(b)) {
        return std::numeric_limits<float>::quiet_NaN();
    }
    if (a == b) {
        return std::signbit(a) ? b : a;
    }
    return a > b ? a : b;
}

/// Truncation towards zero to 32 bits: NaN gives 0, values beyond the range saturate.
std::int32_t truncateSaturating(float v) {
    if (std::isnan(v)) {
        return 0;
    }
    if (v >= 2147483648.0f) {
        return std::numeric_limits<std::int32_t>::max();
    }
    if (v <= -2147483648.0f) {
        return std::numeric_limits<std::int32_t>::min();
    }
    return static_cast<std::int32_t>(v);
}

/// 32-bit two's-complement addition that wraps instead of overflowing.
std::int32_t wrappingAdd(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

} // namespace

float MathUtils::clamp(float i, float low, float high) { return maxOf(low, minOf(i, high)); }

float MathUtils::smoothstep(float edge0, float edge1, float x) {
    float t = clamp((x - edge0) / (edge1 - edge0), 0.0f, 1.0f);
    return t * t * (3.0f - 2.0f * t);
}

float MathUtils::smootherstep(float edge0, float edge1, float x) {
    float t = clamp((x - edge0) / (edge1 - edge0), 0.0f, 1.0f);
    return t * t * t * (t * (t * 6.0f - 15.0f) + 10.0f);
}

Vec3& MathUtils::angleBetweenPoints(const Vec3& start, const Vec3& end, Vec3& result) {
    const float dx = start.x - end.x;
    const float dy = start.y - end.y;
    const float dz = start.z - end.z;
    result.x = std::atan2(dz, dy);
    result.y = std::atan2(dz, dx);
    result.z = std::atan2(dx, dy);
    return result;
}

int MathUtils::nextRandomLength(int length, int current) {
    const float r = Random::nextFloat();
    const std::int32_t range = wrappingAdd(length, -2);
    const std::int32_t step = truncateSaturating(r * static_cast<float>(range));
    if (length == 0) {
        throw std::domain_error("/ by zero");
    }
    const std::int32_t dividend = wrappingAdd(wrappingAdd(current, 1), step);
    if (length == -1) {
        return 0; // every integer is a multiple of -1; spares the overflow of INT_MIN % -1
    }
    return dividend % length;
}

} // namespace engine::math
