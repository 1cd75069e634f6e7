#include "engine/SetUniform.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/UniformIntValue.h"

namespace engine {

namespace {

using commands::UniformFloatValue;
using commands::UniformIntValue;
using commands::UniformValue;

[[noreturn]] void throwTooShort(std::size_t held, std::size_t written) {
    throw std::out_of_range("Uniform holds " + std::to_string(held) + " values, " + std::to_string(written) +
                            " written");
}

// The uniform as the class a writer needs, with room for `count` elements; throws otherwise, so
// that a writer either writes everything or nothing.
template <typename U>
std::vector<typename decltype(U::value)::value_type>& valuesOf(const std::shared_ptr<UniformValue>& uniform,
                                                               std::size_t count, const char* classError) {
    if (!uniform) {
        throw std::invalid_argument("Uniform is null");
    }
    auto* typed = dynamic_cast<U*>(uniform.get());
    if (typed == nullptr) {
        throw std::invalid_argument(classError);
    }
    if (typed->value.size() < count) {
        throwTooShort(typed->value.size(), count);
    }
    return typed->value;
}

std::vector<float>& floats(const std::shared_ptr<UniformValue>& uniform, std::size_t count) {
    return valuesOf<UniformFloatValue>(uniform, count, "Uniform is not a UniformFloatValue");
}

std::vector<std::int32_t>& ints(const std::shared_ptr<UniformValue>& uniform, std::size_t count) {
    return valuesOf<UniformIntValue>(uniform, count, "Uniform is not a UniformIntValue");
}

} // namespace

void setUniform(const std::shared_ptr<UniformValue>& uniform, float x) {
    auto& v = floats(uniform, 1);
    v[0] = x;
}

void setUniform(const std::shared_ptr<UniformValue>& uniform, float x, float y) {
    auto& v = floats(uniform, 2);
    v[0] = x;
    v[1] = y;
}

void setUniform(const std::shared_ptr<UniformValue>& uniform, float x, float y, float z) {
    auto& v = floats(uniform, 3);
    v[0] = x;
    v[1] = y;
    v[2] = z;
}

void setUniform(const std::shared_ptr<UniformValue>& uniform, float x, float y, float z, float w) {
    auto& v = floats(uniform, 4);
    v[0] = x;
    v[1] = y;
    v[2] = z;
    v[3] = w;
}

void setUniform(const std::shared_ptr<UniformValue>& uniform, std::span<const float> values) {
    auto& v = floats(uniform, values.size());
    std::copy(values.begin(), values.end(), v.begin());
}

void setUniform(const std::shared_ptr<UniformValue>& uniform, std::int32_t x) {
    auto& v = ints(uniform, 1);
    v[0] = x;
}

void setUniform(const std::shared_ptr<UniformValue>& uniform, std::int32_t x, std::int32_t y) {
    auto& v = ints(uniform, 2);
    v[0] = x;
    v[1] = y;
}

void setUniform(const std::shared_ptr<UniformValue>& uniform, std::int32_t x, std::int32_t y, std::int32_t z) {
    auto& v = ints(uniform, 3);
    v[0] = x;
    v[1] = y;
    v[2] = z;
}

void setUniform(const std::shared_ptr<UniformValue>& uniform, std::int32_t x, std::int32_t y, std::int32_t z,
                std::int32_t w) {
    auto& v = ints(uniform, 4);
    v[0] = x;
    v[1] = y;
    v[2] = z;
    v[3] = w;
}

void setUniform(const std::shared_ptr<UniformValue>& uniform, std::span<const std::int32_t> values) {
    auto& v = ints(uniform, values.size());
    std::copy(values.begin(), values.end(), v.begin());
}

void setUniform(const std::shared_ptr<UniformValue>& uniform, const math::Vec2& value) {
    setUniform(uniform, value.x, value.y);
}

void setUniform(const std::shared_ptr<UniformValue>& uniform, const math::Vec3& value) {
    setUniform(uniform, value.x, value.y, value.z);
}

void setUniform(const std::shared_ptr<UniformValue>& uniform, const math::Vec4& value) {
    setUniform(uniform, value.x, value.y, value.z, value.w);
}

} // namespace engine
