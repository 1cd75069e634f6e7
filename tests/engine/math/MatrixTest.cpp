#include "engine/math/Matrix.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

using engine::math::Matrix;

namespace {

using M4 = std::array<float, 16>;

constexpr float EPS = 1e-6f;
constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

/// Builds a column-major matrix from its rows as they are written on paper.
M4 rows(std::array<float, 16> r) {
    M4 m{};
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 4; ++col) {
            m[4 * col + row] = r[4 * row + col];
        }
    }
    return m;
}

M4 identity() { return rows({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}); }
M4 translation(float x, float y, float z) { return rows({1, 0, 0, x, 0, 1, 0, y, 0, 0, 1, z, 0, 0, 0, 1}); }
M4 scaling(float x, float y, float z) { return rows({x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1}); }

M4 filled(float v) {
    M4 m;
    m.fill(v);
    return m;
}

void expectNear(const float* expected, const float* actual, int count, float eps = EPS) {
    for (int i = 0; i < count; ++i) {
        EXPECT_NEAR(expected[i], actual[i], eps) << "element " << i;
    }
}

void expectMatrix(const M4& expected, const M4& actual, float eps = EPS) {
    expectNear(expected.data(), actual.data(), 16, eps);
}

template <typename F> void expectInvalidArgument(F&& f, const std::string& message) {
    try {
        f();
        ADD_FAILURE() << "expected std::invalid_argument(\"" << message << "\")";
    } catch (const std::invalid_argument& e) {
        EXPECT_EQ(message, e.what());
    }
}

} // namespace

TEST(MatrixLayout, IndexHelperAndIdentity) {
    EXPECT_EQ(0, Matrix::I(0, 0));
    EXPECT_EQ(13, Matrix::I(3, 1));
    EXPECT_EQ(14, Matrix::I(3, 2));

    std::vector<float> a(20, 7.0f);
    Matrix::setIdentityM(a, 2);
    EXPECT_EQ(7.0f, a[0]);
    EXPECT_EQ(7.0f, a[1]);
    EXPECT_EQ(7.0f, a[18]);
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(i % 5 == 0 ? 1.0f : 0.0f, a[2 + i]) << i;
    }
}

