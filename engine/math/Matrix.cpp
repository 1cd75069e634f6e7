// One file for the Matrix operations: they are one small library over the same column-major
// layout and scratch arrays, and splitting it would scatter the index arithmetic they share.
#include "engine/math/Matrix.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>

namespace engine::math {

namespace {

/// Degrees to radians, in single precision, as every rotation of the engine converts them.
constexpr float DEG_TO_RAD = 0.017453292f;
/// Half a degree in radians, for the half field of view of perspectiveM.
constexpr double HALF_DEG_TO_RAD = 0.008726646259971648;

// Scratch storage of the frame thread. Contents have no meaning between calls.
float rotateScratch[32];   // rotation at 0, product at 16, for the in-place rotateM
float multiplyLhs[16];     // multiplyMM's copy of lhs
float multiplyRhs[16];     // multiplyMM's copy of rhs
float multiplyResult[16];  // multiplyMM's product before it is stored
float vectorIn[4];         // multiplyMV's copy of the vector
float vectorOut[4];        // multiplyMV's product before it is stored
float transposeScratch[16];

/// Throws std::out_of_range unless `size` elements hold offset .. offset + count - 1.
void requireRange(std::size_t size, int offset, int count) {
    const std::int64_t first = offset;
    const std::int64_t last = first + count - 1;
    if (first < 0) {
        throw std::out_of_range("Index " + std::to_string(first) + " out of bounds for length " +
                                std::to_string(size));
    }
    if (count > 0 && last >= static_cast<std::int64_t>(size)) {
        throw std::out_of_range("Index " + std::to_string(std::max<std::int64_t>(first, static_cast<std::int64_t>(size))) +
                                " out of bounds for length " + std::to_string(size));
    }
}

/// Sine and cosine of a single-precision angle, computed in double and rounded once.
float sinOf(float radians) { return static_cast<float>(std::sin(static_cast<double>(radians))); }
float cosOf(float radians) { return static_cast<float>(std::cos(static_cast<double>(radians))); }

/// The product of two 16-float arrays at offset 0 into a third that aliases neither.
void product(float* r, const float* lhs, const float* rhs) {
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            float sum = lhs[i] * rhs[4 * j];
            for (int k = 1; k < 4; ++k) {
                sum += lhs[i + 4 * k] * rhs[k + 4 * j];
            }
            r[i + 4 * j] = sum;
        }
    }
}

} // namespace

void Matrix::arraycopy(std::span<const float> src, int srcPos, std::span<float> dest, int destPos, int length) {
    if (length < 0) {
        throw std::out_of_range("arraycopy: length " + std::to_string(length) + " is negative");
    }
    requireRange(src.size(), srcPos, length);
    requireRange(dest.size(), destPos, length);
    if (length > 0) {
        std::memmove(dest.data() + destPos, src.data() + srcPos, static_cast<std::size_t>(length) * sizeof(float));
    }
}

void Matrix::setIdentityM(std::span<float> sm, int smOffset) {
    requireRange(sm.size(), smOffset, 16);
    float* m = sm.data() + smOffset;
    for (int i = 0; i < 16; ++i) {
        m[i] = 0.0f;
    }
    for (int i = 0; i < 16; i += 5) {
        m[i] = 1.0f;
    }
}

void Matrix::multiplyMM(std::span<float> result, int resultOffset, std::span<const float> lhs, int lhsOffset,
                        std::span<const float> rhs, int rhsOffset) {
    requireRange(result.size(), resultOffset, 16);
    requireRange(lhs.size(), lhsOffset, 16);
    requireRange(rhs.size(), rhsOffset, 16);
    std::memcpy(multiplyLhs, lhs.data() + lhsOffset, sizeof multiplyLhs);
    std::memcpy(multiplyRhs, rhs.data() + rhsOffset, sizeof multiplyRhs);
    product(multiplyResult, multiplyLhs, multiplyRhs);
    std::memcpy(result.data() + resultOffset, multiplyResult, sizeof multiplyResult);
}

void Matrix::multiplyMMInternal(std::span<float> r, std::span<const float> lhs, std::span<const float> rhs) {
    requireRange(r.size(), 0, 16);
    requireRange(lhs.size(), 0, 16);
    requireRange(rhs.size(), 0, 16);
    product(r.data(), lhs.data(), rhs.data());
}

