#pragma once

#include <string_view>

namespace engine::common {

/// A colour treatment that a scene may offer as a setting. Unlike the other enumerations of the
/// engine, the texts of these constants are their mixed-case names ("HighContrast").
enum class ColorMode : int {
    Normal,
    Grayscale,
    Sepia,
    HighContrast,
    LowContrast,
    BlackAndWhite,
    IsolatedColor,
    Crosshatch,
    LimitedColors,
};

/// The constant's name, e.g. "BlackAndWhite".
constexpr std::string_view toString(ColorMode mode) {
    switch (mode) {
    case ColorMode::Normal:
        return "Normal";
    case ColorMode::Grayscale:
        return "Grayscale";
    case ColorMode::Sepia:
        return "Sepia";
    case ColorMode::HighContrast:
        return "HighContrast";
    case ColorMode::LowContrast:
        return "LowContrast";
    case ColorMode::BlackAndWhite:
        return "BlackAndWhite";
    case ColorMode::IsolatedColor:
        return "IsolatedColor";
    case ColorMode::Crosshatch:
        return "Crosshatch";
    case ColorMode::LimitedColors:
        return "LimitedColors";
    }
    return "";
}

} // namespace engine::common
