#include "host/ui/SettingsTab.h"

namespace host::ui {

std::string_view toString(SettingsTab tab) {
    switch (tab) {
    case SettingsTab::General:
        return "General";
    case SettingsTab::Advanced:
        return "Advanced";
    case SettingsTab::Scene:
        return "Scene";
    case SettingsTab::Clock:
        return "Clock";
    }
    return "General";
}

QString titleOf(SettingsTab tab) {
    const std::string_view name = toString(tab);
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

QString iconNameOf(SettingsTab tab) {
    switch (tab) {
    case SettingsTab::General:
        return QStringLiteral("preferences-system");
    case SettingsTab::Advanced:
    case SettingsTab::Scene:
        return QStringLiteral("preferences-other");
    case SettingsTab::Clock:
        return QStringLiteral("preferences-system-time");
    }
    return QString();
}

} // namespace host::ui
