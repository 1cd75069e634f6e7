#include "host/clock/ClockChoices.h"
#include "host/clock/ClockFonts.h"
#include "host/clock/ClockPicture.h"
#include "host/clock/ClockStyleManager.h"

#include "tests/host/app/TestApplication.h"

#include <QDir>
#include <QFileInfo>
#include <QFontInfo>
#include <QGuiApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace host::clock {
namespace {

// The fonts as the repository ships them, found from this file's place in tests/host/clock/.
QString fontsDirectory() {
    return QStringLiteral(NIVALIS_SOURCE_DIR "/resources/fonts");
}

class ClockStyleTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::testApplication();
        ClockFonts::instance().loadFrom(fontsDirectory());
    }
};

TEST_F(ClockStyleTest, EveryFontOfThePickerLoadsFromTheShippedFiles) {
    ClockFonts fonts;
    EXPECT_EQ(fonts.loadFrom(fontsDirectory()), 10);
    for (const ClockChoices::Font& choice : ClockChoices::fonts()) {
        const QString name = QString::fromUtf8(choice.name);
        EXPECT_FALSE(fonts.familyOf(name).isEmpty()) << choice.name;
        // The font that a name gives is the shipped family, not a fallback.
        EXPECT_EQ(QFontInfo(fonts.font(name, 40.0f)).family(), fonts.familyOf(name)) << choice.name;
    }
    EXPECT_TRUE(QDir(fontsDirectory()).exists(QStringLiteral("LICENSE.Apache-2.0.txt")));
}

TEST_F(ClockStyleTest, PickerNamesAreTheStoredNamesWhereLabelsDiffer) {
    EXPECT_STREQ(ClockChoices::fontNamed("CarbonType")->label, "Carbon");
    EXPECT_STREQ(ClockChoices::fontNamed("Virgo 01")->label, "Virgo");
    EXPECT_EQ(ClockChoices::fontNamed("Carbon"), nullptr);
    EXPECT_EQ(ClockChoices::fontNamed("Virgo"), nullptr);
}

TEST_F(ClockStyleTest, StartsWithItsOwnValuesNotTheSettingsDefaults) {
    ClockStyleManager style;
    EXPECT_EQ(style.timeFormat(), "hh:mm");
    EXPECT_TRUE(style.enabled());
    EXPECT_DOUBLE_EQ(style.opacity(), 0.7);
    EXPECT_FLOAT_EQ(style.size(), 220.0f);
    EXPECT_TRUE(style.fontName().isEmpty());
    EXPECT_EQ(style.selectedFont().pixelSize(), 220);
    EXPECT_EQ(style.selectedFont().weight(), QFont::Bold);
}

TEST_F(ClockStyleTest, FontThenSizeLeavesTheChosenFontAtTheChosenSize) {
    // The order the application state applies them in: the font is made at the old size
    // first, and again when the size follows.
    ClockStyleManager style;
    QSignalSpy changed(&style, &ClockStyleManager::changed);
    style.setFontName(QStringLiteral("Oswald"));
    EXPECT_EQ(style.selectedFont().pixelSize(), 220);
    style.setSize(300.0f);
    EXPECT_EQ(style.fontName(), "Oswald");
    EXPECT_EQ(style.selectedFont().pixelSize(), 300);
    EXPECT_EQ(style.selectedFont().family(), ClockFonts::instance().familyOf(QStringLiteral("Oswald")));
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(ClockStyleTest, UnknownFontNameFallsBackToTheSystemFont) {
    ClockStyleManager style;
    style.setFontName(QStringLiteral("No Such Face"));
    EXPECT_EQ(style.selectedFont().family(), QGuiApplication::font().family());
    EXPECT_EQ(style.selectedFont().pixelSize(), 220);
}

TEST_F(ClockStyleTest, PictureSitsBelowTheTopFifthCentredAcrossTheView) {
    const QFont font = ClockFonts::instance().font(QStringLiteral("Baloo"), 100.0f);
    const QSize view(1000, 800);
    const ClockPicture picture = ClockPicture::draw(QStringLiteral("9:27"), font, 1.0, view, 1.0);
    ASSERT_FALSE(picture.image.isNull());
    // The line box starts at 0.2 * 800 + 8 = 168; the picture reaches a shadow's margin above.
    EXPECT_EQ(ClockPicture::textRect(view, font).top(), 168);
    EXPECT_LT(picture.topLeft.y(), 168);
    EXPECT_GT(picture.topLeft.y(), 168 - 25);
    const double centre = picture.topLeft.x() + picture.image.width() / 2.0;
    EXPECT_NEAR(centre, 500.0, 2.0);
}

TEST_F(ClockStyleTest, PictureIsWhiteTextAtItsOpacityOverABlackShadow) {
    const QFont font = ClockFonts::instance().font(QStringLiteral("Major Snafu"), 120.0f);
    const auto brightest = [](const QImage& image) {
        int best = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                best = std::max(best, qRed(image.pixel(x, y)));
            }
        }
        return best;
    };
    const ClockPicture full = ClockPicture::draw(QStringLiteral("21:27"), font, 1.0, QSize(800, 600), 1.0);
    const ClockPicture half = ClockPicture::draw(QStringLiteral("21:27"), font, 0.5, QSize(800, 600), 1.0);
    // Premultiplied: a fully covered glyph pixel is 255 at full opacity, about 128 at half.
    EXPECT_EQ(brightest(full.image), 255);
    EXPECT_NEAR(brightest(half.image), 128, 2);
    // The picture's corner lies outside the shadow; just outside the glyphs it is dark but not clear.
    EXPECT_EQ(qAlpha(full.image.pixel(0, 0)), 0);
    int shadowOnly = 0;
    for (int y = 0; y < full.image.height(); ++y) {
        for (int x = 0; x < full.image.width(); ++x) {
            const QRgb p = full.image.pixel(x, y);
            if (qAlpha(p) > 20 && qRed(p) == 0) {
                ++shadowOnly;
            }
        }
    }
    EXPECT_GT(shadowOnly, 100);
}

TEST_F(ClockStyleTest, NoTextNoPicture) {
    EXPECT_TRUE(ClockPicture::draw(QString(), QFont(), 1.0, QSize(800, 600), 1.0).image.isNull());
    EXPECT_TRUE(ClockPicture::draw(QStringLiteral("9:27"), QFont(), 1.0, QSize(), 1.0).image.isNull());
}

TEST_F(ClockStyleTest, PictureIsInDevicePixelsOnDenseScreens) {
    const QFont font = ClockFonts::instance().font(QStringLiteral("Oswald"), 80.0f);
    const ClockPicture one = ClockPicture::draw(QStringLiteral("6:27"), font, 1.0, QSize(800, 600), 1.0);
    const ClockPicture two = ClockPicture::draw(QStringLiteral("6:27"), font, 1.0, QSize(800, 600), 2.0);
    EXPECT_NEAR(two.image.width(), 2 * one.image.width(), 2);
    EXPECT_NEAR(two.topLeft.y(), 2 * one.topLeft.y(), 2);
}

} // namespace
} // namespace host::clock
