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

TEST_F(TransitionTest, CamerasFollowInTurnAndWrapAround) {
    for (int expected : {1, 2, 0, 1}) {
        animator.nextCamera();
        EXPECT_EQ(animator.currentCamera, expected);
        while (animator.state == CameraState::TRANSITIONING) {
            clock.step();
        }
        EXPECT_EQ(animator.timer(), 0.5f);
        const CameraPositionPair& pair = *animator.cameras[expected];
        const Vec3& eye = animator.positionInterpolator.cameraPosition;
        EXPECT_NEAR(eye.x, (pair.start.position.x + pair.end.position.x) / 2, 1e-3);
        EXPECT_NEAR(eye.y, (pair.start.position.y + pair.end.position.y) / 2, 1e-3);
    }
}

TEST_F(TransitionTest, LongRunWithRandomRequestsNeverJumps) {
    std::mt19937 requests(7);
    auto& interpolator = animator.positionInterpolator;
    Vec3 previous = interpolator.cameraPosition;
    int transitions = 0;
    int directionChanges = 0;
    CameraState state = animator.state;
    while (clock.frame < 30 * 60 * 4) { // four minutes
        const unsigned roll = requests() % 100;
        if (roll == 0) {
            const int before = animator.currentCamera;
            const bool wasTransitioning = animator.state == CameraState::TRANSITIONING;
            animator.nextCamera();
            EXPECT_EQ(animator.currentCamera, wasTransitioning ? before : (before + 1) % 3);
        } else if (roll == 1) {
            const Vec3 before = interpolator.cameraPosition;
            const bool was = interpolator.reverse;
            animator.changeDirection(requests() % 2 == 0 ? 1.0f : -1.0f);
            directionChanges += interpolator.reverse != was;
            EXPECT_LE(distance(before, interpolator.cameraPosition), 1e-2f);
        }
        // The largest step a frame may take on the present path or flight, eased (slope 1.5).
        const CameraPositionPair& pair = *interpolator.position;
        const float rateBefore = distance(pair.start.position, pair.end.position) / interpolator.duration();
        clock.step();
        const CameraPositionPair& now = *interpolator.position;
        const float rateAfter = distance(now.start.position, now.end.position) / interpolator.duration();
        const double bound = 1.5 * std::max(rateBefore, rateAfter) * kFrame + 1e-2;
        EXPECT_LE(distance(previous, interpolator.cameraPosition), bound) << "frame " << clock.frame;
        if (state == CameraState::TRANSITIONING && animator.state == CameraState::ANIMATING) {
            ++transitions;
            EXPECT_EQ(interpolator.timer, 0.5f);
        }
        state = animator.state;
        previous = interpolator.cameraPosition;
    }
    EXPECT_GT(transitions, 10);
    EXPECT_GT(directionChanges, 10);
}

TEST(CameraPathAnimatorTest, DisabledAnimatorIgnoresNextCameraButStillCutsAtRandom) {
    CameraPathAnimator animator(1000000.0f, 3000.0f, 1000.0f, true);
    animator.setCameras({path({0, 0, 0}, {10, 0, 0}), path({0, 50, 0}, {10, 50, 0})}, false);
    animator.positionInterpolator.setTimer(0.3);
    animator.disable();
    EXPECT_FALSE(animator.enabled);
    animator.nextCamera();
    EXPECT_EQ(animator.state, CameraState::ANIMATING);
    EXPECT_EQ(animator.currentCamera, 0);
    EXPECT_FLOAT_EQ(animator.timer(), 0.3f);

    // With two cameras a random cut alternates, and starts the path from its beginning.
    animator.randomCamera();
    EXPECT_EQ(animator.currentCamera, 1);
    EXPECT_EQ(animator.timer(), 0.0f);
    EXPECT_EQ(animator.positionInterpolator.cameraPosition, Vec3(0, 50, 0));
    animator.randomCamera();
    EXPECT_EQ(animator.currentCamera, 0);
    animator.randomCamera();
    EXPECT_EQ(animator.currentCamera, 1);

    animator.enable();
    animator.nextCamera();
    EXPECT_EQ(animator.state, CameraState::TRANSITIONING);
    EXPECT_EQ(animator.currentCamera, 0);
}

