#pragma once

#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

namespace host::settings {

/// The per-user settings file: an INI file read and written through QSettings.
///
/// Entries are raw texts; typing, defaults and decoding belong to SettingsKey. A write goes to
/// disk at once, atomically (a temporary file renamed over the old one, under QSettings' lock),
/// and keeps every entry this program does not know. Defaults are never written. The file and
/// its folder are watched, so that a change made by another process (`nivalis config set`, an
/// editor) is read back and announced exactly like a change made here.
class SettingsStore : public QObject {
    Q_OBJECT
public:
    /// Opens (without creating) the store at `filePath`; the file and its folder appear on the
    /// first write.
    explicit SettingsStore(QString filePath, QObject* parent = nullptr);
    ~SettingsStore() override;

    /// `$XDG_CONFIG_HOME/nivalis/nivalis.conf` (`~/.config` when the variable is unset).
    static QString defaultFilePath();

    /// Path of the INI file.
    const QString& filePath() const { return filePath_; }

    /// The entry under `name`, or an invalid QVariant when there is none. Values written by this
    /// program read back as QString; hand-edited files may give other types (lists for texts with
    /// unquoted commas), which the keys treat as undecodable.
    QVariant entry(const QString& name) const;

    /// Whether an entry exists under `name`.
    bool contains(const QString& name) const;

    /// Writes the text `value` under `name` and syncs the file. Announces `entryChanged` when the
    /// stored entry differs from what was there.
    void setEntry(const QString& name, const QString& value);

    /// Removes the entry under `name` and syncs the file; announces the change if there was one.
    void removeEntry(const QString& name);

    /// Names of all entries in the file's general section, sorted.
    QStringList names() const;

    /// Re-reads the file and announces every entry that differs from the last known state.
    /// Runs by itself when the watcher sees the file or its folder change.
    void reload();

signals:
    /// The entry under `name` was added, changed or removed, by this process or another.
    void entryChanged(const QString& name);

private:
    void rearmWatcher();
    void announceDifferences();

    QString filePath_;
    std::unique_ptr<QSettings> settings_;
    QFileSystemWatcher watcher_;
    QHash<QString, QVariant> known_;
};

} // namespace host::settings
