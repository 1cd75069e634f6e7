#include "host/view/FrameClock.h"

#include <algorithm>

namespace host::view {

FrameClock::FrameClock(QObject* parent) : QObject(parent) {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setSingleShot(false);
    timer_.setInterval(1000 / framesPerSecond_);
    connect(&timer_, &QTimer::timeout, this, [this] {
        ++ticks_;
        emit tick();
    });
}

void FrameClock::setFramesPerSecond(int fps) {
    framesPerSecond_ = std::max(1, fps);
    const int interval = 1000 / framesPerSecond_;
    if (interval != timer_.interval()) {
        // setInterval re-arms a running timer at the new period.
        timer_.setInterval(interval);
    }
}

void FrameClock::setPaused(bool paused) {
    paused_ = paused;
    if (paused) {
        timer_.stop();
    } else if (!timer_.isActive()) {
        timer_.start();
    }
}

} // namespace host::view
