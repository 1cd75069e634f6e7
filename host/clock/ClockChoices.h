#pragma once

#include <QString>

#include <array>

namespace host::clock {

/// The choices the clock offers, in the order the settings window lists them: the time formats
/// with the pattern each stores, and the fonts with the name each stores and the file that
/// carries it in the resources' fonts/ folder.
class ClockChoices {
public:
    /// A time format: the label shown and the Unicode pattern stored in `clockFormat`.
    struct Format {
        const char* label;
        const char* pattern;
    };

    /// A font: the label shown, the name stored in `clockFont`, the file that carries it and
    /// whether that face is a bold one.
    struct Font {
        const char* label;
        const char* name;
        const char* file;
        bool bold;
    };

    /// The four time formats.
    static const std::array<Format, 4>& formats();

    /// The ten fonts.
    static const std::array<Font, 10>& fonts();

    /// The font stored under `name`, or nullptr for a name that is none of the ten.
    static const Font* fontNamed(const QString& name);
};

} // namespace host::clock
