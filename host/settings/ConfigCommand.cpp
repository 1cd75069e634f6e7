#include "host/settings/ConfigCommand.h"

#include "host/settings/Settings.h"
#include "host/settings/ValueRule.h"

namespace host::settings {

QString ConfigCommand::usage() {
    return QStringLiteral("Usage: nivalis config list\n"
                          "       nivalis config get NAME\n"
                          "       nivalis config set NAME VALUE\n"
                          "       nivalis config unset NAME\n");
}

QString ConfigCommand::help(const Settings& settings) {
    QString text =
        usage() + QStringLiteral("Reads and writes the settings of nivalis, as its Settings window does; a running\n"
                                 "wallpaper follows each change at once.\n"
                                 "\n"
                                 "  list     every setting as NAME=VALUE, \"(default)\" after those not set\n"
                                 "  get      the value in force\n"
                                 "  set      store VALUE; a value the Settings window could not choose is refused\n"
                                 "  unset    remove the setting, so that its default applies\n"
                                 "\n"
                                 "Settings and the values they accept:\n");
    // Each key with its values, the values wrapped at 80 columns below their first line.
    constexpr int kIndent = 30;
    for (const SettingsKeyBase* key : settings.keys()) {
        QString line = QStringLiteral("  %1  ").arg(key->name(), -26);
        for (const QString& word : key->rule().description().split(QLatin1Char(' '))) {
            if (line.size() > kIndent && line.size() + word.size() > 80) {
                line.chop(1);
                text += line + QLatin1Char('\n');
                line = QString(kIndent, QLatin1Char(' '));
            }
            line += word + QLatin1Char(' ');
        }
        line.chop(1);
        text += line + QLatin1Char('\n');
    }
    return text + QStringLiteral("\nThe file is $XDG_CONFIG_HOME/nivalis/nivalis.conf (~/.config by default).\n");
}

int ConfigCommand::run(const QStringList& arguments, Settings& settings, QTextStream& out, QTextStream& err) {
    const QString verb = arguments.value(0);
    if (arguments.size() == 1 && (verb == QLatin1String("--help") || verb == QLatin1String("-h"))) {
        out << help(settings);
        out.flush();
        return 0;
    }
    const qsizetype wantedCount = verb == QLatin1String("list")                                    ? 1
                                  : verb == QLatin1String("get") || verb == QLatin1String("unset") ? 2
                                  : verb == QLatin1String("set")                                   ? 3
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
        err << "Invalid value for " << name << ": '" << arguments.at(2) << "'; " << name << " accepts "
            << key->rule().description() << '\n';
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
