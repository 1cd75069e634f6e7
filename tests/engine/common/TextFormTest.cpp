#include "engine/common/TextForm.h"

#include <gtest/gtest.h>

#include <limits>

using engine::common::TextForm;

TEST(TextFormFloat, ShortestTextThatReadsBack) {
    EXPECT_EQ("0.1", TextForm::number(0.1f));
    EXPECT_EQ("0.3", TextForm::number(0.3f));
    EXPECT_EQ("0.33333334", TextForm::number(1.0f / 3.0f));
    EXPECT_EQ("0.017453292", TextForm::number(0.017453292f));
    EXPECT_EQ("1.6777216E7", TextForm::number(16777216.0f));
}

TEST(TextFormFloat, ScientificOutsideTheDecimalRange) {
    EXPECT_EQ("1.0E7", TextForm::number(1e7f));
    EXPECT_EQ("1.2345678E7", TextForm::number(1.2345678e7f));
    EXPECT_EQ("2.5E-4", TextForm::number(2.5e-4f));
    EXPECT_EQ("-1.5E-5", TextForm::number(-1.5e-5f));
    EXPECT_EQ("9.999999E-4", TextForm::number(0.00099999993f));
    EXPECT_EQ("3.4028235E38", TextForm::number(std::numeric_limits<float>::max()));
    // The shortest text that reads back, even for the smallest subnormals.
    EXPECT_EQ("1.0E-45", TextForm::number(std::numeric_limits<float>::denorm_min()));
}

TEST(TextFormDouble, SameRulesAtDoublePrecision) {
    EXPECT_EQ("1.0", TextForm::number(1.0));
    EXPECT_EQ("0.1", TextForm::number(0.1));
    EXPECT_EQ("0.3333333333333333", TextForm::number(1.0 / 3.0));
    EXPECT_EQ("3000.0", TextForm::number(3000.0));
    EXPECT_EQ("1.0E-5", TextForm::number(1e-5));
    EXPECT_EQ("1.0E21", TextForm::number(1e21));
    EXPECT_EQ("1.23456789E8", TextForm::number(123456789.0));
    EXPECT_EQ("-0.0", TextForm::number(-0.0));
    EXPECT_EQ("NaN", TextForm::number(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_EQ("-Infinity", TextForm::number(-std::numeric_limits<double>::infinity()));
    EXPECT_EQ("5.0E-324", TextForm::number(std::numeric_limits<double>::denorm_min()));
}
