#include "engine/camera/CameraPathAnimator.h"

#include "engine/IllegalStateError.h"
#include "engine/math/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using engine::camera::CameraPathAnimator;
using engine::camera::CameraPosition;
using engine::camera::CameraPositionPair;
using engine::camera::CameraState;
using engine::math::Vec3;

using Pairs = std::vector<std::shared_ptr<CameraPositionPair>>;

constexpr double kFrame = 1000.0 / 30.0;

std::shared_ptr<CameraPositionPair> path(Vec3 from, Vec3 to, Vec3 lookFrom = {}, Vec3 lookTo = {}) {
    return std::make_shared<CameraPositionPair>(CameraPosition(from, lookFrom), CameraPosition(to, lookTo), 1.0f);
}

float distance(const Vec3& a, const Vec3& b) {
    return std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y) + (a.z - b.z) * (a.z - b.z));
}

/// A frame clock at 30 frames a second; frame i runs at start + i * kFrame.
struct Clock {
    CameraPathAnimator& animator;
    double start;
    int frame = 0;
    double now() const { return start + frame * kFrame; }
    void step() {
        animator.animate(now());
        ++frame;
    }
};

TEST(CameraPathAnimatorTest, PathDurationsFollowLengthSpeedAndCoefficient) {
    CameraPathAnimator animator(1.0f, 3000.0f, 1000.0f, true);
    EXPECT_FLOAT_EQ(animator.positionInterpolator.speed, 1.0f);
    EXPECT_FLOAT_EQ(animator.positionInterpolator.minDuration, 3000.0f);

    animator.setCameras({path({0, 0, 0}, {0, 5000, 0}), path({0, 0, 0}, {600, 800, 0})}, false);
    EXPECT_FLOAT_EQ(animator.positionInterpolator.duration(), 5000.0f);
    animator.currentCamera = 1;
    animator.updateCurrentCamera();
    EXPECT_FLOAT_EQ(animator.positionInterpolator.duration(), 3000.0f);

    // A constant path time: huge speed, coefficient 2 doubles the minimum, and the path restarts.
    CameraPathAnimator constant(1000000.0f, 22000.0f, 2000.0f, true);
    constant.setCameras({path({0, 0, 0}, {0, 5000, 0}), path({0, 0, 0}, {1, 0, 0})}, false);
    EXPECT_FLOAT_EQ(constant.positionInterpolator.duration(), 22000.0f);
    Clock clock{constant, 1000.0};
    for (int i = 0; i < 100; ++i) {
        clock.step();
    }
    EXPECT_GT(constant.timer(), 0.1f);
    constant.setMinDurationCoefficient(2.0f);
    EXPECT_FLOAT_EQ(constant.minDurationCoefficient, 2.0f);
    EXPECT_FLOAT_EQ(constant.positionInterpolator.duration(), 44000.0f);
    EXPECT_EQ(constant.timer(), 0.0f);
    EXPECT_EQ(constant.positionInterpolator.timerPrecise(), 0.0);
    EXPECT_EQ(constant.positionInterpolator.lastTime, 0.0);
    EXPECT_EQ(constant.positionInterpolator.cameraPosition, Vec3(0, 0, 0));
    // The coefficient also applies to the other paths.
    constant.currentCamera = 1;
    constant.updateCurrentCamera();
    EXPECT_FLOAT_EQ(constant.positionInterpolator.duration(), 44000.0f);
}

TEST(CameraPathAnimatorTest, RidesBackAndForthWithAStillFrameAtEachStart) {
    // 3010 ms a leg; at 30 fps a leg needs 91 frames of motion plus one start frame.
    CameraPathAnimator animator(1000000.0f, 3010.0f, 1010.0f, false);
    animator.setCameras({path({0, 0, 0}, {300, 0, 0})}, false);
    Clock clock{animator, 1000.0};

    clock.step(); // frame 0: the animator only records the time
    EXPECT_EQ(animator.lastTime, 1000.0);
    EXPECT_EQ(animator.positionInterpolator.lastTime, 0.0);
    clock.step(); // frame 1: the interpolator records the time, nothing moves
    EXPECT_EQ(animator.timer(), 0.0f);
    EXPECT_EQ(animator.positionInterpolator.lastTime, 1000.0 + kFrame);
    clock.step(); // frame 2: the first motion
    EXPECT_NEAR(animator.timer(), kFrame / 3010.0, 1e-6);

    std::vector<int> flips;
    bool reverse = animator.positionInterpolator.reverse;
    Vec3 previous = animator.positionInterpolator.cameraPosition;
    while (clock.frame < 9000) { // five minutes
        clock.step();
        const auto& interpolator = animator.positionInterpolator;
        EXPECT_GE(interpolator.timer, 0.0f);
        EXPECT_LT(interpolator.timer, 1.0f); // the timer never rests at 1
        EXPECT_LE(distance(previous, interpolator.cameraPosition), 300.0 * kFrame / 3010.0 + 1e-3);
        if (interpolator.reverse != reverse) {
            flips.push_back(clock.frame - 1);
            reverse = interpolator.reverse;
            EXPECT_EQ(interpolator.timer, 0.0f);
            // The leg starts where the last one ended.
            EXPECT_EQ(interpolator.cameraPosition, reverse ? Vec3(300, 0, 0) : Vec3(0, 0, 0));
        }
        previous = interpolator.cameraPosition;
    }
    ASSERT_EQ(flips.size(), 97u);
    for (std::size_t k = 0; k < flips.size(); ++k) {
        EXPECT_EQ(flips[k], 92 * static_cast<int>(k + 1)) << k;
    }
    EXPECT_EQ(animator.state, CameraState::ANIMATING);
}

