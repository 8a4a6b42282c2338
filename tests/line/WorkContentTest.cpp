#include "line/WorkContent.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <span>
#include <vector>

#include "line/ContentTwin.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;

using Entries = std::vector<MatrixEntry>;

/// Uptime 100, so that each test shows only what it sets.
Resource WithToolChange(double seconds) {
    Resource resource;
    resource.Number = 3;
    resource.ShortName = "Robot";
    resource.UpTime = 100;
    resource.ToolChange = seconds;
    return resource;
}

float ToolCostOf(const Entries& entries) {
    return ContentOf(entries, WithToolChange(0), 0).ToolCostSum;
}

float TimeOf(const Entries& entries, const Resource& resource, double transportTime) {
    return ContentOf(entries, resource, transportTime).WorkTime;
}

TEST(WorkContent, PaysASharedToolOnceAtTheCostOfItsFirstTask) {
    EXPECT_EQ(ToolCostOf({{30, 1, 500}, {20, 1, 700}}), 500.0F);
    EXPECT_EQ(ToolCostOf({{1, 7, 3}, {1, 2, 80}, {1, 1, 500}, {1, 2, 9}, {1, 1, 9}}), 583.0F);
}

TEST(WorkContent, CountsDistinctTools) {
    EXPECT_EQ(ContentOf(Entries{{1, 4, 0}}, WithToolChange(0), 0).Tools, 1);
    EXPECT_EQ(ContentOf(Entries{{1, 4, 0}, {1, 2, 0}, {1, 4, 0}}, WithToolChange(0), 0).Tools, 2);
}

TEST(WorkContent, AddsToolCostsInTheOrderOfToolNumbers) {
    // Singles above 2^24 are even: 16777216 + 1 stays 16777216, twice; but 1 + 1 + 16777216 is two
    // more. Whatever the order of the tasks, the tools are added from the lowest number up.
    EXPECT_EQ(ToolCostOf({{1, 1, 16777216}, {1, 2, 1}, {1, 3, 1}}), 16777216.0F);
    EXPECT_EQ(ToolCostOf({{1, 3, 1}, {1, 2, 1}, {1, 1, 16777216}}), 16777216.0F);
    EXPECT_EQ(ToolCostOf({{1, 9, 16777216}, {1, 2, 1}, {1, 3, 1}}), 16777218.0F);
}

TEST(WorkContent, AddsTheTransportWithoutToolChange) {
    EXPECT_EQ(TimeOf({{30, 1, 0}, {20, 1, 0}}, WithToolChange(10), 5), 55.0F);
}

TEST(WorkContent, DividesTaskTimesAndTransportByTheUptimeButNotToolChanges) {
    Resource resource = WithToolChange(10);
    resource.UpTime = 50;
    // (30 + 20 + 10) / 0.5 + 2 changes of 10 + 5 / 0.5
    EXPECT_EQ(TimeOf({{30, 1, 0}, {20, 2, 0}, {10, 1, 0}}, resource, 5), 150.0F);
}

TEST(WorkContent, ReturnsToTheFirstToolWithinTheTransport) {
    // Tools 1, 2, 1: two changes, and the first tool is in place again at the end.
    EXPECT_EQ(TimeOf({{10, 1, 0}, {10, 2, 0}, {10, 1, 0}}, WithToolChange(8), 3),
              30.0F + 16.0F + 3.0F);
}

TEST(WorkContent, WaitsForTheLongerOfTransportAndToolChange) {
    const Entries entries = {{10, 1, 0}, {10, 2, 0}};
    EXPECT_EQ(TimeOf(entries, WithToolChange(8), 3), 20.0F + 8.0F + 8.0F);
    EXPECT_EQ(TimeOf(entries, WithToolChange(8), 9), 20.0F + 8.0F + 9.0F);
    EXPECT_EQ(TimeOf(entries, WithToolChange(8), 8), 20.0F + 8.0F + 8.0F);
}

TEST(WorkContent, DividesTheReturnToTheFirstToolByTheUptime) {
    Resource resource = WithToolChange(8);
    resource.UpTime = 50;
    EXPECT_EQ(TimeOf({{10, 1, 0}, {10, 2, 0}}, resource, 3), 40.0F + 8.0F + 16.0F);
}

TEST(WorkContent, RoundsEverySumToSingle) {
    EXPECT_EQ(TimeOf({{16777216, 1, 0}, {1, 1, 0}, {1, 1, 0}}, WithToolChange(0), 1), 16777216.0F);
}

TEST(WorkContent, NamesTheResourceWhoseUptimeIsZero) {
    Resource resource = WithToolChange(0);
    resource.UpTime = 0;
    const auto message =
        ExpectRunTimeError(ErrorKind::DivisionByZero, [&] { StationContent(resource, 0); });
    EXPECT_EQ(message, "Resource 3 (Robot): uptime is 0 %; it must be above 0 and at most 100.");
}

TEST(WorkContent, OverflowsBeyondASingle) {
    ExpectRunTimeError(ErrorKind::Overflow, [] { TimeOf({{1e39, 1, 0}}, WithToolChange(0), 0); });
    ExpectRunTimeError(ErrorKind::Overflow, [] { ToolCostOf({{1, 1, 3e38}, {1, 2, 3e38}}); });
}

TEST(StationContent, BeginsAnewWhenItIsCleared) {
    const Resource resource = WithToolChange(8);
    StationContent content(resource, 3);
    content.Add({10, 1, 500});
    content.Add({10, 2, 500});
    content.Clear();
    content.Add({20, 2, 40});
    EXPECT_EQ(content.Content(), (WorkContent{23, 40, 1}));
}

/// Few tools with costs that no sum of singles holds exactly, so that the order of adding shows.
Entries RandomEntries() {
    const int count = *rc::gen::inRange(1, 20);
    Entries entries;
    for (int task = 0; task < count; ++task) {
        entries.push_back({*rc::gen::inRange(1, 900) / 10.0, *rc::gen::inRange(-2, 9),
                           *rc::gen::inRange(0, 90000000) / 100.0});
    }
    return entries;
}

RC_GTEST_PROP(StationContent, IsAtEveryTaskWhatThePlannerAddsUp, ()) {
    const Entries entries = RandomEntries();
    Resource resource = WithToolChange(*rc::gen::inRange(0, 200) / 10.0);
    resource.UpTime = *rc::gen::inRange(1, 1001) / 10.0;
    const double transport = *rc::gen::inRange(0, 200) / 10.0;
    StationContent content(resource, transport);
    for (std::size_t tasks = 1; tasks <= entries.size(); ++tasks) {
        content.Add(entries[tasks - 1]);
        const std::span so_far(entries.data(), tasks);
        RC_ASSERT(content.Content() == test::ContentTwin(so_far, resource, transport));
        RC_ASSERT(content.Content() == ContentOf(so_far, resource, transport));
    }
}

}  // namespace
}  // namespace quarnel02
