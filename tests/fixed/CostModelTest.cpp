#include "fixed/CostModel.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;

using Entries = std::vector<MatrixEntry>;

/// Uptime 100 and multipliers 1, so that each test shows only what it sets.
ResourceCosts Plain() {
    return {0, 0, 100, 1, 0, 1};
}

ResourceCosts WithToolChange(double seconds) {
    ResourceCosts resource = Plain();
    resource.ToolChange = seconds;
    return resource;
}

TEST(ToolCostSum, PaysASharedToolOnce) {
    const Entries entries = {{30, 1, 500}, {20, 1, 700}};
    EXPECT_EQ(ToolCostSum(entries), 500.0F);
}

TEST(ToolCostSum, PaysEachToolAtTheCostOfItsFirstTask) {
    const Entries entries = {{1, 1, 500}, {1, 1, 9}, {1, 2, 80}, {1, 2, 9}, {1, 7, 3}};
    EXPECT_EQ(ToolCostSum(entries), 583.0F);
}

TEST(ToolCostSum, RoundsEverySumToSingle) {
    // Singles above 2^24 are even: 16777216 + 1 stays, twice; 16777216 + 2 in one go would not.
    const Entries entries = {{1, 1, 16777216}, {1, 2, 1}, {1, 3, 1}};
    EXPECT_EQ(ToolCostSum(entries), 16777216.0F);
}

TEST(WorkTime, AddsTheTransportWithoutToolChange) {
    const Entries entries = {{30, 1, 0}, {20, 1, 0}};
    EXPECT_EQ(WorkTime(entries, WithToolChange(10), 5), 55.0F);
}

TEST(WorkTime, DividesTaskTimesAndTransportByTheUptimeButNotToolChanges) {
    ResourceCosts resource = WithToolChange(10);
    resource.UpTime = 50;
    const Entries entries = {{30, 1, 0}, {20, 2, 0}, {10, 1, 0}};
    // (30 + 20 + 10) / 0.5 + 2 changes of 10 + 5 / 0.5
    EXPECT_EQ(WorkTime(entries, resource, 5), 150.0F);
}

TEST(WorkTime, ReturnsToTheFirstToolWithinTheTransport) {
    // Tools 1, 2, 1: two changes, and the first tool is in place again at the end.
    const Entries entries = {{10, 1, 0}, {10, 2, 0}, {10, 1, 0}};
    EXPECT_EQ(WorkTime(entries, WithToolChange(8), 3), 30.0F + 16.0F + 3.0F);
}

TEST(WorkTime, WaitsForTheLongerOfTransportAndToolChange) {
    const Entries entries = {{10, 1, 0}, {10, 2, 0}};
    EXPECT_EQ(WorkTime(entries, WithToolChange(8), 3), 20.0F + 8.0F + 8.0F);
    EXPECT_EQ(WorkTime(entries, WithToolChange(8), 9), 20.0F + 8.0F + 9.0F);
    EXPECT_EQ(WorkTime(entries, WithToolChange(8), 8), 20.0F + 8.0F + 8.0F);
}

TEST(WorkTime, DividesTheReturnToTheFirstToolByTheUptime) {
    ResourceCosts resource = WithToolChange(8);
    resource.UpTime = 50;
    const Entries entries = {{10, 1, 0}, {10, 2, 0}};
    EXPECT_EQ(WorkTime(entries, resource, 3), 40.0F + 8.0F + 16.0F);
}

TEST(WorkTime, RoundsEverySumToSingle) {
    const Entries entries = {{16777216, 1, 0}, {1, 1, 0}, {1, 1, 0}};
    EXPECT_EQ(WorkTime(entries, Plain(), 1), 16777216.0F);
}

TEST(WorkTime, RefusesAnUptimeOfZero) {
    ResourceCosts resource = Plain();
    resource.UpTime = 0;
    const Entries entries = {{10, 1, 0}};
    const auto message =
        ExpectRunTimeError(ErrorKind::DivisionByZero, [&] { WorkTime(entries, resource, 0); });
    EXPECT_NE(message.find("an uptime of 0 %"), std::string::npos) << message;
}

TEST(Investment, BuysStationAndToolsForEveryParallelStation) {
    ResourceCosts resource = Plain();
    resource.FixedCost = 10000;
    resource.ICF = 1.5;
    EXPECT_EQ(Investment(3, 500, resource), 47250.0F);
}

