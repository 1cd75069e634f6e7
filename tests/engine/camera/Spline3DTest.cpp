#include "engine/camera/Spline3D.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using engine::camera::Spline3D;
using engine::math::Vec3;

// A straight open path through (i, 2i, 3i): the spline of straight samples is the line itself.
Spline3D diagonal() {
    std::vector<double> x, y, z;
    for (int i = 0; i < 8; ++i) {
        x.push_back(i);
        y.push_back(2.0 * i);
        z.push_back(3.0 * i);
    }
    return Spline3D(false, x, y, z);
}

// A closed octagon at height 5 with float-exact corners, the first four repeated at the end.
Spline3D octagon() {
    const double px[] = {100, 70, 0, -70, -100, -70, 0, 70};
    const double py[] = {0, 70, 100, 70, 0, -70, -100, -70};
    std::vector<double> x, y, z;
    for (int k = 0; k < 12; ++k) {
        x.push_back(px[k % 8]);
        y.push_back(py[k % 8]);
        z.push_back(5.0);
    }
    return Spline3D(x, y, z);
}

void expectVec(const Vec3& v, float x, float y, float z, float eps) {
    EXPECT_NEAR(v.x, x, eps);
    EXPECT_NEAR(v.y, y, eps);
    EXPECT_NEAR(v.z, z, eps);
}

TEST(Spline3DTest, CurrentPointIsWrittenIntoTheSharedPosition) {
    Spline3D path = diagonal();
    const Vec3& a = path.getCurrentPoint(0.5);
    EXPECT_EQ(&a, &path.position);
    EXPECT_EQ(a, Vec3(4, 8, 12));
    const Vec3& b = path.getCurrentPoint(0.0);
    EXPECT_EQ(&b, &a);
    EXPECT_EQ(a, Vec3(2, 4, 6)); // overwritten in place
    EXPECT_EQ(path.getCurrentPoint(1.0), Vec3(6, 12, 18));
}

TEST(Spline3DTest, HeadingLooksAlongThePath) {
    Spline3D path = diagonal();
    // The difference here - ahead points along -(1, 2, 3).
    const Vec3& r = path.getRotation(0.5);
    EXPECT_EQ(&r, &path.rotation);
    expectVec(r, -123.69006752597979f, -108.43494882292202f, -153.434948822922f, 1e-3f);
    EXPECT_EQ(path.position, Vec3(4, 8, 12));

    // The legacy heading has the arguments of z the other way round.
    expectVec(path.getRotationLegacy(0.5), -123.69006752597979f, -108.43494882292202f, -116.56505117707799f, 1e-3f);
}

TEST(Spline3DTest, LookAheadPastTheEndTurnsToTheStart) {
    Spline3D path = diagonal();
    // At 0.99995 the point ahead lies past 1: getRotation wraps to 0.00005, legacy clamps to 0.
    // Either way it is behind the camera on this open path, so the heading points backwards.
    expectVec(path.getRotation(0.99995), 56.309932474020215f, 71.56505117707799f, 26.56505117707799f, 1e-3f);
    expectVec(path.getRotationLegacy(0.99995), 56.309932474020215f, 71.56505117707799f, 63.43494882292201f, 1e-3f);
    // Further back, the point ahead is still on the path.
    expectVec(path.getRotation(0.75), -123.69006752597979f, -108.43494882292202f, -153.434948822922f, 1e-3f);
}

TEST(Spline3DTest, ClosedLoopHeadingAtTheSeam) {
    Spline3D loop = octagon();
    // At 1 the point is the start again, and getRotation looks just past it, as at 0.
    const Vec3 atStart = loop.getRotation(0.0);
    const Vec3 atEnd = loop.getRotation(1.0);
    expectVec(atEnd, atStart.x, atStart.y, atStart.z, 1e-3f);
    // Moving from (0, 100) towards (-70, 70): the difference here - ahead is along +x.
    EXPECT_NEAR(atStart.y, 0.0f, 1e-3f);
    EXPECT_NEAR(atStart.z, 90.0f, 1.0f);

    // The legacy heading at 1 looks at parameter 0, the very same point: all angles are atan2(0, 0).
    EXPECT_EQ(loop.getRotationLegacy(1.0), Vec3(0, 0, 0));
    EXPECT_EQ(loop.position, Vec3(0, 100, 5));
}

} // namespace
