// Expected production and expected shifts over capacity, as the demand and shift stages write
// them and as the other stages read them.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "stoch/ExpectedProduction.h"
#include "stoch/ExpectedShifts.h"
#include "stoch/RecordFile.h"
#include "support/RunTimeErrors.h"
#include "support/StochBruteForce.h"
#include "support/StochDesk.h"
#include "support/StochModels.h"

namespace quarnel02 {
namespace {

using test::StochDesk;

using Rows = std::vector<std::vector<float>>;

/// The stages' tables for a distribution.
struct Distribution {
    explicit Distribution(std::vector<std::pair<double, double>> points)
        : Desk(ModelOf(std::move(points))) {
        Desk.BuildDemandTables();
    }

    static test::ModelScript ModelOf(std::vector<std::pair<double, double>> points) {
        test::ModelScript model = test::StagesModel();
        model.Demand = std::move(points);
        return model;
    }
    [[nodiscard]] Rows Production() const {
        Rows rows;
        RecordReader<ExpectedProductionRecord> file(Desk.Run.Files.ExpectedProduction());
        for (ExpectedProductionRecord each; file.Read(each);) {
            rows.push_back({each.VolLow, each.VolHigh, each.EProdLow, each.EProdHigh});
        }
        return rows;
    }
    [[nodiscard]] Rows Shifts() const {
        Rows rows;
        const ExpectedShifts shifts(Desk.Run.Files);
        for (const ExpectedShiftRecord& each : shifts.Steps()) {
            rows.push_back({each.VolLow, each.VolHigh, each.Shifts});
        }
        return rows;
    }

