#include "sheets/EnteredNumber.h"

#include <gtest/gtest.h>

#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

double Alone(const std::string& text) {
    return EnteredNumber(text, DecimalSignOf({{text}}), "time");
}

TEST(EnteredNumber, ACommaThatCanOnlyBeDecimalIsOne) {
    EXPECT_DOUBLE_EQ(Alone("12,5"), 12.5);
    EXPECT_DOUBLE_EQ(Alone("-0,25"), -0.25);
    EXPECT_DOUBLE_EQ(Alone("0,250"), 0.25);
    EXPECT_DOUBLE_EQ(Alone("1.234,5"), 1234.5);
    EXPECT_DOUBLE_EQ(Alone("1.234.567"), 1234567);
    EXPECT_DOUBLE_EQ(Alone("1234,567"), 1234.567);
    EXPECT_DOUBLE_EQ(Alone("1,5E3"), 1500);
}

TEST(EnteredNumber, ACommaThatMayGroupThousandsDoesAsEverywhereElse) {
    EXPECT_DOUBLE_EQ(Alone("12,500"), 12500);
    EXPECT_DOUBLE_EQ(Alone("1,234.5"), 1234.5);
    EXPECT_DOUBLE_EQ(Alone("1,234,567"), 1234567);
    EXPECT_DOUBLE_EQ(Alone("12.500"), 12.5);
}

TEST(EnteredNumber, TheOtherCellsOfABlockTellWhatACommaIs) {
    EXPECT_EQ(DecimalSignOf({{"12,500", "0,250"}}), DecimalSign::Comma);
    EXPECT_EQ(DecimalSignOf({{"12,500", "1,250"}}), DecimalSign::Point);
    EXPECT_EQ(DecimalSignOf({{"12,5"}, {"0.5"}}), DecimalSign::Point);
    EXPECT_EQ(DecimalSignOf({{"12.500", "a, b", "", "7"}}), DecimalSign::Point);
    EXPECT_DOUBLE_EQ(EnteredNumber("12,500", DecimalSign::Comma, "time"), 12.5);
    EXPECT_DOUBLE_EQ(EnteredNumber("12.500", DecimalSign::Comma, "time"), 12500);
}

TEST(EnteredNumber, ANumberThatCanOnlyBeMeantTheOtherWayIsTakenSo) {
    EXPECT_DOUBLE_EQ(EnteredNumber("0.5", DecimalSign::Comma, "time"), 0.5);
    EXPECT_DOUBLE_EQ(EnteredNumber("0,5", DecimalSign::Point, "time"), 0.5);
}

TEST(EnteredNumber, BlanksMayGroupThousands) {
    EXPECT_DOUBLE_EQ(Alone("1 234,5"), 1234.5);
    EXPECT_DOUBLE_EQ(Alone("12\u00A0500"), 12500);
    EXPECT_DOUBLE_EQ(Alone("1\u202F234.5"), 1234.5);
    EXPECT_DOUBLE_EQ(Alone(" 7 "), 7);
}

TEST(EnteredNumber, OtherTextsAreNone) {
    for (const char* text :
         {"", "abc", "1 2", "1,2,3", "1.2.3", "12,,5", "1,23,4.5", "--1", "1e"}) {
        const std::string message = test::ExpectRunTimeError(
            ErrorKind::TypeMismatch, [&] { static_cast<void>(Alone(text)); });
        EXPECT_TRUE(message.starts_with("time")) << message;
    }
}

}  // namespace
}  // namespace quarnel02
