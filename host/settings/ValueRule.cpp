#include "host/settings/ValueRule.h"

#include <algorithm>
#include <cmath>

namespace host::settings {

namespace {

// Numbers in the file are shortest round-trip texts of floats and doubles: a step is hit when
// the value is within this much of it.
constexpr double kTolerance = 1e-6;

QString number(double value) { return QString::number(value, 'g', 10); }

} // namespace

ValueRule ValueRule::anyOfType(QString description) {
    ValueRule rule;
    rule.description_ = std::move(description);
    return rule;
}

ValueRule ValueRule::oneOf(QStringList texts) {
    ValueRule rule;
    rule.kind_ = Kind::OneOf;
    rule.choices_ = std::move(texts);
    return rule;
}

ValueRule ValueRule::range(double minimum, double maximum, double step) {
    ValueRule rule;
    rule.kind_ = Kind::Range;
    rule.minimum_ = minimum;
    rule.maximum_ = maximum;
    rule.step_ = step;
    return rule;
}

bool ValueRule::accepts(const QString& text) const {
    switch (kind_) {
    case Kind::AnyOfType:
        return true;
    case Kind::OneOf:
        return choices_.contains(text);
    case Kind::Range: {
        bool ok = false;
        const double value = text.toDouble(&ok);
        return ok && std::isfinite(value) && std::abs(nearest(value) - value) <= kTolerance;
    }
    }
    return false;
}

double ValueRule::nearest(double value) const {
    if (kind_ != Kind::Range || std::isnan(value)) {
        return kind_ == Kind::Range ? minimum_ : value;
    }
    double clamped = std::clamp(value, minimum_, maximum_);
    if (step_ > 0.0) {
        clamped = std::min(maximum_, minimum_ + std::round((clamped - minimum_) / step_) * step_);
    }
    return clamped;
}

QString ValueRule::description() const {
    switch (kind_) {
    case Kind::AnyOfType:
        return description_;
    case Kind::OneOf: {
        QStringList quoted = choices_;
        const QString last = quoted.takeLast();
        return quoted.isEmpty() ? last : quoted.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
    }
    case Kind::Range: {
        QString text = QStringLiteral("a number from %1 to %2").arg(number(minimum_), number(maximum_));
        return step_ > 0.0 ? text + QStringLiteral(" in steps of ") + number(step_) : text;
    }
    }
    return {};
}

} // namespace host::settings
