#include "host/clock/TimeFormatter.h"

namespace host::clock {

namespace {

bool isAsciiLetter(QChar c) {
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) || (c >= QLatin1Char('A') && c <= QLatin1Char('Z'));
}

void appendNumber(QString& out, int value, qsizetype width) {
    // Unicode pads to the count of letters; more than two letters pad further.
    out += QString::number(value).rightJustified(width, QLatin1Char('0'));
}

} // namespace

QString TimeFormatter::format(const QString& pattern, const QTime& time, const QLocale& locale) {
    QString out;
    out.reserve(pattern.size() + 4);
    const int hour = time.hour();
    qsizetype i = 0;
    while (i < pattern.size()) {
        const QChar c = pattern.at(i);
        if (c == QLatin1Char('\'')) {
            // A quoted run up to the next lone quote; '' stands for one quote, in or out of a run.
            if (i + 1 < pattern.size() && pattern.at(i + 1) == QLatin1Char('\'')) {
                out += QLatin1Char('\'');
                i += 2;
                continue;
            }
            ++i;
            while (i < pattern.size()) {
                if (pattern.at(i) == QLatin1Char('\'')) {
                    if (i + 1 < pattern.size() && pattern.at(i + 1) == QLatin1Char('\'')) {
                        out += QLatin1Char('\'');
                        i += 2;
                        continue;
                    }
                    ++i;
                    break;
                }
                out += pattern.at(i);
                ++i;
            }
            continue;
        }
        if (!isAsciiLetter(c)) {
            out += c;
            ++i;
            continue;
        }
        qsizetype count = 1;
        while (i + count < pattern.size() && pattern.at(i + count) == c) {
            ++count;
        }
        switch (c.toLatin1()) {
        case 'h':
            appendNumber(out, hour % 12 == 0 ? 12 : hour % 12, count);
            break;
        case 'H':
            appendNumber(out, hour, count);
            break;
        case 'K':
            appendNumber(out, hour % 12, count);
            break;
        case 'k':
            appendNumber(out, hour == 0 ? 24 : hour, count);
            break;
        case 'm':
            appendNumber(out, time.minute(), count);
            break;
        case 's':
            appendNumber(out, time.second(), count);
            break;
        case 'a':
            out += hour < 12 ? locale.amText() : locale.pmText();
            break;
        default:
            out += pattern.mid(i, count);
            break;
        }
        i += count;
    }
    return out;
}

} // namespace host::clock
