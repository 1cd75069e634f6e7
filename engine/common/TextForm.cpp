#include "engine/common/TextForm.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace engine::common {

namespace {

/// Writes `value` from its shortest round-trip digits: plain decimal for magnitudes from 1e-3 up
/// to 1e7, otherwise one leading digit, a fraction and an "E" exponent. A fraction is always there.
template <typename F> std::string format(F value) {
    if (std::isnan(value)) {
        return "NaN";
    }
    if (std::isinf(value)) {
        return value > 0 ? "Infinity" : "-Infinity";
    }
    if (value == 0) {
        return std::signbit(value) ? "-0.0" : "0.0";
    }

    // The shortest scientific form gives the significant digits and the decimal exponent,
    // e.g. "-2.5e-04" -> negative, digits "25", exponent -4.
    char buffer[64];
    auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific);
    (void)error; // 64 characters are always enough for a float or double
    std::string_view text(buffer, static_cast<std::size_t>(end - buffer));

    bool negative = false;
    if (text.front() == '-') {
        negative = true;
        text.remove_prefix(1);
    }
    std::size_t ePos = text.find('e');
    std::string_view mantissa = text.substr(0, ePos);
    int exponent = std::atoi(std::string(text.substr(ePos + 1)).c_str());

    std::string digits;
    for (char ch : mantissa) {
        if (ch != '.') {
            digits.push_back(ch);
        }
    }

    std::string out;
    if (negative) {
        out.push_back('-');
    }
    if (exponent >= -3 && exponent < 7) {
        if (exponent < 0) {
            out += "0.";
            out.append(static_cast<std::size_t>(-exponent - 1), '0');
            out += digits;
        } else {
            std::size_t intDigits = static_cast<std::size_t>(exponent) + 1;
            if (digits.size() <= intDigits) {
                out += digits;
                out.append(intDigits - digits.size(), '0');
                out += ".0";
            } else {
                out += digits.substr(0, intDigits);
                out.push_back('.');
                out += digits.substr(intDigits);
            }
        }
    } else {
        out.push_back(digits[0]);
        out.push_back('.');
        out += digits.size() > 1 ? digits.substr(1) : std::string("0");
        out.push_back('E');
        out += std::to_string(exponent);
    }
    return out;
}

} // namespace

std::string TextForm::number(float value) { return format(value); }

std::string TextForm::number(double value) { return format(value); }

} // namespace engine::common
