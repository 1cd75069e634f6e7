#include "engine/SetUniform.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/UniformIntValue.h"
#include "engine/commands/UniformTextureValue.h"

namespace {

using engine::setUniform;
using engine::commands::UniformFloatValue;
using engine::commands::UniformIntValue;
using engine::commands::UniformTextureValue;
using engine::math::Vec2;
using engine::math::Vec3;
using engine::math::Vec4;

std::shared_ptr<UniformFloatValue> floats(std::size_t size) {
    return std::make_shared<UniformFloatValue>(std::vector<float>(size, -1.0f));
}

TEST(SetUniformTest, FloatWritersFillThePrefixInPlace) {
    auto u = floats(6);
    const float* data = u->value.data();

    setUniform(u, 1.5f);
    EXPECT_EQ(u->value, (std::vector<float>{1.5f, -1, -1, -1, -1, -1}));
    setUniform(u, 1.0f, 2.0f);
    EXPECT_EQ(u->value, (std::vector<float>{1, 2, -1, -1, -1, -1}));
    setUniform(u, 3.0f, 4.0f, 5.0f);
    EXPECT_EQ(u->value, (std::vector<float>{3, 4, 5, -1, -1, -1}));
    setUniform(u, 6.0f, 7.0f, 8.0f, 9.0f);
    EXPECT_EQ(u->value, (std::vector<float>{6, 7, 8, 9, -1, -1}));
    const std::array<float, 5> five{10, 11, 12, 13, 14};
    setUniform(u, five);
    EXPECT_EQ(u->value, (std::vector<float>{10, 11, 12, 13, 14, -1}));

    // The array the renderer may be viewing is the same one, with the same length.
    EXPECT_EQ(u->value.data(), data);
    EXPECT_EQ(u->value.size(), 6u);
}

} // namespace
