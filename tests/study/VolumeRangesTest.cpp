// Ranges of volumes against the fixed design of every single volume.

#include "study/VolumeRanges.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "line/CheapestLine.h"
#include "line/RandomLine.h"
#include "study/AllLines.h"
#include "study/LargestVolume.h"
#include "study/LineText.h"
#include "study/VolumePieces.h"
#include "support/ModelScript.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::OneOf;
using test::ResourceRow;
using test::Roll;

/// So few days that some hundred units need other stations.
test::ModelScript RandomShortYear() {
    test::ModelScript parts = test::RandomModel(Roll(7, 10));
    parts.Days = OneOf({0.05, 0.1, 0.3});
    return parts;
}

VolumeSpan RandomSpan() {
    VolumeSpan span;
    span.From = Roll(1, 3) == 1 ? 1 : Roll(1, 500);
    span.To = span.From + Roll(0, 250);
    if (Roll(0, 1) == 1) {
        span.StationLimit = static_cast<std::int16_t>(Roll(0, 4));
    }
    return span;
}

/// Designs of all volumes of a span in so many shifts.
std::vector<std::optional<Line>> FixedDesigns(const PreparedLine& line, const VolumeSpan& span,
                                              int shifts) {
    std::vector<std::optional<Line>> designs;
    for (int volume = span.From; volume <= span.To; ++volume) {
        designs.push_back(CheapestLine(
            line,
            {static_cast<double>(volume), static_cast<std::int16_t>(shifts), span.StationLimit}));
    }
    return designs;
}

/// Some roundings of singles.
bool Same(float a, float b) {
    return std::fabs(a - b) <= 2e-6F * std::max(std::fabs(a), std::fabs(b));
}

std::vector<VolumeRange> RangesOf(const std::vector<VolumeRange>& ranges, int shifts) {
    std::vector<VolumeRange> some;
    std::copy_if(ranges.begin(), ranges.end(), std::back_inserter(some),
                 [&](const VolumeRange& each) { return each.Shifts == shifts; });
    return some;
}

/// Two lines cost the same up to 638 units, where the fixed design chooses between them by the
/// rounding of singles; the line from 639 on is dearer there by far more than that.
TEST(VolumeRanges, ALineOfEqualCostDoesNotEndTheRangeEarly) {
    test::ModelScript parts;
    parts.Tasks = 6;
    parts.Days = 0.05;
    parts.LaborCost = 15;
    parts.ACF = 0;
    parts.Resources = {{"A", 0, 0, 7.5, 100, 0, 0, 0.5},
                       {"B", 0, 0, 20, 90, 0, 7.7, 3},
                       {"C", 0, 0, 0, 100, 0, 0, 1}};
    parts.Matrix = {{1, 3, 5, 1, 0},    {1, 4, 5, 1, 0}, {2, 1, 5, 1, 0}, {2, 2, 5, 2, 0},
                    {3, 3, 11.8, 1, 0}, {3, 5, 5, 1, 0}, {3, 6, 5, 1, 0}};
    const PreparedLine line = Prepare(parts.Model());
    for (const VolumeRange& range : RangesOf(VolumeRanges(line, {455, 639, {}}), 3)) {
        for (int volume = range.From; volume <= range.To; ++volume) {
            const FixedDemandRequest request{static_cast<double>(volume), 3, {}};
            const auto cost = test::CostOf(line, request, range.Line);
            ASSERT_TRUE(cost.has_value());
            EXPECT_TRUE(Same(*cost, CheapestLine(line, request)->Cost)) << volume;
        }
    }
}

RC_GTEST_PROP(VolumeRangesOfRandomModels, HaveTheFixedDesignOfEveryVolume, ()) {
    const PreparedLine line = Prepare(RandomShortYear().Model());
    const VolumeSpan span = RandomSpan();
    const std::vector<VolumeRange> ranges = VolumeRanges(line, span);
    RC_CLASSIFY(ranges.size() > 6, "with changes");
    for (int shifts = 1; shifts <= 3; ++shifts) {
        const auto designs = FixedDesigns(line, span, shifts);
        int next = span.From;
        for (const VolumeRange& range : RangesOf(ranges, shifts)) {
            RC_ASSERT(range.From == next);
            RC_ASSERT(range.To >= range.From);
            next = range.To + 1;
            for (int volume = range.From; volume <= range.To; ++volume) {
                const auto& design = designs[static_cast<std::size_t>(volume - span.From)];
                RC_ASSERT(design.has_value());
                const auto cost =
                    test::CostOf(line,
                                 {static_cast<double>(volume), static_cast<std::int16_t>(shifts),
                                  span.StationLimit},
                                 range.Line);
                RC_ASSERT(cost.has_value());
                RC_ASSERT(GroupsOf(*design) == range.Line || Same(*cost, design->Cost));
            }
            RC_ASSERT(range.CostFrom ==
                      designs[static_cast<std::size_t>(range.From - span.From)]->Cost);
            RC_ASSERT(range.CostTo ==
                      designs[static_cast<std::size_t>(range.To - span.From)]->Cost);
        }
        for (int volume = next; volume <= span.To; ++volume) {
            RC_ASSERT(!designs[static_cast<std::size_t>(volume - span.From)].has_value());
        }
    }
}

