#include "host/ui/ActionRow.h"

#include "host/app/AppState.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace host::ui {

ActionRow::ActionRow(app::AppState& state, QWidget* parent) : QWidget(parent), state_(state) {
    setObjectName(QStringLiteral("actions"));
    auto* layout = new QHBoxLayout(this);
    toggle_ = new QPushButton;
    toggle_->setObjectName(QStringLiteral("toggleEnabled"));
    auto* about = new QPushButton(app::AppState::tr("About"));
    about->setObjectName(QStringLiteral("about"));
    auto* quit = new QPushButton(app::AppState::tr("Quit"));
    quit->setObjectName(QStringLiteral("quit"));
    layout->addWidget(toggle_);
    layout->addStretch(1);
    layout->addWidget(about);
    layout->addWidget(quit);

    connect(toggle_, &QPushButton::clicked, this, [this] { state_.toggleManuallyDisabled(); });
    connect(about, &QPushButton::clicked, &state_, &app::AppState::aboutRequested);
    connect(quit, &QPushButton::clicked, &state_, &app::AppState::quitRequested);
    connect(&state_, &app::AppState::stateChanged, this, &ActionRow::refresh);
    refresh();
}

void ActionRow::refresh() {
    const std::optional<QString> title = state_.toggleTitle();
    toggle_->setVisible(title.has_value());
    toggle_->setText(title.value_or(QString()));
}

} // namespace host::ui
