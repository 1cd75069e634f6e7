#pragma once

#include "host/settings/Subscription.h"
#include "host/window/Display.h"

#include <QComboBox>
#include <QString>

#include <optional>
#include <vector>

class QScreen;

namespace host::settings {
class Settings;
}

namespace host::ui {

/// The "Show on" picker: "All displays" (the key `allDisplays`), then one choice per connected
/// monitor (see DisplayCatalogue), the primary first, with the key `display` behind them.
/// Choosing a monitor turns `allDisplays` off.
///
/// What it shows is worked out, not read: nothing while the key is absent; the stored monitor
/// while it is connected; the primary monitor while the stored one is away (the key itself is
/// kept, so the wallpaper goes back when the monitor does). Whenever it is shown with the key
/// absent it writes the primary monitor into the key, so that from then on the wallpaper
/// stays on that monitor instead of following the primary. It lists the monitors again on
/// every change of the screens.
class DisplayPicker : public QComboBox {
    Q_OBJECT
public:
    /// A picker over the key `display` of `settings`.
    explicit DisplayPicker(settings::Settings& settings, QWidget* parent = nullptr);

    /// The display shown for the stored value `stored`, given the connected displays and the
    /// main one.
    static std::optional<window::Display> shownDisplay(const std::optional<window::Display>& stored,
                                                       const std::vector<std::optional<window::Display>>& connected,
                                                       const std::optional<window::Display>& main);

    /// Lists the screens again and selects the shown display.
    void refresh();

protected:
    void showEvent(QShowEvent* event) override;

private:
    settings::Settings& settings_;
    settings::Subscription subscription_;
    settings::Subscription allSubscription_;
};

} // namespace host::ui
