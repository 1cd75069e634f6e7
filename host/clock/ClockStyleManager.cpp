#include "host/clock/ClockStyleManager.h"

#include "host/clock/ClockFonts.h"

namespace host::clock {

ClockStyleManager::ClockStyleManager(ClockFonts* fonts, QObject* parent)
    : QObject(parent), fonts_(fonts != nullptr ? *fonts : ClockFonts::instance()),
      selectedFont_(ClockFonts::systemFont(220.0f)) {}

void ClockStyleManager::setEnabled(bool enabled) {
    enabled_ = enabled;
    emit changed();
}

void ClockStyleManager::setTimeFormat(const QString& pattern) {
    timeFormat_ = pattern;
    emit changed();
}

void ClockStyleManager::setOpacity(double opacity) {
    opacity_ = opacity;
    emit changed();
}

void ClockStyleManager::setFontName(const QString& name) {
    selectedFont_ = fonts_.font(name, size_);
    fontName_ = name;
    emit changed();
}

void ClockStyleManager::setSize(float size) {
    size_ = size;
    selectedFont_ = fonts_.font(fontName_, size);
    emit changed();
}

} // namespace host::clock
