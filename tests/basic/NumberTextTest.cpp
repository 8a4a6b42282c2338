#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "basic/Numbers.h"

namespace quarnel02 {
namespace {

TEST(NumberText, ShowsUpToFifteenDigitsOfADouble) {
    const std::vector<std::pair<double, std::string>> cases = {
        {0, "0"},
        {-0.0, "0"},
        {25, "25"},
        {-3, "-3"},
        {33.3, "33.3"},
        {0.25, "0.25"},
        {-0.5, "-0.5"},
        {1.0 / 3, "0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {0.1 + 0.2, "0.3"},
        {33.3F, "33.2999992370605"},
        {100000, "100000"},
        {1234567.891, "1234567.891"},
        {123456789012345.0, "123456789012345"},
        {1e14, "100000000000000"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(NumberText(value), text);
    }
}

TEST(NumberText, ShowsAnExponentOnlyWhereFifteenPlacesAreTooFew) {
    const std::vector<std::pair<double, std::string>> cases = {
        {1e15, "1E+15"},
        {999999999999999.9, "1E+15"},
        {1234567890123456.0, "1.23456789012346E+15"},
        {-1e100, "-1E+100"},
        {1.5e-8, "0.000000015"},
        {1e-15, "0.000000000000001"},
        {1e-16, "1E-16"},
        {1.23e-14, "1.23E-14"},
        {-1.5e-20, "-1.5E-20"},
        {1e-300, "1E-300"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(NumberText(value), text);
    }
}

TEST(NumberText, ShowsUpToSevenDigitsOfASingle) {
    const std::vector<std::pair<float, std::string>> cases = {
        {0.0F, "0"},
        {33.3F, "33.3"},
        {0.1F, "0.1"},
        {12500.0F, "12500"},
        {1234567.0F, "1234567"},
        {9999999.0F, "9999999"},
        {-2.5F, "-2.5"},
        {1.0F / 3, "0.3333333"},
        {64335.55F, "64335.55"},
        {1e7F, "1E+07"},
        {12345678.0F, "1.234568E+07"},
        {16777216.0F, "1.677722E+07"},
        {1e-7F, "0.0000001"},
        {1.5e-7F, "1.5E-07"},
        {0.01234567F, "1.234567E-02"},
        {3.4e38F, "3.4E+38"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(NumberText(value), text);
    }
}

TEST(NumberText, ShowsWholeNumbersInFull) {
    EXPECT_EQ(NumberText(-32768), "-32768");
    EXPECT_EQ(NumberText(std::int64_t{9007199254740993}), "9007199254740993");
}

TEST(NumberText, NamesWhatIsNoNumber) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(NumberText(infinity), "Infinity");
    EXPECT_EQ(NumberText(-infinity), "-Infinity");
    EXPECT_EQ(NumberText(std::nan("")), "NaN");
}

TEST(ToDecimalDigits, SplitsAValueAtItsPoint) {
    const DecimalDigits cycle = ToDecimalDigits(-72.50, 15);
    EXPECT_TRUE(cycle.Negative);
    EXPECT_EQ(cycle.Digits, "725");
    EXPECT_EQ(cycle.PointAt, 2);

    const DecimalDigits small = ToDecimalDigits(0.00125, 15);
    EXPECT_FALSE(small.Negative);
    EXPECT_EQ(small.Digits, "125");
    EXPECT_EQ(small.PointAt, -2);

    EXPECT_EQ(ToDecimalDigits(0, 7).Digits, "");
    EXPECT_FALSE(ToDecimalDigits(-0.0, 7).Negative);
    // 9,999,999.6 has eight digits; seven of them carry over.
    EXPECT_EQ(ToDecimalDigits(9999999.6, 7).Digits, "1");
    EXPECT_EQ(ToDecimalDigits(9999999.6, 7).PointAt, 8);
}

/// mantissa x 10^exponent, as the nearest double to the decimal text.
double Decimal(std::int64_t mantissa, int exponent) {
    return std::stod(std::to_string(mantissa) + "e" + std::to_string(exponent));
}

RC_GTEST_PROP(NumberTextProperty, DoubleOfFifteenDigitsComesBack, ()) {
    const auto mantissa = *rc::gen::inRange<std::int64_t>(-999999999999999, 1000000000000000);
    const int exponent = *rc::gen::inRange(-280, 280);
    const double value = Decimal(mantissa, exponent);
    RC_ASSERT(TextToDouble(NumberText(value), "x") == value);
}

RC_GTEST_PROP(NumberTextProperty, TextOfADoubleIsItsOwnText, ()) {
    const auto mantissa = *rc::gen::arbitrary<std::int64_t>();
    const int exponent = *rc::gen::inRange(-900, 900);
    const double value = std::ldexp(static_cast<double>(mantissa), exponent);
    RC_PRE(value == 0 || (std::fabs(value) > 1e-300 && std::fabs(value) < 1e300));
    const std::string text = NumberText(value);
    const double back = TextToDouble(text, "x");
    RC_ASSERT(NumberText(back) == text);
    RC_ASSERT(std::fabs(back - value) <= std::fabs(value) * 5e-15);
}

RC_GTEST_PROP(NumberTextProperty, SingleOfSixDigitsComesBack, ()) {
    const auto mantissa = *rc::gen::inRange<std::int64_t>(-999999, 1000000);
    const int exponent = *rc::gen::inRange(-30, 30);
    const auto value = static_cast<float>(Decimal(mantissa, exponent));
    RC_ASSERT(TextToSingle(NumberText(value), "x") == value);
}

RC_GTEST_PROP(NumberTextProperty, ThousandsSeparatorsDoNotChangeANumber, ()) {
    const auto value = *rc::gen::inRange<std::int64_t>(0, 1000000000000);
    std::string grouped = std::to_string(value);
    for (int at = static_cast<int>(grouped.size()) - 3; at > 0; at -= 3) {
        grouped.insert(static_cast<std::size_t>(at), ",");
    }
    RC_ASSERT(TextToDouble(" " + grouped + " ", "x") == static_cast<double>(value));
    RC_ASSERT(TextToDouble("-" + grouped + ".5", "x") == -static_cast<double>(value) - 0.5);
}

RC_GTEST_PROP(NumberTextProperty, EveryIntegerComesBackAndHalvesGoToTheEvenOne, ()) {
    const int value = *rc::gen::inRange(-32768, 32768);
    RC_ASSERT(TextToInteger(NumberText(value), "x") == value);
    const int even = value % 2 == 0 ? value : value - 1;
    RC_PRE(even > -32768);
    RC_ASSERT(ToInteger(even + 0.5, "x") == even);
    RC_ASSERT(ToInteger(even - 0.5, "x") == even);
}

}  // namespace
}  // namespace quarnel02
