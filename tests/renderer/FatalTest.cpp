#include "renderer/Fatal.h"

#include <gtest/gtest.h>

namespace renderer {
namespace {

TEST(FatalDeathTest, StopWritesTheMessageAndEndsWithStatusOne) {
    EXPECT_EXIT(Fatal::stop("Cannot load texture sky.webp"), ::testing::ExitedWithCode(1),
                "^Fatal error: Cannot load texture sky\\.webp\n$");
}

TEST(FatalTest, TheThrowingHandlerCarriesTheMessageAndCanBeRemoved) {
    EXPECT_EQ(Fatal::setHandler(&Fatal::throwingHandler), nullptr); // the default was in place
    try {
        Fatal::stop("GPU not available");
        ADD_FAILURE() << "no throw";
    } catch (const Fatal::Stop& stop) {
        EXPECT_STREQ(stop.what(), "GPU not available");
    }
    EXPECT_EQ(Fatal::setHandler(nullptr), &Fatal::throwingHandler);
    EXPECT_EQ(Fatal::setHandler(nullptr), nullptr);
}

} // namespace
} // namespace renderer