TEST(MachineCost, MultipliesTheSharedTimeByTheUptimeAgain) {
    ResourceCosts resource = Plain();
    resource.VarCost = 36;
    resource.UpTime = 50;
    // 36 / 3600 x 1000 units x 20 s x 0.5
    EXPECT_DOUBLE_EQ(MachineCost(1000, 20, resource), 100);
}

TEST(LabourCost, PaysTheHoursOfAllStationsOverStationsPerWorker) {
    ResourceCosts resource = Plain();
    resource.StatPerWrk = 4;
    const Production production{250, 0.25, 20, 0};
    // 3 stations x 16 h x 250 days x 20 / 4
    EXPECT_DOUBLE_EQ(LabourCost(3, 16, production, resource), 60000);
    resource.StatPerWrk = 0.5;
    EXPECT_DOUBLE_EQ(LabourCost(3, 16, production, resource), 480000);
}

TEST(LabourCost, RefusesZeroStationsPerWorker) {
    ResourceCosts resource = Plain();
    resource.StatPerWrk = 0;
    const auto message = ExpectRunTimeError(ErrorKind::DivisionByZero, [&] {
        LabourCost(1, 8, Production{250, 1, 1, 0}, resource);
    });
    EXPECT_NE(message.find("0 stations per worker"), std::string::npos) << message;
}

TEST(CostOfPathway, CostsTheWorkedExample) {
    const Entries entries = {{30, 1, 500}, {20, 1, 500}};
    const ResourceCosts resource{10000, 20, 90, 1.2, 10, 1};
    const Production production{250, 0.3, 15, 5};
    const PathwayCost one = CostOfPathway(entries, entries, resource, production, {100000, 1, 72});
    EXPECT_EQ(one.Stations, 1);
    EXPECT_NEAR(one.Time, 55 / 0.9, 1e-5);
    EXPECT_FLOAT_EQ(one.Investment, 12600);
    EXPECT_NEAR(one.AnnualLabor, 60555.55, 0.01);
    EXPECT_NEAR(one.Cost, 64335.55, 0.01);
    const PathwayCost two = CostOfPathway(entries, entries, resource, production, {200000, 1, 36});
    EXPECT_EQ(two.Stations, 2);
    EXPECT_NEAR(two.Time, 55 / 0.9 / 2, 1e-5);
    EXPECT_FLOAT_EQ(two.Investment, 25200);
    EXPECT_NEAR(two.AnnualLabor, 90555.55, 0.01);
    EXPECT_NEAR(two.Cost, 98115.55, 0.01);
}

TEST(CostOfPathway, RoundsTheAvailableTimeToSingleBeforeComparing) {
    // 0.1 is no single: the nearest one is larger than 0.1, so work of exactly that single fits.
    const float tenth = 0.1F;
    ASSERT_GT(static_cast<double>(tenth), 0.1);
    const Entries entries = {{static_cast<double>(tenth), 1, 0}};
    const PathwayCost cost =
        CostOfPathway(entries, entries, Plain(), Production{1, 0, 0, 0}, {1, 1, 0.1});
    EXPECT_EQ(cost.Stations, 1);
}

TEST(CostOfPathway, PutsAPathwayBeyondTheLargestIntegerOverEveryLimit) {
    const Entries entries = {{32768, 1, 5}};
    const ResourceCosts dear{1e38, 1e38, 100, 1e38, 0, 1};
    const Production production{250, 0.3, 15, 0};
    const PathwayCost cost = CostOfPathway(entries, entries, dear, production, {1000, 1, 0.5});
    EXPECT_TRUE(cost.OverEveryLimit);
    EXPECT_EQ(cost.Stations, 32767);
    EXPECT_EQ(cost.Time, static_cast<float>(32768.0 / 32767));
    EXPECT_EQ(cost.Investment, 0);
    EXPECT_EQ(cost.AnnualLabor, 0);
    EXPECT_EQ(cost.Cost, 0);
    EXPECT_FALSE(CostOfPathway(entries, entries, Plain(), production, {1000, 1, 2}).OverEveryLimit);
}

TEST(CostOfPathway, OverflowsWhenTheHoursPerDayDo) {
    const Entries entries = {{1, 1, 0}};
    ExpectRunTimeError(ErrorKind::Overflow, [&] {
        CostOfPathway(entries, entries, Plain(), Production{1, 0, 0, 0}, {1, 4096, 10});
    });
}

}  // namespace
}  // namespace quarnel02