TEST(MatrixProduct, GeneralProductIsColumnMajor) {
    // Columns of lhs are (1..4), (5..8), (9..12), (13..16); the product was worked out by hand.
    M4 lhs{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    M4 rhs = rows({2, 0, 1, 0, 1, 3, 0, 0, 0, 1, 2, 1, 0, 0, 0, 1});
    M4 expected{7, 10, 13, 16, 24, 28, 32, 36, 19, 22, 25, 28, 22, 24, 26, 28};

    M4 result = filled(NaN);
    Matrix::multiplyMM(result, 0, lhs, 0, rhs, 0);
    EXPECT_EQ(expected, result);

    M4 internal = filled(NaN);
    Matrix::multiplyMMInternal(internal, lhs, rhs);
    EXPECT_EQ(expected, internal);
}

TEST(MatrixProduct, ResultMayAliasEitherInput) {
    // a = b * a with a as an input.
    M4 a = translation(1, 2, 3);
    M4 b = scaling(2, 3, 4);
    Matrix::multiplyMM(a, 0, b, 0, a, 0);
    EXPECT_EQ(rows({2, 0, 0, 2, 0, 3, 0, 6, 0, 0, 4, 12, 0, 0, 0, 1}), a);

    // a = a * b: the right-hand side applies first, so the offset is not scaled.
    a = translation(1, 2, 3);
    Matrix::multiplyMM(a, 0, a, 0, b, 0);
    EXPECT_EQ(rows({2, 0, 0, 1, 0, 3, 0, 2, 0, 0, 4, 3, 0, 0, 0, 1}), a);

    // a = a * a.
    a = translation(1, 2, 3);
    Matrix::multiplyMM(a, 0, a, 0, a, 0);
    EXPECT_EQ(translation(2, 4, 6), a);
}

TEST(MatrixProduct, HonoursOffsetsInsideOneArray) {
    // One array holding lhs at 0, rhs at 16 and the result at 32.
    std::vector<float> block(49, -1.0f);
    M4 t = translation(1, 2, 3);
    M4 s = scaling(2, 3, 4);
    std::copy(t.begin(), t.end(), block.begin());
    std::copy(s.begin(), s.end(), block.begin() + 16);
    Matrix::multiplyMM(block, 32, block, 0, block, 16);
    M4 result;
    std::copy(block.begin() + 32, block.begin() + 48, result.begin());
    EXPECT_EQ(rows({2, 0, 0, 1, 0, 3, 0, 2, 0, 0, 4, 3, 0, 0, 0, 1}), result);
    EXPECT_EQ(-1.0f, block[48]);
}

TEST(MatrixProduct, MatrixTimesVector) {
    M4 m = rows({2, 0, 0, 1, 0, 3, 0, 2, 0, 0, 4, 3, 0, 0, 0, 1});
    std::array<float, 6> v{9, 1, 1, 1, 1, 9};
    Matrix::multiplyMV(v, 1, m, 0, v, 1); // result aliases the input vector
    EXPECT_EQ((std::array<float, 6>{9, 3, 5, 7, 1, 9}), v);

    std::array<float, 4> direction{1, 1, 1, 0};
    std::array<float, 4> out{};
    Matrix::multiplyMV(out, 0, m, 0, direction, 0);
    EXPECT_EQ((std::array<float, 4>{2, 3, 4, 0}), out);
}

TEST(MatrixTranspose, SwapsRowsAndColumns) {
    M4 m{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    M4 t{};
    Matrix::transposeM(t, 0, m, 0);
    EXPECT_EQ((M4{1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 4, 8, 12, 16}), t);
}

TEST(MatrixInverse, TranslationAndScaleInvertExactly) {
    // (T(1, 2, 3) S(2, 4, 8))^-1 = S(1/2, 1/4, 1/8) T(-1, -2, -3).
    M4 m = rows({2, 0, 0, 1, 0, 4, 0, 2, 0, 0, 8, 3, 0, 0, 0, 1});
    M4 inv = filled(NaN);
    ASSERT_TRUE(Matrix::invertM(inv, 0, m, 0));
    expectMatrix(rows({0.5f, 0, 0, -0.5f, 0, 0.25f, 0, -0.5f, 0, 0, 0.125f, -0.375f, 0, 0, 0, 1}), inv);
}

TEST(MatrixInverse, GeneralMatrixTimesInverseIsIdentity) {
    M4 m = rows({2, -1, 0, 3, 1, 3, -2, 0, 0, 1, 4, 2, 1, 0, 1, 5});
    M4 inv{};
    ASSERT_TRUE(Matrix::invertM(inv, 0, m, 0));
    M4 p{};
    Matrix::multiplyMM(p, 0, m, 0, inv, 0);
    expectMatrix(identity(), p, 1e-5f);
    Matrix::multiplyMM(p, 0, inv, 0, m, 0);
    expectMatrix(identity(), p, 1e-5f);

    // In place, at an offset.
    std::vector<float> block(18, 0.0f);
    std::copy(m.begin(), m.end(), block.begin() + 2);
    ASSERT_TRUE(Matrix::invertM(block, 2, block, 2));
    for (int i = 0; i < 16; ++i) {
        EXPECT_NEAR(inv[i], block[2 + i], 1e-6f) << i;
    }
}

TEST(MatrixInverse, SingularMatrixLeavesTargetAlone) {
    // The third row is the sum of the first two.
    M4 m = rows({1, 2, 3, 4, 0, 1, 1, 2, 1, 3, 4, 6, 5, 1, 0, 1});
    M4 inv = filled(42.0f);
    EXPECT_FALSE(Matrix::invertM(inv, 0, m, 0));
    EXPECT_EQ(filled(42.0f), inv);

    M4 zero{};
    EXPECT_FALSE(Matrix::invertM(inv, 0, zero, 0));
    EXPECT_EQ(filled(42.0f), inv);
}

TEST(MatrixTranslateScale, TranslateAppliesInTheMatrixFrame) {
    EXPECT_EQ(13.0f, Matrix::length(3, 4, 12));

    // m * T(1, 1, 1) with m = S(2, 3, 4): the offset is scaled.
    M4 m = scaling(2, 3, 4);
    Matrix::translateM(m, 0, 1, 1, 1);
    EXPECT_EQ(rows({2, 0, 0, 2, 0, 3, 0, 3, 0, 0, 4, 4, 0, 0, 0, 1}), m);

    M4 src = rows({2, 0, 0, 5, 0, 3, 0, 6, 0, 0, 4, 7, 0, 0, 0, 1});
    M4 copy = src;
    M4 out = filled(NaN);
    Matrix::translateM(out, 0, src, 0, 1, -1, 2);
    EXPECT_EQ(rows({2, 0, 0, 7, 0, 3, 0, 3, 0, 0, 4, 15, 0, 0, 0, 1}), out);
    EXPECT_EQ(copy, src);
}

TEST(MatrixTranslateScale, ScaleMultipliesTheFirstThreeColumns) {
    M4 m{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    M4 expected{2, 4, 6, 8, -5, -6, -7, -8, 4.5f, 5, 5.5f, 6, 13, 14, 15, 16};

    M4 out = filled(NaN);
    Matrix::scaleM(out, 0, m, 0, 2, -1, 0.5f);
    EXPECT_EQ(expected, out);

    Matrix::scaleM(m, 0, 2, -1, 0.5f);
    EXPECT_EQ(expected, m);
}

TEST(MatrixRotation, FastPathsForTheUnitAxes) {
    // Each fast path must overwrite every element, so start from garbage.
    M4 r = filled(NaN);
    Matrix::setRotateM(r, 0, 90, 0, 0, 1); // x -> y, y -> -x
    expectMatrix(rows({0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}), r);
    EXPECT_EQ(1.0f, r[10]);
    EXPECT_EQ(0.0f, r[2]);

    r = filled(NaN);
    Matrix::setRotateM(r, 0, 90, 1, 0, 0); // y -> z, z -> -y
    expectMatrix(rows({1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1}), r);
    EXPECT_EQ(1.0f, r[0]);

    r = filled(NaN);
    Matrix::setRotateM(r, 0, 90, 0, 1, 0); // z -> x, x -> -z
    expectMatrix(rows({0, 0, 1, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 0, 1}), r);
    EXPECT_EQ(1.0f, r[5]);

    // A small angle, where sine and cosine are both well away from 0 and 1.
    r = filled(NaN);
    Matrix::setRotateM(r, 0, 30, 0, 0, 1);
    const float c = 0.8660254f;
    expectMatrix(rows({c, -0.5f, 0, 0, 0.5f, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}), r);
}

TEST(MatrixRotation, OtherAxesAreNormalisedFirst) {
    // The general path about a scaled z axis matches the fast path about the unit axis.
    M4 fast{};
    Matrix::setRotateM(fast, 0, 90, 0, 0, 1);
    M4 general = filled(NaN);
    Matrix::setRotateM(general, 0, 90, 0, 0, 2);
    expectMatrix(fast, general);

    // 120 degrees about the diagonal cycles the axes: x -> y -> z -> x.
    M4 cycle = rows({0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1});
    M4 r = filled(NaN);
    Matrix::setRotateM(r, 0, 120, 1, 1, 1);
    expectMatrix(cycle, r);
    Matrix::setRotateM(r, 0, 120, 3, 3, 3);
    expectMatrix(cycle, r);

    // A negative axis turns the other way.
    Matrix::setRotateM(r, 0, 90, 0, 0, -5);
    expectMatrix(rows({0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}), r);
}

TEST(MatrixRotation, RotateMultipliesOnTheRight) {
    // m * R keeps m's translation; R * m would turn it to (0, 5, 0).
    M4 m = translation(5, 0, 0);
    Matrix::rotateM(m, 0, 90, 0, 0, 1);
    expectMatrix(rows({0, -1, 0, 5, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}), m);

    M4 src = translation(5, 0, 0);
    M4 out = filled(NaN);
    Matrix::rotateM(out, 0, src, 0, 90, 0, 0, 1);
    expectMatrix(m, out);
    EXPECT_EQ(translation(5, 0, 0), src);

    // In place at an offset, neighbours untouched.
    std::vector<float> block(18, -3.0f);
    std::copy(src.begin(), src.end(), block.begin() + 1);
    Matrix::rotateM(block, 1, 90, 0, 0, 1);
    expectNear(m.data(), block.data() + 1, 16);
    EXPECT_EQ(-3.0f, block[0]);
    EXPECT_EQ(-3.0f, block[17]);
}

TEST(MatrixRotation, EulerUsesTheEngineFormula) {
    // About y alone: element 4 is cx sy cz = 0.5, where the textbook matrix has sx sy cz = 0.
    M4 r = filled(NaN);
    Matrix::setRotateEulerM(r, 0, 0, 30, 0);
    const float c30 = 0.8660254f;
    expectMatrix(M4{c30, 0, 0.5f, 0, 0.5f, 1, 0, 0, 0, 0, c30, 0, 0, 0, 0, 1}, r);

    Matrix::setRotateEulerM(r, 0, 90, 0, 0);
    expectMatrix(M4{1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1}, r);

    // All three angles; values from the element formulas evaluated in double precision.
    Matrix::setRotateEulerM(r, 0, 30, 45, 60);
    expectMatrix(M4{0.35355339f, -0.61237244f, 0.70710678f, 0, 1.05618622f, -0.09731738f, -0.35355339f, 0,
                    0.25623601f, 0.55618622f, 0.61237244f, 0, 0, 0, 0, 1},
                 r);
}

TEST(MatrixView, LookAtBuildsTheViewMatrix) {
    // Looking down -z from (0, 0, 5): a plain translation.
    M4 v = filled(NaN);
    Matrix::setLookAtM(v, 0, 0, 0, 5, 0, 0, 0, 0, 1, 0);
    expectMatrix(translation(0, 0, -5), v);

    // Z-up world, eye on the x axis: world y becomes view x, world z view y.
    M4 expected = rows({0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, -3, 0, 0, 0, 1});
    Matrix::setLookAtM(v, 0, 3, 0, 0, 0, 0, 0, 0, 0, 1);
    expectMatrix(expected, v);
    Matrix::setLookAtM(v, 0, 3, 0, 0, 0, 0, 0, 0, 0, 5); // the up vector's length does not matter
    expectMatrix(expected, v);

    // Looking down at the origin from (0, -4, 3); up is not perpendicular to the line of sight.
    Matrix::setLookAtM(v, 0, 0, -4, 3, 0, 0, 0, 0, 0, 1);
    expectMatrix(rows({1, 0, 0, 0, 0, 0.6f, 0.8f, 0, 0, -0.8f, 0.6f, -5, 0, 0, 0, 1}), v);
    // The eye maps to the origin and the centre lies 5 units ahead.
    std::array<float, 4> centre{0, 0, 0, 1};
    std::array<float, 4> out{};
    Matrix::multiplyMV(out, 0, v, 0, centre, 0);
    expectNear(std::array<float, 4>{0, 0, -5, 1}.data(), out.data(), 4);
}

TEST(MatrixProjection, FrustumElements) {
    M4 m = filled(NaN);
    Matrix::frustumM(m, 0, -1, 1, -1, 1, 1, 3);
    expectMatrix(rows({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -2, -3, 0, 0, -1, 0}), m);

    // Off-centre: left 0, right 2, bottom 1, top 2, near 2, far 4.
    m = filled(NaN);
    Matrix::frustumM(m, 0, 0, 2, 1, 2, 2, 4);
    expectMatrix(rows({2, 0, 1, 0, 0, 4, 3, 0, 0, 0, -3, -8, 0, 0, -1, 0}), m);
}

TEST(MatrixProjection, FrustumChecksInOrder) {
    M4 m = filled(5.0f);
    auto frustum = [&](float l, float r, float b, float t, float n, float f) {
        return [&m, l, r, b, t, n, f] { Matrix::frustumM(m, 0, l, r, b, t, n, f); };
    };
    expectInvalidArgument(frustum(1, 1, 1, 1, 1, 1), "left == right");
    expectInvalidArgument(frustum(0, 1, 2, 2, -1, -1), "top == bottom");
    expectInvalidArgument(frustum(0, 1, 0, 1, 1, 1), "near == far");
    expectInvalidArgument(frustum(0, 1, 0, 1, -1, 1), "near <= 0.0f");
    expectInvalidArgument(frustum(0, 1, 0, 1, 0, 1), "near <= 0.0f");
    expectInvalidArgument(frustum(0, 1, 0, 1, 1, -1), "far <= 0.0f");
    expectInvalidArgument(frustum(0, 1, 0, 1, 1, 0), "far <= 0.0f");
    EXPECT_EQ(filled(5.0f), m);
}

TEST(MatrixProjection, PerspectiveElements) {
    M4 m = filled(NaN);
    Matrix::perspectiveM(m, 0, 90, 2, 1, 3);
    expectMatrix(rows({0.5f, 0, 0, 0, 0, 1, 0, 0, 0, 0, -2, -3, 0, 0, -1, 0}), m);

    // 1 / tan(30 degrees) = sqrt(3).
    Matrix::perspectiveM(m, 0, 60, 1, 0.5f, 100);
    EXPECT_NEAR(1.7320508f, m[0], EPS);
    EXPECT_NEAR(1.7320508f, m[5], EPS);
    EXPECT_NEAR(-100.5f / 99.5f, m[10], EPS);
    EXPECT_NEAR(-100.0f / 99.5f, m[14], EPS);

    // No argument checks: equal planes give infinities, not an exception.
    EXPECT_NO_THROW(Matrix::perspectiveM(m, 0, 60, 1, 1, 1));
    EXPECT_TRUE(std::isinf(m[14]));
}

TEST(MatrixProjection, OrthoElementsAndChecks) {
    M4 m = filled(NaN);
    Matrix::orthoM(m, 0, -2, 2, -1, 1, 1, 11);
    expectMatrix(rows({0.5f, 0, 0, 0, 0, 1, 0, 0, 0, 0, -0.2f, -1.2f, 0, 0, 0, 1}), m);

    Matrix::orthoM(m, 0, 0, 4, 0, 2, 0, 1);
    expectMatrix(rows({0.5f, 0, 0, -1, 0, 1, 0, -1, 0, 0, -2, -1, 0, 0, 0, 1}), m);

    M4 untouched = filled(5.0f);
    expectInvalidArgument([&] { Matrix::orthoM(untouched, 0, 1, 1, 0, 0, 0, 0); }, "left == right");
    expectInvalidArgument([&] { Matrix::orthoM(untouched, 0, 0, 1, 2, 2, 0, 0); }, "bottom == top");
    expectInvalidArgument([&] { Matrix::orthoM(untouched, 0, 0, 1, 0, 1, 3, 3); }, "near == far");
    EXPECT_EQ(filled(5.0f), untouched);
}

TEST(MatrixRanges, ShortArraysThrowWithoutWriting) {
    std::vector<float> small(16, 9.0f);
    std::vector<float> big(32, 9.0f);
    const std::vector<float> original = small;
    const std::vector<float> ok(16, 1.0f);

    EXPECT_THROW(Matrix::setIdentityM(small, 1), std::out_of_range);
    EXPECT_THROW(Matrix::setIdentityM(small, -1), std::out_of_range);
    EXPECT_THROW(Matrix::multiplyMM(small, 1, ok, 0, ok, 0), std::out_of_range);
    EXPECT_THROW(Matrix::multiplyMM(small, 0, ok, 1, ok, 0), std::out_of_range);
    EXPECT_THROW(Matrix::multiplyMM(small, 0, ok, 0, ok, 16), std::out_of_range);
    EXPECT_THROW(Matrix::multiplyMMInternal(small, ok, std::span<const float>(ok).first(15)), std::out_of_range);
    EXPECT_THROW(Matrix::transposeM(small, 0, ok, 2), std::out_of_range);
    EXPECT_THROW(Matrix::invertM(small, 0, ok, 1), std::out_of_range);
    EXPECT_THROW(Matrix::translateM(small, 1, 1, 2, 3), std::out_of_range);
    EXPECT_THROW(Matrix::translateM(small, 0, ok, 1, 1, 2, 3), std::out_of_range);
    EXPECT_THROW(Matrix::scaleM(small, 1, 1, 2, 3), std::out_of_range);
    EXPECT_THROW(Matrix::scaleM(small, 0, ok, 1, 1, 2, 3), std::out_of_range);
    EXPECT_THROW(Matrix::setRotateM(small, 1, 90, 0, 0, 1), std::out_of_range);
    EXPECT_THROW(Matrix::rotateM(small, 1, 90, 0, 0, 1), std::out_of_range);
    EXPECT_THROW(Matrix::rotateM(small, 0, ok, 1, 90, 0, 0, 1), std::out_of_range);
    EXPECT_THROW(Matrix::setRotateEulerM(small, 1, 1, 2, 3), std::out_of_range);
    EXPECT_THROW(Matrix::setLookAtM(small, 1, 0, 0, 5, 0, 0, 0, 0, 1, 0), std::out_of_range);
    EXPECT_THROW(Matrix::frustumM(small, 1, -1, 1, -1, 1, 1, 3), std::out_of_range);
    EXPECT_THROW(Matrix::perspectiveM(small, 1, 60, 1, 1, 10), std::out_of_range);
    EXPECT_THROW(Matrix::orthoM(small, 1, -1, 1, -1, 1, 1, 3), std::out_of_range);
    EXPECT_EQ(original, small);

    // A matrix that fits at the end of a longer array is fine.
    EXPECT_NO_THROW(Matrix::setIdentityM(big, 16));

    std::vector<float> vec(4, 9.0f);
    EXPECT_THROW(Matrix::multiplyMV(vec, 1, ok, 0, ok, 0), std::out_of_range);
    EXPECT_THROW(Matrix::multiplyMV(vec, 0, ok, 0, ok, 13), std::out_of_range);
    EXPECT_THROW(Matrix::multiplyMV(vec, 0, ok, 1, ok, 0), std::out_of_range);
    EXPECT_EQ(std::vector<float>(4, 9.0f), vec);
}

TEST(MatrixRanges, ArrayCopy) {
    std::vector<float> a{0, 1, 2, 3, 4, 5};
    Matrix::arraycopy(a, 0, a, 2, 4); // overlapping, copying upwards
    EXPECT_EQ((std::vector<float>{0, 1, 0, 1, 2, 3}), a);
    Matrix::arraycopy(a, 2, a, 0, 4); // overlapping, copying downwards
    EXPECT_EQ((std::vector<float>{0, 1, 2, 3, 2, 3}), a);

    std::vector<float> dest(3, -1.0f);
    Matrix::arraycopy(a, 4, dest, 1, 2);
    EXPECT_EQ((std::vector<float>{-1, 2, 3}), dest);
    Matrix::arraycopy(a, 6, dest, 3, 0); // empty copy at the very end
    EXPECT_THROW(Matrix::arraycopy(a, 5, dest, 0, 2), std::out_of_range);
    EXPECT_THROW(Matrix::arraycopy(a, 0, dest, 2, 2), std::out_of_range);
    EXPECT_THROW(Matrix::arraycopy(a, -1, dest, 0, 1), std::out_of_range);
    EXPECT_THROW(Matrix::arraycopy(a, 0, dest, 0, -1), std::out_of_range);
    EXPECT_EQ((std::vector<float>{-1, 2, 3}), dest);
}
