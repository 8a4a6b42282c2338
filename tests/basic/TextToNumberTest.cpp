#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "basic/Numbers.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;

TEST(TextToDouble, ReadsPlainAndGroupedNumbers) {
    const std::vector<std::pair<std::string, double>> cases = {
        {"0", 0},
        {"25", 25},
        {"00012", 12},
        {"33.3", 33.3},
        {".5", 0.5},
        {"-.5", -0.5},
        {"5.", 5},
        {"+7", 7},
        {"-7", -7},
        {"12,500", 12500},
        {"1,234,567.89", 1234567.89},
        {"-1,000", -1000},
        {"999,999", 999999},
        {"1e3", 1000},
        {"1.5E-3", 0.0015},
        {"2E+07", 2e7},
        {"1,234e2", 123400},
        {"1.23456789012346E+15", 1.23456789012346e15},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(TextToDouble(text, "Days"), value) << text;
    }
}

TEST(TextToDouble, IgnoresBlanksAroundTheNumber) {
    EXPECT_EQ(TextToDouble("  12,500 ", "Volume"), 12500);
    EXPECT_EQ(TextToDouble("\t7\t", "Volume"), 7);
}

TEST(TextToDouble, RefusesWhatIsNoNumber) {
    for (const std::string text :
         {"abc",      "12,5",      "0,250",   "-0,250", "00,250",  "000,250",  "0,000",
          "012,500",  "1,23,456",  ",500",    "1,2345", "12,500,", "1234,567", "1,,000",
          "1.5,00",   "1.500,000", "1e5,000", "nan",    "NaN",     "inf",      "-inf",
          "infinity", "0x10",      "1e",      "1e+",    "1 2",     "--5",      "+-5",
          "- 5",      "-",         "+",       ".",      "-.",      ",",        "1.2.3",
          "$5",       "5%",        "1..2",    "5-",     "1_000",   "e5",       "1'000"}) {
        const std::string message =
            ExpectRunTimeError(ErrorKind::TypeMismatch, [&] { TextToDouble(text, "Gen.Days"); });
        EXPECT_EQ(message, "Gen.Days: \"" + text +
                               "\" is not a number. Enter digits, for example 12,500 or 0.25.");
    }
}

TEST(TextToDouble, NamesTheFieldThatIsEmpty) {
    for (const std::string text : {"", "   ", "\t"}) {
        EXPECT_EQ(
            ExpectRunTimeError(ErrorKind::TypeMismatch, [&] { TextToDouble(text, "Gen.ACF"); }),
            "Gen.ACF is empty. Enter a number, for example 12,500 or 0.25.");
    }
}

TEST(TextToDouble, RefusesNumbersBeyondADouble) {
    for (const std::string text : {"1e999", "-1e999", "1,000e400"}) {
        const std::string message =
            ExpectRunTimeError(ErrorKind::Overflow, [&] { TextToDouble(text, "Gen.Days"); });
        EXPECT_EQ(message.find("Gen.Days: " + text + " is out of range."), 0U) << message;
    }
}

TEST(TextToDouble, KeepsItsMessageOnOneLine) {
    const std::string message =
        ExpectRunTimeError(ErrorKind::TypeMismatch, [] { TextToDouble("12\n500", "Demand"); });
    EXPECT_EQ(message.find("Demand: "), 0U) << message;
}

TEST(TextToSingle, RoundsToSinglePrecision) {
    EXPECT_EQ(TextToSingle("33.3", "Prob"), 33.3F);
    EXPECT_EQ(TextToSingle("12,500", "Volume"), 12500.0F);
    // 2^24 + 1 lies between two singles and goes to the even one.
    EXPECT_EQ(TextToSingle("16777217", "Volume"), 16777216.0F);
    // Too small for a single, yet no overflow.
    EXPECT_EQ(TextToSingle("1e-60", "Prob"), 0.0F);
}

TEST(TextToSingle, RefusesWhatASingleCannotHold) {
    for (const std::string text : {"3.5e38", "-1e39", "1e999"}) {
        const std::string message =
            ExpectRunTimeError(ErrorKind::Overflow, [&] { TextToSingle(text, "Demand.Volume"); });
        EXPECT_EQ(message.find("Demand.Volume: "), 0U) << message;
    }
    EXPECT_EQ(TextToSingle("3.4e38", "Demand.Volume"), 3.4e38F);
    ExpectRunTimeError(ErrorKind::TypeMismatch, [] { TextToSingle("12,5", "Demand.Volume"); });
}

TEST(TextToInteger, RoundsHalfToEven) {
    const std::vector<std::pair<std::string, int>> cases = {
        {"0.5", 0},  {"1.5", 2},         {"2.5", 2},      {"3.5", 4},
        {"-0.5", 0}, {"-1.5", -2},       {"-2.5", -2},    {"2.4999", 2},
        {"2.51", 3}, {"32767.4", 32767}, {"1,000", 1000}, {"-32768.5", -32768},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(TextToInteger(text, "Tasks"), value) << text;
    }
}

TEST(TextToInteger, TakesSixteenBits) {
    EXPECT_EQ(TextToInteger("32767", "Tasks"), 32767);
    EXPECT_EQ(TextToInteger("-32768", "Tasks"), -32768);
    for (const std::string text : {"32768", "-32769", "32767.5", "1e9"}) {
        const std::string message =
            ExpectRunTimeError(ErrorKind::Overflow, [&] { TextToInteger(text, "Gen.Tasks"); });
        EXPECT_EQ(message.find("Gen.Tasks: "), 0U) << message;
        EXPECT_NE(message.find("from -32,768 to 32,767"), std::string::npos) << message;
    }
}

TEST(ToInteger, RefusesWhatIsNoNumber) {
    ExpectRunTimeError(ErrorKind::Overflow, [] { ToInteger(std::nan(""), "Tasks"); });
    ExpectRunTimeError(ErrorKind::Overflow, [] { ToInteger(HUGE_VAL, "Tasks"); });
    ExpectRunTimeError(ErrorKind::Overflow, [] { ToInteger(-HUGE_VAL, "Tasks"); });
}

TEST(ToSingle, RoundsAndRefuses) {
    EXPECT_EQ(ToSingle(0.1, "Prob"), 0.1F);
    const std::string message =
        ExpectRunTimeError(ErrorKind::Overflow, [] { ToSingle(1e39, "Pathways.Cost"); });
    EXPECT_EQ(message.find("Pathways.Cost: 1E+39 is out of range."), 0U) << message;
    ExpectRunTimeError(ErrorKind::Overflow, [] { ToSingle(-1e300, "Prob"); });
}

}  // namespace
}  // namespace quarnel02