void Matrix::multiplyMV(std::span<float> resultVec, int resultVecOffset, std::span<const float> lhsMat,
                        int lhsMatOffset, std::span<const float> rhsVec, int rhsVecOffset) {
    requireRange(resultVec.size(), resultVecOffset, 4);
    requireRange(lhsMat.size(), lhsMatOffset, 16);
    requireRange(rhsVec.size(), rhsVecOffset, 4);
    std::memcpy(vectorIn, rhsVec.data() + rhsVecOffset, sizeof vectorIn);
    const float* m = lhsMat.data() + lhsMatOffset;
    for (int i = 0; i < 4; ++i) {
        vectorOut[i] = m[i] * vectorIn[0] + m[4 + i] * vectorIn[1] + m[8 + i] * vectorIn[2] + m[12 + i] * vectorIn[3];
    }
    std::memcpy(resultVec.data() + resultVecOffset, vectorOut, sizeof vectorOut);
}

void Matrix::transposeM(std::span<float> mTrans, int mTransOffset, std::span<const float> m, int mOffset) {
    requireRange(mTrans.size(), mTransOffset, 16);
    requireRange(m.size(), mOffset, 16);
    const float* src = m.data() + mOffset;
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            transposeScratch[i + 4 * j] = src[j + 4 * i];
        }
    }
    std::memcpy(mTrans.data() + mTransOffset, transposeScratch, sizeof transposeScratch);
}

bool Matrix::invertM(std::span<float> mInv, int mInvOffset, std::span<const float> m, int mOffset) {
    requireRange(mInv.size(), mInvOffset, 16);
    requireRange(m.size(), mOffset, 16);
    const float* a = m.data() + mOffset;

    // The transpose of the source, named by its row-major position.
    const float src0 = a[0], src4 = a[1], src8 = a[2], src12 = a[3];
    const float src1 = a[4], src5 = a[5], src9 = a[6], src13 = a[7];
    const float src2 = a[8], src6 = a[9], src10 = a[10], src14 = a[11];
    const float src3 = a[12], src7 = a[13], src11 = a[14], src15 = a[15];

    // Products of pairs for the first eight cofactors.
    const float atmp0 = src10 * src15;
    const float atmp1 = src11 * src14;
    const float atmp2 = src9 * src15;
    const float atmp3 = src11 * src13;
    const float atmp4 = src9 * src14;
    const float atmp5 = src10 * src13;
    const float atmp6 = src8 * src15;
    const float atmp7 = src11 * src12;
    const float atmp8 = src8 * src14;
    const float atmp9 = src10 * src12;
    const float atmp10 = src8 * src13;
    const float atmp11 = src9 * src12;

    const float dst0 = (atmp0 * src5 + atmp3 * src6 + atmp4 * src7) - (atmp1 * src5 + atmp2 * src6 + atmp5 * src7);
    const float dst1 = (atmp1 * src4 + atmp6 * src6 + atmp9 * src7) - (atmp0 * src4 + atmp7 * src6 + atmp8 * src7);
    const float dst2 = (atmp2 * src4 + atmp7 * src5 + atmp10 * src7) - (atmp3 * src4 + atmp6 * src5 + atmp11 * src7);
    const float dst3 = (atmp5 * src4 + atmp8 * src5 + atmp11 * src6) - (atmp4 * src4 + atmp9 * src5 + atmp10 * src6);
    const float dst4 = (atmp1 * src1 + atmp2 * src2 + atmp5 * src3) - (atmp0 * src1 + atmp3 * src2 + atmp4 * src3);
    const float dst5 = (atmp0 * src0 + atmp7 * src2 + atmp8 * src3) - (atmp1 * src0 + atmp6 * src2 + atmp9 * src3);
    const float dst6 = (atmp3 * src0 + atmp6 * src1 + atmp11 * src3) - (atmp2 * src0 + atmp7 * src1 + atmp10 * src3);
    const float dst7 = (atmp4 * src0 + atmp9 * src1 + atmp10 * src2) - (atmp5 * src0 + atmp8 * src1 + atmp11 * src2);

    // Products of pairs for the second eight cofactors.
    const float btmp0 = src2 * src7;
    const float btmp1 = src3 * src6;
    const float btmp2 = src1 * src7;
    const float btmp3 = src3 * src5;
    const float btmp4 = src1 * src6;
    const float btmp5 = src2 * src5;
    const float btmp6 = src0 * src7;
    const float btmp7 = src3 * src4;
    const float btmp8 = src0 * src6;
    const float btmp9 = src2 * src4;
    const float btmp10 = src0 * src5;
    const float btmp11 = src1 * src4;

    const float dst8 = (btmp0 * src13 + btmp3 * src14 + btmp4 * src15) - (btmp1 * src13 + btmp2 * src14 + btmp5 * src15);
    const float dst9 = (btmp1 * src12 + btmp6 * src14 + btmp9 * src15) - (btmp0 * src12 + btmp7 * src14 + btmp8 * src15);
    const float dst10 = (btmp2 * src12 + btmp7 * src13 + btmp10 * src15) - (btmp3 * src12 + btmp6 * src13 + btmp11 * src15);
    const float dst11 = (btmp5 * src12 + btmp8 * src13 + btmp11 * src14) - (btmp4 * src12 + btmp9 * src13 + btmp10 * src14);
    const float dst12 = (btmp2 * src10 + btmp5 * src11 + btmp1 * src9) - (btmp4 * src11 + btmp0 * src9 + btmp3 * src10);
    const float dst13 = (btmp8 * src11 + btmp0 * src8 + btmp7 * src10) - (btmp6 * src10 + btmp9 * src11 + btmp1 * src8);
    const float dst14 = (btmp6 * src9 + btmp11 * src11 + btmp3 * src8) - (btmp10 * src11 + btmp2 * src8 + btmp7 * src9);
    const float dst15 = (btmp10 * src10 + btmp4 * src8 + btmp9 * src9) - (btmp8 * src9 + btmp11 * src10 + btmp5 * src8);

    const float det = src0 * dst0 + src1 * dst1 + src2 * dst2 + src3 * dst3;
    if (det == 0.0f) {
        return false;
    }

    const float invdet = 1.0f / det;
    float* out = mInv.data() + mInvOffset;
    out[0] = dst0 * invdet;
    out[1] = dst1 * invdet;
    out[2] = dst2 * invdet;
    out[3] = dst3 * invdet;
    out[4] = dst4 * invdet;
    out[5] = dst5 * invdet;
    out[6] = dst6 * invdet;
    out[7] = dst7 * invdet;
    out[8] = dst8 * invdet;
    out[9] = dst9 * invdet;
    out[10] = dst10 * invdet;
    out[11] = dst11 * invdet;
    out[12] = dst12 * invdet;
    out[13] = dst13 * invdet;
    out[14] = dst14 * invdet;
    out[15] = dst15 * invdet;
    return true;
}

