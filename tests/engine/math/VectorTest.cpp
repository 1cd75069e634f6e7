#include <gtest/gtest.h>

#include <unordered_set>

#include "engine/math/Vec2.h"
#include "engine/math/Vec3.h"
#include "engine/math/Vec4.h"

using engine::math::Vec2;
using engine::math::Vec3;
using engine::math::Vec4;

TEST(Vectors, TextForms) {
    EXPECT_EQ("Vec2(_x=1.0, _y=-2.5)", Vec2(1, -2.5f).toString());
    EXPECT_EQ("Vec3(_x=1.0, _y=2.0, _z=3.0)", Vec3(1, 2, 3).toString());
    EXPECT_EQ("Vec4(_x=0.74, _y=0.55, _z=0.3, _w=1.0)", Vec4(0.74f, 0.55f, 0.3f, 1).toString());
    EXPECT_EQ("Vec3(_x=0.0, _y=0.0, _z=0.0)", Vec3().toString());
    EXPECT_EQ("Vec2(_x=1.0E7, _y=-0.0)", Vec2(1e7f, -0.0f).toString());
}

TEST(Vectors, ColourAliasesShareStorage) {
    Vec4 c(0.1f, 0.2f, 0.3f, 0.4f);
    EXPECT_EQ(0.1f, c.r());
    EXPECT_EQ(0.4f, c.a());
    c.r() = 1;
    c.g() = 2;
    c.b() = 3;
    c.a() = 4;
    EXPECT_EQ(Vec4(1, 2, 3, 4), c);

    Vec3 v;
    v.b() = 5;
    EXPECT_EQ(5.0f, v.z);
    Vec2 w;
    w.g() = 6;
    EXPECT_EQ(6.0f, w.y);
}

TEST(Vectors, EqualityAndHash) {
    EXPECT_EQ(Vec3(1, 2, 3), Vec3(1, 2, 3));
    EXPECT_NE(Vec3(1, 2, 3), Vec3(1, 2, 4));
    EXPECT_NE(Vec4(1, 2, 3, 4), Vec4(1, 2, 3, 5));

    // 0.0 and -0.0 are equal, so their hashes must agree.
    EXPECT_EQ(Vec2(0.0f, 1), Vec2(-0.0f, 1));
    EXPECT_EQ(Vec2(0.0f, 1).hash(), Vec2(-0.0f, 1).hash());
    EXPECT_EQ(Vec3(0.0f, -0.0f, 0.0f).hash(), Vec3(-0.0f, 0.0f, -0.0f).hash());
    EXPECT_EQ(Vec4(1, 0.0f, 2, -0.0f).hash(), Vec4(1, -0.0f, 2, 0.0f).hash());

    // The hash depends on the order of the components.
    EXPECT_NE(Vec3(1, 2, 3).hash(), Vec3(3, 2, 1).hash());
    EXPECT_NE(Vec2(1, 2).hash(), Vec2(2, 1).hash());
    EXPECT_NE(Vec4(1, 2, 3, 4).hash(), Vec4(4, 3, 2, 1).hash());

    std::unordered_set<Vec3> set{Vec3(1, 2, 3), Vec3(1, 2, 3), Vec3(0.0f, 0, 0), Vec3(-0.0f, 0, 0)};
    EXPECT_EQ(2u, set.size());
    EXPECT_EQ(std::hash<Vec4>{}(Vec4(1, 2, 3, 4)), Vec4(1, 2, 3, 4).hash());
}
