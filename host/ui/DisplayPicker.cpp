#include "host/ui/DisplayPicker.h"

#include "host/settings/Settings.h"
#include "host/window/DisplayCatalogue.h"
#include "host/window/DisplayObservable.h"

#include <QPointer>
#include <QSignalBlocker>
#include <QTimer>

namespace host::ui {

namespace {

// The data of the "All displays" choice; a monitor's is its UUID text.
const QString kAllDisplays = QStringLiteral("all");

} // namespace

DisplayPicker::DisplayPicker(settings::Settings& settings, QWidget* parent)
    : QComboBox(parent), settings_(settings) {
    setObjectName(QStringLiteral("display"));
    connect(&window::DisplayObservable::instance(), &window::DisplayObservable::screenDidChange, this,
            &DisplayPicker::refresh);
    connect(this, &QComboBox::activated, this, [this](int index) {
        const QString text = itemData(index).toString();
        if (text == kAllDisplays) {
            settings_.allDisplays.write(true);
        } else if (const std::optional<window::Display> display = window::Display::fromUuidText(text)) {
            settings_.display.write(display->id);
            settings_.allDisplays.write(false);
        }
    });
    subscription_ = settings_.display.subscribe(settings::ObservationOption::None, [this](const auto&) { refresh(); });
    allSubscription_ =
        settings_.allDisplays.subscribe(settings::ObservationOption::None, [this](const auto&) { refresh(); });
    refresh();
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
    addItem(QStringLiteral("All displays"), kAllDisplays);
    std::vector<std::optional<window::Display>> connected;
    for (const window::DisplayCatalogue::Entry& entry : window::DisplayCatalogue::entries()) {
        connected.push_back(entry.display);
        addItem(entry.label, entry.display ? entry.display->uuidText() : QString());
    }
    const std::optional<QUuid> stored = settings_.display.read();
    const std::optional<window::Display> shown = shownDisplay(
        stored ? std::optional<window::Display>(window::Display(*stored)) : std::nullopt, connected,
        window::DisplayCatalogue::main());
    if (settings_.allDisplays.read()) {
        setCurrentIndex(0);
        return;
    }
    setCurrentIndex(shown ? findData(shown->uuidText()) : -1);
}

void DisplayPicker::showEvent(QShowEvent* event) {
    QComboBox::showEvent(event);
    // Each time it appears, once the window is up: a key still absent now takes the primary monitor.
    QPointer<DisplayPicker> self(this);
    QTimer::singleShot(0, this, [self] {
        if (self && !self->settings_.display.read()) {
            if (const std::optional<window::Display> main = window::DisplayCatalogue::main()) {
                self->settings_.display.write(main->id);
            }
        }
    });
}

} // namespace host::ui
