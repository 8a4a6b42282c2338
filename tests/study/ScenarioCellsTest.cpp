#include "study/ScenarioCells.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "study/ScenarioNames.h"
#include "support/ModelScript.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using ::testing::StartsWith;

LineModel Model() {
    test::ModelScript model;
    model.Tasks = 1;
    for (const char* name : {"Bench", "Press"}) {
        model.Resources.push_back({name, 0, 1000, 10});
    }
    return model.Model();
}

const Difference kDemand{ScenarioTarget::Demand, {}, false, {}};
const Difference kShifts{ScenarioTarget::Shifts, {}, false, {}};
const Difference kLimit{ScenarioTarget::StationLimit, {}, false, {}};
const Difference kPressUpTime{ScenarioTarget::Figure, {FigureKind::UpTime, 2}, false, {}};
const Difference kPressTimes{ScenarioTarget::Figure, {FigureKind::TaskTimes, 2}, false, {}};

/// What comes back when a text is typed; "" for no difference.
std::string Retyped(const Difference& target, const std::string& text) {
    const auto difference = DifferenceOfCell(Model(), target, text);
    EXPECT_TRUE(!difference || SameTarget(*difference, target));
    return difference ? CellText(*difference) : "";
}

std::string ErrorOf(const Difference& target, const std::string& text) {
    return test::ExpectRunTimeError(ErrorKind::TypeMismatch,
                                    [&] { DifferenceOfCell(Model(), target, text); });
}

TEST(ScenarioCells, HaveARowForEveryFigure) {
    const LineModel model = Model();
    const auto rows = PossibleDifferences(model);
    ASSERT_EQ(rows.size(), 3U + 5 + 2 * 7);
    EXPECT_EQ(DifferenceName(model, rows[0]), "Annual demand");
    EXPECT_EQ(DifferenceName(model, rows[1]), "Shifts per day");
    EXPECT_EQ(DifferenceName(model, rows[2]), "Station limit");
    EXPECT_EQ(DifferenceName(model, rows[7]), "Penalty");
    EXPECT_EQ(DifferenceName(model, rows.back()), "Press: task times");
}

TEST(ScenarioCells, ShowTheBase) {
    const DesignOrder fixed{Model(), FixedDemandRequest{60000, 2, std::int16_t{3}}};
    EXPECT_EQ(BaseText(fixed, kDemand), "60,000");
    EXPECT_EQ(BaseText(fixed, kShifts), "2");
    EXPECT_EQ(BaseText(fixed, kLimit), "3");
    EXPECT_EQ(BaseText(fixed, kPressUpTime), "100");
    EXPECT_EQ(BaseText(fixed, kPressTimes), "100%");
    EXPECT_EQ(BaseText({Model(), FixedDemandRequest{1, 1, {}}}, kLimit), "none");
    EXPECT_EQ(BaseText({Model(), {}}, kDemand), "--");
}

TEST(ScenarioCells, TakeValuesAndShares) {
    EXPECT_EQ(Retyped(kDemand, " 80,000 "), "80000");
    EXPECT_EQ(Retyped(kDemand, "+ 2.5 %"), "+2.5%");
    EXPECT_EQ(Retyped(kPressTimes, "-5%"), "-5%");
    EXPECT_EQ(Retyped(kLimit, "NONE"), "none");
    EXPECT_EQ(Retyped(kShifts, "3"), "3");
    EXPECT_EQ(Retyped(kPressUpTime, " "), "");
}

TEST(ScenarioCells, RefuseByTheNameOfTheFigure) {
    EXPECT_EQ(ErrorOf(kPressUpTime, "120"), "Press: uptime: it must be above 0 and at most 100.");
    EXPECT_EQ(ErrorOf(kPressUpTime, "high"), "Press: uptime: \"high\" is no number.");
    EXPECT_EQ(ErrorOf(kShifts, "+10%"), "Shifts per day: it takes no share. Write the new value.");
    EXPECT_THAT(ErrorOf(kShifts, "4"), StartsWith("Shifts per day: it must be a whole number"));
    EXPECT_THAT(ErrorOf(kPressTimes, "12"), StartsWith("Press: task times: task times change by"));
    EXPECT_THAT(ErrorOf(kDemand, "+5"), StartsWith("Annual demand: write the change as a share"));
}

TEST(ScenarioCells, ReplaceTheDifferenceOfTheirFigureOnly) {
    const Difference more{ScenarioTarget::Demand, {}, true, 10.0};
    const Difference limit{ScenarioTarget::StationLimit, {}, false, 2.0};
    const Difference uptime{ScenarioTarget::Figure, {FigureKind::UpTime, 2}, false, 90.0};
    using Differences = std::vector<Difference>;
    EXPECT_EQ(WithDifference({more, limit}, kPressUpTime, uptime),
              (Differences{more, limit, uptime}));
    EXPECT_EQ(WithDifference({limit, uptime}, kLimit, std::nullopt), Differences{uptime});
    const Difference other{ScenarioTarget::Demand, {}, false, 5.0};
    EXPECT_EQ(WithDifference({more, limit}, kDemand, other), (Differences{other, limit}));
    EXPECT_EQ(WithDifference({limit}, kDemand, std::nullopt), Differences{limit});
    const Difference of_bench{ScenarioTarget::Figure, {FigureKind::UpTime, 1}, false, 80.0};
    EXPECT_EQ(WithDifference({uptime}, of_bench, of_bench), (Differences{uptime, of_bench}));
}

TEST(ScenarioNames, AreFreeOnes) {
    const std::vector<Scenario> scenarios = {{"Kept", ""}, {"kept 2", ""}};
    EXPECT_EQ(FreeName(scenarios, "Kept"), "Kept 3");
    EXPECT_EQ(FreeName(scenarios, "New"), "New");
    EXPECT_EQ(FreeName(scenarios, "Base"), "Base 2");
}

TEST(ScenarioNames, MayBeKeptOrBecomeOthers) {
    const std::vector<Scenario> scenarios = {{"A", ""}, {"B", ""}};
    EXPECT_EQ(UsableName(scenarios, 0, " a "), "a");
    EXPECT_EQ(UsableName(scenarios, 0, "C"), "C");
    for (const char* name : {"b", "B ", "base", "", "  "}) {
        test::ExpectRunTimeError(ErrorKind::TypeMismatch, [&] { UsableName(scenarios, 0, name); });
    }
}

}  // namespace
}  // namespace quarnel02
