#include "host/settings/ConfigCommand.h"

#include "host/settings/Settings.h"

namespace host::settings {

QString ConfigCommand::usage() {
    return QStringLiteral(
        "Usage: nivalis config list\n"
        "       nivalis config get NAME\n"
        "       nivalis config set NAME VALUE\n"
        "       nivalis config unset NAME\n");
}

int ConfigCommand::run(const QStringList& arguments, Settings& settings, QTextStream& out, QTextStream& err) {
    const QString verb = arguments.value(0);
    const qsizetype wantedCount = verb == QLatin1String("list")                                   ? 1
                                  : verb == QLatin1String("get") || verb == QLatin1String("unset") ? 2
                                  : verb == QLatin1String("set")                                  ? 3
                                                                                                  : -1;
    if (wantedCount < 0 || arguments.size() != wantedCount) {
        err << usage();
        err.flush();
        return 2;
    }
    // A file that cannot be read is reported, never shown as defaults nor written over.
    if (!settings.store().lastError().isEmpty()) {
        err << settings.store().lastError() << '\n';
        err.flush();
        return 1;
    }
    if (verb == QLatin1String("list")) {
        for (const SettingsKeyBase* key : settings.keys()) {
            out << key->name() << '=' << key->valueText();
            if (!key->hasEntry()) {
                out << " (default)";
            }
            out << '\n';
        }
        out.flush();
        return 0;
    }
    const QString& name = arguments.at(1);
    const SettingsKeyBase* key = settings.find(name);
    if (key == nullptr) {
        err << "Unknown setting: " << name << '\n';
        err.flush();
        return 1;
    }
    if (verb == QLatin1String("get")) {
        out << key->valueText() << '\n';
        out.flush();
    } else if (verb == QLatin1String("unset")) {
        key->remove();
    } else if (!key->writeText(arguments.at(2))) {
        err << "Invalid value for " << name << " (" << key->typeName() << "): " << arguments.at(2) << '\n';
        err.flush();
        return 1;
    }
    if (!settings.store().lastError().isEmpty()) {
        err << settings.store().lastError() << '\n';
        err.flush();
        return 1;
    }
    return 0;
}

} // namespace host::settings
