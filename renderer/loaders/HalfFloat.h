#pragma once

#include <cstdint>

namespace renderer::loaders {

/// IEEE 754 half floats, as the FP16 uniforms and the vignette colours are sent: a float is
/// rounded to the nearest half, ties to the even one, as the processor's own conversion does;
/// too large a magnitude becomes infinity, too small a zero, NaN stays NaN.
class HalfFloat {
public:
    HalfFloat() = delete;

    /// The half nearest to `value` (ties to even).
    static std::uint16_t fromFloat(float value);
    /// The exact float value of a half.
    static float toFloat(std::uint16_t half);
};

} // namespace renderer::loaders
