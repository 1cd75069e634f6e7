#include "host/ui/WindowKeys.h"

#include <QCoreApplication>
#include <QKeySequence>
#include <QShortcut>
#include <QWidget>

namespace host::ui {

namespace {

std::function<void()>& openSettings() {
    static std::function<void()> open;
    return open;
}

void bind(QWidget* window, const QKeySequence& keys, std::function<void()> action) {
    auto* shortcut = new QShortcut(keys, window);
    shortcut->setContext(Qt::WindowShortcut);
    QObject::connect(shortcut, &QShortcut::activated, window, std::move(action));
}

} // namespace

void WindowKeys::install(QWidget* window) {
    bind(window, QKeySequence(Qt::CTRL | Qt::Key_Q), [] { QCoreApplication::quit(); });
    bind(window, QKeySequence(Qt::CTRL | Qt::Key_Comma), [] {
        if (openSettings()) {
            openSettings()();
        }
    });
    bind(window, QKeySequence(Qt::Key_Escape), [window] { window->close(); });
    bind(window, QKeySequence(Qt::CTRL | Qt::Key_W), [window] { window->close(); });
}

void WindowKeys::setOpenSettings(std::function<void()> open) {
    openSettings() = std::move(open);
}

} // namespace host::ui
