#pragma once

#include <string_view>

namespace renderer {

/// Where the time from launch to the first picture goes. With NIVALIS_TRACE_STARTUP set to
/// anything but "" or "0", each step of the start-up writes one line to standard error,
/// "nivalis: startup <ms> ms: <step>", counted in milliseconds from the start of the process
/// (as the kernel recorded it, to its clock tick). The trace closes with the first frame shown
/// (`finish`), so that later renderers (another monitor, a change of scene) write nothing.
/// Without the variable a step costs one test of a flag. Steps may come from any thread.
class StartupTrace {
public:
    StartupTrace() = delete;

    /// Whether steps are written: the variable is set and the trace not yet finished.
    static bool active();
    /// Writes the line of `step`.
    static void mark(std::string_view step);
    /// Writes the line of `step` and closes the trace.
    static void finish(std::string_view step);
};

} // namespace renderer
