#include "line/StochasticDesign.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "support/RunTimeErrors.h"
#include "support/StochModels.h"

namespace quarnel02 {
namespace {

using test::OvenModel;
using test::OvensModel;

TEST(StochasticDesign, TakesOneStationWhereTheShortfallIsCheaperThanAnotherOne) {
    // At 100,000 units 30,000 for a station and 60,000 units short at 0.25; at 200,000 60,000.
    const auto result = DesignForDemand(OvenModel(216).Model(), 0.25F);
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
    const auto line = DesignForDemand(OvenModel(216).Model(), 1).Line;
    ASSERT_TRUE(line);
    EXPECT_EQ(line->Capacity, 200000);
    EXPECT_EQ(line->ExpectedCost, 60000);
    EXPECT_EQ(line->ExpectedPenalty, 0);
    EXPECT_EQ(line->Groups, (std::vector<ExpectedGroup>{{{1, 1, 1, 2}, 108, 60000}}));
}

TEST(StochasticDesign, TakesTheEarliestOfEqualVolumes) {
    // 30,000 for one station and 60,000 units short at 0.5, or 60,000 for two.
    EXPECT_EQ(DesignForDemand(OvenModel(216).Model(), 0.5F).Line.value().Capacity, 100000);
}

TEST(StochasticDesign, SaysWhatEveryDemandPointCosts) {
    // A worker costs 20,000 a year per shift; both points are worked in three shifts.
    test::ModelScript paid = OvenModel(216);
    paid.LaborCost = 10;
    const auto line = DesignForDemand(paid.Model(), 0.25F).Line;
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
    test::ModelScript model = OvensModel(2, 3);
    model.Resources[2].FixedCost = fixedCostOfThird;
    model.Matrix = {
        {1, 1, 108, 1, 1000}, {2, 2, 54, 1, 1000}, {3, 1, 54, 1, 1000}, {3, 2, 54, 1, 1000}};
    return model.Model();
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
    test::ModelScript model = OvensModel(2, 3);
    model.Resources[0].FixedCost = 0;
    model.Resources[1].FixedCost = 0;
    model.Resources[2].FixedCost = price;
    model.Matrix = {{1, 1, 10, 1}, {2, 2, 10, 1}, {3, 1, 10, 1}, {3, 2, 10, 1}};
    return model.Model();
}

TEST(StochasticDesign, TakesACostOfZeroForTenThousandBetweenLinesOfAPrefix) {
    EXPECT_EQ(DesignForDemand(FreeAndPaid(30000), 0).Line.value().Groups.size(), 1U);
    EXPECT_EQ(DesignForDemand(FreeAndPaid(40000), 0).Line.value().Groups.size(), 2U);
}

TEST(StochasticDesign, TakesACostOfZeroForWhatItIsBetweenResources) {
    test::ModelScript model = OvensModel(1, 2);
    model.Resources[0].FixedCost = 1000;
    model.Resources[1].FixedCost = 0;
    model.Matrix = {{1, 1, 10, 1}, {2, 1, 10, 1}};
    EXPECT_EQ(DesignForDemand(model.Model(), 0).Line.value().Groups.front().Group.Resource, 2);
}

TEST(StochasticDesign, NamesTheFirstTaskThatNothingCanDo) {
    test::ModelScript model = OvensModel(3, 1);
    model.Matrix = {{1, 1, 10, 1}, {1, 3, 10, 1}};
    const auto result = DesignForDemand(model.Model(), 0);
    EXPECT_EQ(result.ImpossibleTask, 2);
    EXPECT_FALSE(result.Line);
    EXPECT_TRUE(result.ExpectedCosts.IsEmpty());
}

TEST(StochasticDesign, OfNoTasksIsNoLine) {
    const auto result = DesignForDemand(OvensModel(0, 1).Model(), 0);
    EXPECT_FALSE(result.Line);
    EXPECT_EQ(result.ImpossibleTask, 0);
}

TEST(StochasticDesign, SaysWhichCurvesEndAtTooManyStations) {
    const auto result = DesignForDemand(OvenModel(216 * 1000.0).Model(), 0);
    EXPECT_EQ(result.EarlyEnds,
              (std::vector<EarlyEnd>{
                  {{CurveStage::Resource, 1, 1, 1}, CurveEnd::TooManyStations, 409500, false}}));
    EXPECT_TRUE(result.Line);
}

TEST(StochasticDesign, SaysWhichResourceHasNoCurve) {
    const auto result = DesignForDemand(OvenModel(216 * 5000.0).Model(), 0);
    EXPECT_EQ(result.EarlyEnds,
              (std::vector<EarlyEnd>{
                  {{CurveStage::Resource, 1, 1, 1}, CurveEnd::TooManyStations, 100000, true}}));
    EXPECT_EQ(result.ImpossibleTask, 1);
}

TEST(StochasticDesign, SaysWhichCurvesAreTooLong) {
    const auto result = DesignForDemand(test::LongTableModel().Model(), 0);
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
                                       [] { DesignForDemand(OvenModel(216).Model(), -1.5F); }),
              "Penalty ($/unit) is -1.5; it must be at least 0.");
}

TEST(StochasticDesign, TakesFourThousandAndNinetyFiveResources) {
    test::ModelScript model = OvensModel(1, 4095);
    model.Matrix = {{4095, 1, 216, 7, 1000}};
    EXPECT_EQ(DesignForDemand(model.Model(), 1).Line.value().Groups.front().Group,
              (StationGroup{4095, 1, 1, 2}));
    model.Resources.emplace_back();
    EXPECT_EQ(
        test::ExpectRunTimeError(ErrorKind::Overflow, [&] { DesignForDemand(model.Model(), 1); }),
        "Number of resources is 4,096; the stochastic design takes at most 4,095 of them. Delete "
        "some in the resource editor.");
}

}  // namespace
}  // namespace quarnel02
