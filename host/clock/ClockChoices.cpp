#include "host/clock/ClockChoices.h"

namespace host::clock {

const std::array<ClockChoices::Format, 4>& ClockChoices::formats() {
    static const std::array<Format, 4> table{{
        {"12 hours short (9:27)", "h:mm"},
        {"12 hours long (09:27)", "hh:mm"},
        {"24 hours short (6:27)", "H:mm"},
        {"24 hours long (21:27)", "HH:mm"},
    }};
    return table;
}

// Every face here is a free font of the character of the one the name stands for (see the
// credits in the About window and the licences beside the files).
const std::array<ClockChoices::Font, 10>& ClockChoices::fonts() {
    static const std::array<Font, 10> table{{
        {"Abril Fatface", "Abril Fatface", "GFSDidot-Bold.otf", true},
        {"Baloo", "Baloo", "Comfortaa-Bold.ttf", true},
        {"Black Ops One", "Black Ops One", "AllertaStencil-Regular.otf", false},
        {"Carbon", "CarbonType", "CourierPrime-Bold.otf", true},
        {"Limelight", "Limelight", "YanoneKaffeesatz-Bold.otf", true},
        {"Major Snafu", "Major Snafu", "BebasNeue-Bold.otf", true},
        {"Nyamomobile", "Nyamomobile", "MplusCodeLatin60-Bold.otf", true},
        {"Oswald", "Oswald", "RobotoCondensed-Bold.ttf", true},
        {"Virgo", "Virgo 01", "Jura-Bold.otf", true},
        {"Yukarimobile", "Yukarimobile", "Quicksand-Bold.ttf", true},
    }};
    return table;
}

const ClockChoices::Font* ClockChoices::fontNamed(const QString& name) {
    for (const Font& font : fonts()) {
        if (name == QLatin1String(font.name)) {
            return &font;
        }
    }
    return nullptr;
}

} // namespace host::clock
