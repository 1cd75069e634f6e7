#include "host/window/DesktopWallpaper.h"

#include "host/clock/ClockFonts.h"
#include "host/settings/Settings.h"
#include "host/system/SystemEvents.h"
#include "host/view/ChosenSceneContent.h"
#include "host/view/Resources.h"
#include "host/view/WallpaperView.h"
#include "host/window/DesktopWindow.h"
#include "host/window/DisplayObservable.h"

#include <QDir>
#include <QTimer>

namespace host::window {

namespace {

std::unique_ptr<view::SceneContent> chosenContent(settings::Settings& settings) {
    const QString resources = view::Resources::directory();
    clock::ClockFonts::instance().loadFrom(QDir(resources).filePath(QStringLiteral("fonts")));
    return std::make_unique<view::ChosenSceneContent>(resources, settings.scene.read(),
                                                      [&settings] { return settings.sceneTime.read(); });
}

} // namespace

DesktopWallpaper::DesktopWallpaper(settings::Settings& settings, system::SystemEvents& events)
    : DesktopWallpaper(settings, &events, chosenContent(settings)) {}

DesktopWallpaper::DesktopWallpaper(settings::Settings& settings, system::SystemEvents* events,
                                   std::unique_ptr<view::SceneContent> content)
    : settings_(settings), content_(std::move(content)) {
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
    auto* view = new view::WallpaperView(*content_, clockStyle_, window_.get());
    view_ = view;
    view->setGeometry(QRect(QPoint(0, 0), window_->size()));
    view->setPreferredFramesPerSecond(fps_);
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

void DesktopWallpaper::setScene(const QString& name) {
    if (content_->setScene(name)) {
        rebuildContent();
    }
}

void DesktopWallpaper::setSceneSettings(bool vignette, float cameraPeriod) {
    content_->setSceneSettings(vignette, cameraPeriod);
}

bool DesktopWallpaper::hasRenderer() const {
    return view::WallpaperView::currentRenderer() != nullptr;
}

void DesktopWallpaper::setTimeOfDay(engine::utils::TimeOfDay timeOfDay) {
    if (view::FrameRenderer* renderer = view::WallpaperView::currentRenderer()) {
        renderer->setTimeOfDay(timeOfDay);
    }
}

void DesktopWallpaper::setClockEnabled(bool enabled) {
    clockStyle_.setEnabled(enabled);
}

void DesktopWallpaper::setClockFont(const QString& fontName) {
    clockStyle_.setFontName(fontName);
}

void DesktopWallpaper::setClockTimeFormat(const QString& pattern) {
    clockStyle_.setTimeFormat(pattern);
}

void DesktopWallpaper::setClockOpacity(double opacity) {
    clockStyle_.setOpacity(opacity);
}

void DesktopWallpaper::setClockSize(float size) {
    clockStyle_.setSize(size);
}

std::uint64_t DesktopWallpaper::frameCount() const {
    return framesOfFormerViews_ + (view_ != nullptr ? view_->frameCount() : 0);
}

} // namespace host::window
