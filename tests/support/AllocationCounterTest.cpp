// The counter must see every form of the global operator new that library and frame code may
// reach (containers use the plain and aligned forms, temporary buffers the nothrow one), and the
// blocks it hands out must be usable as asked.
#include "tests/support/AllocationCounter.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace {

using tests::support::allocationCount;
using tests::support::allocationsDuring;

TEST(AllocationCounterTest, EveryFormOfOperatorNewCountsOnceAndDeleteNotAtAll) {
    EXPECT_EQ(allocationsDuring([] { ::operator delete(::operator new(24)); }), 1u);
    EXPECT_EQ(allocationsDuring([] { ::operator delete[](::operator new[](24)); }), 1u);
    EXPECT_EQ(allocationsDuring([] { ::operator delete(::operator new(24, std::nothrow)); }), 1u);
    EXPECT_EQ(allocationsDuring([] { ::operator delete[](::operator new[](24, std::nothrow)); }), 1u);
    EXPECT_EQ(allocationsDuring([] {
                  constexpr std::align_val_t align{64};
                  ::operator delete(::operator new(24, align), align);
              }),
              1u);
    EXPECT_EQ(allocationsDuring([] {
                  constexpr std::align_val_t align{64};
                  ::operator delete[](::operator new[](24, align, std::nothrow), align);
              }),
              1u);

    void* block = ::operator new(8);
    EXPECT_EQ(allocationsDuring([block] { ::operator delete(block); }), 0u);
}

TEST(AllocationCounterTest, ExpressionsAndContainersAreCounted) {
    struct alignas(128) Wide {
        char bytes[3];
    };
    // Through volatile pointers, since a new-expression paired with its delete may be elided.
    EXPECT_EQ(allocationsDuring([] {
                  Wide* volatile wide = new Wide;
                  delete wide;
              }),
              1u);
    EXPECT_EQ(allocationsDuring([] {
                  int* volatile ints = new int[5];
                  delete[] ints;
              }),
              1u);
    EXPECT_EQ(allocationsDuring([] {
                  std::vector<int> grown;
                  grown.reserve(4);
                  grown.reserve(400);
              }),
              2u);
    // A short string lives inside the object; a long one is one heap block.
    EXPECT_EQ(allocationsDuring([] { std::string s("short"); }), 0u);
    EXPECT_EQ(allocationsDuring([] { std::string s(100, 'x'); }), 1u);
}

TEST(AllocationCounterTest, BlocksHaveTheRequestedAlignmentAndZeroSizeIsAUniqueBlock) {
    for (std::size_t align : {16u, 64u, 256u, 4096u}) {
        for (std::size_t size : {0u, 1u, 100u, 5000u}) {
            void* p = ::operator new(size, std::align_val_t{align});
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(p) % align, 0u) << align << " " << size;
            ::operator delete(p, std::align_val_t{align});
        }
    }
    void* a = ::operator new(0);
    void* b = ::operator new(0);
    EXPECT_NE(a, nullptr);
    EXPECT_NE(a, b);
    ::operator delete(a);
    ::operator delete(b);
}

TEST(AllocationCounterTest, FailedRequestsThrowOrReturnNullAsTheirFormPromises) {
    // More than any allocator can give: malloc fails without touching memory.
    const std::size_t huge = static_cast<std::size_t>(-1) / 2;
    EXPECT_THROW(static_cast<void>(::operator new(huge)), std::bad_alloc);
    EXPECT_THROW(static_cast<void>(::operator new(huge, std::align_val_t{64})), std::bad_alloc);
    EXPECT_EQ(::operator new(huge, std::nothrow), nullptr);
    EXPECT_EQ(::operator new[](huge, std::align_val_t{64}, std::nothrow), nullptr);
}

TEST(AllocationCounterTest, CountOnlyGrows) {
    const std::size_t first = allocationCount();
    auto held = std::make_unique<int>(7);
    const std::size_t second = allocationCount();
    held.reset();
    EXPECT_EQ(second, first + 1);
    EXPECT_EQ(allocationCount(), second);
}

} // namespace
