#pragma once

// Helpers shared by the scene tests: typed access to tree nodes and uniforms, a tree walk, and
// plain double-precision 4x4 arithmetic to check the matrices that scenes write.

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <set>
#include <span>
#include <vector>

#include "engine/commands/Command.h"
#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/UniformIntValue.h"
#include "engine/commands/UniformTextureValue.h"
#include "engine/commands/VrsHint.h"

namespace scenes::testing {

using CommandPtr = std::shared_ptr<engine::commands::Command>;
using Matrix4 = std::array<double, 16>;

/// The node as `T`, or null when it is of another class.
template <typename T> std::shared_ptr<T> as(const CommandPtr& node) { return std::dynamic_pointer_cast<T>(node); }

/// The children of a group node; fails the test when the node is not a group.
inline const std::vector<CommandPtr>& children(const CommandPtr& node) {
    static const std::vector<CommandPtr> none;
    auto group = as<engine::commands::GroupCommand>(node);
    EXPECT_NE(group, nullptr) << "not a group";
    return group ? group->commands : none;
}

/// The values of a float uniform; empty (and a failure) for another class.
inline std::vector<float> floatsOf(const std::shared_ptr<engine::commands::UniformValue>& uniform) {
    auto value = std::dynamic_pointer_cast<engine::commands::UniformFloatValue>(uniform);
    EXPECT_NE(value, nullptr) << "not a float uniform";
    return value ? value->value : std::vector<float>{};
}

/// The values of an integer uniform; empty (and a failure) for another class.
inline std::vector<std::int32_t> intsOf(const std::shared_ptr<engine::commands::UniformValue>& uniform) {
    auto value = std::dynamic_pointer_cast<engine::commands::UniformIntValue>(uniform);
    EXPECT_NE(value, nullptr) << "not an integer uniform";
    return value ? value->value : std::vector<std::int32_t>{};
}

/// The shading rate of a hint list of exactly one VrsHint; fails otherwise.
inline engine::commands::ShadingRate onlyRate(const engine::commands::HintList& hints) {
    EXPECT_EQ(hints.size(), 1u);
    if (hints.size() != 1) {
        return engine::commands::ShadingRate::SHADING_RATE_1X1;
    }
    auto vrs = std::dynamic_pointer_cast<engine::commands::VrsHint>(hints[0]);
    EXPECT_NE(vrs, nullptr);
    return vrs ? vrs->shadingRate : engine::commands::ShadingRate::SHADING_RATE_1X1;
}

/// A column-major matrix of floats widened to doubles.
inline Matrix4 widen(std::span<const float> m) {
    Matrix4 result{};
    for (std::size_t i = 0; i < 16; ++i) {
        result[i] = m[i];
    }
    return result;
}

/// a * b, column-major.
inline Matrix4 multiply(const Matrix4& a, const Matrix4& b) {
    Matrix4 result{};
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k) {
                sum += a[static_cast<std::size_t>(k * 4 + row)] * b[static_cast<std::size_t>(column * 4 + k)];
            }
            result[static_cast<std::size_t>(column * 4 + row)] = sum;
        }
    }
    return result;
}

/// Translation, then a turn of `degrees` about Z, then a scale: T * Rz * S.
inline Matrix4 placement(double tx, double ty, double tz, double degreesZ, double sx, double sy, double sz) {
    const double radians = degreesZ * 3.14159265358979323846 / 180.0;
    const double c = std::cos(radians);
    const double s = std::sin(radians);
    return Matrix4{c * sx, s * sx, 0, 0, -s * sy, c * sy, 0, 0, 0, 0, sz, 0, tx, ty, tz, 1};
}

/// Element-wise comparison with a tolerance relative to the larger magnitude (at least 1).
inline void expectMatrixNear(const Matrix4& expected, std::span<const float> actual, double tolerance = 1e-5) {
    ASSERT_GE(actual.size(), 16u);
    for (std::size_t i = 0; i < 16; ++i) {
        const double scale = std::max(1.0, std::abs(expected[i]));
        EXPECT_NEAR(actual[i], expected[i], tolerance * scale) << "element " << i;
    }
}

} // namespace scenes::testing
