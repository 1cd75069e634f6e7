#pragma once

#include <QMenu>

#include <functional>

namespace host::menu {

/// The tray icon's menu. It keeps no items between openings: each time it is about to show,
/// `onUpdate` runs and builds it from scratch, so it never has to follow the state.
class AppMenu : public QMenu {
    Q_OBJECT
public:
    explicit AppMenu(QWidget* parent = nullptr);

    /// Runs before each opening; AppState sets it to its rebuildMenu.
    std::function<void()> onUpdate;

    /// Whether the menu is open now.
    bool isOpen() const { return isOpen_; }

    /// Adds an item titled `title` with the shortcut text `shortcut` (may be empty) that runs
    /// `callback` when chosen; returns it.
    QAction* addCallbackItem(const QString& title, const QString& shortcut, std::function<void()> callback);

private:
    bool isOpen_ = false;
};

} // namespace host::menu
