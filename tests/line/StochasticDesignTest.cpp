#include "line/StochasticDesign.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "line/StochasticModels.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::Oven;
using test::OvenModel;
using test::TasksTo;

TEST(StochasticDesign, TakesOneStationWhereTheShortfallIsCheaperThanAnotherOne) {
    // At 100,000 units 30,000 for a station and 60,000 units short at 0.25; at 200,000 60,000.
    const auto result = DesignForDemand(OvenModel(216), 0.25F);
    ASSERT_TRUE(result.Line);
    const StochasticLine& line = *result.Line;
    EXPECT_EQ(line.Capacity, 100000);
    EXPECT_EQ(line.ExpectedCost, 45000);
    EXPECT_EQ(line.ExpectedPenalty, 15000);
    EXPECT_EQ(line.FixedCosts, 30000);
    EXPECT_EQ(line.CycleTime, 216);
    EXPECT_EQ(line.MaximumCycleTime, 216);
    EXPECT_EQ(line.Groups, (std::vector<ExpectedGroup>{{{1, 1, 1, 1}, 216, 30000}}));
    EXPECT_EQ(result.ImpossibleTask, 0);
    EXPECT_TRUE(result.EarlyEnds.empty());
}

TEST(StochasticDesign, TakesTwoStationsWhereTheShortfallIsDearer) {
    const auto line = DesignForDemand(OvenModel(216), 1).Line;
    ASSERT_TRUE(line);
    EXPECT_EQ(line->Capacity, 200000);
    EXPECT_EQ(line->ExpectedCost, 60000);
    EXPECT_EQ(line->ExpectedPenalty, 0);
    EXPECT_EQ(line->Groups, (std::vector<ExpectedGroup>{{{1, 1, 1, 2}, 108, 60000}}));
}

TEST(StochasticDesign, TakesTheEarliestOfEqualVolumes) {
    // 30,000 for one station and 60,000 units short at 0.5, or 60,000 for two.
    EXPECT_EQ(DesignForDemand(OvenModel(216), 0.5F).Line.value().Capacity, 100000);
}

TEST(StochasticDesign, SaysWhatEveryDemandPointCosts) {
    // A worker costs 20,000 a year per shift; both points are worked in three shifts.
    const auto line = DesignForDemand(OvenModel(216, 10), 0.25F).Line;
    ASSERT_TRUE(line);
    ASSERT_EQ(line->Capacity, 100000);
    ASSERT_EQ(line->Outcomes.size(), 2U);
    EXPECT_EQ(line->Outcomes[0].Shifts, 3);
    EXPECT_EQ(line->Outcomes[0].TotalCost, 90000);
    EXPECT_EQ(line->Outcomes[0].Penalty, 0);
    EXPECT_EQ(line->Outcomes[1].Point.Volume, 200000);
    EXPECT_EQ(line->Outcomes[1].Shifts, 3);
    EXPECT_EQ(line->Outcomes[1].TotalCost, 90000 + 25000);
    EXPECT_EQ(line->Outcomes[1].Penalty, 25000);
    EXPECT_EQ(line->ExpectedCost, 105000);
}

/// Two tasks; a resource each, and a third one that can do both.
LineModel ThreeOvens(double fixedCostOfThird) {
    std::vector<Resource> ovens = {Oven(1), Oven(2), Oven(3)};
    ovens[2].FixedCost = fixedCostOfThird;
    const std::vector<MatrixRow> matrix = {{1, 1, {108, 1, 1000}},
                                           {2, 2, {54, 1, 1000}},
                                           {3, 1, {54, 1, 1000}},
                                           {3, 2, {54, 1, 1000}}};
    return {test::YearOfSeconds(0), ovens, TasksTo(2), matrix, test::kTwoVolumes};
}

TEST(StochasticDesign, TracesTheLineBackThroughTheGroupsBeforeItsLast) {
    const auto line = DesignForDemand(ThreeOvens(999000), 1).Line;
    ASSERT_TRUE(line);
    EXPECT_EQ(line->Capacity, 200000);
    EXPECT_EQ(line->ExpectedCost, 60000);
    EXPECT_EQ(line->CycleTime, 108);
    EXPECT_EQ(line->Groups,
              (std::vector<ExpectedGroup>{{{1, 1, 1, 1}, 108, 30000}, {{2, 2, 2, 1}, 54, 30000}}));
}

