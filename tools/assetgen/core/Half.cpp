#include "tools/assetgen/core/Half.h"

#include <bit>

namespace tools::assetgen::core {

std::uint16_t Half::fromFloat(float value) {
    const std::uint32_t bits = std::bit_cast<std::uint32_t>(value);
    const std::uint32_t sign = (bits >> 16) & 0x8000u;
    const std::uint32_t exponent = (bits >> 23) & 0xFFu;
    std::uint32_t mantissa = bits & 0x7FFFFFu;

    if (exponent == 0xFFu) { // infinity or NaN
        return static_cast<std::uint16_t>(sign | 0x7C00u | (mantissa != 0 ? 0x200u : 0u));
    }
    const int unbiased = static_cast<int>(exponent) - 127;
    if (unbiased > 15) {
        return static_cast<std::uint16_t>(sign | 0x7C00u);
    }
    if (unbiased >= -14) { // normal half
        std::uint32_t half = sign | (static_cast<std::uint32_t>(unbiased + 15) << 10) | (mantissa >> 13);
        const std::uint32_t rest = mantissa & 0x1FFFu;
        if (rest > 0x1000u || (rest == 0x1000u && (half & 1u))) {
            ++half; // may carry into the exponent, and up to infinity: both are right
        }
        return static_cast<std::uint16_t>(half);
    }
    if (unbiased < -25) { // below half the smallest subnormal
        return static_cast<std::uint16_t>(sign);
    }
    // Subnormal half: shift the mantissa with its implicit bit into place.
    mantissa |= 0x800000u;
    const int shift = -unbiased - 1; // 14 .. 24
    std::uint32_t half = mantissa >> shift;
    const std::uint32_t rest = mantissa & ((1u << shift) - 1u);
    const std::uint32_t halfway = 1u << (shift - 1);
    if (rest > halfway || (rest == halfway && (half & 1u))) {
        ++half;
    }
    return static_cast<std::uint16_t>(sign | half);
}

float Half::toFloat(std::uint16_t bits) {
    const std::uint32_t sign = static_cast<std::uint32_t>(bits & 0x8000u) << 16;
    const std::uint32_t exponent = (bits >> 10) & 0x1Fu;
    std::uint32_t mantissa = bits & 0x3FFu;
    std::uint32_t result;
    if (exponent == 0x1Fu) {
        result = sign | 0x7F800000u | (mantissa << 13);
    } else if (exponent != 0) {
        result = sign | ((exponent + 112u) << 23) | (mantissa << 13);
    } else if (mantissa == 0) {
        result = sign;
    } else {
        int e = -1;
        do {
            ++e;
            mantissa <<= 1;
        } while ((mantissa & 0x400u) == 0);
        result = sign | (static_cast<std::uint32_t>(112 - e) << 23) | ((mantissa & 0x3FFu) << 13);
    }
    return std::bit_cast<float>(result);
}

} // namespace tools::assetgen::core
