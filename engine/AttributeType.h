#pragma once

#include <iterator>
#include <string_view>

namespace engine {

/// What a vertex attribute means to the shader that reads it.
enum class AttributeType : int {
    VERTEX,
    NORMAL,
    COLOR,
    UV0,
    UV1,
    UV2,
    AO,
    CUSTOM0,
    CUSTOM1,
    CUSTOM2,
    CUSTOM3,
    U0,
    V0,
    U1,
    V1,
    U2,
    V2,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(AttributeType value) {
    static constexpr std::string_view names[] = {
        "VERTEX",
        "NORMAL",
        "COLOR",
        "UV0",
        "UV1",
        "UV2",
        "AO",
        "CUSTOM0",
        "CUSTOM1",
        "CUSTOM2",
        "CUSTOM3",
        "U0",
        "V0",
        "U1",
        "V1",
        "U2",
        "V2",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace engine
