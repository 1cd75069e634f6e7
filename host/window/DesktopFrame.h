#pragma once

#include <QRect>

#include <optional>
#include <vector>

namespace host::window {

/// Where the desktop window goes on a screen. A desktop's top panel plays the part of a menu bar:
/// the window reaches up to the panel's lower edge (overlapping it by two pixels) and goes on
/// under any bottom panel. The rules work on plain rectangles (y grows downwards, as on X11),
/// so they hold for any set of screens a test cares to describe.
class DesktopFrame {
public:
    /// One screen: its whole geometry and the part that panels leave free.
    struct Screen {
        QRect frame;
        QRect available;
    };

    /// The height a top panel is expected to have; one of at least this plus one is a menu bar.
    static constexpr int kMenuBarHeightEstimate = 24;

    /// Height that panels reserve at the bottom of the first screen; nothing when none is.
    static std::optional<int> dockHeightAtBottom(const std::vector<Screen>& screens);

    /// Whether the first screen shows no top panel worth avoiding (an auto-hidden or thin one):
    /// true when the reserved height, less any bottom panel, is under the estimate plus one.
    static bool isMenuBarHidden(const std::vector<Screen>& screens);

    /// The frame of screen `index` with the top panel cut away. Only the first screen has a
    /// panel to avoid, unless `separateSpaces` says that each screen has its own.
    static QRect frameBelowMenuBar(const std::vector<Screen>& screens, std::size_t index, bool separateSpaces);

    /// The desktop window's frame on screen `index`: the whole screen when
    /// `extendBelowMenuBar`, else the frame below the panel grown upwards by one pixel.
    static QRect windowFrame(const std::vector<Screen>& screens, std::size_t index, bool extendBelowMenuBar,
                             bool separateSpaces);
};

} // namespace host::window
