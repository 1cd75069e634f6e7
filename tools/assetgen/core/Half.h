#pragma once

#include <cstdint>

namespace tools::assetgen::core {

/// IEEE 754 binary16 conversions, as the GPU reads HALF vertex attributes and RGBA16F texels.
class Half {
public:
    Half() = delete;

    /// The half float nearest to `value`, ties to even; overflow gives infinity, NaN stays NaN.
    static std::uint16_t fromFloat(float value);
    /// The float that the half `bits` stands for (exact).
    static float toFloat(std::uint16_t bits);
    /// `value` rounded to the nearest half and back: what the GPU will see of it.
    static float round(float value) { return toFloat(fromFloat(value)); }
};

} // namespace tools::assetgen::core