class TransitionTest : public ::testing::Test {
protected:
    // speed 10: the paths take their 3010 ms floor, and the flights their 1010 ms.
    CameraPathAnimator animator{10.0f, 3010.0f, 1010.0f, true};
    Clock clock{animator, 5000.0};

    void SetUp() override {
        animator.setCameras({path({0, 0, 0}, {1000, 0, 0}, {0, 100, 0}, {1000, 100, 0}),
                             path({0, 500, 0}, {2000, 500, 0}, {0, 600, 0}, {2000, 600, 50}),
                             path({0, -500, 0}, {0, -900, 0})},
                            false);
    }
};

TEST_F(TransitionTest, FliesToTheMiddleOfTheNextPathAndGoesOnInTheSavedDirection) {
    while (clock.frame <= 46) {
        clock.step();
    }
    auto& interpolator = animator.positionInterpolator;
    animator.changeDirection(1.0f);
    ASSERT_TRUE(interpolator.reverse);
    const Vec3 eye = interpolator.cameraPosition;
    const Vec3 target = interpolator.cameraRotation;

    animator.nextCamera();
    EXPECT_EQ(animator.state, CameraState::TRANSITIONING);
    EXPECT_EQ(animator.currentCamera, 1);
    EXPECT_FALSE(interpolator.reverse);
    EXPECT_EQ(interpolator.timer, 0.0f);
    EXPECT_EQ(interpolator.lastTime, 0.0);
    EXPECT_FLOAT_EQ(interpolator.duration(), 1010.0f);
    ASSERT_TRUE(interpolator.position);
    EXPECT_EQ(interpolator.position->start, CameraPosition(eye, target));
    EXPECT_EQ(interpolator.position->end, CameraPosition(Vec3(1000, 500, 0), Vec3(1000, 600, 25)));
    EXPECT_EQ(interpolator.cameraPosition, eye); // no jump at the start of the flight
    EXPECT_EQ(animator.currentCameraPair(), animator.cameras[1]);

    // During the flight, neither another camera nor a change of direction is taken.
    animator.nextCamera();
    animator.changeDirection(1.0f);
    EXPECT_EQ(animator.currentCamera, 1);
    EXPECT_EQ(animator.state, CameraState::TRANSITIONING);
    EXPECT_FALSE(interpolator.reverse);
    EXPECT_EQ(interpolator.timer, 0.0f);

    // One still frame, then 31 frames of flight (31 * 33.3 ms >= 1010 ms).
    while (clock.frame <= 77) {
        clock.step();
    }
    EXPECT_EQ(animator.state, CameraState::TRANSITIONING);
    EXPECT_GT(interpolator.timer, 0.9f);
    clock.step(); // frame 78
    EXPECT_EQ(animator.state, CameraState::ANIMATING);
    EXPECT_EQ(animator.currentCamera, 1);
    EXPECT_EQ(interpolator.position, animator.cameras[1]);
    EXPECT_TRUE(interpolator.reverse); // as it was before the flight
    EXPECT_EQ(interpolator.timer, 0.5f);
    EXPECT_EQ(interpolator.cameraPosition, Vec3(1000, 500, 0));
    EXPECT_EQ(interpolator.cameraRotation, Vec3(1000, 600, 25));
    EXPECT_FLOAT_EQ(interpolator.duration(), 3010.0f);

    clock.step(); // frame 79: the restarted path lets no time pass
    EXPECT_EQ(interpolator.timer, 0.5f);
    clock.step();
    EXPECT_GT(interpolator.timer, 0.5f);
    EXPECT_LT(interpolator.cameraPosition.x, 1000.0f); // travelling backwards, towards x = 0

    // The remaining half path takes 1505 ms: 46 frames after frame 79.
    while (clock.frame <= 124) {
        clock.step();
    }
    EXPECT_TRUE(interpolator.reverse);
    clock.step(); // frame 125
    EXPECT_FALSE(interpolator.reverse);
    EXPECT_EQ(interpolator.timer, 0.0f);
    EXPECT_EQ(interpolator.cameraPosition, Vec3(0, 500, 0));
}

} // namespace
