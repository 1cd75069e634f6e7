#pragma once

#include "engine/utils/TimeOfDay.h"
#include "renderer/RenderQuality.h"

#include <QObject>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QUuid>

#include <cstdint>
#include <optional>

namespace host::app {

/// What AppState drives on screen: the desktop window, the drawing view inside it with its
/// scene and renderer, and the clock overlay.
///
/// Two implementations, one chosen at start (see PlatformChoice): the X11 desktop window
/// (window::DesktopWallpaper) and the Wayland layer surface (wayland::LayerShellWallpaper); both
/// draw through the same frame driver. One output object shows the wallpaper on one monitor.
///
/// AppState is the only caller and decides when each operation runs; an implementation does
/// what it is told and keeps no policy of its own (it never pauses or shows itself). All calls
/// come on the main thread. Operations may arrive before `createWindow` (the preferred frame
/// rate, the scene and clock settings): an implementation keeps the values and applies them
/// when the window and view exist.
class WallpaperOutput : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~WallpaperOutput() override = default;

    /// Creates the desktop window on the display of the key `display` (primary screen when
    /// absent or not connected), with its content hidden and not yet mapped. Called once, from
    /// AppState::finishLaunching.
    virtual void createWindow() = 0;

    /// Un-hides the content and maps the window at desktop level (enabled state).
    virtual void showWindow() = 0;
    /// Unmaps the window (disabled state).
    virtual void orderOut() = 0;

    /// Paused means no frames and no wake-ups of the frame clock.
    virtual void setPaused(bool paused) = 0;
    /// The frame clock's rate, frames per second.
    virtual void setPreferredFramesPerSecond(int fps) = 0;
    /// The quality that the picture is drawn in from the next frame on.
    virtual void setQuality(renderer::RenderQuality quality) = 0;

    /// Stores the monitor that the window belongs to (its Display UUID; absent: primary screen).
    /// Does not move the window; `updateFrame` does.
    virtual void setTargetDisplay(std::optional<QUuid> display) = 0;
    /// Re-applies the frame rule: target display (or the primary), top panel, and the key
    /// `extendVeilBelowMenuBar`.
    virtual void updateFrame() = 0;
    /// Re-applies level and input handling (the key `bringBrowsingModeToFront` changed).
    virtual void updateLevel() = 0;
    /// Shows the wallpaper on every monitor (true) or on the target display only (false); an
    /// output of one monitor ignores it.
    virtual void setAllDisplays(bool /*all*/) {}
    /// Whether a monitor hidden behind a fullscreen or maximized window pauses; an output that
    /// cannot tell ignores it.
    virtual void setPauseWhenCovered(bool /*pause*/) {}
    /// Whether the window is sticky on all workspaces.
    virtual void setShowOnAllSpaces(bool all) = 0;
    /// Replaces the view by a new one over the same scene, which makes a new renderer when it
    /// appears (and so emits `appeared` again).
    virtual void rebuildContent() = 0;

    /// Shows the scene of that name ("nivalis", "spirelight", "betonia", "example"; anything
    /// else is Nivalis) from now on: when it differs from the one shown, the old view goes with
    /// its renderer and GL objects, and a new view makes the new scene's renderer (and emits
    /// `appeared` again). Before `createWindow` it only picks the scene the window will show.
    virtual void setScene(const QString& name) = 0;
    /// Writes the scene's `vignette` and `cameraPeriod`; the scene takes them up next frame.
    virtual void setSceneSettings(bool vignette, float cameraPeriod) = 0;
    /// Whether the view has made its renderer (the process-wide current renderer exists).
    virtual bool hasRenderer() const = 0;
    /// Gives the current renderer's dynamic time of day the user's choice and has it re-apply
    /// the time of day to the scene at once. Without a renderer: nothing.
    virtual void setTimeOfDay(engine::utils::TimeOfDay timeOfDay) = 0;

    /// Clock overlay, set by AppState in this order: enabled, font, format, opacity, size.
    virtual void setClockEnabled(bool enabled) = 0;
    /// Font name of the clock (one of the shipped fonts).
    virtual void setClockFont(const QString& fontName) = 0;
    /// Unicode pattern of the clock ("h:mm", "hh:mm", "H:mm", "HH:mm").
    virtual void setClockTimeFormat(const QString& pattern) = 0;
    /// Opacity of the clock text, 0 to 1.
    virtual void setClockOpacity(double opacity) = 0;
    /// Font size of the clock in points.
    virtual void setClockSize(float size) = 0;

    /// Frames drawn since start, for diagnostics (tests watch it to see that no frame is drawn
    /// while paused).
    virtual std::uint64_t frameCount() const = 0;
    /// One line per monitor shown on, for diagnostics: "<Display UUID> drawing|paused|covered
    /// <frames>"; empty for the output of a single monitor.
    virtual QStringList monitorReport() const { return {}; }
    /// The size in device pixels of the frames this output draws on its monitor, for
    /// diagnostics (tests watch it follow the monitor's scale); empty when none is drawn or the
    /// output cannot tell.
    virtual QSize drawnPixelSize() const { return {}; }
    /// One line per monitor shown on, for diagnostics: "<Display UUID> <width>x<height>" of
    /// `drawnPixelSize`; empty for the output of a single monitor.
    virtual QStringList pixelSizeReport() const { return {}; }

signals:
    /// The view has appeared and made its renderer; AppState then applies the frame rate, the
    /// scene settings and the clock settings, in that order.
    void appeared();
};

} // namespace host::app