TEST(StochasticDesign, TakesOneGroupForAllTasksWhereThatIsCheaper) {
    const auto line = DesignForDemand(ThreeOvens(99000), 1).Line;
    ASSERT_TRUE(line);
    EXPECT_EQ(line->Groups, (std::vector<ExpectedGroup>{{{3, 1, 2, 1}, 108, 30000}}));
}

/// A line that costs nothing and one that costs 0.3 x so much a year.
LineModel FreeAndPaid(double price) {
    std::vector<Resource> ovens = {Oven(1), Oven(2), Oven(1)};
    ovens[0].FixedCost = 0;
    ovens[1].FixedCost = 0;
    ovens[2].Number = 3;
    ovens[2].FixedCost = price;
    const std::vector<MatrixRow> matrix = {
        {1, 1, {10, 1, 0}}, {2, 2, {10, 1, 0}}, {3, 1, {10, 1, 0}}, {3, 2, {10, 1, 0}}};
    return {test::YearOfSeconds(0), ovens, TasksTo(2), matrix, test::kTwoVolumes};
}

TEST(StochasticDesign, TakesACostOfZeroForTenThousandBetweenLinesOfAPrefix) {
    EXPECT_EQ(DesignForDemand(FreeAndPaid(30000), 0).Line.value().Groups.size(), 1U);
    EXPECT_EQ(DesignForDemand(FreeAndPaid(40000), 0).Line.value().Groups.size(), 2U);
}

TEST(StochasticDesign, TakesACostOfZeroForWhatItIsBetweenResources) {
    std::vector<Resource> ovens = {Oven(1), Oven(2)};
    ovens[0].FixedCost = 1000;
    ovens[1].FixedCost = 0;
    const std::vector<MatrixRow> matrix = {{1, 1, {10, 1, 0}}, {2, 1, {10, 1, 0}}};
    const LineModel model(test::YearOfSeconds(0), ovens, TasksTo(1), matrix, test::kTwoVolumes);
    EXPECT_EQ(DesignForDemand(model, 0).Line.value().Groups.front().Group.Resource, 2);
}

TEST(StochasticDesign, NamesTheFirstTaskThatNothingCanDo) {
    const std::vector<MatrixRow> matrix = {{1, 1, {10, 1, 0}}, {1, 3, {10, 1, 0}}};
    const LineModel model(test::YearOfSeconds(0), {Oven(1)}, TasksTo(3), matrix, test::kTwoVolumes);
    const auto result = DesignForDemand(model, 0);
    EXPECT_EQ(result.ImpossibleTask, 2);
    EXPECT_FALSE(result.Line);
    EXPECT_TRUE(result.ExpectedCosts.IsEmpty());
}

TEST(StochasticDesign, OfNoTasksIsNoLine) {
    const LineModel model(test::YearOfSeconds(0), {Oven(1)}, {}, {}, test::kTwoVolumes);
    const auto result = DesignForDemand(model, 0);
    EXPECT_FALSE(result.Line);
    EXPECT_EQ(result.ImpossibleTask, 0);
}

TEST(StochasticDesign, SaysWhichCurvesEndAtTooManyStations) {
    const auto result = DesignForDemand(OvenModel(216 * 1000.0), 0);
    EXPECT_EQ(result.EarlyEnds,
              (std::vector<EarlyEnd>{
                  {{CurveStage::Resource, 1, 1, 1}, CurveEnd::TooManyStations, 409500, false}}));
    EXPECT_TRUE(result.Line);
}

TEST(StochasticDesign, SaysWhichResourceHasNoCurve) {
    const auto result = DesignForDemand(OvenModel(216 * 5000.0), 0);
    EXPECT_EQ(result.EarlyEnds,
              (std::vector<EarlyEnd>{
                  {{CurveStage::Resource, 1, 1, 1}, CurveEnd::TooManyStations, 100000, true}}));
    EXPECT_EQ(result.ImpossibleTask, 1);
}

/// Three tasks with a resource each. Their stations serve 1,000, 1,003 and 1,007 units a year, so
/// that up to 3 x 1,300,000 units there are about 3 x 3,900 volumes that need one station more.
LineModel LongCurves() {
    std::vector<MatrixRow> matrix;
    int task = 0;
    for (const double served : {1000.0, 1003.0, 1007.0}) {
        ++task;
        matrix.push_back({task, task, {21600000 / served, 1, 100}});
    }
    return {test::YearOfSeconds(1),
            {Oven(1), Oven(2), Oven(3)},
            TasksTo(3),
            matrix,
            {{1000, 50}, {1300000, 50}}};
}

