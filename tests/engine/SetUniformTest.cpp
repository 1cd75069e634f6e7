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
using engine::commands::UniformValue;
using engine::math::Vec2;
using engine::math::Vec3;
using engine::math::Vec4;

std::shared_ptr<UniformFloatValue> floats(std::size_t size) {
    return std::make_shared<UniformFloatValue>(std::vector<float>(size, -1.0f));
}

std::shared_ptr<UniformIntValue> ints(std::size_t size) {
    return std::make_shared<UniformIntValue>(std::vector<std::int32_t>(size, -1));
}

template <typename F> std::string invalidArgumentOf(F&& call) {
    try {
        call();
    } catch (const std::invalid_argument& e) {
        return e.what();
    }
    return "no failure";
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

TEST(SetUniformTest, VectorWritersUseTheirComponentsInOrder) {
    auto u = floats(4);
    setUniform(u, Vec4(0.1f, 0.2f, 0.3f, 0.4f));
    EXPECT_EQ(u->value, (std::vector<float>{0.1f, 0.2f, 0.3f, 0.4f}));
    setUniform(u, Vec3(5, 6, 7));
    EXPECT_EQ(u->value, (std::vector<float>{5, 6, 7, 0.4f}));
    setUniform(u, Vec2(8, 9));
    EXPECT_EQ(u->value, (std::vector<float>{8, 9, 7, 0.4f}));
}

TEST(SetUniformTest, IntWritersFillThePrefixInPlace) {
    auto u = ints(5);
    const std::int32_t* data = u->value.data();
    setUniform(u, 7);
    EXPECT_EQ(u->value, (std::vector<std::int32_t>{7, -1, -1, -1, -1}));
    setUniform(u, 1, 2);
    setUniform(u, 3, 4, 5);
    EXPECT_EQ(u->value, (std::vector<std::int32_t>{3, 4, 5, -1, -1}));
    setUniform(u, 6, 7, 8, 9);
    EXPECT_EQ(u->value, (std::vector<std::int32_t>{6, 7, 8, 9, -1}));
    const std::vector<std::int32_t> all{-5, -6, -7, -8, -9};
    setUniform(u, all);
    EXPECT_EQ(u->value, all);
    EXPECT_EQ(u->value.data(), data);
}

TEST(SetUniformTest, WritersReachEveryHolderOfASharedUniform) {
    auto shared = floats(1);
    std::vector<std::shared_ptr<UniformValue>> first{shared};
    std::vector<std::shared_ptr<UniformValue>> second{shared};
    setUniform(first[0], 2.5f);
    EXPECT_EQ(std::static_pointer_cast<UniformFloatValue>(second[0])->value[0], 2.5f);
}

TEST(SetUniformTest, NullOrOtherClassFailsWithInvalidArgument) {
    std::shared_ptr<UniformValue> none;
    EXPECT_EQ(invalidArgumentOf([&] { setUniform(none, 1.0f); }), "Uniform is null");
    EXPECT_EQ(invalidArgumentOf([&] { setUniform(none, 1); }), "Uniform is null");

    auto i = ints(4);
    auto f = floats(4);
    auto t = std::make_shared<UniformTextureValue>(nullptr);
    EXPECT_EQ(invalidArgumentOf([&] { setUniform(i, 1.0f); }), "Uniform is not a UniformFloatValue");
    EXPECT_EQ(invalidArgumentOf([&] { setUniform(i, Vec3(1, 2, 3)); }), "Uniform is not a UniformFloatValue");
    EXPECT_EQ(invalidArgumentOf([&] { setUniform(f, 1, 2); }), "Uniform is not a UniformIntValue");
    EXPECT_EQ(invalidArgumentOf([&] { setUniform(t, 1.0f, 2.0f, 3.0f, 4.0f); }),
              "Uniform is not a UniformFloatValue");
    EXPECT_EQ(i->value, std::vector<std::int32_t>(4, -1));
    EXPECT_EQ(f->value, std::vector<float>(4, -1.0f));
}

TEST(SetUniformTest, TooShortArrayFailsBeforeWritingAnything) {
    auto f = floats(2);
    EXPECT_THROW(setUniform(f, 1.0f, 2.0f, 3.0f), std::out_of_range);
    EXPECT_THROW(setUniform(f, Vec4(1, 2, 3, 4)), std::out_of_range);
    const std::array<float, 16> matrix{};
    EXPECT_THROW(setUniform(f, matrix), std::out_of_range);
    EXPECT_EQ(f->value, std::vector<float>(2, -1.0f));

    auto empty = floats(0);
    EXPECT_THROW(setUniform(empty, 1.0f), std::out_of_range);

    auto i = ints(3);
    EXPECT_THROW(setUniform(i, 1, 2, 3, 4), std::out_of_range);
    EXPECT_EQ(i->value, std::vector<std::int32_t>(3, -1));

    try {
        setUniform(f, 1.0f, 2.0f, 3.0f);
    } catch (const std::out_of_range& e) {
        EXPECT_STREQ(e.what(), "Uniform holds 2 values, 3 written");
    }
}

} // namespace