    StochDesk Desk;
};

TEST(ExpectedProduction, TakesProbabilitiesAsTheyStand) {
    // 0.8 x 100 = 80, 0.5 x 100 + 0.2 x 200 + 0.1 x 200 = 110, 0.5 x 100 + 0.2 x 200 + 0.1 x 400
    // = 130
    const Distribution demand({{200, 20}, {400, 10}, {100, 50}});
    EXPECT_EQ(demand.Production(),
              (Rows{{100, 200, 80, 110}, {200, 400, 110, 130}, {400, -1, 130, 130}}));
    EXPECT_EQ(demand.Desk.Run.LastVolume, 1200);
}

TEST(ExpectedProduction, IsStraightBetweenPointsAndFlatBeyond) {
    const Distribution demand({{100, 50}, {200, 20}, {400, 10}});
    const ExpectedProduction production(demand.Desk.Run.Files);
    for (const auto& [capacity, expected] :
         {std::pair(100.0F, 80.0), std::pair(150.0F, 95.0), std::pair(200.0F, 110.0),
          std::pair(300.0F, 120.0), std::pair(400.0F, 130.0), std::pair(1200.0F, 130.0)}) {
        EXPECT_DOUBLE_EQ(production.At(capacity), expected) << capacity;
    }
    EXPECT_DOUBLE_EQ(production.ShortfallAt(100), 50);
    EXPECT_DOUBLE_EQ(production.ShortfallAt(300), 10);
    EXPECT_EQ(production.ShortfallAt(400), 0);
    EXPECT_EQ(production.LineEnd(100), 200);
    EXPECT_EQ(production.LineEnd(200), 200);
    EXPECT_EQ(production.LineEnd(201), 400);
    EXPECT_EQ(production.LineEnd(401), kNoUpperEnd);
}

TEST(ExpectedProduction, BeginsWithTheLowestVolumeOfACompleteDistribution) {
    // Singles of 14.3 and 14.2 add up to 100.0000009, their shares of 12,345.678 to a little more.
    const std::vector<double> probabilities = {14.2, 14.3, 14.3, 14.3, 14.3, 14.3, 14.3};
    std::vector<std::pair<double, double>> points;
    for (const double probability : probabilities) {
        points.emplace_back(12345.678 + 1000.0 * static_cast<double>(points.size()), probability);
    }
    EXPECT_EQ(Distribution(points).Production().front()[2], 12345.678F);
    EXPECT_EQ(Distribution({{12345.678, 33.33333}, {20000, 66.66666}}).Production().front()[2],
              12345.678F);
}

TEST(ExpectedProduction, LeavesNoNegativeShortfall) {
    test::Dice dice(5);
    for (int round = 0; round < 80; ++round) {
        std::vector<std::pair<double, double>> points;
        const int count = dice(2, 10);
        const double volume = dice(1, 3000000) / 7.0;
        for (int point = 0; point < count; ++point) {
            const double percent =
                dice.OneIn(2) ? dice(0, 400) / 10.0 : 100.0 / count - dice(0, 4) / 1000.0 / count;
            points.emplace_back(volume + dice(0, dice.OneIn(2) ? 1 : 100000), percent);
        }
        const Distribution demand(points);
        const ExpectedProduction production(demand.Desk.Run.Files);
        float before = 0;
        for (const auto& row : demand.Production()) {
            EXPECT_GE(row[2], before) << "round " << round;
            EXPECT_GE(row[3], row[2]) << "round " << round;
            before = row[3];
        }
        const float last = demand.Desk.Run.Volume.at(static_cast<std::size_t>(count));
        for (int step = 0; step <= 50; ++step) {
            const float first = demand.Desk.Run.FirstVolume;
            EXPECT_GE(
                production.ShortfallAt(first + (last - first) * static_cast<float>(step) / 50), 0);
        }
    }
}

TEST(ExpectedProduction, OfEqualVolumes) {
    const Distribution demand({{100, 50}, {100, 20}, {200, 30}});
    // 0.5 x 100 + 0.2 x 100 + 0.3 x 100 = 100, 0.3 x 100 more at 200
    EXPECT_EQ(demand.Production(),
              (Rows{{100, 100, 100, 100}, {100, 200, 100, 130}, {200, -1, 130, 130}}));
    EXPECT_DOUBLE_EQ(ExpectedProduction(demand.Desk.Run.Files).At(100), 100);
    EXPECT_DOUBLE_EQ(ExpectedProduction(demand.Desk.Run.Files).At(150), 115);
}

TEST(ExpectedProduction, OfAVolumeOfZero) {
    const Distribution demand({{0, 20}, {100, 80}});
    EXPECT_EQ(demand.Production(), (Rows{{0, 100, 0, 80}, {100, -1, 80, 80}}));
    EXPECT_EQ(demand.Desk.Run.FirstVolume, 100);
    EXPECT_EQ(demand.Desk.Run.LastVolume, 300);
}

TEST(ExpectedProduction, OfAFileCutShortIsAnError) {
    const Distribution demand({{100, 50}, {200, 50}});
    std::filesystem::resize_file(demand.Desk.Run.Files.ExpectedProduction(), 16);
    const std::string message = test::ExpectRunTimeError(
        ErrorKind::FileAccess, [&] { const ExpectedProduction production(demand.Desk.Run.Files); });
    EXPECT_NE(message.find("EProd"), std::string::npos) << message;
}

TEST(ExpectedShifts, StepDownAtOneAndAHalfAndThreeTimesAVolume) {
    // steps at 150, 300 for 100 and 300, 600 for 200
    const Distribution demand({{100, 25}, {200, 75}});
    EXPECT_EQ(demand.Shifts(),
              (Rows{{100, 150, 3}, {150, 300, 2.75F}, {300, 600, 1.75F}, {600, -1, 1}}));
    const ExpectedShifts shifts(demand.Desk.Run.Files);
    EXPECT_EQ(shifts.StepEnd(100), std::nextafter(150.0F, 0.0F));
    EXPECT_EQ(shifts.At(std::nextafter(150.0F, 0.0F)), 3);
    EXPECT_EQ(shifts.At(150), 2.75);
    EXPECT_EQ(shifts.At(600), 1);
    EXPECT_EQ(shifts.StepEnd(600), kNoUpperEnd);
}

TEST(ExpectedShifts, OfEqualVolumesStepTogether) {
    EXPECT_EQ(Distribution({{100, 50}, {100, 50}}).Shifts(),
              (Rows{{100, 150, 3}, {150, 300, 2}, {300, -1, 1}}));
}

TEST(ExpectedShifts, OfAVolumeOfZeroIsAlwaysOne) {
    // 0.25 x 1 + 0.75 x 3
    EXPECT_EQ(Distribution({{0, 25}, {100, 75}}).Shifts(),
              (Rows{{100, 150, 2.5F}, {150, 300, 1.75F}, {300, -1, 1}}));
}

TEST(ExpectedShifts, CountDoneStepsBeforeTheFirstVolume) {
    const Distribution demand({{0, 50}, {0, 25}, {100, 25}});
    // 0.75 x 1 + 0.25 x 3
    EXPECT_EQ(demand.Shifts().front(), (std::vector<float>{100, 150, 1.5F}));
}

/// 1.5 and 3 times a single are doubles without rounding.
TEST(ShiftsAt, ComparesWithOneAndAHalfAndThreeTimesAnyVolume) {
    test::Dice dice(9);
    for (int round = 0; round < 60; ++round) {
        const auto volume = static_cast<float>(dice(1, 2000000000) / 977.0);
        const Distribution demand({{static_cast<double>(volume), 100}, {3e9, 0}});
        const ExpectedShifts shifts(demand.Desk.Run.Files);
        for (const double factor : {1.5, 3.0}) {
            const double exact = factor * static_cast<double>(volume);
            auto least = static_cast<float>(exact);
            least = static_cast<double>(least) < exact ? std::nextafter(least, 1e30F) : least;
            const int from = factor == 3 ? 1 : 2;
            EXPECT_EQ(ShiftsAt(volume, least), from) << volume;
            EXPECT_EQ(ShiftsAt(volume, std::nextafter(least, 0.0F)), from + 1) << volume;
            EXPECT_EQ(shifts.At(least), from) << volume;
            EXPECT_EQ(shifts.At(std::nextafter(least, 0.0F)), from + 1) << volume;
        }
    }
}

TEST(ShiftsAt, CountsTheShiftsThatADemandNeeds) {
    EXPECT_EQ(ShiftsAt(100, 300), 1);
    EXPECT_EQ(ShiftsAt(100, std::nextafter(300.0F, 0.0F)), 2);
    EXPECT_EQ(ShiftsAt(100, 150), 2);
    EXPECT_EQ(ShiftsAt(100, std::nextafter(150.0F, 0.0F)), 3);
    EXPECT_EQ(ShiftsAt(100, 50), 3);
    EXPECT_EQ(ShiftsAt(0, 1), 1);
}

}  // namespace
}  // namespace quarnel02
