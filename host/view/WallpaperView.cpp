#include "host/view/WallpaperView.h"

#include "host/clock/ClockPicture.h"
#include "host/clock/ClockStyleManager.h"
#include "host/clock/TimeFormatter.h"
#include "host/view/FrameRenderer.h"
#include "host/view/SceneContent.h"

#include <QExposeEvent>
#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>
#include <QSurfaceFormat>
#include <QTime>

#include <cstdio>
#include <cstdlib>

namespace host::view {

namespace {

FrameRenderer* gCurrentRenderer = nullptr;

constexpr int kTimeOfDayPeriodMs = 3000;
constexpr int kClockPeriodMs = 1000;

QSurfaceFormat viewFormat() {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    format.setRedBufferSize(8);
    format.setGreenBufferSize(8);
    format.setBlueBufferSize(8);
    format.setAlphaBufferSize(0);
    // The renderer draws into its own multisampled depth target and resolves into this one.
    format.setDepthBufferSize(0);
    format.setStencilBufferSize(0);
    format.setSamples(0);
    format.setSwapBehavior(QSurfaceFormat::DoubleBuffer);
    format.setSwapInterval(1);
    return format;
}

std::function<void(const char*)>& contextFailureHandler() {
    static std::function<void(const char*)> handler = [](const char* message) {
        std::fprintf(stderr, "Fatal error: %s\n", message);
        std::fflush(stderr);
        std::exit(1);
    };
    return handler;
}

} // namespace

WallpaperView::WallpaperView(SceneContent& content, clock::ClockStyleManager& clockStyle, QWindow* parent)
    : QWindow(parent), content_(content), clockStyle_(clockStyle) {
    setSurfaceType(QWindow::OpenGLSurface);
    setFormat(viewFormat());
    setFlags(flags() | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);

    timeOfDayTimer_.setInterval(kTimeOfDayPeriodMs);
    clockTimer_.setInterval(kClockPeriodMs);
    connect(&frameClock_, &FrameClock::tick, this, &WallpaperView::renderNow);
    connect(&timeOfDayTimer_, &QTimer::timeout, this, [this] {
        if (renderer_ != nullptr) {
            renderer_->updateDynamicTimeOfDay();
        }
    });
    connect(&clockTimer_, &QTimer::timeout, this, &WallpaperView::tickClock);
    connect(&clockStyle_, &clock::ClockStyleManager::changed, this, [this] {
        updateClockTimer();
        updatePicture();
    });
}

WallpaperView::~WallpaperView() {
    if (gCurrentRenderer == renderer_.get()) {
        gCurrentRenderer = nullptr;
    }
    if (context_ != nullptr && handle() != nullptr && context_->makeCurrent(this)) {
        renderer_.reset();
        overlay_.release(*context_->extraFunctions());
        context_->doneCurrent();
    }
    renderer_.reset();
}

FrameRenderer* WallpaperView::currentRenderer() {
    return gCurrentRenderer;
}

void WallpaperView::setContextFailureHandler(std::function<void(const char* message)> handler) {
    contextFailureHandler() = std::move(handler);
}

void WallpaperView::appear() {
    if (renderer_ != nullptr) {
        return;
    }
    create();
    context_ = std::make_unique<QOpenGLContext>();
    context_->setFormat(format());
    const bool made = context_->create() && context_->makeCurrent(this);
    const QSurfaceFormat actual = context_->format();
    if (!made || actual.majorVersion() * 10 + actual.minorVersion() < 33) {
        context_.reset();
        contextFailureHandler()("OpenGL 3.3 core not available");
        return;
    }
    renderer_ = content_.makeRenderer();
    gCurrentRenderer = renderer_.get();
    clockText_.clear();
    updateClockTimer();
    updatePicture();
    if (!isPaused()) {
        timeOfDayTimer_.start();
    }
    emit appeared();
}

void WallpaperView::setPreferredFramesPerSecond(int fps) {
    frameClock_.setFramesPerSecond(fps);
}

void WallpaperView::setPaused(bool paused) {
    const bool wasPaused = frameClock_.isPaused();
    frameClock_.setPaused(paused);
    if (paused) {
        timeOfDayTimer_.stop();
    } else if (wasPaused && renderer_ != nullptr) {
        // Time went on while nothing ran: catch up with it before the next frame.
        renderer_->updateDynamicTimeOfDay();
        timeOfDayTimer_.start();
        if (clockStyle_.enabled() && !clockText_.isEmpty()) {
            tickClock();
        }
    }
    updateClockTimer();
}

bool WallpaperView::hasActiveTimers() const {
    return frameClock_.isRunning() || timeOfDayTimer_.isActive() || clockTimer_.isActive();
}

void WallpaperView::updateClockTimer() {
    const bool wanted = clockStyle_.enabled() && !isPaused() && renderer_ != nullptr;
    if (wanted && !clockTimer_.isActive()) {
        clockTimer_.start();
    } else if (!wanted && clockTimer_.isActive()) {
        clockTimer_.stop();
    }
}

void WallpaperView::tickClock() {
    const QString text = clock::TimeFormatter::format(clockStyle_.timeFormat(), QTime::currentTime());
    if (text != clockText_) {
        clockText_ = text;
        updatePicture();
    }
}

void WallpaperView::updatePicture() {
    const QString text = clockStyle_.enabled() ? clockText_ : QString();
    const clock::ClockPicture picture =
        clock::ClockPicture::draw(text, clockStyle_.selectedFont(), clockStyle_.opacity(), size(), devicePixelRatio());
    pendingPicture_ = picture.image;
    pendingTopLeft_ = picture.topLeft;
    pictureDirty_ = true;
}

void WallpaperView::renderNow() {
    if (renderer_ == nullptr || isPaused() || !isExposed()) {
        return;
    }
    if (!context_->makeCurrent(this)) {
        return;
    }
    const qreal dpr = devicePixelRatio();
    const int pixelWidth = static_cast<int>(width() * dpr);
    const int pixelHeight = static_cast<int>(height() * dpr);
    const unsigned framebuffer = context_->defaultFramebufferObject();
    renderer_->drawFrame(framebuffer, pixelWidth, pixelHeight);
    QOpenGLExtraFunctions& gl = *context_->extraFunctions();
    if (pictureDirty_) {
        overlay_.setPicture(gl, pendingPicture_, pendingTopLeft_);
        pendingPicture_ = QImage();
        pictureDirty_ = false;
    }
    overlay_.draw(gl, framebuffer, pixelWidth, pixelHeight);
    context_->swapBuffers(this);
    ++frames_;
    emit frameDrawn();
}

void WallpaperView::exposeEvent(QExposeEvent*) {
    if (isExposed()) {
        renderNow();
    }
}

void WallpaperView::resizeEvent(QResizeEvent*) {
    updatePicture();
}

} // namespace host::view
