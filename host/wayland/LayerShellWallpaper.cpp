#include "host/wayland/LayerShellWallpaper.h"

#include "host/settings/Settings.h"
#include "host/wayland/EglContext.h"
#include "host/wayland/LayerSurface.h"
#include "host/wayland/WaylandConnection.h"
#include "host/wayland/WaylandMonitor.h"
#include "host/window/DisplayCatalogue.h"
#include "host/window/DisplayObservable.h"

#include <QTimer>

namespace host::wayland {

LayerShellWallpaper::LayerShellWallpaper(settings::Settings& settings, WaylandConnection& connection)
    : LayerShellWallpaper(settings, connection, chosenContent(settings)) {}

LayerShellWallpaper::LayerShellWallpaper(settings::Settings& settings, WaylandConnection& connection,
                                         std::unique_ptr<view::SceneContent> content)
    : SceneOutput(std::move(content)), settings_(settings), connection_(connection),
      driver_(this->content(), clockStyle(), *this) {
    driver_.frameClock().setWaitsForPresentation(true);
    connect(&driver_, &view::FrameDriver::appeared, this, &LayerShellWallpaper::appeared);
    connect(&window::DisplayObservable::instance(), &window::DisplayObservable::screenDidChange, this,
            &LayerShellWallpaper::updateFrame);
    connect(&connection_, &WaylandConnection::monitorsChanged, this, [this] { closedOn_.clear(); });
}

void LayerShellWallpaper::listMonitorsOf(WaylandConnection& connection) {
    window::DisplayCatalogue::setSource([&connection] {
        std::vector<window::DisplayCatalogue::Entry> entries;
        for (WaylandMonitor* monitor : connection.monitors()) {
            entries.push_back({monitor->display(), monitor->label()});
        }
        return entries;
    });
    QObject::connect(&connection, &WaylandConnection::monitorsChanged, &window::DisplayObservable::instance(),
                     &window::DisplayObservable::notifyScreensChanged, Qt::QueuedConnection);
}

LayerShellWallpaper::~LayerShellWallpaper() {
    driver_.release();
    surface_.reset();
}

void LayerShellWallpaper::createWindow() {
    if (created_) {
        return;
    }
    created_ = true;
    if (!target_) {
        target_ = settings_.display.read();
    }
    context_ = EglContext::create(connection_.display());
    // The renderer is made once the event loop has had a turn, as for the X11 view.
    QTimer::singleShot(0, this, [this] { driver_.appear(); });
}

void LayerShellWallpaper::showWindow() {
    shown_ = true;
    placeSurface();
}

void LayerShellWallpaper::orderOut() {
    shown_ = false;
    surface_.reset();
    surfaceMonitor_.clear();
}

void LayerShellWallpaper::setPaused(bool paused) {
    driver_.setPaused(paused);
    if (!paused) {
        driver_.renderNow();
    }
}

void LayerShellWallpaper::setPreferredFramesPerSecond(int fps) {
    driver_.setPreferredFramesPerSecond(fps);
}

void LayerShellWallpaper::setQuality(renderer::RenderQuality quality) {
    driver_.setQuality(quality);
}

void LayerShellWallpaper::setTargetDisplay(std::optional<QUuid> display) {
    target_ = display;
}

WaylandMonitor* LayerShellWallpaper::targetMonitor() const {
    const std::vector<WaylandMonitor*> monitors = connection_.monitors();
    if (target_) {
        for (WaylandMonitor* monitor : monitors) {
            const std::optional<window::Display> display = monitor->display();
            if (display && display->id == *target_) {
                return monitor;
            }
        }
    }
    return monitors.empty() ? nullptr : monitors.front();
}

void LayerShellWallpaper::updateFrame() {
    placeSurface();
}

void LayerShellWallpaper::placeSurface() {
    if (!shown_ || context_ == nullptr) {
        return;
    }
    WaylandMonitor* monitor = targetMonitor();
    if (monitor != nullptr && monitor == closedOn_) {
        // The compositor closed the surface there while the monitor stays listed (it is going
        // away): another monitor until the monitors change, rather than a retry at once.
        monitor = nullptr;
        for (WaylandMonitor* other : connection_.monitors()) {
            if (other != closedOn_) {
                monitor = other;
                break;
            }
        }
    }
    if (monitor == nullptr) {
        // No monitor at all: nothing to show on until one comes.
        surface_.reset();
        surfaceMonitor_.clear();
        return;
    }
    if (surface_ != nullptr && surfaceMonitor_ == monitor) {
        return;
    }
    surface_.reset();
    surfaceMonitor_ = monitor;
    surface_ = std::make_unique<LayerSurface>(connection_, *context_, monitor->output(), monitor->scale());
    LayerSurface* surface = surface_.get();
    connect(monitor, &WaylandMonitor::scaleChanged, surface, &LayerSurface::setMonitorScale);
    connect(surface, &LayerSurface::configured, this, [this] {
        driver_.surfaceResized();
        driver_.renderNow();
    }, Qt::QueuedConnection);
    connect(surface, &LayerSurface::presented, this, [this] { driver_.frameClock().presented(); },
            Qt::QueuedConnection);
    connect(surface, &LayerSurface::closed, this, [this, surface] {
        if (surface_.get() == surface) {
            closedOn_ = surfaceMonitor_;
            surface_.reset();
            surfaceMonitor_.clear();
            placeSurface();
        }
    }, Qt::QueuedConnection);
}

void LayerShellWallpaper::updateLevel() {
    // The layer decides the stacking once and for all; there is nothing to re-apply.
}

void LayerShellWallpaper::setShowOnAllSpaces(bool) {
    // A layer surface belongs to its monitor and shows on every workspace of it.
}

void LayerShellWallpaper::rebuildContent() {
    // The surface and its context stay; only the renderer is made anew, over the content's
    // present scene (a new scene choice comes this way).
    driver_.remakeRenderer();
}

std::uint64_t LayerShellWallpaper::frameCount() const {
    return driver_.frameCount();
}

QSize LayerShellWallpaper::drawnPixelSize() const {
    return canDraw() ? surface_->pixelSize() : QSize();
}

bool LayerShellWallpaper::makeCurrent() {
    if (context_ == nullptr) {
        return false;
    }
    return context_->makeCurrent(surface_ != nullptr ? surface_->eglSurface() : EGL_NO_SURFACE);
}

bool LayerShellWallpaper::hasRequiredVersion() const {
    // The context was asked for 3.3 core; EGL makes none at all otherwise.
    return context_ != nullptr;
}

bool LayerShellWallpaper::canDraw() const {
    return surface_ != nullptr && surface_->isConfigured();
}

QSize LayerShellWallpaper::pixelSize() const {
    return surface_ != nullptr ? surface_->pixelSize() : QSize(1, 1);
}

double LayerShellWallpaper::devicePixelRatio() const {
    return surface_ != nullptr ? surface_->devicePixelRatio() : 1.0;
}

unsigned LayerShellWallpaper::framebuffer() const {
    return 0;
}

void LayerShellWallpaper::present() {
    surface_->present();
}

} // namespace host::wayland
