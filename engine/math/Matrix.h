#pragma once

#include <span>

namespace engine::math {

/// Operations on 4x4 matrices stored as 16 column-major floats starting at an offset inside a
/// larger array: element (row r, column c) is at offset + 4 * c + r, so a translation lies in
/// elements 12, 13, 14, and one array (a uniform's value, say) can be written directly.
/// Temporaries live in scratch arrays shared by the whole process, so nothing here allocates;
/// the price is that only one thread may use these operations. Every operation checks that its
/// arrays hold the elements it touches and throws std::out_of_range otherwise.
class Matrix {
public:
    Matrix() = delete;

    /// Index helper: _j + 4 * _i.
    static int I(int _i, int _j) { return _j + 4 * _i; }

    /// Copies `length` floats; the ranges may overlap.
    static void arraycopy(std::span<const float> src, int srcPos, std::span<float> dest, int destPos,
                          int length);

    /// Sets a matrix to the identity.
    static void setIdentityM(std::span<float> sm, int smOffset);

    /// result = lhs * rhs; the inputs are copied to scratch first, so `result` may alias either.
    static void multiplyMM(std::span<float> result, int resultOffset, std::span<const float> lhs,
                           int lhsOffset, std::span<const float> rhs, int rhsOffset);

    /// The bare product of three whole 16-float arrays; `r` must alias neither input.
    static void multiplyMMInternal(std::span<float> r, std::span<const float> lhs,
                                   std::span<const float> rhs);

    /// 4-vector resultVec = lhsMat * rhsVec, by way of scratch.
    static void multiplyMV(std::span<float> resultVec, int resultVecOffset, std::span<const float> lhsMat,
                           int lhsMatOffset, std::span<const float> rhsVec, int rhsVecOffset);

    /// mTrans = transpose of m.
    static void transposeM(std::span<float> mTrans, int mTransOffset, std::span<const float> m, int mOffset);

    /// Cofactor inverse; false, with `mInv` untouched, when the determinant is 0.
    static bool invertM(std::span<float> mInv, int mInvOffset, std::span<const float> m, int mOffset);

    /// Length of the vector (x, y, z).
    static float length(float x, float y, float z);

    /// In place: m = m * translation(x, y, z).
    static void translateM(std::span<float> m, int mOffset, float x, float y, float z);
    /// tm = m * translation(x, y, z).
    static void translateM(std::span<float> tm, int tmOffset, std::span<const float> m, int mOffset, float x,
                           float y, float z);

    /// In place: the first three columns scaled by x, y, z.
    static void scaleM(std::span<float> m, int mOffset, float x, float y, float z);
    /// sm = m with its first three columns scaled by x, y, z.
    static void scaleM(std::span<float> sm, int smOffset, std::span<const float> m, int mOffset, float x,
                       float y, float z);

    /// A rotation by `a` degrees about the axis (x, y, z), with fast paths for the three unit axes.
    static void setRotateM(std::span<float> rm, int rmOffset, float a, float x, float y, float z);
    /// In place: m = m * rotation(a, x, y, z).
    static void rotateM(std::span<float> m, int mOffset, float a, float x, float y, float z);
    /// rm = m * rotation(a, x, y, z).
    static void rotateM(std::span<float> rm, int rmOffset, std::span<const float> m, int mOffset, float a,
                        float x, float y, float z);

    /// A rotation from Euler angles in degrees, by the engine's own formula (element 4 included).
    static void setRotateEulerM(std::span<float> rm, int rmOffset, float x, float y, float z);

    /// A view matrix looking from the eye at the centre with the given up direction.
    static void setLookAtM(std::span<float> rm, int rmOffset, float eyeX, float eyeY, float eyeZ,
                           float centerX, float centerY, float centerZ, float upX, float upY, float upZ);

    /// A perspective projection with a clip depth of -1 to 1; throws std::invalid_argument
    /// ("left == right", "top == bottom", "near == far", "near <= 0.0f", "far <= 0.0f").
    static void frustumM(std::span<float> m, int offset, float left, float right, float bottom, float top,
                         float near, float far);

    /// A perspective projection from a vertical field of view in degrees; checks nothing.
    static void perspectiveM(std::span<float> m, int offset, float fovy, float aspect, float zNear,
                             float zFar);

    /// An orthographic projection; throws std::invalid_argument
    /// ("left == right", "bottom == top", "near == far").
    static void orthoM(std::span<float> m, int mOffset, float left, float right, float bottom, float top,
                       float near, float far);
};

} // namespace engine::math
