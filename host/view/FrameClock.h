#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <cstdint>

namespace host::view {

/// The beat of the drawing view: `tick` at the preferred number of frames per second. Paused,
/// its timer is stopped, so that a paused wallpaper costs no wake-ups at all.
///
/// The timer repeats (one registration, no allocation per frame) with a period of whole
/// milliseconds, 1000 / fps rounded down; buffer swaps synchronised to the display refresh
/// keep the frames on the refresh beat, so at 30 on a 60 Hz display every second refresh shows
/// a frame.
///
/// Paced by presentation (a surface whose compositor says when a frame was shown), the clock
/// ticks once and then waits: `presented` arms it for what is left of the period. A surface
/// that is never shown thus gets no further ticks and costs no wake-ups.
class FrameClock : public QObject {
    Q_OBJECT
public:
    explicit FrameClock(QObject* parent = nullptr);

    /// Frames per second, 1 or more; 30 at first.
    int framesPerSecond() const { return framesPerSecond_; }
    /// Sets the rate; a running clock goes on at the new rate from now. Rates below 1 count as 1.
    void setFramesPerSecond(int fps);

    /// The period in milliseconds that the timer runs at.
    int intervalMs() const { return intervalMs_; }

    /// Whether each tick waits for `presented` before the next is armed; false at first.
    bool waitsForPresentation() const { return waitsForPresentation_; }
    /// Switches between the repeating beat (false) and presentation pacing (true).
    void setWaitsForPresentation(bool waits);
    /// The frame of the last tick was shown: the next tick comes one period after the last one
    /// (at once when that is past). Does nothing while paused or when not paced so.
    void presented();

    /// Whether ticks are held back; true at first, until `setPaused(false)`.
    bool isPaused() const { return paused_; }
    /// Stops (true) or starts (false) the ticks.
    void setPaused(bool paused);

    /// Whether the timer is armed (not paused).
    bool isRunning() const { return timer_.isActive(); }

    /// Ticks given since construction.
    std::uint64_t ticks() const { return ticks_; }

signals:
    /// Time for a frame.
    void tick();

private:
    QTimer timer_;
    QElapsedTimer sinceTick_;
    int framesPerSecond_ = 30;
    int intervalMs_ = 33;
    bool waitsForPresentation_ = false;
    bool paused_ = true;
    std::uint64_t ticks_ = 0;
};

} // namespace host::view
