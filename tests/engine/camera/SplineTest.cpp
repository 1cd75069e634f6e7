#include "engine/camera/Spline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <vector>

namespace {

using engine::camera::Spline;

TEST(SplineTest, CoefficientsAreTheNaturalSplineSecondDerivatives) {
    // For samples 0, 0, 1, 0, 0 the natural spline's second derivatives solve
    // M[i-1] + 4 M[i] + M[i+1] = 6 (y[i+1] - 2 y[i] + y[i-1]) with zero ends: 0, 18/7, -30/7, 18/7, 0.
    Spline s({0, 0, 1, 0, 0}, false);
    ASSERT_EQ(s.c.size(), 5u);
    EXPECT_NEAR(s.c[0], 0.0, 1e-12);
    EXPECT_NEAR(s.c[1], 18.0 / 7.0, 1e-12);
    EXPECT_NEAR(s.c[2], -30.0 / 7.0, 1e-12);
    EXPECT_NEAR(s.c[3], 18.0 / 7.0, 1e-12);
    EXPECT_NEAR(s.c[4], 0.0, 1e-12);

    // Straight samples have no curvature.
    Spline line({0, 1, 2, 3, 4, 5}, false);
    for (double c : line.c) {
        EXPECT_EQ(c, 0.0);
    }
}

TEST(SplineTest, PathParameterRunsFromSampleTwoToSampleNMinusTwo) {
    Spline s({0, 0, 1, 0, 0}, false);
    EXPECT_EQ(s.getCurrentPoint(0.0), 1.0);
    EXPECT_EQ(s.getCurrentPoint(1.0), 0.0);
    // With five samples the parameter spans the one segment 2..3.
    EXPECT_NEAR(s.getCurrentPoint(0.25), 0.8839285714285714, 1e-12);

    Spline line({0, 10, 20, 30, 40, 50, 60, 70}, false);
    EXPECT_EQ(line.getCurrentPoint(0.0), 20.0);
    EXPECT_EQ(line.getCurrentPoint(1.0), 60.0);
    EXPECT_NEAR(line.getCurrentPoint(0.5), 40.0, 1e-12);
    EXPECT_NEAR(line.getCurrentPoint(0.375), 35.0, 1e-12);

    // Out-of-range parameters are clamped.
    EXPECT_EQ(line.getCurrentPoint(-1.0), line.getCurrentPoint(0.0));
    EXPECT_EQ(line.getCurrentPoint(2.0), line.getCurrentPoint(1.0));
    EXPECT_TRUE(std::isnan(line.getCurrentPoint(std::numeric_limits<double>::quiet_NaN())));
}

TEST(SplineTest, ClosedLoopPassesThroughItsSamplesAndMeetsItself) {
    // Eight points around a circle, the first four repeated at the end: parameter 0 and 1 both
    // sit on point 2, and each eighth of the parameter reaches the next point.
    std::vector<double> xs;
    for (int k = 0; k < 12; ++k) {
        xs.push_back(100.0 * std::cos(k * M_PI / 4.0));
    }
    Spline s(xs);
    EXPECT_EQ(s.getCurrentPoint(0.0), s.getCurrentPoint(1.0));
    for (int k = 0; k <= 8; ++k) {
        EXPECT_NEAR(s.getCurrentPoint(k / 8.0), 100.0 * std::cos((k + 2) * M_PI / 4.0), 1e-9) << k;
    }
    // Between the samples the curve bulges outwards like the circle, never beyond its radius.
    EXPECT_GT(s.getCurrentPoint(1.0 / 16.0), 100.0 * std::cos(2.5 * M_PI / 4.0) - 5.0);
    EXPECT_LT(std::abs(s.getCurrentPoint(1.0 / 16.0)), 100.0);
}

} // namespace