float Matrix::length(float x, float y, float z) { return std::sqrt(x * x + y * y + z * z); }

void Matrix::translateM(std::span<float> m, int mOffset, float x, float y, float z) {
    requireRange(m.size(), mOffset, 16);
    float* a = m.data() + mOffset;
    for (int i = 0; i < 4; ++i) {
        a[12 + i] += a[i] * x + a[4 + i] * y + a[8 + i] * z;
    }
}

void Matrix::translateM(std::span<float> tm, int tmOffset, std::span<const float> m, int mOffset, float x, float y,
                        float z) {
    requireRange(tm.size(), tmOffset, 16);
    requireRange(m.size(), mOffset, 16);
    float* t = tm.data() + tmOffset;
    const float* a = m.data() + mOffset;
    for (int i = 0; i < 12; ++i) {
        t[i] = a[i];
    }
    for (int i = 0; i < 4; ++i) {
        t[12 + i] = a[i] * x + a[4 + i] * y + a[8 + i] * z + a[12 + i];
    }
}

void Matrix::scaleM(std::span<float> m, int mOffset, float x, float y, float z) {
    requireRange(m.size(), mOffset, 16);
    float* a = m.data() + mOffset;
    for (int i = 0; i < 4; ++i) {
        a[i] *= x;
        a[4 + i] *= y;
        a[8 + i] *= z;
    }
}

void Matrix::scaleM(std::span<float> sm, int smOffset, std::span<const float> m, int mOffset, float x, float y,
                    float z) {
    requireRange(sm.size(), smOffset, 16);
    requireRange(m.size(), mOffset, 16);
    float* s = sm.data() + smOffset;
    const float* a = m.data() + mOffset;
    for (int i = 0; i < 4; ++i) {
        s[i] = a[i] * x;
        s[4 + i] = a[4 + i] * y;
        s[8 + i] = a[8 + i] * z;
        s[12 + i] = a[12 + i];
    }
}

