#pragma once

#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

#include "host/settings/SettingsDocument.h"
#include "host/settings/SettingsFile.h"

namespace host::settings {

/// The per-user settings file (see SettingsDocument for its format and SettingsFile for how it
/// is read and written).
///
/// Entries are raw texts; typing, defaults and decoding belong to SettingsKey. A write goes to
/// disk at once, atomically, and changes only the line of its entry, so that comments, entries
/// this program does not know and their order all stay. Defaults are never written. The file
/// and its folder are watched, so that a change made by another process (`nivalis config set`,
/// an editor) is read back and announced exactly like a change made here.
///
/// No failure is silent. A file that cannot be read (not a regular file, too large, no
/// permission) reads as empty and is never replaced; a write that cannot be saved keeps its
/// value for this session, to be saved with the next write that succeeds. Either sets
/// `lastError` and announces `failed`.
class SettingsStore : public QObject {
    Q_OBJECT
public:
    /// Opens (without creating) the store at `filePath`; the file and its folder appear on the
    /// first write.
    explicit SettingsStore(QString filePath, QObject* parent = nullptr);
    ~SettingsStore() override;

    /// `$XDG_CONFIG_HOME/nivalis/nivalis.conf` (`~/.config` when the variable is unset).
    static QString defaultFilePath();

    /// Path of the settings file.
    const QString& filePath() const { return file_.path(); }

    /// The entry under `name` as a QString, or an invalid QVariant when there is none.
    QVariant entry(const QString& name) const;

    /// Whether an entry exists under `name`.
    bool contains(const QString& name) const;

    /// Writes the text `value` under `name` and saves the file. Returns whether it was saved;
    /// either way the value is in force and `entryChanged` is announced when it differs from
    /// what was there.
    bool setEntry(const QString& name, const QString& value);

    /// Removes the entry under `name` and saves the file, with the same rules as `setEntry`.
    bool removeEntry(const QString& name);

    /// Names of all entries, sorted.
    QStringList names() const;

    /// Re-reads the file and announces every entry that differs from the last known state.
    /// Runs by itself when the watcher sees the file or its folder change.
    void reload();

    /// The message of the last read or write that failed ("Cannot save settings to <path>:
    /// <reason>"), or empty when the last of them succeeded.
    const QString& lastError() const { return lastError_; }

signals:
    /// The entry under `name` was added, changed or removed, by this process or another.
    void entryChanged(const QString& name);
    /// A read or write failed; `message` is the new `lastError`.
    void failed(const QString& message);

private:
    bool save(const QString& name, const std::optional<QString>& value);
    void setError(const QString& message);
    void rearmWatcher();
    void announceDifferences();
    QHash<QString, QString> currentEntries() const;

    SettingsFile file_;
    SettingsDocument document_;
    /// Changes that could not be saved, kept for the session: a value, or nothing for a removal.
    QHash<QString, std::optional<QString>> unsaved_;
    QString lastError_;
    QFileSystemWatcher watcher_;
    QHash<QString, QString> known_;
};

} // namespace host::settings
