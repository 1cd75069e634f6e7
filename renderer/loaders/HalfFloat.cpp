#include "renderer/loaders/HalfFloat.h"

#include <bit>

namespace renderer::loaders {

std::uint16_t HalfFloat::fromFloat(float value) {
    const std::uint32_t bits = std::bit_cast<std::uint32_t>(value);
    const auto sign = static_cast<std::uint16_t>((bits >> 16) & 0x8000u);
    const std::uint32_t magnitude = bits & 0x7fffffffu;

    if (magnitude >= 0x7f800000u) {
        // Infinity stays infinity; NaN keeps its top payload bits and stays quiet.
        const bool nan = magnitude > 0x7f800000u;
        return static_cast<std::uint16_t>(sign | 0x7c00u | (nan ? 0x200u | ((magnitude >> 13) & 0x3ffu) : 0u));
    }
    if (magnitude >= 0x477ff000u) {
        // 65520 and above lie at least halfway between the largest half (65504) and 2^16.
        return static_cast<std::uint16_t>(sign | 0x7c00u);
    }
    if (magnitude < 0x38800000u) {
        // Below the smallest normal half (2^-14): a multiple of 2^-24. Up to 2^-25, the tie
        // included, that multiple is 0.
        if (magnitude <= 0x33000000u) {
            return sign;
        }
        const std::uint32_t mantissa = (magnitude & 0x7fffffu) | 0x800000u;
        const int shift = 126 - static_cast<int>(magnitude >> 23);
        std::uint32_t half = mantissa >> shift;
        const std::uint32_t rest = mantissa & ((1u << shift) - 1u);
        const std::uint32_t halfway = 1u << (shift - 1);
        if (rest > halfway || (rest == halfway && (half & 1u) != 0)) {
            ++half;
        }
        return static_cast<std::uint16_t>(sign | half);
    }
    // Normal range: rebias the exponent (127 -> 15) and round away the 13 lowest bits.
    std::uint32_t half = (magnitude - 0x38000000u) >> 13;
    const std::uint32_t rest = magnitude & 0x1fffu;
    if (rest > 0x1000u || (rest == 0x1000u && (half & 1u) != 0)) {
        ++half;
    }
    return static_cast<std::uint16_t>(sign | half);
}

float HalfFloat::toFloat(std::uint16_t half) {
    const std::uint32_t sign = static_cast<std::uint32_t>(half & 0x8000u) << 16;
    const std::uint32_t exponent = (half >> 10) & 0x1fu;
    std::uint32_t mantissa = half & 0x3ffu;
    std::uint32_t bits;
    if (exponent == 0x1fu) {
        bits = sign | 0x7f800000u | (mantissa << 13);
    } else if (exponent != 0) {
        bits = sign | ((exponent + 112u) << 23) | (mantissa << 13);
    } else if (mantissa == 0) {
        bits = sign;
    } else {
        // Subnormal: shift the leading one up into the implicit position.
        std::uint32_t e = 113;
        while ((mantissa & 0x400u) == 0) {
            mantissa <<= 1;
            --e;
        }
        bits = sign | (e << 23) | ((mantissa & 0x3ffu) << 13);
    }
    return std::bit_cast<float>(bits);
}

} // namespace renderer::loaders
