#include "line/CostModel.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <vector>

#include "line/CostTwin.h"
#include "line/FixedDemand.h"
#include "line/RandomLine.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;

/// Uptime 100 and multipliers 1, so that each test shows only what it sets.
Resource Plain() {
    Resource resource;
    resource.Number = 2;
    resource.ShortName = "Press";
    resource.UpTime = 100;
    resource.ICF = 1;
    resource.StatPerWrk = 1;
    return resource;
}

Production Year(double days, double chargeFactor, double laborCost, double transportTime) {
    Production production;
    production.Days = days;
    production.ACF = chargeFactor;
    production.LaborCost = laborCost;
    production.TransportTime = transportTime;
    return production;
}

TEST(Investment, BuysStationAndToolsForEveryParallelStation) {
    Resource resource = Plain();
    resource.FixedCost = 10000;
    resource.ICF = 1.5;
    EXPECT_EQ(Investment(3, 500, resource), 47250.0F);
}

TEST(MachineCost, MultipliesTheSharedTimeByTheUptimeAgain) {
    Resource resource = Plain();
    resource.VarCost = 36;
    resource.UpTime = 50;
    // 36 / 3600 x 1000 units x 20 s x 0.5
    EXPECT_DOUBLE_EQ(MachineCost(1000, 20, resource), 100);
}

TEST(LabourCost, PaysTheHoursOfAllStationsOverStationsPerWorker) {
    Resource resource = Plain();
    resource.StatPerWrk = 4;
    const Production production = Year(250, 0.25, 20, 0);
    // 3 stations x 16 h x 250 days x 20 / 4
    EXPECT_DOUBLE_EQ(LabourCost(3, 16, production, resource), 60000);
    resource.StatPerWrk = 0.5;
    EXPECT_DOUBLE_EQ(LabourCost(3, 16, production, resource), 480000);
}

TEST(LabourCost, NamesTheResourceWithoutStationsPerWorker) {
    Resource resource = Plain();
    resource.StatPerWrk = 0;
    const auto message = ExpectRunTimeError(
        ErrorKind::DivisionByZero, [&] { LabourCost(1, 8, Year(250, 1, 1, 0), resource); });
    EXPECT_EQ(message, "Resource 2 (Press): stations per worker is 0; it must be above 0.");
}

/// The shipped worked example: two tasks, one tool, one press.
class WorkedExample : public testing::Test {
  protected:
    WorkedExample() {
        m_press.FixedCost = 10000;
        m_press.VarCost = 20;
        m_press.UpTime = 90;
        m_press.ICF = 1.2;
        m_press.ToolChange = 10;
    }
    [[nodiscard]] PathwayCost CostAt(double demand, double cycleTime) const {
        const std::vector<MatrixEntry> entries = {{30, 1, 500}, {20, 1, 500}};
        const WorkContent content = ContentOf(entries, m_press, m_production.TransportTime);
        return CostOfGroup(content, m_press, m_production, {demand, 1, cycleTime});
    }

    Resource m_press = Plain();
    Production m_production = Year(250, 0.3, 15, 5);
};

TEST_F(WorkedExample, TakesOneStationForAHundredThousand) {
    // 250 days x 8 h x 3600 s / 100,000 = 72 s; work (30 + 20 + 5) / 0.9 = 61.111 s
    const PathwayCost cost = CostAt(100000, 72);
    EXPECT_EQ(cost.Stations, 1);
    EXPECT_NEAR(cost.Time, 61.111, 0.001);
    EXPECT_EQ(cost.Investment, 12600.0F);           // (500 + 10000) x 1.2
    EXPECT_NEAR(cost.AnnualLabor, 60555.55, 0.01);  // 30555.56 machine + 30000 labour
    EXPECT_NEAR(cost.Cost, 64335.55, 0.01);         // + 12600 x 0.3
    EXPECT_FALSE(cost.OverEveryLimit);
}

