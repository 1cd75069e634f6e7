#include "renderer/loaders/HalfFloat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace renderer {
namespace {

// Expected bit patterns worked out by hand from the IEEE 754 binary16 layout: 1 sign bit,
// 5 exponent bits biased by 15, 10 mantissa bits.

TEST(HalfFloatTest, RoundsToNearestWithTiesToEven) {
    // 0.1 = 1.6 * 2^-4: mantissa 0.6 * 1024 = 614.4 -> 614 (0x266).
    EXPECT_EQ(loaders::HalfFloat::fromFloat(0.1f), 0x2E66);
    // Between 2048 and 2050 the step is 2: 2049 is a tie and goes to the even mantissa (2048),
    // 2051 is a tie between 2050 (odd mantissa 1) and 2052 (even mantissa 2).
    EXPECT_EQ(loaders::HalfFloat::fromFloat(2049.0f), 0x6800);
    EXPECT_EQ(loaders::HalfFloat::fromFloat(2051.0f), 0x6802);
    EXPECT_EQ(loaders::HalfFloat::fromFloat(2049.5f), 0x6801);
    // 1 + 2^-11 is halfway between 1 and the next half; 1 + 3 * 2^-11 rounds up to mantissa 2.
    EXPECT_EQ(loaders::HalfFloat::fromFloat(1.0f + 0x1p-11f), 0x3C00);
    EXPECT_EQ(loaders::HalfFloat::fromFloat(1.0f + 3 * 0x1p-11f), 0x3C02);
}

TEST(HalfFloatTest, EveryFiniteHalfSurvivesTheRoundTrip) {
    for (unsigned bits = 0; bits < 0x10000; ++bits) {
        const auto half = static_cast<std::uint16_t>(bits);
        if ((half & 0x7C00) == 0x7C00 && (half & 0x03FF) != 0) {
            continue; // NaN payloads need not survive
        }
        ASSERT_EQ(loaders::HalfFloat::fromFloat(loaders::HalfFloat::toFloat(half)), half) << std::hex << bits;
    }
}

} // namespace
} // namespace renderer
