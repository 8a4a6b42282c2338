#include "app/DemandCommands.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/Demand.h"
#include "support/DemandLines.h"
#include "support/RunTimeErrors.h"
#include "support/ScriptedForm.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::DemandLines;
using test::DemandRows;
using test::ExpectRunTimeError;
using test::ScriptedForm;
using test::TestModel;

using Lines = std::vector<std::string>;

constexpr const char* kTwoRows = "(20000, 40), (5000, 60)";

/// A model with these rows of Demand and the boxes and list that show them.
struct DemandDesk {
    explicit DemandDesk(const std::string& rows = "")
        : Model(rows.empty() ? "" : "INSERT INTO Demand VALUES " + rows + ";"),
          Form(Model.Directory()) {
        ListDemand(Form);
        Form.Events.clear();
    }

    void Fill(const std::string& volume, const std::string& probability) {
        Form.SetText(TextBox::txtVolume, volume);
        Form.SetText(TextBox::txtProb, probability);
    }
    void Add(const std::string& volume, const std::string& probability) {
        Fill(volume, probability);
        cmdAdd_Click(Form);
    }
    [[nodiscard]] std::string Boxes() const {
        return Form.Text(TextBox::txtVolume) + "|" + Form.Text(TextBox::txtProb);
    }

    TestModel Model;
    ScriptedForm Form;
};

/// Nothing was written, said or marked as changed.
void ExpectUntouched(const DemandDesk& desk, const Lines& rows) {
    EXPECT_EQ(DemandRows(desk.Model), rows);
    EXPECT_FALSE(desk.Form.Changed);
    for (const std::string& event : desk.Form.Events) {
        EXPECT_TRUE(event.starts_with("select: ")) << event;
    }
}

const Lines kTwoRowTexts = {"20000|40", "5000|60"};

TEST(WithPercentSign, IsAppendedOnce) {
    EXPECT_EQ(WithPercentSign("25"), "25%");
    EXPECT_EQ(WithPercentSign("25%"), "25%");
    EXPECT_EQ(WithPercentSign("33.3 "), "33.3 %");
    EXPECT_EQ(WithPercentSign(""), "");
}

TEST(cmdAdd, WritesARowAndListsIt) {
    DemandDesk desk;
    desk.Add("12500", "25%");
    EXPECT_EQ(DemandRows(desk.Model), Lines{"12500|25"});
    EXPECT_EQ(DemandLines(desk.Form), Lines{"12,500:  25%"});
    EXPECT_EQ(desk.Form.Events, Lines{"sum: 25% rgb(255,0,0)"});
    EXPECT_EQ(desk.Boxes(), "|");
    EXPECT_TRUE(desk.Form.Changed);
}

TEST(cmdAdd, StoresTheSameWithAndWithoutThePercentSignTyped) {
    DemandDesk desk;
    desk.Add("1000", WithPercentSign("25"));
    desk.Add("2000", WithPercentSign("25%"));
    EXPECT_EQ(DemandRows(desk.Model), (Lines{"1000|25", "2000|25"}));
}

TEST(cmdAdd, DropsTheLastCharacterWhateverItIs) {
    DemandDesk desk;
    desk.Add("1000", "25");
    EXPECT_EQ(DemandRows(desk.Model), Lines{"1000|2"});
}

TEST(cmdAdd, TakesSeparatorsAndFractions) {
    DemandDesk desk;
    desk.Add("1,250,000", "33.3%");
    desk.Add(" 12.5 ", ".5%");
    EXPECT_EQ(DemandRows(desk.Model), (Lines{"1250000|33.3", "12.5|0.5"}));
}

TEST(cmdAdd, KeepsSinglePrecision) {
    DemandDesk desk;
    desk.Add("12345678", "33.33333333%");  // seven digits of each
    EXPECT_EQ(DemandRows(desk.Model), Lines{"12345680|33.33333"});
}

TEST(cmdAdd, ChecksNeitherDuplicatesNorTheSum) {
    DemandDesk desk;
    desk.Add("1000", "70%");
    desk.Add("1000", "70%");
    EXPECT_EQ(DemandLines(desk.Form), (Lines{"1,000:  70%", "1,000:  70%"}));
    EXPECT_EQ(desk.Form.Events.back(), "sum: 140% rgb(255,0,0)");
}

TEST(cmdAdd, CompletesTheSum) {
    DemandDesk desk;
    desk.Add("1", "33.3%");
    desk.Add("2", "33.3%");
    desk.Add("3", "33.4%");
    EXPECT_EQ(desk.Form.Events, (Lines{"sum: 33.3% rgb(255,0,0)", "sum: 66.6% rgb(255,0,0)",
                                       "sum: 100% rgb(0,0,128)"}));
}

