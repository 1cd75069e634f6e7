#include "engine/camera/CameraPathAnimator.h"
#include "engine/camera/Spline3D.h"
#include "tests/support/AllocationCounter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

namespace {

using engine::camera::CameraPathAnimator;
using engine::camera::CameraPosition;
using engine::camera::CameraPositionPair;
using engine::math::Vec3;

TEST(FrameAllocationTest, CameraFramesAndRequestsAllocateNothing) {
    CameraPathAnimator animator(1000000.0f, 2000.0f, 500.0f, true);
    std::vector<std::shared_ptr<CameraPositionPair>> cameras;
    for (int i = 0; i < 4; ++i) {
        cameras.push_back(std::make_shared<CameraPositionPair>(CameraPosition(Vec3(0, float(i), 0), Vec3()),
                                                               CameraPosition(Vec3(100, float(i), 0), Vec3()), 1.0f));
    }
    animator.setCameras(cameras, false);
    double now = 1000.0;
    animator.animate(now);

    const std::size_t before = tests::support::allocationCount();
    for (int frame = 1; frame < 30 * 120; ++frame) {
        now += 1000.0 / 30.0;
        animator.animate(now);
        if (frame % 200 == 0) {
            animator.nextCamera();
        } else if (frame % 170 == 0) {
            animator.changeDirection(frame % 340 == 0 ? 1.0f : -1.0f);
        } else if (frame % 290 == 0) {
            animator.randomCamera();
        } else if (frame % 500 == 0) {
            animator.setMinDurationCoefficient(frame % 1000 == 0 ? 1.0f : 1.5f);
        }
    }
    EXPECT_EQ(tests::support::allocationCount(), before);
}

TEST(FrameAllocationTest, SplineQueriesAllocateNothing) {
    std::vector<double> x{0, 1, 2, 3, 4, 5, 6, 7}, y{0, 2, 1, 3, 2, 4, 3, 5}, z(8, 1.0);
    engine::camera::Spline3D spline(x, y, z);
    const std::size_t before = tests::support::allocationCount();
    float sum = 0.0f;
    for (int i = 0; i <= 1000; ++i) {
        sum += spline.getCurrentPoint(i / 1000.0).x;
        sum += spline.getRotation(i / 1000.0).z;
        sum += spline.getRotationLegacy(i / 1000.0).y;
    }
    EXPECT_EQ(tests::support::allocationCount(), before);
    EXPECT_TRUE(std::isfinite(sum));
}

} // namespace
