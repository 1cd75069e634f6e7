#include "renderer/HalfFloat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace renderer {
namespace {

// Expected bit patterns worked out by hand from the IEEE 754 binary16 layout: 1 sign bit,
// 5 exponent bits biased by 15, 10 mantissa bits.

TEST(HalfFloatTest, ExactValuesKeepTheirBits) {
    EXPECT_EQ(HalfFloat::fromFloat(0.0f), 0x0000);
    EXPECT_EQ(HalfFloat::fromFloat(-0.0f), 0x8000);
    EXPECT_EQ(HalfFloat::fromFloat(1.0f), 0x3C00);
    EXPECT_EQ(HalfFloat::fromFloat(-2.0f), 0xC000);
    EXPECT_EQ(HalfFloat::fromFloat(0.5f), 0x3800);
    EXPECT_EQ(HalfFloat::fromFloat(65504.0f), 0x7BFF);     // largest finite half
    EXPECT_EQ(HalfFloat::fromFloat(0x1p-14f), 0x0400);     // smallest normal
    EXPECT_EQ(HalfFloat::fromFloat(0x1p-24f), 0x0001);     // smallest subnormal
}

TEST(HalfFloatTest, RoundsToNearestWithTiesToEven) {
    // 0.1 = 1.6 * 2^-4: mantissa 0.6 * 1024 = 614.4 -> 614 (0x266).
    EXPECT_EQ(HalfFloat::fromFloat(0.1f), 0x2E66);
    // Between 2048 and 2050 the step is 2: 2049 is a tie and goes to the even mantissa (2048),
    // 2051 is a tie between 2050 (odd mantissa 1) and 2052 (even mantissa 2).
    EXPECT_EQ(HalfFloat::fromFloat(2049.0f), 0x6800);
    EXPECT_EQ(HalfFloat::fromFloat(2051.0f), 0x6802);
    EXPECT_EQ(HalfFloat::fromFloat(2049.5f), 0x6801);
    // 1 + 2^-11 is halfway between 1 and the next half; 1 + 3 * 2^-11 rounds up to mantissa 2.
    EXPECT_EQ(HalfFloat::fromFloat(1.0f + 0x1p-11f), 0x3C00);
    EXPECT_EQ(HalfFloat::fromFloat(1.0f + 3 * 0x1p-11f), 0x3C02);
}

TEST(HalfFloatTest, SubnormalsRoundOnTheirOwnGrid) {
    EXPECT_EQ(HalfFloat::fromFloat(0x1p-25f), 0x0000);         // tie between 0 and 1 -> 0
    EXPECT_EQ(HalfFloat::fromFloat(0x1.2p-25f), 0x0001);       // just above the tie
    EXPECT_EQ(HalfFloat::fromFloat(3 * 0x1p-25f), 0x0002);     // tie between 1 and 2 -> 2
    EXPECT_EQ(HalfFloat::fromFloat(-5 * 0x1p-24f), 0x8005);
    EXPECT_EQ(HalfFloat::fromFloat(1e-10f), 0x0000);
}

TEST(HalfFloatTest, OverflowInfinityAndNan) {
    EXPECT_EQ(HalfFloat::fromFloat(65519.0f), 0x7BFF);         // below the tie with 65536
    EXPECT_EQ(HalfFloat::fromFloat(65520.0f), 0x7C00);         // the tie rounds to infinity
    EXPECT_EQ(HalfFloat::fromFloat(1e9f), 0x7C00);
    EXPECT_EQ(HalfFloat::fromFloat(-std::numeric_limits<float>::infinity()), 0xFC00);
    const std::uint16_t nan = HalfFloat::fromFloat(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(nan & 0x7C00, 0x7C00);
    EXPECT_NE(nan & 0x03FF, 0);
}

TEST(HalfFloatTest, ToFloatReadsEveryClass) {
    EXPECT_EQ(HalfFloat::toFloat(0x3C00), 1.0f);
    EXPECT_EQ(HalfFloat::toFloat(0x3555), 0.333251953125f);
    EXPECT_EQ(HalfFloat::toFloat(0x0001), 0x1p-24f);
    EXPECT_EQ(HalfFloat::toFloat(0x03FF), 1023 * 0x1p-24f);
    EXPECT_EQ(HalfFloat::toFloat(0xFBFF), -65504.0f);
    EXPECT_TRUE(std::isinf(HalfFloat::toFloat(0x7C00)));
    EXPECT_TRUE(std::isnan(HalfFloat::toFloat(0x7E00)));
    EXPECT_TRUE(std::signbit(HalfFloat::toFloat(0x8000)));
}

TEST(HalfFloatTest, EveryFiniteHalfSurvivesTheRoundTrip) {
    for (unsigned bits = 0; bits < 0x10000; ++bits) {
        const auto half = static_cast<std::uint16_t>(bits);
        if ((half & 0x7C00) == 0x7C00 && (half & 0x03FF) != 0) {
            continue; // NaN payloads need not survive
        }
        ASSERT_EQ(HalfFloat::fromFloat(HalfFloat::toFloat(half)), half) << std::hex << bits;
    }
}

} // namespace
} // namespace renderer
