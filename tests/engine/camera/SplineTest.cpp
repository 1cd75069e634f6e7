#include "engine/camera/Spline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <vector>

namespace {

using engine::camera::Spline;

TEST(SplineTest, PreparedEndsWrapTheLoop) {
    // y[0] = y[N-4], y[1] = y[N-3], y[N-2] = y[2], y[N-1] = y[3].
    Spline six({10, 11, 12, 13, 14, 15});
    EXPECT_EQ(six.y, (std::vector<double>{12, 13, 12, 13, 12, 13}));

    // With four samples every copy lands on itself.
    Spline four({1, 2, 3, 4});
    EXPECT_EQ(four.y, (std::vector<double>{1, 2, 3, 4}));

    // Three samples are too few to wrap, and an unprepared spline keeps its samples.
    Spline three({5, 6, 7});
    EXPECT_EQ(three.y, (std::vector<double>{5, 6, 7}));
    Spline unprepared({10, 11, 12, 13, 14, 15}, false);
    EXPECT_EQ(unprepared.y, (std::vector<double>{10, 11, 12, 13, 14, 15}));
}

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

TEST(SplineTest, SegmentValuesMatchTheCubicFormula) {
    Spline s({0, 0, 1, 0, 0}, false);
    // (1-t) y[n] + t y[n+1] + ((1-t)^3 - (1-t)) M[n] / 6 + (t^3 - t) M[n+1] / 6, by hand.
    EXPECT_NEAR(s.fn(1, 0.5), 0.6071428571428572, 1e-12);
    EXPECT_NEAR(s.fn(2, 0.25), 0.8839285714285714, 1e-12);
    EXPECT_NEAR(s.fn(1, 0.75), 0.8839285714285714, 1e-12);

    // Each segment runs from its sample to the next one.
    Spline loop({3.5, -2, 7, 1.25, 9, -4, 0.5, 6});
    for (int n = 0; n + 1 < 8; ++n) {
        EXPECT_DOUBLE_EQ(loop.fn(n, 0.0), loop.y[n]) << n;
        EXPECT_NEAR(loop.fn(n, 1.0), loop.y[n + 1], 1e-12) << n;
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

TEST(SplineTest, IndicesBeyondTheSamplesFail) {
    Spline s({1, 2, 3, 4, 5});
    EXPECT_THROW(s.fn(4, 0.5), std::out_of_range);
    EXPECT_THROW(s.fn(-1, 0.5), std::out_of_range);
    EXPECT_THROW(s.fn(std::numeric_limits<std::int32_t>::max(), 0.5), std::out_of_range);

    Spline two({1, 2});
    EXPECT_THROW(two.getCurrentPoint(0.5), std::out_of_range);
    Spline none(std::vector<double>{});
    EXPECT_THROW(none.getCurrentPoint(1.0), std::out_of_range);

    // Three samples still answer: the parameter runs backwards from sample 2 to sample 1.
    Spline three({5, 6, 7});
    EXPECT_EQ(three.getCurrentPoint(0.0), 7.0);
    EXPECT_EQ(three.getCurrentPoint(1.0), 6.0);
}

TEST(SplineTest, ClampOrdersNaNAndBounds) {
    EXPECT_EQ(Spline::clamp(5.0, 0.0, 1.0), 1.0);
    EXPECT_EQ(Spline::clamp(-5.0, 0.0, 1.0), 0.0);
    EXPECT_EQ(Spline::clamp(0.5, 0.0, 1.0), 0.5);
    EXPECT_EQ(Spline::clamp(0.5, 2.0, 1.0), 2.0);
    EXPECT_TRUE(std::isnan(Spline::clamp(std::numeric_limits<double>::quiet_NaN(), 0.0, 1.0)));
}

TEST(SplineTest, XySplineFnSolvesTheXCurveForItsParameter) {
    // x control points -1, 0, 1, 2 make x(u) = 3u - 1; y(u) with controls 0, 0, 1, 1 is smoothstep(u).
    Spline curve({0, 0, 1, 1}, false);
    EXPECT_NEAR(curve.xySplineFn({-1, 0, 1, 2}, 0.5), 0.5, 1e-9);        // u = 0.5
    EXPECT_NEAR(curve.xySplineFn({-1, 0, 1, 2}, -0.25), 0.15625, 1e-9);  // u = 0.25

    // An eased x curve (smoothstep) against a straight y(u) = u: smoothstep(0.25) = 0.15625.
    Spline straight({0, 1.0 / 3.0, 2.0 / 3.0, 1}, false);
    EXPECT_NEAR(straight.xySplineFn({0, 0, 1, 1}, 0.15625), 0.25, 1e-6);
    EXPECT_NEAR(straight.xySplineFn({0, 0, 1, 1}, 0.5), 0.5, 1e-9);

    EXPECT_THROW(straight.xySplineFn({0, 1, 2}, 0.5), std::out_of_range);
}

} // namespace
