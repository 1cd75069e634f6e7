#pragma once

#include <QWidget>

class QPushButton;

namespace host::app {
class AppState;
}

namespace host::ui {

/// The tray menu's actions as buttons at the foot of the settings window, so that they stay
/// reachable on desktops without a tray: Enable/Disable (while its rule offers it), About and
/// Quit. The toggle's title follows the state.
class ActionRow : public QWidget {
    Q_OBJECT
public:
    /// Buttons acting on `state`, which must outlive the row.
    explicit ActionRow(app::AppState& state, QWidget* parent = nullptr);

    /// Reads the toggle's title (or its absence) from the state again.
    void refresh();

private:
    app::AppState& state_;
    QPushButton* toggle_;
};

} // namespace host::ui
