#pragma once

#include "host/settings/SettingsKey.h"
#include "host/settings/SettingsStore.h"
#include "host/settings/ValueRule.h"

#include <QString>
#include <QUuid>

#include <optional>
#include <vector>

namespace host::settings {

/// All settings of the program: the store and its typed keys. Nothing else is persisted.
///
/// The list of keys below is also the table of the values each may hold (its ValueRule): the
/// choices and ranges of the settings window, which `nivalis config set` enforces and reads of
/// the file fall back to. A new key is one line there, and its name in `keys()`.
///
/// One instance is made at start and handed to whoever reads or writes settings (AppState, the
/// desktop window, the settings window, `nivalis config`). The keys keep a reference to the
/// store, which this object owns.
class Settings {
public:
    /// Settings over the INI file at `filePath` (SettingsStore::defaultFilePath() normally).
    explicit Settings(const QString& filePath);
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;

    /// The underlying store.
    SettingsStore& store() { return store_; }

    /// Every key, in the order of the table below, for handling keys by name.
    const std::vector<const SettingsKeyBase*>& keys() const { return keys_; }

    /// The key named `name`, or null.
    const SettingsKeyBase* find(const QString& name) const;

    /// Texts of the clock's time formats and fonts, as stored, in the settings window's order.
    static QStringList clockFormatChoices();
    static QStringList clockFontChoices();

private:
    static ValueRule boolean() { return ValueRule::anyOfType(QStringLiteral("true or false")); }

    SettingsStore store_;

public:
    /// The tray icon hides itself 5 seconds after each reveal.
    const SettingsKey<bool> hideMenuBarIcon{store_, QStringLiteral("hideMenuBarIcon"), false, boolean()};
    /// The monitor the wallpaper is shown on (its Display UUID); absent: the primary screen.
    const SettingsKey<std::optional<QUuid>> display{
        store_, QStringLiteral("display"), std::nullopt,
        ValueRule::anyOfType(QStringLiteral("a monitor's UUID, as the Settings window stores it"))};
    /// Consulted by the tray menu only: while locked, hides the Enable/Disable item.
    const SettingsKey<bool> deactivateOnBattery{store_, QStringLiteral("deactivateOnBattery"), false, boolean()};
    /// The window is on every workspace.
    const SettingsKey<bool> showOnAllSpaces{store_, QStringLiteral("showOnAllSpaces"), true, boolean()};
    /// Level policy of an interactive wallpaper (re-applies the window level on change).
    const SettingsKey<bool> bringBrowsingModeToFront{store_, QStringLiteral("bringBrowsingModeToFront"), false,
                                                     boolean()};
    /// No control; a change rebuilds the wallpaper's view (and so its renderer).
    const SettingsKey<bool> muteAudio{store_, QStringLiteral("muteAudio"), true, boolean()};
    /// The window covers the whole screen, top panel included.
    const SettingsKey<bool> extendVeilBelowMenuBar{store_, QStringLiteral("extendVeilBelowMenuBar"), false, boolean()};
    /// Wanted frames per second (20, 30 or 60 from the settings window).
    const SettingsKey<int> fps{store_, QStringLiteral("fps"), 30, ValueRule::oneOf({"20", "30", "60"})};
    /// Power-saver profile caps the rate at 20 (both frame-rate toggles are bound to this key).
    const SettingsKey<bool> lowPowerMode{store_, QStringLiteral("lowPowerMode"), true, boolean()};
    /// On battery the rate is capped at 30.
    const SettingsKey<bool> batteryMode{store_, QStringLiteral("batteryMode"), true, boolean()};
    /// The scene darkens its corners.
    const SettingsKey<bool> sceneVignette{store_, QStringLiteral("sceneVignette"), true, boolean()};
    /// The scene's camera period: larger is slower.
    const SettingsKey<float> sceneSpeed{store_, QStringLiteral("sceneSpeed"), 1.5f, ValueRule::range(0.5, 3.0, 0.25)};
    /// "auto", "day", "night", "dusk" or "dawn".
    const SettingsKey<QString> sceneTime{store_, QStringLiteral("sceneTime"), QStringLiteral("auto"),
                                         ValueRule::oneOf({"auto", "day", "night", "dusk", "dawn"})};
    /// How the scene is drawn: "auto" (low on a software rasteriser, high otherwise), "high"
    /// (full size, 4 samples) or "low" (a smaller size, one sample, scaled up).
    const SettingsKey<QString> quality{store_, QStringLiteral("quality"), QStringLiteral("auto"),
                                       ValueRule::oneOf({"auto", "high", "low"})};
    /// Font name of the clock.
    const SettingsKey<QString> clockFont{store_, QStringLiteral("clockFont"), QStringLiteral("Baloo"),
                                         ValueRule::oneOf(clockFontChoices())};
    /// Unicode date pattern of the clock ("h:mm", "hh:mm", "H:mm", "HH:mm").
    const SettingsKey<QString> clockFormat{store_, QStringLiteral("clockFormat"), QStringLiteral("h:mm"),
                                           ValueRule::oneOf(clockFormatChoices())};
    /// The clock is shown.
    const SettingsKey<bool> clockEnabled{store_, QStringLiteral("clockEnabled"), false, boolean()};
    /// Opacity of the clock text.
    const SettingsKey<double> clockOpacity{store_, QStringLiteral("clockOpacity"), 0.7, ValueRule::range(0.1, 1.0)};
    /// Font size of the clock in points.
    const SettingsKey<float> clockSize{store_, QStringLiteral("clockSize"), 220.0f, ValueRule::range(150.0, 350.0)};

    /// The scene shown: "nivalis", "spirelight", "betonia" or "example".
    const SettingsKey<QString> scene{store_, QStringLiteral("scene"), QStringLiteral("nivalis"),
                                     ValueRule::oneOf({"nivalis", "spirelight", "betonia", "example"})};
    /// Every monitor gets its own wallpaper; off: only the one of `display`.
    const SettingsKey<bool> allDisplays{store_, QStringLiteral("allDisplays"), false, boolean()};
    /// A monitor hidden by a fullscreen or maximized window draws no frames.
    const SettingsKey<bool> pauseWhenCovered{store_, QStringLiteral("pauseWhenCovered"), true, boolean()};

private:
    std::vector<const SettingsKeyBase*> keys_;
};

} // namespace host::settings
