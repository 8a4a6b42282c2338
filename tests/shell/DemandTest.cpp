#include "shell/Demand.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "basic/Numbers.h"
#include "support/DemandLines.h"
#include "support/RunTimeErrors.h"
#include "support/ScriptedForm.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::DemandLines;
using test::ExpectRunTimeError;
using test::ScriptedForm;
using test::TestModel;

using Lines = std::vector<std::string>;

TEST(DemandLineText, ShowsVolumeAndProbability) {
    EXPECT_EQ(DemandLineText(12500, "25"), "12,500:  25%");
    EXPECT_EQ(DemandLineText(999, "33.3"), "999:  33.3%");
    EXPECT_EQ(DemandLineText(1234567, "0.5"), "1,234,567:  0.5%");
    EXPECT_EQ(DemandLineText(12500.5, "5"), "12,501:  5%");
}

TEST(DemandLineText, BeginsWithTheColonForNoVolume) {
    EXPECT_EQ(DemandLineText(0, "10"), ":  10%");
}

/// A model with these rows of Demand, listed.
struct Listed {
    explicit Listed(const std::string& rows)
        : Model(rows.empty() ? "" : "INSERT INTO Demand VALUES " + rows + ";"),
          Form(Model.Directory()) {
        ListDemand(Form.Copy(), Form);
    }
    TestModel Model;
    ScriptedForm Form;
};

TEST(ListDemand, ListsInAscendingOrderOfVolume) {
    const Listed listed("(20000, 25), (5000, 50), (12500, 25)");
    EXPECT_EQ(DemandLines(listed.Form), (Lines{"5,000:  50%", "12,500:  25%", "20,000:  25%"}));
    EXPECT_EQ(listed.Form.SelectedDemand(), -1);
}

TEST(ListDemand, ReplacesWhatTheListShowed) {
    Listed listed("(5000, 100)");
    listed.Form.SelectDemand(0);
    ListDemand(listed.Form.Copy(), listed.Form);
    EXPECT_EQ(DemandLines(listed.Form), Lines{"5,000:  100%"});
    EXPECT_EQ(listed.Form.SelectedDemand(), -1);
}

/// Rows with these probabilities, at the volumes 1, 2, ...
std::string RowsOf(const std::vector<double>& probabilities) {
    std::string rows;
    int volume = 0;
    for (const double probability : probabilities) {
        rows += (rows.empty() ? "(" : ", (") + NumberText(++volume) + ", " +
                NumberText(probability) + ")";
    }
    return rows;
}

TEST(ListDemand, ShowsACompleteSumInDarkBlue) {
    EXPECT_EQ(Listed("(1, 60), (2, 40)").Form.Events, Lines{"sum: 100% rgb(0,0,128)"});
    EXPECT_EQ(Listed("(1, 33.33333), (2, 33.33333), (3, 33.33333)").Form.Events,
              Lines{"sum: 100% rgb(0,0,128)"});
}

/// Binary fractions of one order add up to 100, those of another to 99.99999999999999.
TEST(ListDemand, ShowsACompleteSumInDarkBlueInEveryOrderOfEntry) {
    for (std::vector<double> probabilities :
         {std::vector{33.3, 33.3, 33.4}, std::vector{33.33, 33.33, 33.34},
          std::vector{14.2, 14.3, 14.3, 14.3, 14.3, 14.3, 14.3}}) {
        std::sort(probabilities.begin(), probabilities.end());
        do {
            const std::string rows = RowsOf(probabilities);
            EXPECT_EQ(Listed(rows).Form.Events, Lines{"sum: 100% rgb(0,0,128)"}) << rows;
            std::vector<double> singles;
            for (const double probability : probabilities) {
                singles.push_back(double{static_cast<float>(probability)});
            }
            EXPECT_EQ(Listed(RowsOf(singles)).Form.Events, Lines{"sum: 100% rgb(0,0,128)"}) << rows;
        } while (std::next_permutation(probabilities.begin(), probabilities.end()));
    }
}

TEST(ListDemand, SaysInRedWhatIsMissing) {
    EXPECT_EQ(Listed("(1, 60), (2, 25)").Form.Events, Lines{"sum: 85% (15% missing) rgb(255,0,0)"});
    EXPECT_EQ(Listed("(1, 33.3), (2, 33.3), (3, 33.3)").Form.Events,
              Lines{"sum: 99.9% (0.1% missing) rgb(255,0,0)"});
    EXPECT_EQ(Listed("(1, 99.99)").Form.Events, Lines{"sum: 99.99% (0.01% missing) rgb(255,0,0)"});
    EXPECT_EQ(Listed("(1, 0)").Form.Events, Lines{"sum: 0% (100% missing) rgb(255,0,0)"});
}

