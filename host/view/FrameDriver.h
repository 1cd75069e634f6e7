#pragma once

#include "host/view/ClockOverlay.h"
#include "host/view/FrameClock.h"
#include "renderer/RenderQuality.h"

#include <QElapsedTimer>
#include <QImage>
#include <QObject>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>

namespace host::clock {
class ClockStyleManager;
}

namespace host::view {

class DrawingSurface;
class FrameRenderer;
class SceneContent;

/// What draws the wallpaper's frames, whatever surface they go to: the scene's renderer, the
/// frame clock at the preferred rate, the 3-second time-of-day poll, the clock's text once a
/// second and its overlay on each frame. Each frame hands the renderer the output's quality
/// first, so that a change of it shows at the next frame without a new renderer.
///
/// The frame clock is its only timer: the time-of-day poll and the clock's text ride on the
/// frame ticks, the poll at the first frame once 3 seconds have passed, the text at the first
/// frame of each new second, so that a running wallpaper wakes the main thread once per frame
/// and for nothing else of its own.
///
/// When it appears it makes the renderer of the scene on the surface's context, which becomes
/// the process's current renderer, and announces `appeared`. Paused, it draws nothing and arms
/// no timer at all.
class FrameDriver : public QObject {
    Q_OBJECT
public:
    /// A driver of `content` on `surface`, whose clock follows `clockStyle`; all three must
    /// outlive it. It starts paused at 30 frames per second.
    FrameDriver(SceneContent& content, clock::ClockStyleManager& clockStyle, DrawingSurface& surface,
                QObject* parent = nullptr);
    ~FrameDriver() override;

    /// The renderer that a driver made last, process-wide; null before any appeared.
    static FrameRenderer* currentRenderer();

    /// What happens when no OpenGL 3.3 core context can be had: by default the message goes to
    /// standard error and the process ends; tests on a platform without GL put a handler here
    /// that takes the message, and the driver then stays without a renderer.
    static void setContextFailureHandler(std::function<void(const char* message)> handler);

    /// Makes the renderer on the surface's context, then emits `appeared`. Runs once.
    void appear();
    /// Whether `appear` has made a renderer.
    bool hasAppeared() const { return renderer_ != nullptr; }
    /// Replaces the renderer by a new one of the content's present scene, the old one and its GL
    /// objects going first, then emits `appeared` again. Before `appear`: nothing.
    void remakeRenderer();
    /// Frees the renderer and the overlay with the context current; the surface calls it
    /// before it goes away.
    void release();

    /// The renderer; null before it appeared.
    FrameRenderer* renderer() const { return renderer_.get(); }
    /// The frame clock (a surface paced by its compositor tells it of each presentation).
    FrameClock& frameClock() { return frameClock_; }

    /// The quality that the renderer draws its next frame in; AUTO until set.
    void setQuality(renderer::RenderQuality quality) { quality_ = quality; }

    /// Frames per second of the frame clock.
    int preferredFramesPerSecond() const { return frameClock_.framesPerSecond(); }
    /// Sets the frames per second of the frame clock.
    void setPreferredFramesPerSecond(int fps);
    /// Whether frames are held back.
    bool isPaused() const { return frameClock_.isPaused(); }
    /// Holds frames and every timer back (true), or lets them run (false).
    void setPaused(bool paused);

    /// Frames drawn.
    std::uint64_t frameCount() const { return frames_; }
    /// Whether any timer is armed (none is while paused).
    bool hasActiveTimers() const;
    /// The clock's present text; empty until its first tick after appearing.
    const QString& clockText() const { return clockText_; }

    /// Draws one frame now if it has appeared, runs and the surface can show it; whether it drew.
    bool renderNow();
    /// The surface changed size or scale: the clock's picture is laid out again.
    void surfaceResized();

signals:
    /// The renderer was made.
    void appeared();
    /// A frame was drawn.
    void frameDrawn();

private:
    void tickClock();
    void runPeriodicWork();
    void updatePicture();

    SceneContent& content_;
    clock::ClockStyleManager& clockStyle_;
    DrawingSurface& surface_;
    std::unique_ptr<FrameRenderer> renderer_;
    FrameClock frameClock_;
    // Since the last time-of-day poll; invalid when the next frame must do it.
    QElapsedTimer sinceTimeOfDay_;
    // The wall clock's second (since the epoch) of the clock's text; -1 to format it anew.
    qint64 clockSecond_ = -1;
    QString clockText_;
    ClockOverlay overlay_;
    bool pictureDirty_ = false;
    QImage pendingPicture_;
    QPoint pendingTopLeft_;
    std::uint64_t frames_ = 0;
    renderer::RenderQuality quality_ = renderer::RenderQuality::AUTO;
};

} // namespace host::view
