#pragma once

#include "host/window/Display.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace host::window {

/// The monitors the wallpaper can be shown on, as the "Show on" picker lists them: each with its
/// identity and label, the primary first.
///
/// By default they are Qt's screens. Where the wallpaper is a Wayland layer surface on the
/// program's own connection, that connection's monitors are the ones that count (Qt may run on
/// XWayland and see other names), and the output installs them as the source.
class DisplayCatalogue {
public:
    /// One monitor.
    struct Entry {
        /// Its identity; absent when it tells nothing to tell it apart.
        std::optional<Display> display;
        /// What the picker shows: "Maker Model (DP-1)", or what is known of it.
        QString label;
    };

    /// The monitors now, the primary first.
    static std::vector<Entry> entries();
    /// The identity of the primary monitor (the first entry); absent without monitors.
    static std::optional<Display> main();

    /// The label of a monitor: its maker and model with the connector, or the connector alone,
    /// or "<Unknown name>" when it tells nothing.
    static QString label(const QString& manufacturer, const QString& model, const QString& connector);

    /// Replaces Qt's screens as the source (an empty function puts them back).
    static void setSource(std::function<std::vector<Entry>()> source);
};

} // namespace host::window
