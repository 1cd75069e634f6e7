#pragma once

#include "host/view/ClockOverlay.h"
#include "host/view/FrameClock.h"

#include <QString>
#include <QTimer>
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

/// The drawing view: a GL window (OpenGL 3.3 core) that runs the scene's renderer at the
/// preferred frame rate and lays the clock over each frame.
///
/// When it appears it makes its context and a new renderer of the scene, which becomes the
/// current renderer, and then announces `appeared`. From then on the frame clock drives it;
/// paused, it draws nothing and arms no timer at all (frame clock, clock text and the
/// time-of-day poll all stop). Running, it asks the renderer every 3 seconds to re-read the
/// time of day, and it rewrites the clock's text once a second in the chosen pattern.
class WallpaperView : public QWindow {
    Q_OBJECT
public:
    /// A view of `content` whose clock follows `clockStyle`; both must outlive it. It starts
    /// paused at 30 frames per second.
    WallpaperView(SceneContent& content, clock::ClockStyleManager& clockStyle, QWindow* parent = nullptr);
    ~WallpaperView() override;

    /// The renderer that the view made last, process-wide; null before any view appeared.
    static FrameRenderer* currentRenderer();

    /// What happens when no OpenGL 3.3 core context can be had: by default the message goes to
    /// standard error and the process ends; tests on a platform without GL put a handler here
    /// that takes the message, and the view then stays without a renderer.
    static void setContextFailureHandler(std::function<void(const char* message)> handler);

    /// Makes the context and the renderer, then emits `appeared`. Runs once per view; the
    /// native window is created here if it is not yet.
    void appear();
    /// Whether `appear` has run.
    bool hasAppeared() const { return renderer_ != nullptr; }

    /// The renderer of this view; null before it appeared.
    FrameRenderer* renderer() const { return renderer_.get(); }

    /// Frames per second of the frame clock.
    int preferredFramesPerSecond() const { return frameClock_.framesPerSecond(); }
    /// Sets the frames per second of the frame clock.
    void setPreferredFramesPerSecond(int fps);

    /// Whether frames are held back.
    bool isPaused() const { return frameClock_.isPaused(); }
    /// Holds frames and every timer back (true), or lets them run (false).
    void setPaused(bool paused);

    /// Frames drawn by this view.
    std::uint64_t frameCount() const { return frames_; }
    /// Whether any timer of the view is armed (none is while paused).
    bool hasActiveTimers() const;

    /// The clock's present text; empty until its first tick after appearing.
    const QString& clockText() const { return clockText_; }

    /// Draws one frame now, if the view has appeared and is exposed.
    void renderNow();

signals:
    /// The view made its renderer.
    void appeared();
    /// A frame was drawn.
    void frameDrawn();

protected:
    void exposeEvent(QExposeEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void tickClock();
    void updateClockTimer();
    void updatePicture();

    SceneContent& content_;
    clock::ClockStyleManager& clockStyle_;
    std::unique_ptr<QOpenGLContext> context_;
    std::unique_ptr<FrameRenderer> renderer_;
    FrameClock frameClock_;
    QTimer timeOfDayTimer_;
    QTimer clockTimer_;
    QString clockText_;
    ClockOverlay overlay_;
    bool pictureDirty_ = false;
    QImage pendingPicture_;
    QPoint pendingTopLeft_;
    std::uint64_t frames_ = 0;
};

} // namespace host::view
