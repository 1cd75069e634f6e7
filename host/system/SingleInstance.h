#pragma once

#include <QDBusConnection>
#include <QObject>

#include <string_view>

namespace host::system {

/// One wallpaper per session: the first launch owns the name "org.nivalis.Nivalis" on the
/// session bus; a later launch asks it to reveal its tray icon and then ends.
///
/// The running instance is reached at the object "/org/nivalis/Nivalis", interface
/// "org.nivalis.Nivalis", method `Reveal`. Without a session bus every launch runs alone.
class SingleInstance : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.nivalis.Nivalis")
public:
    /// Well-known name, object path and interface of the running instance.
    static constexpr const char* serviceName = "org.nivalis.Nivalis";
    static constexpr const char* objectPath = "/org/nivalis/Nivalis";

    /// The outcome of `claim`.
    enum class Role : int {
        /// This process owns the name: it is the wallpaper.
        Primary,
        /// Another process owns it: this one should ask it to reveal and end.
        Secondary,
        /// No session bus: nothing to coordinate with, run alone.
        Alone,
    };

    explicit SingleInstance(QDBusConnection bus = QDBusConnection::sessionBus(), QObject* parent = nullptr);

    /// Publishes this object and tries to own the name, without queueing for it.
    Role claim();

    /// Calls `Reveal` on the instance that owns the name; false when that fails.
    bool askRunningInstanceToReveal();

public slots:
    /// Called over the bus by a second launch.
    Q_SCRIPTABLE void Reveal();

signals:
    /// A second launch asked for the tray icon.
    void revealRequested();

private:
    QDBusConnection bus_;
};

/// The constant's name: "Primary", "Secondary" or "Alone".
std::string_view toString(SingleInstance::Role role);

} // namespace host::system
