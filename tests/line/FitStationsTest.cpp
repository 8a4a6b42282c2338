#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <vector>

#include "line/CostModel.h"
#include "line/WorkContent.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;

struct Fitted {
    int Stations;
    float Time;
    bool operator==(const Fitted&) const = default;
};

/// At most one part in a million too long.
bool Fits(float time, float available) {
    const auto limit = static_cast<double>(available);
    return static_cast<double>(time) <= limit + std::abs(limit) * 1e-6;
}

/// One station more at a time until the shared time fits; nothing beyond 32,767 stations.
std::optional<Fitted> OneByOne(float workTime, float available) {
    int stations = 1;
    float time = workTime;
    while (!Fits(time, available)) {
        if (stations == std::numeric_limits<std::int16_t>::max()) {
            return std::nullopt;
        }
        ++stations;
        time = static_cast<float>(static_cast<double>(workTime) / stations);
    }
    return Fitted{stations, time};
}

std::optional<Fitted> Fit(float workTime, float available) {
    try {
        const StationCount count = FitStations(workTime, available);
        return Fitted{count.Stations, count.StationTime};
    } catch (const RunTimeError& error) {
        RC_ASSERT(error.Kind() == ErrorKind::Overflow);
        return std::nullopt;
    }
}

float PositiveSingle(int mantissa, int exponent) {
    return std::ldexp(static_cast<float>(mantissa), exponent);
}

TEST(FitStations, TakesOneStationForExactlyTheAvailableTime) {
    const StationCount count = FitStations(72, 72);
    EXPECT_EQ(count.Stations, 1);
    EXPECT_EQ(count.StationTime, 72.0F);
}

TEST(FitStations, TakesThreeForTwoAndAHalfTimes) {
    const StationCount count = FitStations(25, 10);
    EXPECT_EQ(count.Stations, 3);
    EXPECT_EQ(count.StationTime, static_cast<float>(25.0 / 3));
}

TEST(FitStations, TakesAStationThatIsFullToAMillionthForFull) {
    EXPECT_EQ(FitStations(std::nextafter(72.0F, 100.0F), 72).Stations, 1);
    EXPECT_EQ(FitStations(1000.0009F, 1000).Stations, 1);
    EXPECT_EQ(FitStations(1000.0012F, 1000).Stations, 2);
    EXPECT_EQ(FitStations(3000.0027F, 1000).Stations, 3);
    EXPECT_EQ(FitStations(3000.0036F, 1000).Stations, 4);
}

TEST(FitStations, TakesWholeMultiplesExactly) {
    for (int n = 1; n <= 200; ++n) {
        EXPECT_EQ(FitStations(static_cast<float>(n) * 7, 7).Stations, n);
    }
}

TEST(FitStations, ReachesTheLargestIntegerAndNoFurther) {
    EXPECT_EQ(FitStations(32767, 1).Stations, 32767);
    const auto message = ExpectRunTimeError(ErrorKind::Overflow, [] { FitStations(32769, 1); });
    EXPECT_NE(message.find("32,767"), std::string::npos) << message;
}

TEST(TryFitStations, HasNoAnswerBeyondTheLargestInteger) {
    EXPECT_EQ(TryFitStations(32767, 1)->Stations, 32767);
    EXPECT_FALSE(TryFitStations(32769, 1));
    EXPECT_FALSE(TryFitStations(1, 0));
}

TEST(FitStations, NeverFitsWithoutAvailableTime) {
    ExpectRunTimeError(ErrorKind::Overflow, [] { FitStations(1, 0); });
    ExpectRunTimeError(ErrorKind::Overflow, [] { FitStations(1, -5); });
    ExpectRunTimeError(ErrorKind::Overflow, [] { FitStations(-1, -5); });
    ExpectRunTimeError(ErrorKind::Overflow, [] { FitStations(1e30F, 1e-30F); });
}

TEST(FitStations, TakesOneStationForNoWork) {
    EXPECT_EQ(FitStations(0, 0).Stations, 1);
    EXPECT_EQ(FitStations(0, 5).Stations, 1);
    EXPECT_EQ(FitStations(-5, -5).Stations, 1);
    EXPECT_EQ(FitStations(-5, 0).Stations, 1);
}

TEST(FitStations, AgreesWithTheLoopOnAwkwardValues) {
    const std::array<float, 16> values = {-1e10F,   -1,    -0.1F,    0,       1e-10F, 0.1F,
                                          1 / 3.0F, 0.7F,  1,        1.0001F, 3,      61.11111F,
                                          72,       32767, 32768.5F, 3e12F};
    for (const float work : values) {
        for (const float available : values) {
            EXPECT_TRUE(Fit(work, available) == OneByOne(work, available))
                << work << " in " << available;
        }
    }
}

/// Tasks in tenths of a second, all with one tool.
std::vector<MatrixEntry> TasksOf(const std::vector<int>& tenths) {
    std::vector<MatrixEntry> tasks;
    for (const int time : tenths) {
        tasks.push_back({time / 10.0, 1, 0});
    }
    return tasks;
}

RC_GTEST_PROP(FitStations, TakesStationsThatAreExactlyFullForFull, ()) {
    constexpr std::size_t most_tasks = 14;
    const auto tenths = *rc::gen::resize(
        static_cast<int>(most_tasks),
        rc::gen::nonEmpty(rc::gen::container<std::vector<int>>(rc::gen::inRange(1, 6000))));
    RC_PRE(tenths.size() <= most_tasks);
    const int stations = *rc::gen::inRange(1, 12);
    const double cycle_time = std::accumulate(tenths.begin(), tenths.end(), 0) / 10.0 / stations;
    Resource resource;
    resource.UpTime = 100;
    const float work = ContentOf(TasksOf(tenths), resource, 0).WorkTime;
    RC_ASSERT(FitStations(work, static_cast<float>(cycle_time)).Stations == stations);
    RC_ASSERT(FitStations(work, static_cast<float>(cycle_time * 0.99999)).Stations > stations);
}

RC_GTEST_PROP(FitStations, AgreesWithTheLoop, ()) {
    const auto mantissa = rc::gen::inRange(1, 1 << 24);
    const float work = PositiveSingle(*mantissa, *rc::gen::inRange(-30, 0));
    const float available = PositiveSingle(*mantissa, *rc::gen::inRange(-34, -4));
    RC_ASSERT(Fit(work, available) == OneByOne(work, available));
}

RC_GTEST_PROP(FitStations, AgreesWithTheLoopNextToWholeMultiples, ()) {
    const float available = PositiveSingle(*rc::gen::inRange(1, 1 << 24), -12);
    const int stations = *rc::gen::inRange(1, 32769);
    float work = available * static_cast<float>(stations);
    const int steps = *rc::gen::inRange(-2, 3);
    for (int step = 0; step < std::abs(steps); ++step) {
        work = std::nextafter(work, steps < 0 ? 0.0F : std::numeric_limits<float>::max());
    }
    RC_ASSERT(Fit(work, available) == OneByOne(work, available));
}

RC_GTEST_PROP(FitStations, AgreesWithTheLoopOnAnyFiniteValues, (float work, float available)) {
    RC_PRE(std::isnormal(work) || work == 0);
    RC_PRE(std::isnormal(available) || available == 0);
    RC_ASSERT(Fit(work, available) == OneByOne(work, available));
}

}  // namespace
}  // namespace quarnel02
