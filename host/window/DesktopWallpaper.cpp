#include "host/window/DesktopWallpaper.h"

#include "host/settings/Settings.h"
#include "host/system/SystemEvents.h"
#include "host/view/WallpaperView.h"
#include "host/window/DesktopWindow.h"
#include "host/window/DisplayObservable.h"

#include <QTimer>

namespace host::window {

DesktopWallpaper::DesktopWallpaper(settings::Settings& settings, system::SystemEvents& events)
    : DesktopWallpaper(settings, &events, chosenContent(settings)) {}

DesktopWallpaper::DesktopWallpaper(settings::Settings& settings, system::SystemEvents* events,
                                   std::unique_ptr<view::SceneContent> content)
    : SceneOutput(std::move(content)), settings_(settings) {
    if (events != nullptr) {
        connect(events, &system::SystemEvents::deviceDidWake, &DisplayObservable::instance(),
                &DisplayObservable::notifyWake);
    }
}

DesktopWallpaper::~DesktopWallpaper() {
    delete view_.data();
    window_.reset();
}

void DesktopWallpaper::createWindow() {
    if (window_ != nullptr) {
        return;
    }
    std::optional<Display> target;
    if (const std::optional<QUuid> stored = pendingTarget_ ? pendingTarget_ : settings_.display.read()) {
        target = Display(*stored);
    }
    window_ = std::make_unique<DesktopWindow>(settings_, target);
    makeView();
}

void DesktopWallpaper::makeView() {
    auto* view = new view::WallpaperView(content(), clockStyle(), window_.get());
    view_ = view;
    view->setGeometry(QRect(QPoint(0, 0), window_->size()));
    view->setPreferredFramesPerSecond(fps_);
    view->setQuality(quality_);
    view->setPaused(paused_);
    connect(window_.get(), &QWindow::widthChanged, view, [this, view] { view->resize(window_->size()); });
    connect(window_.get(), &QWindow::heightChanged, view, [this, view] { view->resize(window_->size()); });
    connect(view, &view::WallpaperView::appeared, this, &DesktopWallpaper::appeared);
    if (!contentHidden_) {
        view->show();
    }
    // The view appears once the event loop has had a turn, as a view entering a window does.
    QPointer<view::WallpaperView> guard(view);
    QTimer::singleShot(0, view, [guard] {
        if (guard) {
            guard->appear();
        }
    });
}

void DesktopWallpaper::showWindow() {
    if (window_ == nullptr) {
        return;
    }
    contentHidden_ = false;
    if (view_ != nullptr) {
        view_->show();
    }
    window_->orderFront();
}

void DesktopWallpaper::orderOut() {
    if (window_ != nullptr) {
        window_->orderOut();
    }
}

void DesktopWallpaper::setPaused(bool paused) {
    paused_ = paused;
    if (view_ != nullptr) {
        view_->setPaused(paused);
    }
}

void DesktopWallpaper::setPreferredFramesPerSecond(int fps) {
    fps_ = fps;
    if (view_ != nullptr) {
        view_->setPreferredFramesPerSecond(fps);
    }
}

void DesktopWallpaper::setQuality(renderer::RenderQuality quality) {
    quality_ = quality;
    if (view_ != nullptr) {
        view_->setQuality(quality);
    }
}

void DesktopWallpaper::setTargetDisplay(std::optional<QUuid> display) {
    pendingTarget_ = display;
    if (window_ != nullptr) {
        window_->setTargetDisplay(display ? std::optional<Display>(Display(*display)) : std::nullopt);
    }
}

void DesktopWallpaper::updateFrame() {
    if (window_ != nullptr) {
        window_->updateFrame();
    }
}

void DesktopWallpaper::updateLevel() {
    if (window_ != nullptr) {
        window_->updateLevel();
    }
}

void DesktopWallpaper::setShowOnAllSpaces(bool all) {
    if (window_ != nullptr) {
        window_->setShowOnAllSpaces(all);
    }
}

void DesktopWallpaper::rebuildContent() {
    if (window_ == nullptr) {
        return;
    }
    if (view_ != nullptr) {
        framesOfFormerViews_ += view_->frameCount();
        delete view_.data();
    }
    makeView();
}

view::FrameRenderer* DesktopWallpaper::ownRenderer() const {
    return view_ != nullptr ? view_->renderer() : nullptr;
}

std::uint64_t DesktopWallpaper::frameCount() const {
    return framesOfFormerViews_ + (view_ != nullptr ? view_->frameCount() : 0);
}

QSize DesktopWallpaper::drawnPixelSize() const {
    return view_ != nullptr && view_->isExposed() ? view_->pixelSize() : QSize();
}

} // namespace host::window
