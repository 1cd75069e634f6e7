// Counts every allocation of this test program through the global operator new, so tests can
// check that frame-path operations allocate nothing.
#include "tests/engine/camera/AllocationCounter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
std::atomic<std::size_t> counter{0};
} // namespace

namespace testing_support {
std::size_t allocationCount() { return counter.load(); }
} // namespace testing_support

void* operator new(std::size_t size) {
    counter.fetch_add(1);
    if (void* p = std::malloc(size == 0 ? 1 : size)) {
        return p;
    }
    throw std::bad_alloc();
}

void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
