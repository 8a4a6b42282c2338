// Parts of the reader and writer whose cases a whole file would hide.

#include <gtest/gtest.h>

#include "jet/Damage.h"
#include "jet/DateText.h"
#include "jet/Decimals.h"
#include "jet/Recognise.h"
#include "jet/TinyFile.h"
#include "jet/Utf16.h"
#include "jet/WriteHeader.h"

namespace quarnel02::jet {
namespace {

using namespace std::string_view_literals;

double Decimal(unsigned sign, std::string_view words, unsigned scale) {
    const std::string field = Little(sign, 1) + std::string(words);
    return DecimalOf(Bytes(field), scale);
}

double Currency(std::uint64_t amount) {
    const std::string field = Little(amount, 8);
    return CurrencyOf(Bytes(field));
}

TEST(RecogniseTest, KnowsADatabaseByItsFirstBytes) {
    EXPECT_TRUE(IsAccessHead("\0\1\0\0Standard Jet DB\0"sv));
    EXPECT_TRUE(IsAccessHead("\0\1\0\0Standard ACE DB\0\2"sv));
    EXPECT_FALSE(IsAccessHead("\0\1\0\0Standard Jet DB"sv));
    EXPECT_FALSE(IsAccessHead("\0\1\0\0MSISAM Database\0"sv));
    EXPECT_FALSE(IsAccessHead(""));
}

TEST(DateTextTest, CountsDaysAndTheTimeOfDay) {
    EXPECT_EQ(DateText(0), "1899-12-30 00:00:00");
    EXPECT_EQ(DateText(1.5), "1899-12-31 12:00:00");
    EXPECT_EQ(DateText(-1.25), "1899-12-29 06:00:00");
    EXPECT_EQ(DateText(46082.604166666664), "2026-03-01 14:30:00");
    EXPECT_EQ(DateText(46081.9999999), "2026-03-01 00:00:00");
    EXPECT_EQ(DateText(-657434), "0100-01-01 00:00:00");
    EXPECT_EQ(DateText(2958465.5), "9999-12-31 12:00:00");
}

TEST(DateTextTest, KnowsNoDayOutsideTheCalendar) {
    EXPECT_EQ(DateText(2958466), std::nullopt);
    EXPECT_EQ(DateText(2958465.99999999), std::nullopt);
    EXPECT_EQ(DateText(-657435), std::nullopt);
    EXPECT_EQ(DateText(1e300), std::nullopt);
    EXPECT_EQ(DateText(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}

TEST(DaysOfTest, IsWhatDateTextReads) {
    using namespace std::chrono;
    EXPECT_EQ(DateText(DaysOf(sys_days(year{2026} / March / 1) + hours(14) + minutes(30))),
              "2026-03-01 14:30:00");
}

TEST(DecimalsTest, AreTheNearestReals) {
    EXPECT_EQ(Decimal(0, Little(0, 12) + Little(123456, 4), 3), 123.456);
    EXPECT_EQ(Decimal(0x80, Little(0, 12) + Little(5, 4), 0), -5);
    EXPECT_EQ(Decimal(0, Little(0, 16), 28), 0);
    // 2^64 + 1, of which the highest words come first
    EXPECT_EQ(Decimal(0, Little(0, 4) + Little(1, 4) + Little(0, 4) + Little(1, 4), 0),
              18446744073709551617.0);
    EXPECT_EQ(Decimal(0, std::string(16, '\xFF'), 38), 3.40282366920938463463374607431768211455);
    EXPECT_THROW(Decimal(0, Little(0, 16), 39), Damage);
}

TEST(DecimalsTest, AmountsOfMoneyHaveFourPlaces) {
    EXPECT_EQ(Currency(1234567), 123.4567);
    EXPECT_EQ(Currency(static_cast<std::uint64_t>(-1)), -0.0001);
    EXPECT_EQ(Currency(0x7FFFFFFFFFFFFFFFU), 922337203685477.5807);
    EXPECT_EQ(Currency(0x8000000000000000U), -922337203685477.5808);
}

TEST(Utf16Test, GoesThereAndBack) {
    for (const std::string text :
         {"", "abc", "Ωä", "組", "\xF0\x9F\x94\xA7", "\x7F\xC2\x80", "\xDF\xBF\xE0\xA0\x80",
          "\xEF\xBF\xBF\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        const auto utf16 = Utf16Of(text);
        ASSERT_TRUE(utf16) << text;
        EXPECT_EQ(Utf8Of(*utf16), text);
    }
    EXPECT_EQ(Utf16Of("\xF0\x9F\x94\xA7"), u"\U0001F527");
}

TEST(Utf16Test, RefusesWhatIsNotUtf8) {
    for (const char* text :
         {"\x80", "\xC3", "a\xC3z", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80",
          "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF"}) {
        EXPECT_EQ(Utf16Of(text), std::nullopt) << text;
    }
}

TEST(Utf16Test, ReplacesHalvesThatStandAlone) {
    const std::u16string high(1, static_cast<char16_t>(0xD83D));
    const std::u16string low(1, static_cast<char16_t>(0xDD27));
    EXPECT_EQ(Utf8Of(high), kReplacementCharacter);
    EXPECT_EQ(Utf8Of(low + u"a"), std::string(kReplacementCharacter) + "a");
    EXPECT_EQ(Utf8Of(high + u"a"), std::string(kReplacementCharacter) + "a");
    EXPECT_EQ(Utf8Of(high + low), "\xF0\x9F\x94\xA7");
}

}  // namespace
}  // namespace quarnel02::jet
