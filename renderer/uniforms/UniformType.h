#pragma once

#include <iterator>
#include <string_view>

namespace renderer::uniforms {

/// The shader stage that a uniform is handed to.
enum class UniformType : int {
    VERTEX,
    FRAGMENT,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(UniformType value) {
    static constexpr std::string_view names[] = {"VERTEX", "FRAGMENT"};
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace renderer::uniforms
