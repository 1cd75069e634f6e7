#include "host/menu/AppMenu.h"

#include <QKeySequence>

namespace host::menu {

AppMenu::AppMenu(QWidget* parent) : QMenu(parent) {
    connect(this, &QMenu::aboutToShow, this, [this] {
        isOpen_ = true;
        if (onUpdate) {
            onUpdate();
        }
    });
    connect(this, &QMenu::aboutToHide, this, [this] { isOpen_ = false; });
}

QAction* AppMenu::addCallbackItem(const QString& title, const QString& shortcut, std::function<void()> callback) {
    QAction* action = addAction(title);
    if (!shortcut.isEmpty()) {
        action->setShortcut(QKeySequence(shortcut));
    }
    action->setEnabled(true);
    action->setCheckable(false);
    action->setVisible(true);
    connect(action, &QAction::triggered, this, [callback = std::move(callback)] { callback(); });
    return action;
}

} // namespace host::menu