void Matrix::setRotateM(std::span<float> rm, int rmOffset, float a, float x, float y, float z) {
    requireRange(rm.size(), rmOffset, 16);
    float* r = rm.data() + rmOffset;
    r[3] = 0.0f;
    r[7] = 0.0f;
    r[11] = 0.0f;
    r[12] = 0.0f;
    r[13] = 0.0f;
    r[14] = 0.0f;
    r[15] = 1.0f;
    const float radians = a * DEG_TO_RAD;
    const float s = sinOf(radians);
    const float c = cosOf(radians);
    // The scenes rotate about the unit axes for every object; those skip the general formula.
    if (x == 1.0f && y == 0.0f && z == 0.0f) {
        r[5] = c;
        r[10] = c;
        r[6] = s;
        r[9] = -s;
        r[1] = 0.0f;
        r[2] = 0.0f;
        r[4] = 0.0f;
        r[8] = 0.0f;
        r[0] = 1.0f;
    } else if (x == 0.0f && y == 1.0f && z == 0.0f) {
        r[0] = c;
        r[10] = c;
        r[8] = s;
        r[2] = -s;
        r[1] = 0.0f;
        r[4] = 0.0f;
        r[6] = 0.0f;
        r[9] = 0.0f;
        r[5] = 1.0f;
    } else if (x == 0.0f && y == 0.0f && z == 1.0f) {
        r[0] = c;
        r[5] = c;
        r[1] = s;
        r[4] = -s;
        r[2] = 0.0f;
        r[6] = 0.0f;
        r[8] = 0.0f;
        r[9] = 0.0f;
        r[10] = 1.0f;
    } else {
        const float len = length(x, y, z);
        if (len != 1.0f) {
            x /= len;
            y /= len;
            z /= len;
        }
        const float nc = 1.0f - c;
        const float xy = x * y;
        const float yz = y * z;
        const float zx = z * x;
        const float xs = x * s;
        const float ys = y * s;
        const float zs = z * s;
        r[0] = x * x * nc + c;
        r[4] = xy * nc - zs;
        r[8] = zx * nc + ys;
        r[1] = xy * nc + zs;
        r[5] = y * y * nc + c;
        r[9] = yz * nc - xs;
        r[2] = zx * nc - ys;
        r[6] = yz * nc + xs;
        r[10] = z * z * nc + c;
    }
}

void Matrix::rotateM(std::span<float> m, int mOffset, float a, float x, float y, float z) {
    requireRange(m.size(), mOffset, 16);
    setRotateM(rotateScratch, 0, a, x, y, z);
    multiplyMM(std::span<float>(rotateScratch), 16, m, mOffset, rotateScratch, 0);
    arraycopy(rotateScratch, 16, m, mOffset, 16);
}

void Matrix::rotateM(std::span<float> rm, int rmOffset, std::span<const float> m, int mOffset, float a, float x,
                     float y, float z) {
    requireRange(rm.size(), rmOffset, 16);
    requireRange(m.size(), mOffset, 16);
    setRotateM(rotateScratch, 0, a, x, y, z);
    multiplyMM(rm, rmOffset, m, mOffset, rotateScratch, 0);
}

void Matrix::setRotateEulerM(std::span<float> rm, int rmOffset, float x, float y, float z) {
    requireRange(rm.size(), rmOffset, 16);
    x *= DEG_TO_RAD;
    y *= DEG_TO_RAD;
    z *= DEG_TO_RAD;
    const float cx = cosOf(x);
    const float sx = sinOf(x);
    const float cy = cosOf(y);
    const float sy = sinOf(y);
    const float cz = cosOf(z);
    const float sz = sinOf(z);
    const float cxsy = cx * sy;
    const float sxsy = sx * sy;

    float* r = rm.data() + rmOffset;
    r[0] = cy * cz;
    r[1] = -cy * sz;
    r[2] = sy;
    r[3] = 0.0f;

    // Element 4 takes cx sy cz (not sx sy cz): the engine's scenes are tuned to this matrix.
    r[4] = cxsy * cz + cx * sz;
    r[5] = -cxsy * sz + cx * cz;
    r[6] = -sx * cy;
    r[7] = 0.0f;

    r[8] = -sxsy * cz + sx * sz;
    r[9] = sxsy * sz + sx * cz;
    r[10] = cx * cy;
    r[11] = 0.0f;

    r[12] = 0.0f;
    r[13] = 0.0f;
    r[14] = 0.0f;
    r[15] = 1.0f;
}