RC_GTEST_PROP(VolumeRangesOfRandomModels, AreTheBestShiftsForAllOfTheirVolumesOrForNone, ()) {
    const PreparedLine line = Prepare(RandomShortYear().Model());
    const VolumeSpan span = RandomSpan();
    const std::vector<VolumeRange> ranges = VolumeRanges(line, span);
    std::vector<std::vector<std::optional<Line>>> designs;
    for (int shifts = 1; shifts <= 3; ++shifts) {
        designs.push_back(FixedDesigns(line, span, shifts));
    }
    for (const VolumeRange& range : ranges) {
        for (int volume = range.From; volume <= range.To; ++volume) {
            const auto place = static_cast<std::size_t>(volume - span.From);
            const float own = designs[static_cast<std::size_t>(range.Shifts) - 1][place]->Cost;
            for (const auto& others : designs) {
                const auto& other = others[place];
                const bool cheaper = other && other->Cost < own;
                const bool end = volume == range.From || volume == range.To;
                const bool told = cheaper && (end || !Same(other->Cost, own));
                RC_ASSERT(!(range.Best && told));
            }
            const bool beaten =
                std::any_of(designs.begin(), designs.end(), [&](const auto& others) {
                    return others[place] &&
                           (others[place]->Cost < own || Same(others[place]->Cost, own));
                });
            RC_ASSERT(range.Best || beaten);
        }
    }
    for (std::size_t next = 1; next < ranges.size(); ++next) {
        const VolumeRange& before = ranges[next - 1];
        const VolumeRange& after = ranges[next];
        RC_ASSERT(before.Shifts != after.Shifts || before.Line != after.Line ||
                  before.Best != after.Best);
    }
}

/// One task: 36 s on a bench of 100 $/year that costs 10 $/h, 3.6 s on a press of 1,000 $/year
/// without running cost. A year has 100 days; labour is free.
test::ModelScript BenchOrPressScript() {
    test::ModelScript model;
    model.Tasks = 1;
    model.Days = 100;
    model.ACF = 0.1;
    model.LaborCost = 0;
    model.Resources = {{"Bench", 0, 1000, 10}, {"Press", 1, 10000, 0}};
    model.Matrix = {{1, 1, 36, 1}, {2, 1, 3.6, 2}};
    return model;
}

LineModel BenchOrPress() {
    return BenchOrPressScript().Model();
}

TEST(VolumeRanges, ChangeTheLineWhereTheCostsCross) {
    // Bench: 100 $ and 0.1 $ per unit; press: 1,000 $. They meet at 9,000 units. One bench makes
    // 80,000 units per shift.
    const auto ranges = VolumeRanges(Prepare(BenchOrPress()), {1, 20000, {}});
    ASSERT_EQ(ranges.size(), 6U);
    EXPECT_EQ(ranges[0].From, 1);
    EXPECT_EQ(ranges[0].To, 9000);
    EXPECT_EQ(LineText(BenchOrPress(), ranges[0].Line), "Bench 1");
    EXPECT_FLOAT_EQ(ranges[0].CostFrom, 100.1F);
    EXPECT_FLOAT_EQ(ranges[0].CostTo, 1000);
    EXPECT_EQ(ranges[0].Investment, 1000);
    EXPECT_EQ(ranges[1].From, 9001);
    EXPECT_EQ(ranges[1].To, 20000);
    EXPECT_EQ(LineText(BenchOrPress(), ranges[1].Line), "Press 1");
    EXPECT_EQ(ranges[1].Investment, 10000);
    // Without labour all shifts cost the same.
    EXPECT_TRUE(
        std::all_of(ranges.begin(), ranges.end(), [](const auto& each) { return each.Best; }));
}

TEST(VolumeRanges, ChangeTheLineWhereTheFixedDesignDoes) {
    // Costs near 10,000,000 $ are singles of 1 $, and the lines differ by a cent per unit: for a
    // hundred units and more the fixed design chooses by the rounding.
    test::ModelScript model = BenchOrPressScript();
    model.Matrix[0].Entry.TaskTime = 3.6;
    for (const double more : {90.0, 93.1, 99.9, 100.3}) {
        model.Resources = {{"Bench", 0, 100000000, 10}, {"Press", 1, 100000000 + more, 9}};
        const PreparedLine line = Prepare(model.Model());
        const auto ranges = VolumeRanges(line, {1, 100000, {}});
        ASSERT_EQ(ranges.size(), 6U);
        const auto at_end = CheapestLine(line, {static_cast<double>(ranges[0].To), 1, {}});
        const auto behind = CheapestLine(line, {ranges[0].To + 1.0, 1, {}});
        EXPECT_EQ(GroupsOf(*at_end), ranges[0].Line);
        EXPECT_EQ(GroupsOf(*behind), ranges[1].Line);
        EXPECT_NE(ranges[0].Line, ranges[1].Line);
    }
}

