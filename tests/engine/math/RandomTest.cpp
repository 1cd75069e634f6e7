#include "engine/math/Random.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <stdexcept>
#include <vector>

using engine::math::Random;

TEST(RandomSource, SeedMakesRunsRepeatable) {
    Random::seed(42);
    std::vector<double> first;
    for (int i = 0; i < 50; ++i) {
        first.push_back(Random::nextFloat());
        first.push_back(Random::nextDouble());
        first.push_back(Random::nextInt(1000));
    }
    Random::seed(42);
    std::vector<double> second;
    for (int i = 0; i < 50; ++i) {
        second.push_back(Random::nextFloat());
        second.push_back(Random::nextDouble());
        second.push_back(Random::nextInt(1000));
    }
    EXPECT_EQ(first, second);

    Random::seed(43);
    EXPECT_NE(first[0], Random::nextFloat());
}

TEST(RandomSource, FloatsAndDoublesStayBelowOne) {
    Random::seed(1);
    double floatSum = 0;
    double doubleSum = 0;
    const int draws = 100000;
    for (int i = 0; i < draws; ++i) {
        const float f = Random::nextFloat();
        const double d = Random::nextDouble();
        ASSERT_GE(f, 0.0f);
        ASSERT_LT(f, 1.0f);
        ASSERT_GE(d, 0.0);
        ASSERT_LT(d, 1.0);
        floatSum += f;
        doubleSum += d;
    }
    // Uniform: the mean is 1/2 with a standard error of about 0.001.
    EXPECT_NEAR(0.5, floatSum / draws, 0.01);
    EXPECT_NEAR(0.5, doubleSum / draws, 0.01);
}

TEST(RandomSource, IntegersCoverTheirRange) {
    Random::seed(2);
    std::set<int> below;
    std::set<int> between;
    int trues = 0;
    for (int i = 0; i < 5000; ++i) {
        const int a = Random::nextInt(7);
        ASSERT_GE(a, 0);
        ASSERT_LT(a, 7);
        below.insert(a);
        const int b = Random::nextInt(-3, 2);
        ASSERT_GE(b, -3);
        ASSERT_LT(b, 2);
        between.insert(b);
        trues += Random::nextBoolean() ? 1 : 0;
    }
    EXPECT_EQ(7u, below.size());
    EXPECT_EQ(5u, between.size());
    EXPECT_GT(trues, 2200);
    EXPECT_LT(trues, 2800);

    EXPECT_EQ(0, Random::nextInt(1));
    // The widest range does not overflow.
    for (int i = 0; i < 100; ++i) {
        Random::nextInt(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    }

    EXPECT_THROW(Random::nextInt(0), std::invalid_argument);
    EXPECT_THROW(Random::nextInt(-4), std::invalid_argument);
    EXPECT_THROW(Random::nextInt(3, 3), std::invalid_argument);
    EXPECT_THROW(Random::nextInt(4, 3), std::invalid_argument);
}
