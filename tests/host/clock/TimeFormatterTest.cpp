#include "host/clock/TimeFormatter.h"

#include <gtest/gtest.h>

namespace host::clock {
namespace {

QString at(const char* pattern, int hour, int minute, int second = 0) {
    return TimeFormatter::format(QString::fromUtf8(pattern), QTime(hour, minute, second), QLocale::c());
}

TEST(TimeFormatterTest, TheFourClockPatternsInTheMorning) {
    EXPECT_EQ(at("h:mm", 6, 27), "6:27");
    EXPECT_EQ(at("hh:mm", 6, 27), "06:27");
    EXPECT_EQ(at("H:mm", 6, 27), "6:27");
    EXPECT_EQ(at("HH:mm", 6, 27), "06:27");
}

TEST(TimeFormatterTest, TheFourClockPatternsInTheEvening) {
    // Unicode's h is the hour of a 12-hour clock, whatever else the pattern holds.
    EXPECT_EQ(at("h:mm", 21, 27), "9:27");
    EXPECT_EQ(at("hh:mm", 21, 27), "09:27");
    EXPECT_EQ(at("H:mm", 21, 27), "21:27");
    EXPECT_EQ(at("HH:mm", 21, 27), "21:27");
}

TEST(TimeFormatterTest, MidnightAndNoonOnEachHourScale) {
    EXPECT_EQ(at("h:mm", 0, 5), "12:05");
    EXPECT_EQ(at("H:mm", 0, 5), "0:05");
    EXPECT_EQ(at("K:mm", 0, 5), "0:05");
    EXPECT_EQ(at("k:mm", 0, 5), "24:05");
    EXPECT_EQ(at("h:mm", 12, 0), "12:00");
    EXPECT_EQ(at("K:mm", 12, 0), "0:00");
    EXPECT_EQ(at("k:mm", 12, 0), "12:00");
}

TEST(TimeFormatterTest, SecondsMarkersAndSingleMinutes) {
    EXPECT_EQ(at("HH:mm:ss", 7, 3, 9), "07:03:09");
    EXPECT_EQ(at("H:m:s", 7, 3, 9), "7:3:9");
    EXPECT_EQ(at("h:mm a", 9, 27), "9:27 AM");
    EXPECT_EQ(at("h:mm a", 21, 27), "9:27 PM");
}

TEST(TimeFormatterTest, QuotedTextAndOtherCharactersAreLiteral) {
    EXPECT_EQ(at("h 'o''clock'", 21, 0), "9 o'clock");
    EXPECT_EQ(at("HH'h'mm", 21, 27), "21h27");
    EXPECT_EQ(at("''HH''", 21, 27), "'21'");
    EXPECT_EQ(at("HH.mm – ", 8, 1), "08.01 – ");
    // An unclosed quote runs to the end.
    EXPECT_EQ(at("HH 'mm", 8, 1), "08 mm");
    // Letters of no time field stay as they are.
    EXPECT_EQ(at("HH:mm yyyy", 8, 1), "08:01 yyyy");
    EXPECT_EQ(at("", 8, 1), "");
}

} // namespace
} // namespace host::clock
