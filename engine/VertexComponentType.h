#pragma once

#include <iterator>
#include <string_view>

namespace engine {

/// The stored type of one component of a vertex format. INT_2_10_10_10 and UINT_2_10_10_10 are
/// the packed formats whose four components share one 32-bit word.
enum class VertexComponentType : int {
    UBYTE,
    BYTE,
    USHORT,
    SHORT,
    HALF,
    FLOAT,
    UINT,
    INT,
    INT_2_10_10_10,
    UINT_2_10_10_10,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(VertexComponentType value) {
    static constexpr std::string_view names[] = {
        "UBYTE", "BYTE", "USHORT", "SHORT", "HALF", "FLOAT", "UINT", "INT", "INT_2_10_10_10", "UINT_2_10_10_10",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

/// Bytes of one component; 4 for the packed types, which hold all components in that word.
int byteSize(VertexComponentType type);

} // namespace engine
