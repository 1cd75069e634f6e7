#include "renderer/Fatal.h"

#include <cstdio>
#include <cstdlib>

namespace renderer {

namespace {

[[noreturn]] void exitHandler(const std::string&) { std::_Exit(1); }

Fatal::Handler currentHandler = &exitHandler;

} // namespace

void Fatal::stop(std::string_view message) {
    const std::string text(message);
    const std::string line = "Fatal error: " + text + "\n";
    std::fflush(stdout);
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::fflush(stderr);
    currentHandler(text);
    std::abort();
}

Fatal::Handler Fatal::setHandler(Handler handler) {
    Handler previous = currentHandler;
    currentHandler = handler != nullptr ? handler : &exitHandler;
    return previous == &exitHandler ? nullptr : previous;
}

void Fatal::throwingHandler(const std::string& message) { throw Stop(message); }

} // namespace renderer
