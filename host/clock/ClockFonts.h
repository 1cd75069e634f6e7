#pragma once

#include <QFont>
#include <QHash>
#include <QString>

namespace host::clock {

/// The clock's fonts, loaded from the font files shipped in the resources, and turned from the
/// names the settings store into fonts. Loading is done once per process; asking for a font
/// whose file is missing, or for a name that is not one of the clock's, gives the system font
/// at the asked size (a name of a font installed on the system gives that font).
class ClockFonts {
public:
    /// The process-wide set.
    static ClockFonts& instance();

    /// Registers every clock font found in `fontsDirectory` with the application. Returns the
    /// number of fonts that loaded. Needs a running QGuiApplication.
    int loadFrom(const QString& fontsDirectory);

    /// The family that the font stored as `name` was loaded as; empty when it is not loaded.
    QString familyOf(const QString& name) const;

    /// The font stored as `name` at a height of `size` device-independent pixels.
    QFont font(const QString& name, float size) const;

    /// The font the clock starts with: the system font at `size`, bold.
    static QFont systemFont(float size);

private:
    QHash<QString, QString> families_;
};

} // namespace host::clock
