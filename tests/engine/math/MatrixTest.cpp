#include "engine/math/Matrix.h"

#include <gtest/gtest.h>

#include <array>
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

} // namespace

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
