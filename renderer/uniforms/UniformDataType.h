#pragma once

#include <iterator>
#include <string_view>

namespace renderer::uniforms {

/// The element type in which a uniform reaches its shader. The tables use FP32, FP16, INT32 and
/// TEXTURE; for float values every type but FP32 means half floats, for integer values every
/// type but INT32 means 16-bit integers. TEXTURE is never consulted: a texture value is bound as
/// a texture whatever the row says.
enum class UniformDataType : int {
    FP32,
    FP16,
    INT16,
    UINT16,
    INT32,
    UINT32,
    BYTE,
    UBYTE,
    TEXTURE,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(UniformDataType value) {
    static constexpr std::string_view names[] = {"FP32",   "FP16", "INT16", "UINT16", "INT32",
                                                 "UINT32", "BYTE", "UBYTE", "TEXTURE"};
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace renderer::uniforms