TEST(ListDemand, SaysInRedWhatIsTooMuch) {
    EXPECT_EQ(Listed("(1, 60), (2, 50)").Form.Events,
              Lines{"sum: 110% (10% too much) rgb(255,0,0)"});
    EXPECT_EQ(Listed("(1, 60), (2, 40.5)").Form.Events,
              Lines{"sum: 100.5% (0.5% too much) rgb(255,0,0)"});
    EXPECT_EQ(Listed("(1, 100.01)").Form.Events,
              Lines{"sum: 100.01% (0.01% too much) rgb(255,0,0)"});
}

TEST(ListDemand, LeavesOutOnlyTheRowsWithoutANumber) {
    const Listed one("(20000, 25), (NULL, 50), (12500, 75)");
    EXPECT_EQ(DemandLines(one.Form), (Lines{"12,500:  75%", "20,000:  25%"}));
    EXPECT_EQ(one.Form.Events, Lines{"sum: 100%; 1 row without a number is left out rgb(0,0,128)"});
    const Listed three("(20000, 25), (NULL, NULL), (5000, NULL), (1e39, 50)");
    EXPECT_EQ(DemandLines(three.Form), Lines{"20,000:  25%"});
    EXPECT_EQ(three.Form.Events, Lines{"sum: 25% (75% missing); 3 rows without a number are left "
                                       "out rgb(255,0,0)"});
    const Listed none("(NULL, 100)");
    EXPECT_EQ(none.Form.DemandCount(), 0);
    EXPECT_EQ(none.Form.Events, Lines{"sum: 0% (100% missing); 1 row without a number is left out "
                                      "rgb(255,0,0)"});
}

TEST(ListDemand, ShowsNumbersAsTheDesignTakesThem) {
    EXPECT_EQ(DemandLines(Listed("(12345678, 33.2999992370605)").Form),
              Lines{"12,345,678:  33.3%"});
    EXPECT_EQ(DemandLines(Listed("(5000.000001, 100)").Form), Lines{"5,000:  100%"});
}

TEST(ListDemand, KeepsListAndSumWithoutRows) {
    Listed listed("");
    listed.Form.AddDemandLine("old line");
    ListDemand(listed.Form.Copy(), listed.Form);
    EXPECT_EQ(DemandLines(listed.Form), Lines{"old line"});
    EXPECT_EQ(listed.Form.Events, Lines{});
}

TEST(ListDemand, EndsSilentlyWithoutAWorkingCopy) {
    Listed listed("(5000, 100)");
    listed.Form.Events.clear();
    std::filesystem::remove(listed.Model.File());
    ListDemand(listed.Form.Copy(), listed.Form);
    EXPECT_EQ(DemandLines(listed.Form), Lines{"5,000:  100%"});
    EXPECT_EQ(listed.Form.Events, Lines{});
}

TEST(ShowDemandRow, FillsTheBoxesFromTheRowAtThatPlace) {
    Listed listed("(20000, 25), (5000, 33.3)");
    listed.Form.SelectDemand(0);
    EXPECT_EQ(listed.Form.Text(TextBox::txtVolume), "5,000");
    EXPECT_EQ(listed.Form.Text(TextBox::txtProb), "33.3%");
    listed.Form.SelectDemand(1);
    EXPECT_EQ(listed.Form.Text(TextBox::txtVolume), "20,000");
    EXPECT_EQ(listed.Form.Text(TextBox::txtProb), "25%");
}

TEST(ShowDemandRow, ShowsNothingForNoVolume) {
    Listed listed("(0, 10)");
    ShowDemandRow(listed.Form.OpenWorkingCopy(), 0, listed.Form);
    EXPECT_EQ(listed.Form.Text(TextBox::txtVolume), "");
    EXPECT_EQ(listed.Form.Text(TextBox::txtProb), "10%");
}

TEST(ShowDemandRow, CountsOnlyTheRowsThatAreListed) {
    Listed listed("(20000, 25), (NULL, 50), (12500, NULL), (5000, 33.2999992370605)");
    listed.Form.SelectDemand(1);
    EXPECT_EQ(listed.Form.Text(TextBox::txtVolume), "20,000");
    listed.Form.SelectDemand(0);
    EXPECT_EQ(listed.Form.Text(TextBox::txtVolume), "5,000");
    EXPECT_EQ(listed.Form.Text(TextBox::txtProb), "33.3%");
    ExpectRunTimeError(ErrorKind::NoCurrentRecord,
                       [&] { ShowDemandRow(listed.Form.OpenWorkingCopy(), 2, listed.Form); });
    ExpectRunTimeError(ErrorKind::NoCurrentRecord,
                       [&] { ShowDemandRow(listed.Form.OpenWorkingCopy(), -1, listed.Form); });
}

TEST(ShowDemandRow, NeedsTheRow) {
    Listed listed("(0, 10)");
    ExpectRunTimeError(ErrorKind::NoCurrentRecord,
                       [&] { ShowDemandRow(listed.Form.OpenWorkingCopy(), 1, listed.Form); });
    Listed empty("");
    ExpectRunTimeError(ErrorKind::NoCurrentRecord,
                       [&] { ShowDemandRow(empty.Form.OpenWorkingCopy(), 0, empty.Form); });
}

}  // namespace
}  // namespace quarnel02
