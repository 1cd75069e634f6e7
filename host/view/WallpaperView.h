#pragma once

#include "host/view/DrawingSurface.h"
#include "host/view/FrameDriver.h"

#include <QString>
#include <QWindow>

#include <cstdint>
#include <functional>
#include <memory>

class QOpenGLContext;

namespace host::clock {
class ClockStyleManager;
}

namespace host::view {

class FrameRenderer;
class SceneContent;

/// The drawing view of the X11 desktop window: a Qt GL window (OpenGL 3.3 core) that its
/// frame driver draws into at the preferred rate, buffer swaps synchronised to the refresh.
///
/// When it appears it makes its context, sharing objects with the contexts of the views that
/// exist (one per monitor), and the driver makes a new renderer of the scene,
/// which becomes the current renderer; `appeared` follows. Everything about frames, timers
/// and the clock is the driver's (see FrameDriver); the view only supplies the surface.
class WallpaperView : public QWindow, private DrawingSurface {
    Q_OBJECT
public:
    /// A view of `content` whose clock follows `clockStyle`; both must outlive it. It starts
    /// paused at 30 frames per second.
    WallpaperView(SceneContent& content, clock::ClockStyleManager& clockStyle, QWindow* parent = nullptr);
    ~WallpaperView() override;

    /// The renderer that a view or surface made last, process-wide; null before any appeared.
    static FrameRenderer* currentRenderer() { return FrameDriver::currentRenderer(); }

    /// See FrameDriver::setContextFailureHandler.
    static void setContextFailureHandler(std::function<void(const char* message)> handler) {
        FrameDriver::setContextFailureHandler(std::move(handler));
    }

    /// Makes the native window and context, then the renderer, then emits `appeared`. Runs once.
    void appear();
    /// Whether `appear` has made a renderer.
    bool hasAppeared() const { return driver_.hasAppeared(); }

    /// The driver of the frames.
    FrameDriver& driver() { return driver_; }
    /// The renderer of this view; null before it appeared.
    FrameRenderer* renderer() const { return driver_.renderer(); }

    /// Frames per second of the frame clock.
    int preferredFramesPerSecond() const { return driver_.preferredFramesPerSecond(); }
    /// Sets the frames per second of the frame clock.
    void setPreferredFramesPerSecond(int fps) { driver_.setPreferredFramesPerSecond(fps); }
    /// Sets the quality of the next frames.
    void setQuality(renderer::RenderQuality quality) { driver_.setQuality(quality); }
    /// Whether frames are held back.
    bool isPaused() const { return driver_.isPaused(); }
    /// Holds frames and every timer back (true), or lets them run (false).
    void setPaused(bool paused) { driver_.setPaused(paused); }
    /// Frames drawn by this view.
    std::uint64_t frameCount() const { return driver_.frameCount(); }
    /// Whether any timer of the view is armed (none is while paused).
    bool hasActiveTimers() const { return driver_.hasActiveTimers(); }
    /// The clock's present text; empty until its first tick after appearing.
    const QString& clockText() const { return driver_.clockText(); }
    /// Draws one frame now, if the view has appeared and is exposed.
    void renderNow() { driver_.renderNow(); }
    /// The size in device pixels that its frames are drawn at.
    QSize pixelSize() const override;

signals:
    /// The view made its renderer.
    void appeared();
    /// A frame was drawn.
    void frameDrawn();

protected:
    void exposeEvent(QExposeEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool makeCurrent() override;
    bool hasRequiredVersion() const override;
    bool canDraw() const override;
    double devicePixelRatio() const override;
    unsigned framebuffer() const override;
    void present() override;
    /// Drops the context, and its place among those that new views share with.
    void releaseContext();

    std::unique_ptr<QOpenGLContext> context_;
    FrameDriver driver_;
};

} // namespace host::view
