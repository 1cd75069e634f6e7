#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "engine/commands/UniformValue.h"
#include "engine/math/Vec2.h"
#include "engine/math/Vec3.h"
#include "engine/math/Vec4.h"

// The writers of uniform values. Each writes elements at the start of the uniform's array in
// place: none grows, shrinks or reallocates it (the renderer may hold a view of the data, and a
// uniform's length is settled when the scene builds it), and none compares the new value with the
// old. They fail on the spot, before writing anything:
//   - std::invalid_argument for a null uniform or one of the other class
//     ("Uniform is null", "Uniform is not a UniformFloatValue" / "... UniformIntValue");
//   - std::out_of_range when the array is shorter than the elements written
//     ("Uniform holds N values, M written").
// A float writer needs a UniformFloatValue, an integer writer a UniformIntValue. Pass floats as
// floats (1.0f): a double argument is ambiguous between the two families.

namespace engine {

/// value[0] = x.
void setUniform(const std::shared_ptr<commands::UniformValue>& uniform, float x);
/// value[0..1] = x, y.
void setUniform(const std::shared_ptr<commands::UniformValue>& uniform, float x, float y);
/// value[0..2] = x, y, z.
void setUniform(const std::shared_ptr<commands::UniformValue>& uniform, float x, float y, float z);
/// value[0..3] = x, y, z, w.
void setUniform(const std::shared_ptr<commands::UniformValue>& uniform, float x, float y, float z, float w);
/// Copies all of `values` to the start of the uniform's floats (a 16-float matrix, say).
void setUniform(const std::shared_ptr<commands::UniformValue>& uniform, std::span<const float> values);

/// value[0] = x.
void setUniform(const std::shared_ptr<commands::UniformValue>& uniform, std::int32_t x);
/// value[0..1] = x, y.
void setUniform(const std::shared_ptr<commands::UniformValue>& uniform, std::int32_t x, std::int32_t y);
/// value[0..2] = x, y, z.
void setUniform(const std::shared_ptr<commands::UniformValue>& uniform, std::int32_t x, std::int32_t y,
                std::int32_t z);
/// value[0..3] = x, y, z, w.
void setUniform(const std::shared_ptr<commands::UniformValue>& uniform, std::int32_t x, std::int32_t y,
                std::int32_t z, std::int32_t w);
/// Copies all of `values` to the start of the uniform's integers.
void setUniform(const std::shared_ptr<commands::UniformValue>& uniform, std::span<const std::int32_t> values);

/// value[0..1] = its x, y.
void setUniform(const std::shared_ptr<commands::UniformValue>& uniform, const math::Vec2& value);
/// value[0..2] = its x, y, z.
void setUniform(const std::shared_ptr<commands::UniformValue>& uniform, const math::Vec3& value);
/// value[0..3] = its x, y, z, w.
void setUniform(const std::shared_ptr<commands::UniformValue>& uniform, const math::Vec4& value);

} // namespace engine
