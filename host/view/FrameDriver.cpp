#include "host/view/FrameDriver.h"

#include "host/clock/ClockPicture.h"
#include "host/clock/ClockStyleManager.h"
#include "host/clock/TimeFormatter.h"
#include "host/view/DrawingSurface.h"
#include "host/view/FrameRenderer.h"
#include "host/view/SceneContent.h"
#include "renderer/StartupTrace.h"

#include <QDateTime>
#include <QTime>

#include <cstdio>
#include <cstdlib>

namespace host::view {

namespace {

FrameRenderer* gCurrentRenderer = nullptr;

constexpr int kTimeOfDayPeriodMs = 3000;

std::function<void(const char*)>& contextFailureHandler() {
    static std::function<void(const char*)> handler = [](const char* message) {
        std::fprintf(stderr, "Fatal error: %s\n", message);
        std::fflush(stderr);
        std::exit(1);
    };
    return handler;
}

} // namespace

FrameDriver::FrameDriver(SceneContent& content, clock::ClockStyleManager& clockStyle, DrawingSurface& surface,
                         QObject* parent)
    : QObject(parent), content_(content), clockStyle_(clockStyle), surface_(surface) {
    connect(&frameClock_, &FrameClock::tick, this, &FrameDriver::renderNow);
    connect(&clockStyle_, &clock::ClockStyleManager::changed, this, [this] {
        // A clock just switched on (or given another format) shows its text at the next frame.
        clockSecond_ = -1;
        updatePicture();
    });
}

FrameDriver::~FrameDriver() {
    if (gCurrentRenderer == renderer_.get()) {
        gCurrentRenderer = nullptr;
    }
}

FrameRenderer* FrameDriver::currentRenderer() {
    return gCurrentRenderer;
}

void FrameDriver::setContextFailureHandler(std::function<void(const char* message)> handler) {
    contextFailureHandler() = std::move(handler);
}

void FrameDriver::appear() {
    if (renderer_ != nullptr) {
        return;
    }
    if (!surface_.makeCurrent() || !surface_.hasRequiredVersion()) {
        contextFailureHandler()("OpenGL 3.3 core not available");
        return;
    }
    renderer_ = content_.makeRenderer();
    gCurrentRenderer = renderer_.get();
    clockText_.clear();
    // The renderer polled the time of day as it loaded; the clock's text comes with the first frame.
    sinceTimeOfDay_.start();
    clockSecond_ = -1;
    updatePicture();
    emit appeared();
}

void FrameDriver::remakeRenderer() {
    if (renderer_ == nullptr || !surface_.makeCurrent()) {
        return;
    }
    if (gCurrentRenderer == renderer_.get()) {
        gCurrentRenderer = nullptr;
    }
    renderer_.reset();
    renderer_ = content_.makeRenderer();
    gCurrentRenderer = renderer_.get();
    emit appeared();
}

void FrameDriver::release() {
    if (gCurrentRenderer == renderer_.get()) {
        gCurrentRenderer = nullptr;
    }
    if (renderer_ != nullptr && surface_.makeCurrent()) {
        renderer_.reset();
        overlay_.release();
    }
    renderer_.reset();
    frameClock_.setPaused(true);
}

void FrameDriver::setPreferredFramesPerSecond(int fps) {
    frameClock_.setFramesPerSecond(fps);
}

void FrameDriver::setPaused(bool paused) {
    const bool wasPaused = frameClock_.isPaused();
    frameClock_.setPaused(paused);
    if (!paused && wasPaused && renderer_ != nullptr) {
        // Time went on while nothing ran: catch up with it before the next frame.
        renderer_->updateDynamicTimeOfDay();
        sinceTimeOfDay_.start();
        if (clockStyle_.enabled() && !clockText_.isEmpty()) {
            tickClock();
        }
    }
}

bool FrameDriver::hasActiveTimers() const {
    return frameClock_.isRunning();
}

void FrameDriver::runPeriodicWork() {
    if (!sinceTimeOfDay_.isValid() || sinceTimeOfDay_.elapsed() >= kTimeOfDayPeriodMs) {
        renderer_->updateDynamicTimeOfDay();
        sinceTimeOfDay_.start();
    }
    // The text is formatted again when the wall clock's second has changed, so that a clock
    // showing seconds steps with them and skips none.
    if (clockStyle_.enabled() && QDateTime::currentMSecsSinceEpoch() / 1000 != clockSecond_) {
        tickClock();
    }
}

void FrameDriver::tickClock() {
    clockSecond_ = QDateTime::currentMSecsSinceEpoch() / 1000;
    const QString text = clock::TimeFormatter::format(clockStyle_.timeFormat(), QTime::currentTime());
    if (text != clockText_) {
        clockText_ = text;
        updatePicture();
    }
}

void FrameDriver::surfaceResized() {
    updatePicture();
}

void FrameDriver::updatePicture() {
    const QString text = clockStyle_.enabled() ? clockText_ : QString();
    const double dpr = surface_.devicePixelRatio();
    const QSize logical = surface_.pixelSize() / dpr;
    const clock::ClockPicture picture =
        clock::ClockPicture::draw(text, clockStyle_.selectedFont(), clockStyle_.opacity(), logical, dpr);
    pendingPicture_ = picture.image;
    pendingTopLeft_ = picture.topLeft;
    pictureDirty_ = true;
}

bool FrameDriver::renderNow() {
    if (renderer_ == nullptr || isPaused() || !surface_.canDraw()) {
        return false;
    }
    if (!surface_.makeCurrent()) {
        return false;
    }
    runPeriodicWork();
    const QSize size = surface_.pixelSize();
    const unsigned framebuffer = surface_.framebuffer();
    renderer_->setQuality(quality_); // a change is taken at the frame, without a new renderer
    renderer_->drawFrame(framebuffer, size.width(), size.height());
    if (pictureDirty_) {
        overlay_.setPicture(pendingPicture_, pendingTopLeft_);
        pendingPicture_ = QImage();
        pictureDirty_ = false;
    }
    overlay_.draw(framebuffer, size.width(), size.height());
    surface_.present();
    ++frames_;
    renderer::StartupTrace::finish("first frame shown");
    emit frameDrawn();
    return true;
}

} // namespace host::view
