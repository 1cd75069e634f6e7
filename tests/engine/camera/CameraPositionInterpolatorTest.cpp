#include "engine/camera/CameraPositionInterpolator.h"

#include "engine/IllegalStateError.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <string>

namespace {

using engine::camera::CameraPosition;
using engine::camera::CameraPositionInterpolator;
using engine::camera::CameraPositionPair;
using engine::math::Vec3;

std::shared_ptr<CameraPositionPair> path(Vec3 from, Vec3 to, Vec3 lookFrom = {}, Vec3 lookTo = {}) {
    return std::make_shared<CameraPositionPair>(CameraPosition(from, lookFrom), CameraPosition(to, lookTo), 1.0f);
}

void expectPositionNotSet(const std::function<void()>& call) {
    try {
        call();
        FAIL() << "expected engine::IllegalStateError";
    } catch (const engine::IllegalStateError& e) {
        EXPECT_EQ(std::string(e.what()), "position is not set");
    }
}

TEST(CameraPositionInterpolatorTest, WithoutAPathNothingCanBeComputed) {
    CameraPositionInterpolator interpolator(true);
    expectPositionNotSet([&] { interpolator.reset(); });
    expectPositionNotSet([&] { interpolator.iterate(1000.0); });
    expectPositionNotSet([&] { interpolator.setTimer(0.5); });
}

TEST(CameraPositionInterpolatorTest, DurationIsLengthOverSpeedWithAFloor) {
    CameraPositionInterpolator interpolator(true);
    interpolator.speed = 1.0f;
    interpolator.minDuration = 3000.0f;
    interpolator.setPosition(path({0, 0, 0}, {3000, 4000, 0})); // 5000 units
    EXPECT_FLOAT_EQ(interpolator.duration(), 5000.0f);
    interpolator.setPosition(path({0, 0, 0}, {0, 0, 1000}));
    EXPECT_FLOAT_EQ(interpolator.duration(), 3000.0f);

    // A huge speed makes every path take exactly the floor.
    interpolator.speed = 1000000.0f;
    interpolator.setPosition(path({0, 0, 0}, {3000, 4000, 0}));
    EXPECT_FLOAT_EQ(interpolator.duration(), 3000.0f);

    // minDuration only counts from the next setPosition.
    interpolator.minDuration = 7000.0f;
    EXPECT_FLOAT_EQ(interpolator.duration(), 3000.0f);
    interpolator.setPosition(interpolator.position);
    EXPECT_FLOAT_EQ(interpolator.duration(), 7000.0f);

    interpolator.speed = std::nanf("");
    interpolator.setPosition(interpolator.position);
    EXPECT_TRUE(std::isnan(interpolator.duration()));
}

TEST(CameraPositionInterpolatorTest, EasingAndDirection) {
    CameraPositionInterpolator smooth(true);
    smooth.setPosition(path({0, 0, 0}, {100, -200, 40}, {1, 1, 1}, {3, 5, 1}));
    // smoothstep(0.25) = 0.0625 * 2.5 = 0.15625
    smooth.setTimer(0.25);
    EXPECT_FLOAT_EQ(smooth.timer, 0.25f);
    EXPECT_FLOAT_EQ(smooth.cameraPosition.x, 15.625f);
    EXPECT_FLOAT_EQ(smooth.cameraPosition.y, -31.25f);
    EXPECT_FLOAT_EQ(smooth.cameraPosition.z, 6.25f);
    EXPECT_FLOAT_EQ(smooth.cameraRotation.x, 1.3125f);
    EXPECT_FLOAT_EQ(smooth.cameraRotation.y, 1.625f);

    // Reversed, the same progress starts from the end.
    smooth.reverse = true;
    smooth.reset();
    EXPECT_FLOAT_EQ(smooth.cameraPosition.x, 84.375f);
    EXPECT_FLOAT_EQ(smooth.cameraRotation.y, 4.375f);

    // Unsmoothed progress is linear and is not clamped.
    CameraPositionInterpolator linear(false);
    linear.setPosition(path({0, 0, 0}, {100, 0, 0}));
    linear.setTimer(0.25);
    EXPECT_FLOAT_EQ(linear.cameraPosition.x, 25.0f);
    linear.setTimer(1.5);
    EXPECT_FLOAT_EQ(linear.cameraPosition.x, 150.0f);
    // The smoothed one clamps before easing.
    smooth.reverse = false;
    smooth.setTimer(1.5);
    EXPECT_FLOAT_EQ(smooth.cameraPosition.x, 100.0f);
}

TEST(CameraPositionInterpolatorTest, IterateAccumulatesTimeAfterAStartFrameAndStopsAtOne) {
    CameraPositionInterpolator interpolator(false);
    interpolator.speed = 1000000.0f;
    interpolator.minDuration = 2000.0f;
    interpolator.setPosition(path({0, 0, 0}, {100, 0, 0}));

    interpolator.iterate(50000.0); // no time passes on the first call
    EXPECT_EQ(interpolator.timer, 0.0f);
    EXPECT_EQ(interpolator.lastTime, 50000.0);
    interpolator.iterate(50500.0);
    EXPECT_FLOAT_EQ(interpolator.timer, 0.25f);
    EXPECT_FLOAT_EQ(interpolator.cameraPosition.x, 25.0f);
    interpolator.iterate(51000.0);
    EXPECT_FLOAT_EQ(interpolator.timer, 0.5f);
    interpolator.iterate(60000.0);
    EXPECT_EQ(interpolator.timer, 1.0f);
    EXPECT_EQ(interpolator.timerPrecise(), 1.0);
    EXPECT_FLOAT_EQ(interpolator.cameraPosition.x, 100.0f);

    // A restart keeps the progress set by setTimer and lets the first frame pass without motion.
    interpolator.lastTime = 0.0;
    interpolator.setTimer(0.5);
    interpolator.iterate(70000.0);
    EXPECT_FLOAT_EQ(interpolator.timer, 0.5f);
    interpolator.iterate(70200.0);
    EXPECT_FLOAT_EQ(interpolator.timer, 0.6f);
}

TEST(CameraPositionInterpolatorTest, MatrixReadsTheRotationAsEulerAnglesInRadians) {
    CameraPositionInterpolator interpolator(false);
    const float halfPi = 1.5707964f;

    // x at a right angle cancels the built-in -90 degrees: only the translation remains.
    interpolator.setPosition(path({1, 2, 3}, {1, 2, 3}, {halfPi, 0, 0}, {halfPi, 0, 0}));
    interpolator.setTimer(0.0);
    const float translation[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, -1, -2, -3, 1};
    for (int i = 0; i < 16; ++i) {
        EXPECT_NEAR(interpolator.matrix[i], translation[i], 1e-5f) << i;
    }

    // Then 90 degrees about z: columns (0, 1, 0), (-1, 0, 0).
    interpolator.setPosition(path({0, 0, 0}, {0, 0, 0}, {halfPi, halfPi, 0}, {halfPi, halfPi, 0}));
    interpolator.reset();
    const float rz[16] = {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    for (int i = 0; i < 16; ++i) {
        EXPECT_NEAR(interpolator.matrix[i], rz[i], 1e-5f) << i;
    }

    // A zero x angle tilts by -90 degrees about x: columns (1, 0, 0), (0, 0, -1), (0, 1, 0),
    // then the translation by -position runs through that rotation.
    interpolator.setPosition(path({0, 5, 0}, {0, 5, 0}));
    interpolator.reset();
    const float rx[16] = {1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 5, 1};
    for (int i = 0; i < 16; ++i) {
        EXPECT_NEAR(interpolator.matrix[i], rx[i], 1e-5f) << i;
    }
}

} // namespace
