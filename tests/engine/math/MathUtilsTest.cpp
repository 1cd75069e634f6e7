#include "engine/math/MathUtils.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>
#include <stdexcept>
#include <string>

#include "engine/math/Random.h"

using engine::math::MathUtils;
using engine::math::Random;
using engine::math::Vec3;

namespace {
constexpr float NaN = std::numeric_limits<float>::quiet_NaN();
}

TEST(MathUtilsClamp, LimitsAndNaN) {
    EXPECT_EQ(1.0f, MathUtils::clamp(5, 0, 1));
    EXPECT_EQ(0.0f, MathUtils::clamp(-5, 0, 1));
    EXPECT_EQ(0.25f, MathUtils::clamp(0.25f, 0, 1));
    EXPECT_EQ(1.0f, MathUtils::clamp(1, 0, 1));

    // low above high: low wins whatever the input.
    EXPECT_EQ(2.0f, MathUtils::clamp(0.5f, 2, 1));
    EXPECT_EQ(2.0f, MathUtils::clamp(7, 2, 1));

    EXPECT_TRUE(std::isnan(MathUtils::clamp(NaN, 0, 1)));
    EXPECT_TRUE(std::isnan(MathUtils::clamp(0.5f, NaN, 1)));
    EXPECT_TRUE(std::isnan(MathUtils::clamp(0.5f, 0, NaN)));

    // -0.0 counts as below 0.0.
    EXPECT_FALSE(std::signbit(MathUtils::clamp(-0.0f, 0.0f, 1.0f)));
    EXPECT_TRUE(std::signbit(MathUtils::clamp(0.0f, -1.0f, -0.0f)));

    const float inf = std::numeric_limits<float>::infinity();
    EXPECT_EQ(1.0f, MathUtils::clamp(inf, 0, 1));
    EXPECT_EQ(0.0f, MathUtils::clamp(-inf, 0, 1));
}

TEST(MathUtilsSmoothSteps, HermiteAndQuintic) {
    EXPECT_EQ(0.0f, MathUtils::smoothstep(0, 1, -3));
    EXPECT_EQ(1.0f, MathUtils::smoothstep(0, 1, 3));
    EXPECT_FLOAT_EQ(0.5f, MathUtils::smoothstep(0, 1, 0.5f));
    EXPECT_FLOAT_EQ(0.15625f, MathUtils::smoothstep(0, 1, 0.25f)); // 0.0625 * 2.5
    EXPECT_FLOAT_EQ(0.15625f, MathUtils::smoothstep(10, 20, 12.5f));
    EXPECT_FLOAT_EQ(0.84375f, MathUtils::smoothstep(1, 0, 0.25f)); // falling edges: t = 0.75

    EXPECT_EQ(0.0f, MathUtils::smootherstep(0, 1, -1));
    EXPECT_EQ(1.0f, MathUtils::smootherstep(0, 1, 2));
    EXPECT_FLOAT_EQ(0.5f, MathUtils::smootherstep(0, 1, 0.5f));
    EXPECT_FLOAT_EQ(0.103515625f, MathUtils::smootherstep(0, 1, 0.25f)); // 1/64 * 6.625
    EXPECT_FLOAT_EQ(0.896484375f, MathUtils::smootherstep(0, 1, 0.75f));
}

TEST(MathUtilsRandomLength, NeverCurrentNorItsPredecessor) {
    Random::seed(12345);
    for (int length : {3, 4, 5, 10, 100}) {
        for (int current = 0; current < length; ++current) {
            const int before = (current + length - 1) % length;
            std::set<int> seen;
            for (int n = 0; n < 2000; ++n) {
                const int next = MathUtils::nextRandomLength(length, current);
                ASSERT_GE(next, 0);
                ASSERT_LT(next, length);
                ASSERT_NE(current, next) << "length " << length;
                ASSERT_NE(before, next) << "length " << length << ", current " << current;
                seen.insert(next);
            }
            // Every other index turns up.
            if (length <= 10) {
                EXPECT_EQ(static_cast<std::size_t>(length - 2), seen.size()) << "length " << length;
            }
        }
    }
}