TEST(StochasticDesign, SaysWhichCurvesAreTooLong) {
    const auto result = DesignForDemand(LongCurves(), 0);
    ASSERT_EQ(result.EarlyEnds.size(), 1U);
    EXPECT_EQ(result.EarlyEnds[0].Curve, (CurveName{CurveStage::Candidate, 1, 3, 1}));
    EXPECT_EQ(result.EarlyEnds[0].Reason, CurveEnd::TooLong);
    EXPECT_EQ(result.ExpectedCosts.Segments().size(), kMostSegments);
    EXPECT_EQ(result.EarlyEnds[0].Volume, result.ExpectedCosts.End());
    EXPECT_LT(result.ExpectedCosts.End(), 3900000);
}

class RecordingListener : public CurveListener {
  public:
    void Begin(const CurveName& stage) override { Events.push_back({stage, -1}); }
    void Made(const CurveName& name, const CostCurve& curve) override {
        Events.push_back({name, static_cast<int>(curve.Segments().size())});
    }

    struct Event {
        CurveName Name;
        int Segments;  ///< -1 when its stage begins
        bool operator==(const Event&) const = default;
    };
    std::vector<Event> Events;
};

TEST(StochasticDesign, TellsItsCurvesInTheOrderOfTheirMaking) {
    RecordingListener listener;
    DesignForDemand(ThreeOvens(99000), 1, listener);
    using enum CurveStage;
    std::vector<CurveName> names;
    std::vector<CurveName> begun;
    for (const auto& event : listener.Events) {
        (event.Segments < 0 ? begun : names).push_back(event.Name);
    }
    EXPECT_EQ(names, (std::vector<CurveName>{{Resource, 1, 1, 1},
                                             {Resource, 1, 1, 3},
                                             {ArcMerge, 1, 1, 2},
                                             {Arc, 1, 1, 0},
                                             {Candidate, 1, 1, 1},
                                             {Prefix, 1, 1, 0},
                                             {Resource, 1, 2, 3},
                                             {Arc, 1, 2, 0},
                                             {Resource, 2, 2, 2},
                                             {Resource, 2, 2, 3},
                                             {ArcMerge, 2, 2, 2},
                                             {Arc, 2, 2, 0},
                                             {Candidate, 1, 2, 1},
                                             {Candidate, 1, 2, 2},
                                             {PrefixMerge, 1, 2, 2},
                                             {Prefix, 1, 2, 0},
                                             {WithPenalties, 1, 2, 0}}));
    EXPECT_EQ(begun, (std::vector<CurveName>{{Resource, 1, 1, 0},
                                             {Arc, 1, 1, 0},
                                             {Candidate, 1, 1, 0},
                                             {Prefix, 1, 1, 0},
                                             {Resource, 1, 2, 0},
                                             {Arc, 1, 2, 0},
                                             {Resource, 2, 2, 0},
                                             {Arc, 2, 2, 0},
                                             {Candidate, 1, 2, 0},
                                             {Prefix, 1, 2, 0},
                                             {WithPenalties, 1, 2, 0}}));
    EXPECT_EQ(listener.Events.front(), (RecordingListener::Event{{Resource, 1, 1, 0}, -1}));
    EXPECT_EQ(listener.Events[1], (RecordingListener::Event{{Resource, 1, 1, 1}, 3}));
}

TEST(StochasticDesign, RefusesANegativePenalty) {
    EXPECT_EQ(test::ExpectRunTimeError(ErrorKind::Overflow,
                                       [] { DesignForDemand(OvenModel(216), -1.5F); }),
              "Penalty ($/unit) is -1.5; it must be at least 0.");
}

TEST(StochasticDesign, TakesFourThousandAndNinetyFiveResources) {
    std::vector<Resource> ovens;
    for (int number = 1; number <= 4095; ++number) {
        ovens.push_back(Oven(number));
    }
    const auto model = [&] {
        const std::vector<MatrixRow> matrix = {{4095, 1, {216, 7, 1000}}};
        return LineModel(test::YearOfSeconds(0), ovens, TasksTo(1), matrix, test::kTwoVolumes);
    };
    EXPECT_EQ(DesignForDemand(model(), 1).Line.value().Groups.front().Group,
              (StationGroup{4095, 1, 1, 2}));
    ovens.push_back(Oven(4096));
    EXPECT_EQ(
        test::ExpectRunTimeError(ErrorKind::Overflow, [&] { DesignForDemand(model(), 1); }),
        "Number of resources is 4,096; the stochastic design takes at most 4,095 of them. Delete "
        "some in the resource editor.");
}

}  // namespace
}  // namespace quarnel02