TEST(cmdAdd, ListsNoVolumeWithTheColonInFront) {
    DemandDesk desk;
    desk.Add("0", "5%");
    EXPECT_EQ(DemandLines(desk.Form), Lines{":  5%"});
}

TEST(cmdAdd, NeedsBothBoxes) {
    DemandDesk desk;
    desk.Add("", "25%");
    desk.Add("1000", "");
    ExpectUntouched(desk, {});
    EXPECT_EQ(desk.Boxes(), "1000|");
}

TEST(cmdAdd, RefusesWhatIsNoNumber) {
    DemandDesk desk;
    const auto message_for = [&](const char* volume, const char* probability, ErrorKind kind) {
        return ExpectRunTimeError(kind, [&] { desk.Add(volume, probability); });
    };
    EXPECT_TRUE(message_for("many", "25%", ErrorKind::TypeMismatch).starts_with("Volume"));
    EXPECT_TRUE(message_for("1e39", "25%", ErrorKind::Overflow).starts_with("Volume"));
    EXPECT_TRUE(message_for("1000", "%", ErrorKind::TypeMismatch).starts_with("Probability"));
    ExpectUntouched(desk, {});
    EXPECT_EQ(desk.Boxes(), "1000|%");
}

TEST(cmdUpdate, RewritesTheRowOfTheSelectedLine) {
    DemandDesk desk(kTwoRows);
    desk.Form.SelectDemand(1);
    desk.Fill("7,500", "35%");
    cmdUpdate_Click(desk.Form);
    EXPECT_EQ(DemandRows(desk.Model), (Lines{"7500|35", "5000|60"}));
    EXPECT_EQ(DemandLines(desk.Form), (Lines{"5,000:  60%", "7,500:  35%"}));
    EXPECT_EQ(desk.Form.Events.back(), "sum: 95% rgb(255,0,0)");
    EXPECT_EQ(desk.Boxes(), "|");
    EXPECT_TRUE(desk.Form.Changed);
}

TEST(cmdUpdate, TakesTheBoxesAsTheSelectionFilledThem) {
    DemandDesk desk("(1250000, 33.3)");
    desk.Form.SelectDemand(0);
    cmdUpdate_Click(desk.Form);
    EXPECT_EQ(DemandRows(desk.Model), Lines{"1250000|33.3"});
    EXPECT_TRUE(desk.Form.Changed);
}

TEST(cmdUpdate, FindsAVolumeBeyondSevenDigits) {
    DemandDesk desk;
    desk.Add("12345678", "25%");
    desk.Form.SelectDemand(0);
    EXPECT_EQ(desk.Boxes(), "12,345,680|25%");
    desk.Fill("10", "25%");
    cmdUpdate_Click(desk.Form);
    EXPECT_EQ(DemandRows(desk.Model), Lines{"10|25"});
}

TEST(cmdUpdate, ChangesTheFirstOfEqualRows) {
    DemandDesk desk("(5000, 25), (5000, 25)");
    desk.Form.SelectDemand(1);
    desk.Fill("6000", "30%");
    cmdUpdate_Click(desk.Form);
    EXPECT_EQ(DemandRows(desk.Model), (Lines{"6000|30", "5000|25"}));
}

TEST(cmdUpdate, NeedsALineAndBothBoxes) {
    DemandDesk desk(kTwoRows);
    desk.Fill("7500", "35%");
    cmdUpdate_Click(desk.Form);
    desk.Form.SelectDemand(0);
    desk.Fill("", "35%");
    cmdUpdate_Click(desk.Form);
    desk.Fill("7500", "");
    cmdUpdate_Click(desk.Form);
    ExpectUntouched(desk, kTwoRowTexts);
}

TEST(cmdUpdate, RefusesWhatIsNoNumber) {
    DemandDesk desk(kTwoRows);
    desk.Form.SelectDemand(0);
    desk.Fill("7500", "x%");
    const std::string message =
        ExpectRunTimeError(ErrorKind::TypeMismatch, [&] { cmdUpdate_Click(desk.Form); });
    EXPECT_TRUE(message.starts_with("Probability")) << message;
    ExpectUntouched(desk, kTwoRowTexts);
    EXPECT_EQ(desk.Boxes(), "7500|x%");
    EXPECT_EQ(desk.Form.SelectedDemand(), 0);
}

