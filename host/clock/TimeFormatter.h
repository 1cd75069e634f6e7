#pragma once

#include <QLocale>
#include <QString>
#include <QTime>

namespace host::clock {

/// Formats a time of day by a Unicode date pattern, the kind the settings store holds for the
/// clock ("h:mm", "HH:mm"). The letters keep their Unicode meaning, which differs from Qt's own
/// format strings (there "h" would follow the AM/PM marker): h is the hour 1 to 12, H 0 to 23,
/// K 0 to 11, k 1 to 24, m the minute, s the second, a the AM/PM marker; doubling a number
/// letter pads it to two digits. Text in single quotes is literal ('' is a quote), as are all
/// characters that are not ASCII letters. Letters of date fields and unknown letters are kept
/// as they stand, since a clock shows no date.
class TimeFormatter {
public:
    /// The time `time` written by `pattern`; AM/PM markers come from `locale`.
    static QString format(const QString& pattern, const QTime& time, const QLocale& locale = QLocale());
};

} // namespace host::clock
