#pragma once

#include <QString>
#include <QStringList>

namespace host::settings {

/// The values a settings key may hold: those the settings window can produce.
///
/// Values from outside (`nivalis config set`, a hand-edited or older file) are held to the same
/// set: the command refuses anything else, naming what the key accepts, and a read of such a value
/// from the file gives the nearest valid number of a range or the key's default for a list. Each
/// key carries its rule where it is declared (Settings), so that the table of keys is also the
/// table of their valid values.
///
/// Rules compare a value by its canonical text in the file (the codec's encoding), so one rule
/// serves every value type.
class ValueRule {
public:
    /// Any value the key's type can decode (bools, the display's UUID).
    static ValueRule anyOfType(QString description);
    /// One of `texts`, exactly (the fps choices, the time-of-day words, the clock's lists).
    static ValueRule oneOf(QStringList texts);
    /// A number from `minimum` to `maximum`; with a `step` above 0, only `minimum + k * step`.
    static ValueRule range(double minimum, double maximum, double step = 0.0);

    /// Whether the value whose canonical text is `text` is one the settings window can produce.
    /// A range reads `text` as a number; an `anyOfType` rule accepts every decoded value.
    bool accepts(const QString& text) const;

    /// Whether this rule is a range of numbers.
    bool isRange() const { return kind_ == Kind::Range; }
    /// The valid number nearest to `value` (a range only; others give `value` back).
    double nearest(double value) const;

    /// The texts of a list, in order (empty for other rules).
    const QStringList& choices() const { return choices_; }
    double minimum() const { return minimum_; }
    double maximum() const { return maximum_; }
    /// The step of a range; 0 for a continuous one.
    double step() const { return step_; }

    /// What the key accepts, in words for the command line: "20, 30 or 60", "a number from 0.5
    /// to 3 in steps of 0.25", "true or false".
    QString description() const;

private:
    enum class Kind { AnyOfType, OneOf, Range };
    ValueRule() = default;

    Kind kind_ = Kind::AnyOfType;
    QString description_;
    QStringList choices_;
    double minimum_ = 0.0;
    double maximum_ = 0.0;
    double step_ = 0.0;
};

} // namespace host::settings
