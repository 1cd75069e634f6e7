#include "engine/common/ColorMode.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

using engine::common::ColorMode;

TEST(ColorModeEnum, OrderAndMixedCaseTexts) {
    const std::vector<std::string_view> names{"Normal",        "Grayscale",     "Sepia",
                                              "HighContrast",  "LowContrast",   "BlackAndWhite",
                                              "IsolatedColor", "Crosshatch",    "LimitedColors"};
    for (int i = 0; i < static_cast<int>(names.size()); ++i) {
        EXPECT_EQ(names[i], toString(static_cast<ColorMode>(i))) << i;
    }
    EXPECT_EQ(2, static_cast<int>(ColorMode::Sepia));
    EXPECT_EQ(8, static_cast<int>(ColorMode::LimitedColors));
}
