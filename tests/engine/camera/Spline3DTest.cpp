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

void expectVec(const Vec3& v, float x, float y, float z, float eps) {
    EXPECT_NEAR(v.x, x, eps);
    EXPECT_NEAR(v.y, y, eps);
    EXPECT_NEAR(v.z, z, eps);
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

} // namespace
