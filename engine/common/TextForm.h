#pragma once

#include <string>
#include <vector>

namespace engine::common {

/// Numbers written the way every text form of the engine writes them: the shortest text that
/// reads back to the same value, always with a fraction ("1.0", "0.25", "-3.5E-4" style for
/// very large or small magnitudes), so that text forms are stable and comparable in tests.
class TextForm {
public:
    /// Text of a single-precision number.
    static std::string number(float value);
    /// Text of a double-precision number.
    static std::string number(double value);
    /// Text of a list of value objects: their text forms between brackets, separated by ", ".
    template <typename T> static std::string list(const std::vector<T>& values) {
        std::string text = "[";
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (i > 0) {
                text += ", ";
            }
            text += values[i].toString();
        }
        return text + "]";
    }
};

} // namespace engine::common
