#pragma once

#include "host/view/DrawingSurface.h"
#include "host/view/FrameDriver.h"
#include "host/view/SceneOutput.h"

#include <QPointer>

#include <memory>
#include <optional>

namespace host::settings {
class Settings;
}

namespace host::wayland {

class EglContext;
class LayerSurface;
class WaylandConnection;
class WaylandMonitor;

/// The wallpaper on a Wayland compositor that offers the layer shell (sway, Hyprland, river,
/// KWin): a layer surface below the windows on the chosen monitor, drawn through EGL on the
/// program's own connection, whichever platform Qt itself runs on.
///
/// Shown, it has one surface on the target monitor (the first monitor when the target is
/// absent or gone; back on the target when it returns). Hidden, it has none. Frames are paced
/// by the compositor's frame callbacks at the preferred rate; paused, none is asked for. The
/// renderer is made once, on a context that outlives the surfaces.
class LayerShellWallpaper : public view::SceneOutput, private view::DrawingSurface {
    Q_OBJECT
public:
    /// A wallpaper over `settings` on `connection`, showing the Nivalis scene.
    LayerShellWallpaper(settings::Settings& settings, WaylandConnection& connection);
    /// The same over any scene content.
    LayerShellWallpaper(settings::Settings& settings, WaylandConnection& connection,
                        std::unique_ptr<view::SceneContent> content);
    ~LayerShellWallpaper() override;

    /// Makes `connection`'s monitors the ones the program lists and follows (see
    /// DisplayCatalogue), rather than Qt's screens; once per process, before any output.
    static void listMonitorsOf(WaylandConnection& connection);

    void createWindow() override;
    void showWindow() override;
    void orderOut() override;
    void setPaused(bool paused) override;
    void setPreferredFramesPerSecond(int fps) override;
    void setQuality(renderer::RenderQuality quality) override;
    void setTargetDisplay(std::optional<QUuid> display) override;
    void updateFrame() override;
    void updateLevel() override;
    void setShowOnAllSpaces(bool all) override;
    void rebuildContent() override;
    std::uint64_t frameCount() const override;
    QSize drawnPixelSize() const override;

    /// The monitor the frame rule picks now: the target when connected, else the first one.
    WaylandMonitor* targetMonitor() const;

private:
    view::FrameRenderer* ownRenderer() const override { return driver_.renderer(); }
    bool makeCurrent() override;
    bool hasRequiredVersion() const override;
    bool canDraw() const override;
    QSize pixelSize() const override;
    double devicePixelRatio() const override;
    unsigned framebuffer() const override;
    void present() override;

    void placeSurface();

    settings::Settings& settings_;
    WaylandConnection& connection_;
    std::unique_ptr<EglContext> context_;
    std::unique_ptr<LayerSurface> surface_;
    QPointer<WaylandMonitor> surfaceMonitor_;
    // The monitor whose surface the compositor closed, until the monitors change.
    QPointer<WaylandMonitor> closedOn_;
    view::FrameDriver driver_;
    std::optional<QUuid> target_;
    bool created_ = false;
    bool shown_ = false;
};

} // namespace host::wayland
