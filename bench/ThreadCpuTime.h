#pragma once

#include <time.h>

namespace bench {

/// CPU time of the calling thread in nanoseconds. Benchmarks that compare two measurements
/// (a frame against its floor) take them on this clock, so that other load on a busy machine
/// does not bend the ratio.
inline double threadNanoseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

} // namespace bench
