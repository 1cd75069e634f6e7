#pragma once

#include <cstddef>

namespace testing_support {

/// Number of calls of the global operator new in this test program so far.
std::size_t allocationCount();

} // namespace testing_support
