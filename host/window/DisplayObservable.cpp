#include "host/window/DisplayObservable.h"

#include <QGuiApplication>
#include <QScreen>

namespace host::window {

DisplayObservable& DisplayObservable::instance() {
    static DisplayObservable* observable = new DisplayObservable();
    return *observable;
}

DisplayObservable::DisplayObservable() {
    auto* app = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (app == nullptr) {
        return;
    }
    for (QScreen* screen : QGuiApplication::screens()) {
        watch(screen);
    }
    connect(app, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
        watch(screen);
        emit screenDidChange();
    });
    connect(app, &QGuiApplication::screenRemoved, this, [this](QScreen*) { emit screenDidChange(); });
    connect(app, &QGuiApplication::primaryScreenChanged, this, [this](QScreen*) { emit screenDidChange(); });
}

void DisplayObservable::watch(QScreen* screen) {
    connect(screen, &QScreen::geometryChanged, this, [this] { emit screenDidChange(); });
    connect(screen, &QScreen::availableGeometryChanged, this, [this] { emit screenDidChange(); });
}

void DisplayObservable::notifyWake() {
    emit screenDidChange();
}

void DisplayObservable::notifyScreensChanged() {
    emit screenDidChange();
}

} // namespace host::window
