#include "renderer/StartupTrace.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>

#include <unistd.h>

namespace renderer {

namespace {

double secondsSinceBoot() {
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// The process's start in seconds since boot: field 22 of /proc/self/stat, in clock ticks. The
/// name in field 2 may hold spaces and parentheses, so the fields are counted from its last ')'.
/// Where it cannot be read, the first step counts as the start.
double processStart() {
    std::ifstream file("/proc/self/stat");
    std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    const std::size_t close = text.rfind(')');
    if (close != std::string::npos) {
        std::istringstream fields(text.substr(close + 1));
        std::string field;
        for (int number = 3; number <= 22 && fields >> field; ++number) {
            if (number == 22) {
                const long ticks = ::sysconf(_SC_CLK_TCK);
                return static_cast<double>(std::strtoull(field.c_str(), nullptr, 10)) /
                       static_cast<double>(ticks > 0 ? ticks : 100);
            }
        }
    }
    return secondsSinceBoot();
}

std::atomic<bool>& switchedOn() {
    static std::atomic<bool> on = [] {
        const char* value = std::getenv("NIVALIS_TRACE_STARTUP");
        return value != nullptr && *value != '\0' && std::strcmp(value, "0") != 0;
    }();
    return on;
}

void write(std::string_view step) {
    static const double start = processStart();
    const double milliseconds = (secondsSinceBoot() - start) * 1000.0;
    // One write per line, so that lines from two threads never interleave.
    char line[256];
    const int length = std::snprintf(line, sizeof line, "nivalis: startup %7.1f ms: %.*s\n", milliseconds,
                                     static_cast<int>(step.size()), step.data());
    if (length > 0) {
        std::fwrite(line, 1, std::min(static_cast<std::size_t>(length), sizeof line - 1), stderr);
        std::fflush(stderr);
    }
}

} // namespace

bool StartupTrace::active() { return switchedOn().load(std::memory_order_relaxed); }

void StartupTrace::mark(std::string_view step) {
    if (active()) {
        write(step);
    }
}

void StartupTrace::finish(std::string_view step) {
    if (switchedOn().exchange(false)) {
        write(step);
    }
}

} // namespace renderer
