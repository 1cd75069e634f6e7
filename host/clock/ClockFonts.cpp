#include "host/clock/ClockFonts.h"

#include "host/clock/ClockChoices.h"

#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>

#include <cmath>

namespace host::clock {

namespace {

int pixelSize(float size) {
    // QFont takes whole pixels; a size from a continuous slider is rounded, never zero.
    return std::max(1, static_cast<int>(std::lround(size)));
}

} // namespace

ClockFonts& ClockFonts::instance() {
    static ClockFonts fonts;
    return fonts;
}

int ClockFonts::loadFrom(const QString& fontsDirectory) {
    int loaded = 0;
    const QDir dir(fontsDirectory);
    for (const ClockChoices::Font& font : ClockChoices::fonts()) {
        const QString name = QString::fromUtf8(font.name);
        if (families_.contains(name)) {
            ++loaded;
            continue;
        }
        const int id = QFontDatabase::addApplicationFont(dir.filePath(QString::fromUtf8(font.file)));
        if (id < 0) {
            continue;
        }
        const QStringList families = QFontDatabase::applicationFontFamilies(id);
        if (families.isEmpty()) {
            continue;
        }
        families_.insert(name, families.front());
        ++loaded;
    }
    return loaded;
}

QString ClockFonts::familyOf(const QString& name) const {
    return families_.value(name);
}

QFont ClockFonts::font(const QString& name, float size) const {
    QFont result = QGuiApplication::font();
    const auto loaded = families_.constFind(name);
    if (loaded != families_.constEnd()) {
        result.setFamilies({loaded.value()});
        const ClockChoices::Font* choice = ClockChoices::fontNamed(name);
        result.setWeight(choice != nullptr && choice->bold ? QFont::Bold : QFont::Normal);
    } else if (!name.isEmpty() && QFontDatabase::hasFamily(name)) {
        result.setFamilies({name});
    }
    result.setPixelSize(pixelSize(size));
    return result;
}

QFont ClockFonts::systemFont(float size) {
    QFont result = QGuiApplication::font();
    result.setWeight(QFont::Bold);
    result.setPixelSize(pixelSize(size));
    return result;
}

} // namespace host::clock
