#pragma once

#include <QFont>
#include <QObject>
#include <QString>

namespace host::clock {

class ClockFonts;

/// The style of the desktop clock: which font, pattern, opacity and size it is drawn with, and
/// whether it is shown at all. The application state writes it from the settings; the view
/// reads it and redraws the clock when `changed` fires. Its values at construction are the
/// clock's own and differ from the settings' defaults, which overwrite them at start.
class ClockStyleManager : public QObject {
    Q_OBJECT
public:
    /// A manager that turns font names into fonts through `fonts` (the process-wide set by
    /// default).
    explicit ClockStyleManager(ClockFonts* fonts = nullptr, QObject* parent = nullptr);

    /// The font the text uses; the system font at 220, bold, until a font name is set.
    const QFont& selectedFont() const { return selectedFont_; }
    /// The Unicode pattern of the text, "hh:mm" at first.
    const QString& timeFormat() const { return timeFormat_; }
    /// Whether the clock shows; true at first.
    bool enabled() const { return enabled_; }
    /// The opacity of the text, 0.7 at first.
    double opacity() const { return opacity_; }
    /// The font size in device-independent pixels, 220 at first.
    float size() const { return size_; }
    /// The stored name of the chosen font, empty at first.
    const QString& fontName() const { return fontName_; }

    /// Shows or hides the clock.
    void setEnabled(bool enabled);
    /// Sets the pattern, read at the clock's next tick.
    void setTimeFormat(const QString& pattern);
    /// Sets the text's opacity.
    void setOpacity(double opacity);
    /// Makes the font `name` at the present size the selected one, then remembers the name.
    void setFontName(const QString& name);
    /// Sets the size, then makes the remembered font again at that size.
    void setSize(float size);

signals:
    /// Any field changed.
    void changed();

private:
    ClockFonts& fonts_;
    QFont selectedFont_;
    QString timeFormat_ = QStringLiteral("hh:mm");
    bool enabled_ = true;
    double opacity_ = 0.7;
    float size_ = 220.0f;
    QString fontName_;
};

} // namespace host::clock
