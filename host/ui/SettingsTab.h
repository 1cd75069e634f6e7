#pragma once

#include <QString>

#include <string_view>

namespace host::ui {

/// The tabs a settings window may have, with their titles and icons. Advanced is declared but
/// no tab of the present window uses it.
enum class SettingsTab : int {
    General = 0,
    Advanced = 1,
    Scene = 2,
    Clock = 3,
};

/// The constant's name: "General", "Advanced", "Scene", "Clock".
std::string_view toString(SettingsTab tab);

/// The title shown on the tab: "General", "Advanced", "Scene", "Clock".
QString titleOf(SettingsTab tab);

/// The icon theme name of the tab's symbol.
QString iconNameOf(SettingsTab tab);

} // namespace host::ui
