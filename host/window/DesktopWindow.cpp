#include "host/window/DesktopWindow.h"

#include "host/settings/Settings.h"
#include "host/window/DisplayObservable.h"
#include "host/window/X11Desktop.h"
#include "host/window/X11DesktopSharing.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>

namespace host::window {

namespace {

// Each X11 monitor has its own panels (Qt reports each screen's free area by itself), so
// every screen counts its own top panel, not only the primary.
constexpr bool kSeparateSpaces = true;

} // namespace

DesktopWindow::DesktopWindow(settings::Settings& settings, std::optional<Display> targetDisplay)
    : settings_(settings), targetDisplay_(std::move(targetDisplay)) {
    setSurfaceType(QWindow::RasterSurface);
    setTitle(QStringLiteral("Nivalis"));
    applyFlags();
    create();
    X11DesktopSharing::watch(winId());
    updateFrame();

    // Screens go and come inside Qt's own handling of the change: place the window once that
    // is over, from the event loop. A handler on a window that is gone does nothing.
    QPointer<DesktopWindow> self(this);
    connect(&DisplayObservable::instance(), &DisplayObservable::screenDidChange, this, [self] {
        if (self) {
            self->updateFrame();
        }
    }, Qt::QueuedConnection);
    cancellables_.push_back(settings_.extendVeilBelowMenuBar.subscribe(
        settings::ObservationOption::Initial, [self](const auto&) {
            if (self) {
                self->updateFrame();
            }
        }));
}

DesktopWindow::~DesktopWindow() = default;

void DesktopWindow::applyFlags() {
    Qt::WindowFlags f = Qt::Window | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint;
    if (interactive_) {
        if (settings_.bringBrowsingModeToFront.read()) {
            f |= Qt::WindowStaysOnTopHint;
        }
    } else {
        f |= Qt::WindowStaysOnBottomHint | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus;
    }
    if (flags() != f) {
        // Qt rewrites the window type whenever the flags change: ours goes back on after.
        setFlags(f);
        if (isVisible()) {
            writeHintsBeforeMap();
        }
    }
}

void DesktopWindow::writeHintsBeforeMap() {
    if (interactive_) {
        X11Desktop::applyInteractiveBeforeMap(winId(), settings_.bringBrowsingModeToFront.read(), allSpaces_);
    } else {
        X11Desktop::applyBeforeMap(winId(), allSpaces_);
    }
}

void DesktopWindow::setInteractive(bool interactive) {
    interactive_ = interactive;
    updateLevel();
}

void DesktopWindow::setShowOnAllSpaces(bool all) {
    allSpaces_ = all;
    if (isVisible()) {
        X11Desktop::moveToWorkspaces(winId(), all);
    }
}

std::vector<QScreen*> DesktopWindow::orderedScreens() {
    std::vector<QScreen*> screens;
    QScreen* primary = QGuiApplication::primaryScreen();
    if (primary != nullptr) {
        screens.push_back(primary);
    }
    for (QScreen* screen : QGuiApplication::screens()) {
        if (screen != primary) {
            screens.push_back(screen);
        }
    }
    return screens;
}

QScreen* DesktopWindow::screenOf(const std::vector<QScreen*>& screens, const std::optional<Display>& display) {
    if (!display) {
        return nullptr;
    }
    for (QScreen* screen : screens) {
        if (Display::of(screen) == display) {
            return screen;
        }
    }
    return nullptr;
}

QScreen* DesktopWindow::targetScreen() const {
    const std::vector<QScreen*> screens = orderedScreens();
    QScreen* found = screenOf(screens, targetDisplay_);
    if (found == nullptr && !screens.empty()) {
        found = screens.front();
    }
    return found;
}

void DesktopWindow::updateFrame() {
    const std::vector<QScreen*> screens = orderedScreens();
    QScreen* screen = targetScreen();
    if (screen == nullptr) {
        return;
    }
    std::vector<DesktopFrame::Screen> geometries;
    std::size_t index = 0;
    for (std::size_t i = 0; i < screens.size(); ++i) {
        geometries.push_back({screens[i]->geometry(), screens[i]->availableGeometry()});
        if (screens[i] == screen) {
            index = i;
        }
    }
    const QRect frame = DesktopFrame::windowFrame(geometries, index, settings_.extendVeilBelowMenuBar.read(),
                                                  kSeparateSpaces);
    if (this->screen() != screen) {
        setScreen(screen);
    }
    if (isVisible() && geometry() != frame) {
        // A window manager keeps a mapped window's moves out of the panels' reserved areas,
        // but places a window that maps as it asks: the new frame goes on with a new mapping.
        hide();
        setGeometry(frame);
        orderFront();
    } else {
        setGeometry(frame);
    }
    emit frameUpdated(frame);
}

void DesktopWindow::updateLevel() {
    applyFlags();
    if (!isVisible()) {
        return;
    }
    if (interactive_) {
        // The hints of a mapped window are read by the window manager only at the next mapping.
        hide();
        writeHintsBeforeMap();
        show();
        raise();
        requestActivate();
    } else {
        lower();
    }
}

void DesktopWindow::orderFront() {
    if (!isVisible()) {
        applyFlags();
        writeHintsBeforeMap();
        show();
    }
    if (interactive_) {
        raise();
    } else {
        lower();
    }
}

void DesktopWindow::orderOut() {
    hide();
}

} // namespace host::window
