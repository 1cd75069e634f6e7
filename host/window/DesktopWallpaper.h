#pragma once

#include "host/view/SceneContent.h"
#include "host/view/SceneOutput.h"

#include <QPointer>

#include <memory>

namespace host::settings {
class Settings;
}
namespace host::system {
class SystemEvents;
}
namespace host::view {
class SceneContent;
class WallpaperView;
} // namespace host::view

namespace host::window {

class DesktopWindow;

/// The wallpaper on an X11 desktop as the application state drives it: the desktop window, the
/// drawing view inside it (its content, hidden until the wallpaper is first shown), the scene
/// and the clock's style.
///
/// It keeps what arrives before the window exists (rate, pause, scene and clock settings) and
/// hands it on when the window and view are made. The view is told to appear once the event
/// loop has had a turn after `createWindow`, and `appeared` follows when its renderer is made.
class DesktopWallpaper : public view::SceneOutput {
    Q_OBJECT
public:
    /// A wallpaper over `settings` showing the Nivalis scene from the program's resources;
    /// a wake from sleep reported by `events` re-applies the frame.
    DesktopWallpaper(settings::Settings& settings, system::SystemEvents& events);
    /// The same over any scene content (tests give a fake one).
    DesktopWallpaper(settings::Settings& settings, system::SystemEvents* events,
                     std::unique_ptr<view::SceneContent> content);
    ~DesktopWallpaper() override;

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

    /// The desktop window; null before `createWindow`.
    DesktopWindow* window() const { return window_.get(); }
    /// The drawing view; null before `createWindow`.
    view::WallpaperView* view() const { return view_; }
    /// Whether the window's content is hidden (until the first `showWindow`).
    bool isContentHidden() const { return contentHidden_; }

private:
    view::FrameRenderer* ownRenderer() const override;
    void makeView();

    settings::Settings& settings_;
    std::unique_ptr<DesktopWindow> window_;
    QPointer<view::WallpaperView> view_;
    std::optional<QUuid> pendingTarget_;
    bool paused_ = true;
    int fps_ = 30;
    renderer::RenderQuality quality_ = renderer::RenderQuality::AUTO;
    bool contentHidden_ = true;
    std::uint64_t framesOfFormerViews_ = 0;
};

} // namespace host::window
