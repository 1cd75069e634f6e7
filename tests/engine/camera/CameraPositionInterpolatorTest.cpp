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

} // namespace
