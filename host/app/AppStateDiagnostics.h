#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>

namespace host::app {

class AppState;
class WallpaperOutput;

/// AppState's state, readable on the session bus at "/org/nivalis/Nivalis/Diagnostics",
/// interface "org.nivalis.Nivalis.Diagnostics": what the wallpaper is doing, for tests and
/// for a look from a terminal (`busctl --user introspect`). Nothing here changes the state
/// except `ToggleEnabled`, which is the tray menu's Enable/Disable.
class AppStateDiagnostics : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.nivalis.Nivalis.Diagnostics")
    Q_PROPERTY(bool Enabled READ enabled)
    Q_PROPERTY(bool Paused READ paused)
    Q_PROPERTY(bool ScreenLocked READ screenLocked)
    Q_PROPERTY(bool ManuallyDisabled READ manuallyDisabled)
    Q_PROPERTY(int FramesPerSecond READ framesPerSecond)
    Q_PROPERTY(qulonglong FrameCount READ frameCount)
    Q_PROPERTY(bool StatusIconVisible READ statusIconVisible)
    Q_PROPERTY(QString Scene READ scene)
    Q_PROPERTY(QStringList Monitors READ monitors)
    Q_PROPERTY(QStringList PixelSizes READ pixelSizes)
    Q_PROPERTY(qlonglong GlObjects READ glObjects)
public:
    /// Object path of the diagnostics.
    static constexpr const char* objectPath = "/org/nivalis/Nivalis/Diagnostics";

    AppStateDiagnostics(AppState& state, WallpaperOutput& output, QObject* parent = nullptr);

    /// Publishes the object on `bus`; false when that fails.
    bool publish(QDBusConnection bus);

    bool enabled() const;
    bool paused() const;
    bool screenLocked() const;
    bool manuallyDisabled() const;
    int framesPerSecond() const;
    qulonglong frameCount() const;
    bool statusIconVisible() const;
    /// The scene shown ("nivalis", "spirelight", "betonia" or "example").
    QString scene() const;
    /// One line per monitor shown on: "<Display UUID> drawing|paused|covered <frames>".
    QStringList monitors() const;
    /// One line per monitor shown on: "<Display UUID> <width>x<height>", the device pixels each
    /// frame is drawn at there ("0x0" where the output cannot tell), to see them follow the scale.
    QStringList pixelSizes() const;
    /// GL objects the renderers have made and not deleted (buffers, textures, samplers,
    /// programs, vertex arrays, framebuffers, renderbuffers), all monitors together.
    qlonglong glObjects() const;

public slots:
    /// Runs the menu's Enable/Disable.
    Q_SCRIPTABLE void ToggleEnabled();

private:
    AppState& state_;
    WallpaperOutput& output_;
};

} // namespace host::app
