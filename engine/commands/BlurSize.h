#pragma once

#include <iterator>
#include <string_view>

namespace engine::commands {

/// Size of the blur kernel of a blurred pass, from the widest to the narrowest.
enum class BlurSize : int {
    KERNEL_5,
    KERNEL_4,
    KERNEL_3,
    KERNEL_2,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(BlurSize value) {
    static constexpr std::string_view names[] = {
        "KERNEL_5",
        "KERNEL_4",
        "KERNEL_3",
        "KERNEL_2",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace engine::commands
