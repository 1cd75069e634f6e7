#include "host/settings/SettingsStore.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace host::settings {

SettingsStore::SettingsStore(QString filePath, QObject* parent)
    : QObject(parent), filePath_(std::move(filePath)),
      settings_(std::make_unique<QSettings>(filePath_, QSettings::IniFormat)) {
    for (const QString& name : settings_->childKeys()) {
        known_.insert(name, settings_->value(name));
    }
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, &SettingsStore::reload);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &SettingsStore::reload);
    rearmWatcher();
}

SettingsStore::~SettingsStore() = default;

QString SettingsStore::defaultFilePath() {
    QString base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (base.isEmpty()) {
        base = QDir::homePath() + QStringLiteral("/.config");
    }
    return base + QStringLiteral("/nivalis/nivalis.conf");
}

QVariant SettingsStore::entry(const QString& name) const {
    return settings_->value(name);
}

bool SettingsStore::contains(const QString& name) const {
    return settings_->contains(name);
}

void SettingsStore::setEntry(const QString& name, const QString& value) {
    QDir().mkpath(QFileInfo(filePath_).absolutePath());
    settings_->setValue(name, value);
    settings_->sync();
    rearmWatcher();
    announceDifferences();
}

void SettingsStore::removeEntry(const QString& name) {
    settings_->remove(name);
    settings_->sync();
    rearmWatcher();
    announceDifferences();
}

QStringList SettingsStore::names() const {
    QStringList names = settings_->childKeys();
    names.sort();
    return names;
}

void SettingsStore::reload() {
    // A replaced file (written elsewhere through a rename) drops out of the watcher: arm it again.
    rearmWatcher();
    settings_->sync();
    announceDifferences();
}

void SettingsStore::rearmWatcher() {
    // Watch the file itself and the folders on the way to it, so that the file's creation,
    // replacement by rename and removal are all seen. Folders that do not exist yet are
    // replaced by their nearest existing ancestor.
    QStringList wanted;
    QFileInfo file(filePath_);
    if (file.exists()) {
        wanted << file.absoluteFilePath();
    }
    QDir dir = file.absoluteDir();
    while (!dir.exists() && !dir.isRoot()) {
        dir = QDir(QFileInfo(dir.absolutePath()).absolutePath());
    }
    wanted << dir.absolutePath();
    QStringList watched = watcher_.files() + watcher_.directories();
    for (const QString& path : watched) {
        if (!wanted.contains(path)) {
            watcher_.removePath(path);
        }
    }
    for (const QString& path : wanted) {
        if (!watched.contains(path)) {
            watcher_.addPath(path);
        }
    }
}

void SettingsStore::announceDifferences() {
    QHash<QString, QVariant> now;
    for (const QString& name : settings_->childKeys()) {
        now.insert(name, settings_->value(name));
    }
    QStringList changed;
    for (auto it = now.cbegin(); it != now.cend(); ++it) {
        auto before = known_.constFind(it.key());
        if (before == known_.cend() || before.value() != it.value()) {
            changed << it.key();
        }
    }
    for (auto it = known_.cbegin(); it != known_.cend(); ++it) {
        if (!now.contains(it.key())) {
            changed << it.key();
        }
    }
    known_ = std::move(now);
    changed.sort();
    for (const QString& name : changed) {
        emit entryChanged(name);
    }
}

} // namespace host::settings
