#include "host/ui/DisplayPicker.h"

#include "host/settings/Settings.h"
#include "host/window/DesktopWindow.h"
#include "host/window/DisplayObservable.h"

#include <QPointer>
#include <QScreen>
#include <QSignalBlocker>
#include <QTimer>

namespace host::ui {

DisplayPicker::DisplayPicker(settings::Settings& settings, QWidget* parent)
    : QComboBox(parent), settings_(settings) {
    setObjectName(QStringLiteral("display"));
    connect(&window::DisplayObservable::instance(), &window::DisplayObservable::screenDidChange, this,
            &DisplayPicker::refresh);
    connect(this, &QComboBox::activated, this, [this](int index) {
        const QString text = itemData(index).toString();
        if (const std::optional<window::Display> display = window::Display::fromUuidText(text)) {
            settings_.display.write(display->id);
        }
    });
    subscription_ = settings_.display.subscribe(settings::ObservationOption::None, [this](const auto&) { refresh(); });
    refresh();
}

QString DisplayPicker::labelOf(const QScreen* screen) {
    const QString maker = screen->manufacturer().trimmed();
    const QString model = screen->model().trimmed();
    const QString connector = screen->name().trimmed();
    QString product = maker;
    if (!model.isEmpty()) {
        product = product.isEmpty() ? model : product + QLatin1Char(' ') + model;
    }
    if (!product.isEmpty()) {
        return connector.isEmpty() ? product : product + QStringLiteral(" (") + connector + QLatin1Char(')');
    }
    if (!connector.isEmpty()) {
        return connector;
    }
    return QStringLiteral("<Unknown name>");
}

std::optional<window::Display> DisplayPicker::shownDisplay(
    const std::optional<window::Display>& stored, const std::vector<std::optional<window::Display>>& connected,
    const std::optional<window::Display>& main) {
    if (!stored) {
        return std::nullopt;
    }
    for (const std::optional<window::Display>& display : connected) {
        if (display == stored) {
            return stored;
        }
    }
    return main;
}

void DisplayPicker::refresh() {
    const QSignalBlocker block(this);
    clear();
    std::vector<std::optional<window::Display>> connected;
    for (QScreen* screen : window::DesktopWindow::orderedScreens()) {
        const std::optional<window::Display> display = window::Display::of(screen);
        connected.push_back(display);
        addItem(labelOf(screen), display ? display->uuidText() : QString());
    }
    const std::optional<QUuid> stored = settings_.display.read();
    const std::optional<window::Display> shown = shownDisplay(
        stored ? std::optional<window::Display>(window::Display(*stored)) : std::nullopt, connected,
        window::Display::main());
    setCurrentIndex(shown ? findData(shown->uuidText()) : -1);
}

void DisplayPicker::showEvent(QShowEvent* event) {
    QComboBox::showEvent(event);
    // Each time it appears, once the window is up: a key still absent now takes the primary monitor.
    QPointer<DisplayPicker> self(this);
    QTimer::singleShot(0, this, [self] {
        if (self && !self->settings_.display.read()) {
            if (const std::optional<window::Display> main = window::Display::main()) {
                self->settings_.display.write(main->id);
            }
        }
    });
}

} // namespace host::ui
