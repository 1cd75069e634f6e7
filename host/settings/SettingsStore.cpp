#include "host/settings/SettingsStore.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace host::settings {

SettingsStore::SettingsStore(QString filePath, QObject* parent) : QObject(parent), file_(std::move(filePath)) {
    const SettingsFile::Contents contents = file_.read();
    document_ = SettingsDocument(contents.text);
    lastError_ = contents.error;
    known_ = currentEntries();
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
    if (const auto pending = unsaved_.constFind(name); pending != unsaved_.cend()) {
        return pending->has_value() ? QVariant(**pending) : QVariant();
    }
    const auto value = document_.value(name.toStdString());
    return value ? QVariant(QString::fromStdString(*value)) : QVariant();
}

bool SettingsStore::contains(const QString& name) const {
    return entry(name).isValid();
}

bool SettingsStore::setEntry(const QString& name, const QString& value) {
    return save(name, value);
}

bool SettingsStore::removeEntry(const QString& name) {
    return save(name, std::nullopt);
}

QStringList SettingsStore::names() const {
    QStringList names = currentEntries().keys();
    names.sort();
    return names;
}

void SettingsStore::reload() {
    // A replaced file (written elsewhere through a rename) drops out of the watcher: arm it again.
    rearmWatcher();
    const SettingsFile::Contents contents = file_.read();
    document_ = SettingsDocument(contents.text);
    if (!contents.error.isEmpty() && contents.error != lastError_) {
        setError(contents.error);
    }
    announceDifferences();
}

bool SettingsStore::save(const QString& name, const std::optional<QString>& value) {
    unsaved_.insert(name, value);
    // Everything unsaved goes with this write, so that a write that succeeds after a failed one
    // saves both.
    const auto pending = unsaved_;
    std::string written;
    const QString problem = file_.update(
        [&pending](SettingsDocument& document) {
            for (auto it = pending.cbegin(); it != pending.cend(); ++it) {
                if (it.value()) {
                    document.set(it.key().toStdString(), it.value()->toStdString());
                } else {
                    document.remove(it.key().toStdString());
                }
            }
        },
        written);
    if (problem.isEmpty()) {
        unsaved_.clear();
        document_ = SettingsDocument(written);
        lastError_.clear();
    } else {
        setError(problem);
    }
    rearmWatcher();
    announceDifferences();
    return problem.isEmpty();
}

void SettingsStore::setError(const QString& message) {
    lastError_ = message;
    emit failed(message);
}

QHash<QString, QString> SettingsStore::currentEntries() const {
    QHash<QString, QString> entries;
    for (const std::string& key : document_.keys()) {
        entries.insert(QString::fromStdString(key), QString::fromStdString(*document_.value(key)));
    }
    for (auto it = unsaved_.cbegin(); it != unsaved_.cend(); ++it) {
        if (it.value()) {
            entries.insert(it.key(), *it.value());
        } else {
            entries.remove(it.key());
        }
    }
    return entries;
}

void SettingsStore::rearmWatcher() {
    // Watch the file itself and the folders on the way to it, so that the file's creation,
    // replacement by rename and removal are all seen. Folders that do not exist yet are
    // replaced by their nearest existing ancestor.
    QStringList wanted;
    QFileInfo file(filePath());
    if (file.isFile()) {
        wanted << file.absoluteFilePath();
    }
    QDir dir = file.absoluteDir();
    while (!QFileInfo(dir.absolutePath()).isDir() && !dir.isRoot()) {
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
    QHash<QString, QString> now = currentEntries();
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
