#pragma once

#include <stdexcept>

namespace engine {

/// Thrown when an operation is called on an object that is not ready for it
/// ("Timer not found", "position is not set"). Illegal arguments use std::invalid_argument,
/// bad indices std::out_of_range, a division by zero std::domain_error.
class IllegalStateError : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

} // namespace engine