TEST(CameraPathAnimatorTest, RandomCameraSkipsTheCurrentAndThePreviousPath) {
    Pairs five;
    for (int i = 0; i < 5; ++i) {
        five.push_back(path({0, float(i), 0}, {1, float(i), 0}));
    }
    CameraPathAnimator animator(1000000.0f, 3000.0f, 1000.0f, true);
    engine::math::Random::seed(42);
    animator.setCameras(five, true);
    EXPECT_NE(animator.currentCamera, 0);
    EXPECT_NE(animator.currentCamera, 4);

    std::set<int> steps;
    std::vector<int> sequence;
    for (int i = 0; i < 300; ++i) {
        const int before = animator.currentCamera;
        animator.randomCamera();
        const int step = (animator.currentCamera - before + 5) % 5;
        EXPECT_GE(step, 1);
        EXPECT_LE(step, 3);
        steps.insert(step);
        sequence.push_back(animator.currentCamera);
    }
    EXPECT_EQ(steps, (std::set<int>{1, 2, 3}));

    // The same seed gives the same cuts.
    engine::math::Random::seed(42);
    animator.setCameras(five, true);
    for (int i = 0; i < 300; ++i) {
        animator.randomCamera();
        ASSERT_EQ(animator.currentCamera, sequence[i]) << i;
    }
}

TEST(CameraPathAnimatorTest, ChangeDirectionMirrorsTheProgressInPlace) {
    CameraPathAnimator animator(1000000.0f, 3000.0f, 1000.0f, true);
    animator.setCameras({path({0, 0, 0}, {100, 0, 0}, {0, 0, 0}, {0, 0, 40})}, false);
    auto& interpolator = animator.positionInterpolator;
    interpolator.setTimer(0.25);
    EXPECT_FLOAT_EQ(interpolator.cameraPosition.x, 15.625f);

    animator.changeDirection(1.0f);
    EXPECT_TRUE(interpolator.reverse);
    EXPECT_FLOAT_EQ(interpolator.timer, 0.75f);
    EXPECT_DOUBLE_EQ(interpolator.timerPrecise(), 0.75);
    EXPECT_NEAR(interpolator.cameraPosition.x, 15.625f, 1e-4f);
    EXPECT_NEAR(interpolator.cameraRotation.z, 6.25f, 1e-4f);

    // Already going backwards: ignored, and an impulse of 0 counts as backwards.
    animator.changeDirection(5.0f);
    animator.changeDirection(0.0f);
    EXPECT_FLOAT_EQ(interpolator.timer, 0.75f);

    animator.changeDirection(-0.5f);
    EXPECT_FALSE(interpolator.reverse);
    EXPECT_FLOAT_EQ(interpolator.timer, 0.25f);
    EXPECT_NEAR(interpolator.cameraPosition.x, 15.625f, 1e-4f);
}

TEST(CameraPathAnimatorTest, MisuseFails) {
    CameraPathAnimator animator(1.0f, 3000.0f, 1000.0f, true);
    animator.animate(1000.0); // the first frame only records the time
    try {
        animator.animate(1033.0);
        FAIL() << "expected engine::IllegalStateError";
    } catch (const engine::IllegalStateError& e) {
        EXPECT_EQ(std::string(e.what()), "position is not set");
    }
    EXPECT_THROW(animator.nextCamera(), std::domain_error);
    EXPECT_THROW(animator.randomCamera(), std::domain_error);
    EXPECT_THROW(animator.updateCurrentCamera(), std::out_of_range);
    EXPECT_THROW(animator.setCameras({}, false), std::out_of_range);

    animator.setCameras({path({0, 0, 0}, {1, 0, 0}), path({0, 0, 0}, {2, 0, 0})}, false);
    animator.currentCamera = 7;
    EXPECT_THROW(animator.updateCurrentCamera(), std::out_of_range);
    EXPECT_THROW(animator.currentCameraPair(), std::out_of_range);
    animator.currentCamera = -1;
    EXPECT_THROW(animator.setMinDurationCoefficient(2.0f), std::out_of_range);
}

} // namespace
