#pragma once

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
class FrameClock : public QObject {
    Q_OBJECT
public:
    explicit FrameClock(QObject* parent = nullptr);

    /// Frames per second, 1 or more; 30 at first.
    int framesPerSecond() const { return framesPerSecond_; }
    /// Sets the rate; a running clock goes on at the new rate from now. Rates below 1 count as 1.
    void setFramesPerSecond(int fps);

    /// The period in milliseconds that the timer runs at.
    int intervalMs() const { return timer_.interval(); }

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
    int framesPerSecond_ = 30;
    bool paused_ = true;
    std::uint64_t ticks_ = 0;
};

} // namespace host::view
