#include "host/app/CommandLine.h"

#include "host/app/Application.h"

namespace host::app {

std::string CommandLine::usage() {
    return R"(Usage: nivalis [OPTION]
       nivalis config COMMAND [ARGUMENTS]
Shows a slowly moving polar landscape as the desktop background, below the desktop's
icons and windows, with a tray icon for its menu and settings. A second launch
reveals the tray icon of the running wallpaper, or opens its Settings where the
desktop has no tray.

Options:
  -h, --help     show this text and exit
  --version      show the version and exit

Commands:
  config         read and write settings from a terminal; see 'nivalis config --help'

Settings are kept in $XDG_CONFIG_HOME/nivalis/nivalis.conf (~/.config by default).
See also nivalis(1) and nivalis-render(1).
)";
}

std::optional<int> CommandLine::answer(const std::vector<std::string>& arguments, std::ostream& out,
                                       std::ostream& err) {
    if (arguments.empty() || arguments.front() == "config") {
        return std::nullopt;
    }
    const std::string& first = arguments.front();
    const bool known = first == "--help" || first == "-h" || first == "--version";
    if (known && arguments.size() == 1) {
        if (first == "--version") {
            out << "nivalis " << Application::version().toStdString() << '\n';
        } else {
            out << usage();
        }
        return 0;
    }
    // The first word that is not understood is the one named.
    const std::string& wrong = known ? arguments.at(1) : first;
    const char* what = wrong.starts_with('-') ? "unknown option" : known ? "unexpected argument" : "unknown command";
    err << "nivalis: " << what << " '" << wrong << "'\n" << usage();
    return usageError;
}

std::optional<int> CommandLine::answer(int argc, char** argv, std::ostream& out, std::ostream& err) {
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.emplace_back(argv[i]);
    }
    return answer(arguments, out, err);
}

} // namespace host::app
