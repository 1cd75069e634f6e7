#include "host/view/FrameClock.h"

#include <algorithm>

namespace host::view {

FrameClock::FrameClock(QObject* parent) : QObject(parent) {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setSingleShot(false);
    intervalMs_ = 1000 / framesPerSecond_;
    timer_.setInterval(intervalMs_);
    connect(&timer_, &QTimer::timeout, this, [this] {
        ++ticks_;
        sinceTick_.start();
        emit tick();
    });
}

void FrameClock::setFramesPerSecond(int fps) {
    framesPerSecond_ = std::max(1, fps);
    const int interval = 1000 / framesPerSecond_;
    if (interval != intervalMs_) {
        intervalMs_ = interval;
        // setInterval re-arms a running timer at the new period; a clock waiting for a
        // presentation takes the new period at its next `presented`.
        if (!waitsForPresentation_ || !timer_.isActive()) {
            timer_.setInterval(interval);
        }
    }
}

void FrameClock::setWaitsForPresentation(bool waits) {
    waitsForPresentation_ = waits;
    timer_.setSingleShot(waits);
}

void FrameClock::presented() {
    if (paused_ || !waitsForPresentation_) {
        return;
    }
    const qint64 elapsed = sinceTick_.isValid() ? sinceTick_.elapsed() : intervalMs_;
    timer_.start(static_cast<int>(std::max<qint64>(0, intervalMs_ - elapsed)));
}

void FrameClock::setPaused(bool paused) {
    paused_ = paused;
    if (paused) {
        timer_.stop();
    } else if (!timer_.isActive()) {
        timer_.start(intervalMs_);
    }
}

} // namespace host::view
