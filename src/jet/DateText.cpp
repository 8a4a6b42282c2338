#include "jet/DateText.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace quarnel02::jet {

namespace {

constexpr double kFirstDay = -657434;  ///< 0100-01-01
constexpr double kLastDay = 2958465;   ///< 9999-12-31
constexpr double kSecondsOfDay = 86400;
constexpr int kSecondsOfHour = 3600;
constexpr int kSecondsOfMinute = 60;

}  // namespace

std::optional<std::string> DateText(double days) {
    using namespace std::chrono;
    if (!(days > kFirstDay - 1 && days < kLastDay + 1)) {
        return {};
    }
    double day = std::trunc(days);
    double second = std::round(std::abs(days - day) * kSecondsOfDay);
    if (second == kSecondsOfDay) {
        day += 1;
        second = 0;
    }
    if (day > kLastDay) {
        return {};
    }
    constexpr sys_days start = year{1899} / December / 30;
    const year_month_day date(start + std::chrono::days(static_cast<int>(day)));
    const int time = static_cast<int>(second);
    std::array<char, 64> text{};
    const int length = std::snprintf(
        text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d", static_cast<int>(date.year()),
        static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
        time / kSecondsOfHour, time / kSecondsOfMinute % kSecondsOfMinute, time % kSecondsOfMinute);
    return std::string(text.data(), static_cast<std::size_t>(length));
}

}  // namespace quarnel02::jet
