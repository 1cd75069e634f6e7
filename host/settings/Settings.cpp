#include "host/settings/Settings.h"

#include "host/clock/ClockChoices.h"

namespace host::settings {

Settings::Settings(const QString& filePath)
    : store_(filePath),
      keys_{&hideMenuBarIcon, &display, &deactivateOnBattery, &showOnAllSpaces, &bringBrowsingModeToFront,
            &muteAudio, &extendVeilBelowMenuBar, &fps, &lowPowerMode, &batteryMode, &sceneVignette,
            &sceneSpeed, &sceneTime, &quality, &clockFont, &clockFormat, &clockEnabled, &clockOpacity, &clockSize, &scene,
            &allDisplays, &pauseWhenCovered} {}

QStringList Settings::clockFormatChoices() {
    QStringList texts;
    for (const auto& format : clock::ClockChoices::formats()) {
        texts << QString::fromLatin1(format.pattern);
    }
    return texts;
}

QStringList Settings::clockFontChoices() {
    QStringList texts;
    for (const auto& font : clock::ClockChoices::fonts()) {
        texts << QString::fromLatin1(font.name);
    }
    return texts;
}

const SettingsKeyBase* Settings::find(const QString& name) const {
    for (const SettingsKeyBase* key : keys_) {
        if (key->name() == name) {
            return key;
        }
    }
    return nullptr;
}

} // namespace host::settings
