#pragma once

#include <cstddef>
#include <utility>

namespace tests::support {

/// Number of heap allocations this program has made so far through any form of the global
/// operator new (plain, array, nothrow, aligned). A program that links the `allocation_counter`
/// library has those operators replaced by counting ones; compare two readings to see whether
/// the code between them allocated.
std::size_t allocationCount();

/// Allocations made while `work` runs: the difference of two readings around it. Counts every
/// thread's allocations in that time, not only the caller's.
template <typename Work> std::size_t allocationsDuring(Work&& work) {
    const std::size_t before = allocationCount();
    std::forward<Work>(work)();
    return allocationCount() - before;
}

} // namespace tests::support