TEST(cmdUpdate, CannotReadALineWithoutAVolume) {
    DemandDesk desk("(0, 10)");
    desk.Form.SelectDemand(0);
    desk.Fill("100", "10%");
    const std::string message =
        ExpectRunTimeError(ErrorKind::TypeMismatch, [&] { cmdUpdate_Click(desk.Form); });
    EXPECT_TRUE(message.starts_with("Volume of the selected line")) << message;
    ExpectUntouched(desk, {"0|10"});
}

TEST(cmdUpdate, DoesNotFindAVolumeThatTheLineRounds) {
    DemandDesk desk("(12500.5, 10)");
    desk.Form.SelectDemand(0);
    const std::string message =
        ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { cmdUpdate_Click(desk.Form); });
    EXPECT_NE(message.find("12501"), std::string::npos) << message;
    ExpectUntouched(desk, {"12500.5|10"});
}

TEST(cmdDelete, DeletesTheSelectedRow) {
    DemandDesk desk(kTwoRows);
    desk.Form.SelectDemand(0);
    cmdDelete_Click(desk.Form);
    EXPECT_EQ(DemandRows(desk.Model), Lines{"20000|40"});
    EXPECT_EQ(DemandLines(desk.Form), Lines{"20,000:  40%"});
    EXPECT_EQ(desk.Form.Events.back(), "sum: 40% rgb(255,0,0)");
    EXPECT_EQ(desk.Boxes(), "|");
    EXPECT_TRUE(desk.Form.Changed);
}

TEST(cmdDelete, DeletesTheRowThatTheBoxesName) {
    DemandDesk desk(kTwoRows);
    desk.Form.SelectDemand(0);
    desk.Fill("20000", "40%");
    cmdDelete_Click(desk.Form);
    EXPECT_EQ(DemandRows(desk.Model), Lines{"5000|60"});
    EXPECT_EQ(DemandLines(desk.Form), Lines{"5,000:  60%"});
}

TEST(cmdDelete, EndsSilentlyWhenNoRowMatches) {
    DemandDesk desk(kTwoRows);
    desk.Form.SelectDemand(0);
    for (const auto* volume : {"5001", "many", ""}) {
        desk.Fill(volume, "60%");
        cmdDelete_Click(desk.Form);
        EXPECT_EQ(desk.Boxes(), volume + std::string("|60%"));
    }
    ExpectUntouched(desk, kTwoRowTexts);
    EXPECT_EQ(desk.Form.SelectedDemand(), 0);
    EXPECT_EQ(desk.Form.DemandCount(), 2);
}

TEST(cmdDelete, EndsSilentlyWithoutAProbability) {
    DemandDesk desk(kTwoRows);
    desk.Form.SelectDemand(0);
    desk.Fill("5000", "");
    cmdDelete_Click(desk.Form);
    ExpectUntouched(desk, kTwoRowTexts);
}

TEST(cmdDelete, NeedsASelectedLine) {
    DemandDesk desk(kTwoRows);
    desk.Fill("5000", "60%");
    cmdDelete_Click(desk.Form);
    ExpectUntouched(desk, kTwoRowTexts);
    EXPECT_EQ(desk.Boxes(), "5000|60%");
}

TEST(cmdDelete, DeletesTheFirstOfEqualRows) {
    DemandDesk desk("(5000, 25), (5000, 25), (5000, 50)");
    desk.Form.SelectDemand(1);
    cmdDelete_Click(desk.Form);
    EXPECT_EQ(DemandRows(desk.Model), (Lines{"5000|25", "5000|50"}));
}

TEST(cmdDelete, EmptiesTheListWithTheLastRowButKeepsTheSum) {
    DemandDesk desk("(5000, 100)");
    desk.Form.SelectDemand(0);
    cmdDelete_Click(desk.Form);
    EXPECT_EQ(DemandRows(desk.Model), Lines{});
    EXPECT_EQ(desk.Form.DemandCount(), 0);
    EXPECT_EQ(desk.Form.Events, Lines{"select: 0"});
    EXPECT_TRUE(desk.Form.Changed);
}

TEST(cmdDelete, TakesNoVolumeOnlyAsATypedZero) {
    DemandDesk desk("(0, 10)");
    desk.Form.SelectDemand(0);
    EXPECT_EQ(desk.Boxes(), "|10%");
    cmdDelete_Click(desk.Form);
    ExpectUntouched(desk, {"0|10"});
    desk.Fill("0", "10%");
    cmdDelete_Click(desk.Form);
    EXPECT_EQ(DemandRows(desk.Model), Lines{});
}

}  // namespace
}  // namespace quarnel02
