#include "host/window/Display.h"

#include <QString>

#include <gtest/gtest.h>

#include <unordered_set>

namespace host::window {
namespace {

// Expected ids were computed apart from this code, with Python's uuid.uuid5 over the
// program's namespace 9aa889ca-71c2-4e67-af2d-fd82faa05c10 and the identity text
// "<maker>\n<model>\nserial:<serial>" or "<maker>\n<model>\nconnector:<connector>".

TEST(DisplayTest, IdIsTheNameBasedUuidOfTheEdidIdentity) {
    const auto display = Display::fromIdentity("NVL", "Polar 27", "ABC123", "DP-1");
    ASSERT_TRUE(display.has_value());
    EXPECT_EQ(display->uuidText(), "C3E3F797-6C75-5D71-8D5F-5D74CE89F967");
    EXPECT_EQ(display->id.version(), QUuid::Sha1);
}

TEST(DisplayTest, SerialMakesTheIdentityWhateverTheConnector) {
    // The same monitor moved to another connector keeps its id.
    EXPECT_EQ(Display::fromIdentity("NVL", "Polar 27", "ABC123", "DP-1"),
              Display::fromIdentity("NVL", "Polar 27", "ABC123", "HDMI-2"));
}

TEST(DisplayTest, ConnectorStandsInForAMissingSerial) {
    const auto left = Display::fromIdentity("NVL", "Polar 27", "", "DP-1");
    const auto right = Display::fromIdentity("NVL", "Polar 27", "", "DP-2");
    ASSERT_TRUE(left && right);
    EXPECT_EQ(left->uuidText(), "2640DE0D-6969-5654-AAC9-54007E8B5A62");
    EXPECT_EQ(right->uuidText(), "9A73860F-0ABA-531D-A886-2D6042D92F3C");
    // A monitor without any EDID data (a virtual one) is known by its connector alone.
    EXPECT_EQ(Display::fromIdentity("", "", "", "DUMMY0")->uuidText(), "0EE3827B-0679-5725-8DFF-C8988D13A339");
}

TEST(DisplayTest, NothingToTellAScreenByGivesNoDisplay) {
    EXPECT_FALSE(Display::fromIdentity("", "", "", "").has_value());
    EXPECT_FALSE(Display::of(nullptr).has_value());
}

TEST(DisplayTest, StoredTextIsUpperCaseAndReadsBackInAnyCase) {
    const Display display(QUuid(QStringLiteral("{570cccca-2d52-5f49-ab37-b81784e0fe9b}")));
    EXPECT_EQ(display.uuidText(), "570CCCCA-2D52-5F49-AB37-B81784E0FE9B");
    EXPECT_EQ(Display::fromUuidText("570cccca-2d52-5f49-ab37-b81784e0fe9b"), display);
    EXPECT_EQ(Display::fromUuidText("{570CCCCA-2D52-5F49-AB37-B81784E0FE9B}"), display);
    EXPECT_EQ(display.toString(), "Display(id=570CCCCA-2D52-5F49-AB37-B81784E0FE9B)");
}

TEST(DisplayTest, TextThatIsNoUuidReadsAsNoDisplay) {
    for (const char* garbage : {"", "main", "570CCCCA-2D52-5F49-AB37", "00000000-0000-0000-0000-000000000000",
                                "570CCCCA-2D52-5F49-AB37-B81784E0FE9Z"}) {
        EXPECT_FALSE(Display::fromUuidText(QString::fromLatin1(garbage)).has_value()) << garbage;
    }
}

TEST(DisplayTest, EqualityAndHashGoByIdOnly) {
    const auto a = *Display::fromIdentity("NVL", "Polar 27", "ABC123", "DP-1");
    const auto b = *Display::fromIdentity("NVL", "Polar 27", "ABC123", "DP-3");
    const auto c = *Display::fromIdentity("NVL", "Polar 27", "ABC124", "DP-1");
    EXPECT_EQ(a, b);
    EXPECT_NE(a, c);
    EXPECT_EQ(a.hash(), b.hash());
    std::unordered_set<Display> set{a, b, c};
    EXPECT_EQ(set.size(), 2u);
}

} // namespace
} // namespace host::window
