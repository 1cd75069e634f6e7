#pragma once

#include <string>

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
};

} // namespace engine::common
