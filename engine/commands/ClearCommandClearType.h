#pragma once

#include <iterator>
#include <string_view>

namespace engine::commands {

/// Which attachments a ClearCommand clears.
enum class ClearCommandClearType : int {
    COLOR,
    DEPTH,
    COLOR_AND_DEPTH,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(ClearCommandClearType value) {
    static constexpr std::string_view names[] = {
        "COLOR",
        "DEPTH",
        "COLOR_AND_DEPTH",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace engine::commands
