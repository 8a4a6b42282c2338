#include "basic/NumberFormat.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "basic/Numbers.h"

namespace quarnel02 {
namespace {

struct Case {
    double Value;
    std::string Text;
};

void ExpectFormats(const std::string& pattern, const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        EXPECT_EQ(Format(each.Value, pattern), each.Text)
            << NumberText(each.Value) << " under " << pattern;
    }
}

TEST(Format, GroupsWholeNumbersInThousands) {
    const std::vector<Case> cases = {
        {0, ""},
        {5, "5"},
        {999, "999"},
        {1000, "1,000"},
        {12500, "12,500"},
        {1234567, "1,234,567"},
        {0.4, ""},
        {0.5, "1"},
        {2.5, "3"},
        {999.5, "1,000"},
        {-0.4, ""},
        {-0.5, "-1"},
        {-12500, "-12,500"},
        {123456789, "123,456,789"},
        {1e20, "100,000,000,000,000,000,000"},
    };
    ExpectFormats("#,###", cases);
    ExpectFormats("#,###,###", cases);
}

TEST(Format, PutsTheSignInFrontOfTheCurrency) {
    ExpectFormats("$#,###", {{64335.5, "$64,336"},
                             {64335.49, "$64,335"},
                             {-5, "-$5"},
                             {-1234.5, "-$1,235"},
                             {0, "$"},
                             {-0.3, "$"},
                             {1e9, "$1,000,000,000"}});
    ExpectFormats("$###", {{1234567, "$1234567"}, {12.5, "$13"}, {0, "$"}, {-40, "-$40"}});
}

TEST(Format, ShowsTwoPlaces) {
    ExpectFormats("#.00", {{0, ".00"},
                           {0.5, ".50"},
                           {0.285, ".29"},
                           {1.005, "1.01"},
                           {59.994, "59.99"},
                           {59.995, "60.00"},
                           {0.995, "1.00"},
                           {0.004, ".00"},
                           {0.005, ".01"},
                           {0.05, ".05"},
                           {-0.285, "-.29"},
                           {-0.004, ".00"},
                           {1234567, "1234567.00"}});
    ExpectFormats("#,###.00", {{0, ".00"},
                               {30, "30.00"},
                               {1234.565, "1,234.57"},
                               {999.995, "1,000.00"},
                               {-1234.5, "-1,234.50"},
                               {1000000, "1,000,000.00"}});
}

TEST(Format, LeavesOutOptionalPlacesButNotThePoint) {
    ExpectFormats("###.##", {{5, "5."},
                             {5.5, "5.5"},
                             {5.125, "5.13"},
                             {0.05, ".05"},
                             {0.999, "1."},
                             {1000.1, "1000.1"},
                             {0, "."},
                             {-2.5, "-2.5"}});
}

TEST(Format, ShowsANeededZero) {
    ExpectFormats(
        "###0",
        {{0, "0"}, {12, "12"}, {0.49, "0"}, {0.5, "1"}, {-0.2, "0"}, {1234.5, "1235"}, {-7, "-7"}});
    ExpectFormats("#,##0", {{0, "0"}, {12500, "12,500"}});
}

TEST(Format, RoundsTheDecimalTextAndNotTheBinaryValue) {
    // As binary fractions these lie just below the half that their texts name.
    ExpectFormats("#.00", {{2.675, "2.68"}, {8.345, "8.35"}, {0.145, ".15"}, {1.115, "1.12"}});
    // 15 digits of 0.1 + 0.7 are 0.8, so ten times as much is 8 and not 7.999...
    ExpectFormats("#,###", {{(0.1 + 0.7) * 10, "8"}});
}

TEST(Format, WritesWhatIsNoNumberAsItsDefaultText) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value : {infinity, -infinity, std::nan("")}) {
        EXPECT_EQ(Format(value, "$#,###"), NumberText(value));
        EXPECT_EQ(Format(value, "#.00"), NumberText(value));
    }
}

/// Digits of a whole number with commas, by counting from the right.
std::string Grouped(std::int64_t number) {
    std::string digits = number == 0 ? "" : std::to_string(number);
    std::string text;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        const bool comma = i > 0 && (digits.size() - i) % 3 == 0;
        text += (comma ? "," : "") + digits.substr(i, 1);
    }
    return text;
}

RC_GTEST_PROP(FormatProperty, HundredthsShowAsTheyAre, ()) {
    const auto hundredths = *rc::gen::inRange<std::int64_t>(0, 10'000'000'000'000);
    const double value = static_cast<double>(hundredths) / 100;
    const std::string places = std::to_string(100 + hundredths % 100).substr(1);
    RC_ASSERT(Format(value, "#,###.00") == Grouped(hundredths / 100) + "." + places);
}

RC_GTEST_PROP(FormatProperty, HalvesGoAwayFromZero, ()) {
    const auto whole = *rc::gen::inRange<std::int64_t>(0, 1'000'000'000'000);
    const double half = static_cast<double>(whole) + 0.5;
    RC_ASSERT(Format(half, "$#,###") == "$" + Grouped(whole + 1));
    RC_ASSERT(Format(-half, "$#,###") == "-$" + Grouped(whole + 1));
}

RC_GTEST_PROP(FormatProperty, ThousandthsRoundByTheirLastDigit, ()) {
    const auto thousandths = *rc::gen::inRange<std::int64_t>(0, 100'000'000'000);
    const std::int64_t hundredths = thousandths / 10 + (thousandths % 10 >= 5 ? 1 : 0);
    const std::int64_t whole = hundredths / 100;
    const std::string places = std::to_string(100 + hundredths % 100).substr(1);
    RC_ASSERT(Format(static_cast<double>(thousandths) / 1000, "#.00") ==
              (whole == 0 ? "" : std::to_string(whole)) + "." + places);
}

RC_GTEST_PROP(FormatProperty, WholeNumbersComeBack, ()) {
    const auto value = *rc::gen::inRange<std::int64_t>(-999'999'999'999, 1'000'000'000'000);
    RC_ASSERT(TextToDouble(Format(static_cast<double>(value), "#,##0"), "x") ==
              static_cast<double>(value));
}

}  // namespace
}  // namespace quarnel02
