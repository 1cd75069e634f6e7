#pragma once

#include <string_view>

namespace renderer::textures {

/// The renderer's deliberate stop for a required asset that cannot be loaded: writes
/// "Fatal error: " and `message` as one line to standard error and ends the process with
/// status 1, without running destructors (a GL context may be half set up).
[[noreturn]] void fatalError(std::string_view message);

} // namespace renderer::textures