TEST_F(WorkedExample, TakesTwoForTwiceAsMany) {
    const PathwayCost cost = CostAt(200000, 36);
    EXPECT_EQ(cost.Stations, 2);
    EXPECT_NEAR(cost.Time, 30.556, 0.001);
    EXPECT_EQ(cost.Investment, 25200.0F);
    EXPECT_NEAR(cost.AnnualLabor, 90555.55, 0.01);  // the same machine cost, 60000 labour
    EXPECT_NEAR(cost.Cost, 98115.55, 0.01);
}

TEST_F(WorkedExample, IsOverEveryLimitWhereTheLargestNumberOfStationsIsNotEnough) {
    const PathwayCost most = CostAt(1, 61.112 / 32767);
    EXPECT_EQ(most.Stations, 32767);
    EXPECT_FALSE(most.OverEveryLimit);
    const PathwayCost beyond = CostAt(1, 61.111 / 32768);
    EXPECT_EQ(beyond.Stations, 32767);
    EXPECT_TRUE(beyond.OverEveryLimit);
    EXPECT_EQ(beyond.Time, most.Time);
    EXPECT_EQ(beyond.Cost, 0.0F);
    EXPECT_EQ(beyond.Investment, 0.0F);
}

TEST(CostOfGroup, OverflowsWhenTheHoursPerDayDo) {
    ExpectRunTimeError(ErrorKind::Overflow, [] {
        CostOfGroup({1, 0, 1}, Plain(), Year(1, 0, 0, 0), {1, 4096, 10});
    });
}

TEST(CostOfGroup, RoundsRunningCostsBeforeTheCapitalChargeIsAdded) {
    // Running costs of 16777217 are no single: 16777216 is stored, and 1 more stays lost.
    Resource resource = Plain();
    resource.FixedCost = 1;
    const PathwayCost cost =
        CostOfGroup({1, 0, 1}, resource, Year(1, 1, 16777217.0 / 8, 0), {0, 1, 10});
    EXPECT_EQ(cost.AnnualLabor, 16777216.0F);
    EXPECT_EQ(cost.Cost, 16777216.0F);
}

/// A figure with two decimals.
double Hundredths(int low, int high) {
    return test::Roll(low * 100, high * 100) / 100.0;
}

Resource AnyResource() {
    Resource resource;
    resource.FixedCost = Hundredths(0, 200000);
    resource.VarCost = Hundredths(0, 40);
    resource.UpTime = Hundredths(1, 100);
    resource.ICF = Hundredths(0, 3);
    resource.StatPerWrk = Hundredths(1, 8);
    return resource;
}

RC_GTEST_PROP(MachineCost, IsTheFormulaToTheLastBit, ()) {
    const Resource resource = AnyResource();
    const double units = Hundredths(1, 2000000);
    const auto time = static_cast<float>(Hundredths(1, 500));
    RC_ASSERT(MachineCost(units, time, resource) == (resource.VarCost / 3600) * units *
                                                        static_cast<double>(time) *
                                                        resource.UpTime * 0.01);
}

RC_GTEST_PROP(CostOfGroup, IsTheFormulaToTheLastBitAlsoWhereStationsAreJustFull, ()) {
    const Resource resource = AnyResource();
    const Production production = Year(Hundredths(1, 366), Hundredths(0, 1), Hundredths(0, 50), 0);
    const WorkContent content{static_cast<float>(Hundredths(1, 900)),
                              static_cast<float>(Hundredths(0, 90000)), 1};
    FixedDemandRequest request{
        Hundredths(1, 2000000), static_cast<std::int16_t>(test::Roll(1, 3)), {}};
    if (test::Roll(0, 3) > 0) {
        // So many stations are full to a millionth, give or take less than a single can tell.
        const double full = static_cast<double>(content.WorkTime) / test::Roll(1, 30);
        const double cycle = full / (1 + 1e-6) * (1 + test::Roll(-200, 200) * 1e-9);
        request.Volume = production.Days * request.Shifts * 8 * 3600 / cycle;
    }
    RC_ASSERT(CostOfGroup(content, resource, production, WorkloadOf(request, production)) ==
              test::CostTwin(content, resource, production, request));
}

}  // namespace
}  // namespace quarnel02
