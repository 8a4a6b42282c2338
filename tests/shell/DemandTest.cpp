#include "shell/Demand.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

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
        ListDemand(Form);
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
    ListDemand(listed.Form);
    EXPECT_EQ(DemandLines(listed.Form), Lines{"5,000:  100%"});
    EXPECT_EQ(listed.Form.SelectedDemand(), -1);
}

TEST(ListDemand, ShowsACompleteSumInDarkBlue) {
    EXPECT_EQ(Listed("(1, 60), (2, 40)").Form.Events, Lines{"sum: 100% rgb(0,0,128)"});
    // 33.3 + 33.3 = 66.6 and 66.6 + 33.4 = 100, also in binary.
    EXPECT_EQ(Listed("(1, 33.3), (2, 33.3), (3, 33.4)").Form.Events,
              Lines{"sum: 100% rgb(0,0,128)"});
}

TEST(ListDemand, ShowsAnyOtherSumInRed) {
    EXPECT_EQ(Listed("(1, 60), (2, 30)").Form.Events, Lines{"sum: 90% rgb(255,0,0)"});
    EXPECT_EQ(Listed("(1, 60), (2, 40.5)").Form.Events, Lines{"sum: 100.5% rgb(255,0,0)"});
    EXPECT_EQ(Listed("(1, 33.3), (2, 33.3), (3, 33.3)").Form.Events,
              Lines{"sum: 99.9% rgb(255,0,0)"});
    EXPECT_EQ(Listed("(1, 33.33333), (2, 33.33333), (3, 33.33333)").Form.Events,
              Lines{"sum: 99.99999% rgb(255,0,0)"});
    EXPECT_EQ(Listed("(1, 0)").Form.Events, Lines{"sum: 0% rgb(255,0,0)"});
}

TEST(ListDemand, KeepsListAndSumWithoutRows) {
    Listed listed("");
    listed.Form.AddDemandLine("old line");
    ListDemand(listed.Form);
    EXPECT_EQ(DemandLines(listed.Form), Lines{"old line"});
    EXPECT_EQ(listed.Form.Events, Lines{});
}

TEST(ListDemand, EndsSilentlyWithoutAWorkingCopy) {
    Listed listed("(5000, 100)");
    listed.Form.CloseModel();
    listed.Form.Events.clear();
    std::filesystem::remove(listed.Model.File());
    ListDemand(listed.Form);
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
    ShowDemandRow(listed.Form, 0);
    EXPECT_EQ(listed.Form.Text(TextBox::txtVolume), "");
    EXPECT_EQ(listed.Form.Text(TextBox::txtProb), "10%");
}

TEST(ShowDemandRow, NeedsTheRow) {
    Listed listed("(0, 10)");
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { ShowDemandRow(listed.Form, 1); });
    Listed empty("");
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { ShowDemandRow(empty.Form, 0); });
}

}  // namespace
}  // namespace quarnel02
