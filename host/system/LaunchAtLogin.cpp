#include "host/system/LaunchAtLogin.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTextStream>

#include <cstdio>

namespace host::system {

namespace {

/// Quotes a path for the Exec line of a desktop entry where it needs it.
QString execQuoted(const QString& path) {
    static const QString special = QStringLiteral(" \t\n\"'\\><~|&;$*?#()`");
    bool needs = false;
    for (QChar c : path) {
        needs = needs || special.contains(c);
    }
    if (!needs) {
        return path;
    }
    QString quoted = path;
    quoted.replace(QLatin1Char('\\'), QLatin1String("\\\\"))
        .replace(QLatin1Char('"'), QLatin1String("\\\""))
        .replace(QLatin1Char('`'), QLatin1String("\\`"))
        .replace(QLatin1Char('$'), QLatin1String("\\$"));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

void logFailure(const char* verb, const QString& reason) {
    std::fprintf(stderr, "Failed to %s start at login: %s\n", verb, reason.toLocal8Bit().constData());
    std::fflush(stderr);
}

} // namespace

LaunchAtLogin::LaunchAtLogin(QString entryPath, QString executable, QObject* parent)
    : QObject(parent), entryPath_(std::move(entryPath)), executable_(std::move(executable)) {}

QString LaunchAtLogin::defaultEntryPath() {
    QString base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (base.isEmpty()) {
        base = QDir::homePath() + QStringLiteral("/.config");
    }
    return base + QStringLiteral("/autostart/nivalis.desktop");
}

bool LaunchAtLogin::isEnabled() const {
    QFile file(entryPath_);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return false;
    }
    // An entry the user switched off in the desktop's own start-up settings counts as off.
    QTextStream in(&file);
    while (!in.atEnd()) {
        const QString line = in.readLine().trimmed();
        if (line.startsWith(QLatin1String("Hidden=")) &&
            line.mid(7).trimmed().compare(QLatin1String("true"), Qt::CaseInsensitive) == 0) {
            return false;
        }
    }
    return true;
}

void LaunchAtLogin::setEnabled(bool enabled) {
    const bool before = isEnabled();
    if (enabled) {
        if (!QDir().mkpath(QFileInfo(entryPath_).absolutePath())) {
            logFailure("enable", QStringLiteral("cannot create the folder of ") + entryPath_);
        } else {
            QSaveFile file(entryPath_);
            if (file.open(QIODevice::WriteOnly | QIODevice::Text)) {
                QTextStream out(&file);
                out << "[Desktop Entry]\n"
                    << "Type=Application\n"
                    << "Name=Nivalis\n"
                    << "Comment=Live polar landscape wallpaper\n"
                    << "Exec=" << execQuoted(executable_) << '\n'
                    << "Icon=nivalis\n"
                    << "Terminal=false\n"
                    << "NoDisplay=true\n"
                    << "X-GNOME-Autostart-enabled=true\n";
                out.flush();
            }
            if (!file.commit()) {
                logFailure("enable", file.errorString());
            }
        }
    } else if (QFileInfo::exists(entryPath_)) {
        QFile file(entryPath_);
        if (!file.remove()) {
            logFailure("disable", file.errorString());
        }
    }
    const bool after = isEnabled();
    if (after != before) {
        emit enabledChanged(after);
    }
}

} // namespace host::system
