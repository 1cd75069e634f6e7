#include "engine/common/Hash.h"

#include <gtest/gtest.h>

#include <string>

using engine::common::hashCombine;

TEST(HashCombine, DependsOnValuesAndTheirOrder) {
    std::size_t ab = 0;
    hashCombine(ab, 1);
    hashCombine(ab, 2);
    std::size_t ba = 0;
    hashCombine(ba, 2);
    hashCombine(ba, 1);
    EXPECT_NE(ab, ba);

    std::size_t again = 0;
    hashCombine(again, 1);
    hashCombine(again, 2);
    EXPECT_EQ(ab, again);

    // A zero field still changes the seed, so (0) and () differ.
    std::size_t withZero = 0;
    hashCombine(withZero, 0);
    EXPECT_NE(0u, withZero);

    std::size_t text = 0;
    hashCombine(text, std::string("water"));
    std::size_t other = 0;
    hashCombine(other, std::string("sky"));
    EXPECT_NE(text, other);
}
