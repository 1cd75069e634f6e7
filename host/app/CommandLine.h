#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace host::app {

/// The words after `nivalis` on the command line, answered before any Qt application object
/// exists, so that `--help`, `--version` and mistakes need no display.
///
///   nivalis                   the wallpaper (nothing to answer here)
///   nivalis -h | --help       the usage text on standard output, status 0
///   nivalis --version         "nivalis VERSION" on standard output, status 0
///   nivalis config ...        the settings command (its own words are its own)
///   anything else             one error line and the usage on standard error, status 2
class CommandLine {
public:
    /// Answers `arguments` (the words after the program's name). Returns the exit status when
    /// the program should end here, or nothing when it should go on (wallpaper or `config`).
    static std::optional<int> answer(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

    /// `answer` over main's own argument vector.
    static std::optional<int> answer(int argc, char** argv, std::ostream& out, std::ostream& err);

    /// The text of `nivalis --help` (and of the man page's synopsis and options).
    static std::string usage();

    /// Exit status of a usage error.
    static constexpr int usageError = 2;
};

} // namespace host::app