void Matrix::setLookAtM(std::span<float> rm, int rmOffset, float eyeX, float eyeY, float eyeZ, float centerX,
                        float centerY, float centerZ, float upX, float upY, float upZ) {
    requireRange(rm.size(), rmOffset, 16);
    float fx = centerX - eyeX;
    float fy = centerY - eyeY;
    float fz = centerZ - eyeZ;
    const float rlf = 1.0f / length(fx, fy, fz);
    fx *= rlf;
    fy *= rlf;
    fz *= rlf;

    // s = f x up
    float sx = fy * upZ - fz * upY;
    float sy = fz * upX - fx * upZ;
    float sz = fx * upY - fy * upX;
    const float rls = 1.0f / length(sx, sy, sz);
    sx *= rls;
    sy *= rls;
    sz *= rls;

    // u = s x f, already of unit length up to rounding
    const float ux = sy * fz - sz * fy;
    const float uy = sz * fx - sx * fz;
    const float uz = sx * fy - sy * fx;

    float* r = rm.data() + rmOffset;
    r[0] = sx;
    r[1] = ux;
    r[2] = -fx;
    r[3] = 0.0f;
    r[4] = sy;
    r[5] = uy;
    r[6] = -fy;
    r[7] = 0.0f;
    r[8] = sz;
    r[9] = uz;
    r[10] = -fz;
    r[11] = 0.0f;
    r[12] = 0.0f;
    r[13] = 0.0f;
    r[14] = 0.0f;
    r[15] = 1.0f;
    translateM(rm, rmOffset, -eyeX, -eyeY, -eyeZ);
}

void Matrix::frustumM(std::span<float> m, int offset, float left, float right, float bottom, float top, float near,
                      float far) {
    if (left == right) {
        throw std::invalid_argument("left == right");
    }
    if (top == bottom) {
        throw std::invalid_argument("top == bottom");
    }
    if (near == far) {
        throw std::invalid_argument("near == far");
    }
    if (!(near > 0.0f)) {
        throw std::invalid_argument("near <= 0.0f");
    }
    if (!(far > 0.0f)) {
        throw std::invalid_argument("far <= 0.0f");
    }
    requireRange(m.size(), offset, 16);
    const float w = 1.0f / (right - left);
    const float h = 1.0f / (top - bottom);
    const float d = 1.0f / (near - far);
    float* r = m.data() + offset;
    for (int i = 0; i < 16; ++i) {
        r[i] = 0.0f;
    }
    r[0] = 2.0f * (near * w);
    r[5] = 2.0f * (near * h);
    r[8] = (right + left) * w;
    r[9] = (top + bottom) * h;
    r[10] = (far + near) * d;
    r[11] = -1.0f;
    r[14] = 2.0f * (far * near * d);
}

void Matrix::perspectiveM(std::span<float> m, int offset, float fovy, float aspect, float zNear, float zFar) {
    requireRange(m.size(), offset, 16);
    const float f = 1.0f / static_cast<float>(std::tan(static_cast<double>(fovy) * HALF_DEG_TO_RAD));
    const float d = 1.0f / (zNear - zFar);
    float* r = m.data() + offset;
    for (int i = 0; i < 16; ++i) {
        r[i] = 0.0f;
    }
    r[0] = f / aspect;
    r[5] = f;
    r[10] = (zFar + zNear) * d;
    r[11] = -1.0f;
    r[14] = 2.0f * zFar * zNear * d;
}

void Matrix::orthoM(std::span<float> m, int mOffset, float left, float right, float bottom, float top, float near,
                    float far) {
    if (left == right) {
        throw std::invalid_argument("left == right");
    }
    if (bottom == top) {
        throw std::invalid_argument("bottom == top");
    }
    if (near == far) {
        throw std::invalid_argument("near == far");
    }
    requireRange(m.size(), mOffset, 16);
    const float w = 1.0f / (right - left);
    const float h = 1.0f / (top - bottom);
    const float d = 1.0f / (far - near);
    float* r = m.data() + mOffset;
    for (int i = 0; i < 16; ++i) {
        r[i] = 0.0f;
    }
    r[0] = 2.0f * w;
    r[5] = 2.0f * h;
    r[10] = -2.0f * d;
    r[12] = -(right + left) * w;
    r[13] = -(top + bottom) * h;
    r[14] = -(far + near) * d;
    r[15] = 1.0f;
}

} // namespace engine::math
