#include "host/settings/Settings.h"

namespace host::settings {

Settings::Settings(const QString& filePath)
    : store_(filePath),
      keys_{&hideMenuBarIcon, &display, &deactivateOnBattery, &showOnAllSpaces, &bringBrowsingModeToFront,
            &muteAudio, &extendVeilBelowMenuBar, &fps, &lowPowerMode, &batteryMode, &sceneVignette,
            &sceneSpeed, &sceneTime, &clockFont, &clockFormat, &clockEnabled, &clockOpacity, &clockSize,
            &allDisplays, &pauseWhenCovered} {}

const SettingsKeyBase* Settings::find(const QString& name) const {
    for (const SettingsKeyBase* key : keys_) {
        if (key->name() == name) {
            return key;
        }
    }
    return nullptr;
}

} // namespace host::settings
