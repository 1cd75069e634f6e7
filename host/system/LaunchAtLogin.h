#pragma once

#include <QObject>
#include <QString>

namespace host::system {

/// The "Start at login" switch: an XDG autostart entry for this program.
///
/// The state lives in the file system, not in the settings: the switch is on exactly when the
/// entry exists and is not marked hidden. A failure to write or remove the entry is logged on
/// standard error as "Failed to enable start at login: <reason>" (or "disable"), and the switch
/// then reports the state that the file system shows.
class LaunchAtLogin : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
public:
    /// A switch over the entry at `entryPath` that starts `executable`.
    LaunchAtLogin(QString entryPath, QString executable, QObject* parent = nullptr);

    /// `$XDG_CONFIG_HOME/autostart/nivalis.desktop`.
    static QString defaultEntryPath();

    /// Whether the program starts at login.
    bool isEnabled() const;
    /// Writes (true) or removes (false) the autostart entry. Emits `enabledChanged` when the
    /// state it then reads differs from the state before.
    void setEnabled(bool enabled);

    /// Path of the autostart entry.
    const QString& entryPath() const { return entryPath_; }

signals:
    /// The switch changed through `setEnabled`.
    void enabledChanged(bool enabled);

private:
    QString entryPath_;
    QString executable_;
};

} // namespace host::system
