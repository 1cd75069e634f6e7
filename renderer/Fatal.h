#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace renderer {

/// The renderer's deliberate stop. A required asset that cannot be loaded, a shader table that
/// lacks a name, a uniform that breaks the staging limits: none of these has a fallback, and
/// each ends the process with "Fatal error: " and the message on standard error and a non-zero
/// status. The way out is replaceable so that tests can watch a stop without dying.
class Fatal {
public:
    /// What runs after the message is written. It must not return; the default one ends the
    /// process with status 1 without running destructors (a GL context may be half set up).
    using Handler = void (*)(const std::string& message);

    /// Raised by `throwingHandler`: the message of a stop, for tests.
    class Stop : public std::runtime_error {
    public:
        using std::runtime_error::runtime_error;
    };

    Fatal() = delete;

    /// Writes "Fatal error: <message>" and hands over to the handler. Should the handler return,
    /// the process aborts.
    [[noreturn]] static void stop(std::string_view message);
    /// Installs `handler` (null restores the default) and gives back the one it replaces.
    static Handler setHandler(Handler handler);
    /// A handler that throws `Stop` with the message instead of ending the process.
    [[noreturn]] static void throwingHandler(const std::string& message);
};

} // namespace renderer