TEST(VolumeRanges, EndWhereTheLimitForbidsEveryLine) {
    const auto ranges =
        VolumeRanges(Prepare(BenchOrPress()), {790000, 2500000, static_cast<std::int16_t>(1)});
    // A press makes 800,000 units per shift, and one more by the tolerance of full stations.
    ASSERT_EQ(ranges.size(), 3U);
    for (const VolumeRange& range : ranges) {
        EXPECT_EQ(range.Shifts, &range - ranges.data() + 1);
        EXPECT_EQ(range.From, 790000);
        EXPECT_NEAR(range.To, 800000.8 * range.Shifts, 2);
    }
}

TEST(VolumeRanges, RefuseASpanThatCannotBe) {
    const PreparedLine line = Prepare(BenchOrPress());
    for (const VolumeSpan& span :
         {VolumeSpan{0, 5, {}}, VolumeSpan{6, 5, {}}, VolumeSpan{1, kMostVolume + 1, {}}}) {
        const std::string message = test::ExpectRunTimeError(
            ErrorKind::Overflow, [&] { std::ignore = VolumeRanges(line, span); });
        EXPECT_EQ(message.find("Volumes from "), 0U) << message;
    }
}

TEST(VolumeRanges, RefuseASpanWithTooManyStations) {
    test::ModelScript model = BenchOrPressScript();
    model.Resources = {{"Bench", 0, 1, 1}};
    model.Matrix.clear();
    for (model.Tasks = 0; model.Tasks < 25;) {
        model.Matrix.push_back({1, ++model.Tasks, 300, 1});
    }
    const PreparedLine line = Prepare(model.Model());
    const std::string message = test::ExpectRunTimeError(ErrorKind::Overflow, [&] {
        std::ignore = VolumeRanges(line, {1, kMostVolume, {}});
    });
    EXPECT_EQ(message,
              "Volumes from 1 to 2,000,000,000: too many numbers of parallel stations come into "
              "question. Choose a smaller range or a station limit.");
    EXPECT_FALSE(VolumeRanges(line, {1, kMostVolume, std::int16_t{2}}).empty());
}

TEST(VolumeRanges, AreEmptyWithoutTasks) {
    EXPECT_TRUE(VolumeRanges(Prepare(LineModel()), {1, 10, {}}).empty());
}

TEST(OneType, LeavesTheResourcesOfThatType) {
    const auto manual = OfOneType(BenchOrPress(), 0);
    ASSERT_TRUE(manual.has_value());
    EXPECT_TRUE(manual->CanDo(1, 1));
    EXPECT_FALSE(manual->CanDo(2, 1));
    EXPECT_EQ(manual->ResourceOf(2).ShortName, "Press");
    EXPECT_FALSE(OfOneType(BenchOrPress(), 2).has_value());
    EXPECT_FALSE(OfOneType(*OfOneType(BenchOrPress(), 0), 1).has_value());
}

RC_GTEST_PROP(RangesByTypeOfRandomModels, AreThoseOfTheModelWithoutTheOthers, ()) {
    test::ModelScript parts = RandomShortYear();
    for (ResourceRow& resource : parts.Resources) {
        resource.Type = Roll(0, 3);
    }
    const LineModel model = parts.Model();
    const VolumeSpan span = RandomSpan();
    const auto all = RangesByType(model, span);
    int found = 0;
    for (int type = 0; type <= 3; ++type) {
        const auto alone = OfOneType(model, type);
        const auto ranges =
            alone ? VolumeRanges(Prepare(*alone), span) : std::vector<VolumeRange>();
        const auto entry = std::find_if(all.begin(), all.end(),
                                        [&](const TypeRanges& each) { return each.Type == type; });
        RC_ASSERT((entry == all.end()) == ranges.empty());
        if (entry != all.end()) {
            ++found;
            RC_ASSERT(std::equal(entry->Ranges.begin(), entry->Ranges.end(), ranges.begin(),
                                 ranges.end(), [](const VolumeRange& a, const VolumeRange& b) {
                                     return a.From == b.From && a.Line == b.Line &&
                                            a.CostFrom == b.CostFrom;
                                 }));
        }
    }
    RC_ASSERT(found == static_cast<int>(all.size()));
}

}  // namespace
}  // namespace quarnel02
