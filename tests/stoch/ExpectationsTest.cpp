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
