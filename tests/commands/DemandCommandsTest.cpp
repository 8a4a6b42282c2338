#include "commands/DemandCommands.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "shell/Demand.h"
#include "support/DemandLines.h"
#include "support/RunTimeErrors.h"
#include "support/ScriptedForm.h"
#include "support/Surroundings.h"
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
        ListDemand(Form.Copy(), Form);
        Form.Events.clear();
    }

    void Fill(const std::string& volume, const std::string& probability) {
        Form.SetText(TextBox::txtVolume, volume);
        Form.SetText(TextBox::txtProb, probability);
    }
    void Add(const std::string& volume, const std::string& probability) {
        Fill(volume, probability);
        cmdAdd_Click(Form, Current);
    }
    [[nodiscard]] std::string Boxes() const {
        return Form.Text(TextBox::txtVolume) + "|" + Form.Text(TextBox::txtProb);
    }

    TestModel Model;
    ScriptedForm Form;
    CurrentModel Current;
};

/// Nothing was written, said or marked as changed.
void ExpectUntouched(const DemandDesk& desk, const Lines& rows) {
    EXPECT_EQ(DemandRows(desk.Model), rows);
    EXPECT_FALSE(desk.Current.Changed);
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
    EXPECT_EQ(desk.Form.Events, Lines{"sum: 25% (75% missing) rgb(255,0,0)"});
    EXPECT_EQ(desk.Boxes(), "|");
    EXPECT_TRUE(desk.Current.Changed);
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
    desk.Add("12345678", "33.33333333%");
    desk.Add("16777217", "33.33333%");
    EXPECT_EQ(DemandRows(desk.Model), (Lines{"12345678|33.333332", "16777216|33.33333"}));
    EXPECT_EQ(DemandLines(desk.Form), (Lines{"12,345,678:  33.333332%", "16,777,216:  33.33333%"}));
}

TEST(cmdAdd, ChecksNeitherDuplicatesNorTheSum) {
    DemandDesk desk;
    desk.Add("1000", "70%");
    desk.Add("1000", "70%");
    EXPECT_EQ(DemandLines(desk.Form), (Lines{"1,000:  70%", "1,000:  70%"}));
    EXPECT_EQ(desk.Form.Events.back(), "sum: 140% (40% too much) rgb(255,0,0)");
}

TEST(cmdAdd, CompletesTheSum) {
    DemandDesk desk;
    desk.Add("1", "33.3%");
    desk.Add("2", "33.3%");
    desk.Add("3", "33.4%");
    EXPECT_EQ(desk.Form.Events,
              (Lines{"sum: 33.3% (66.7% missing) rgb(255,0,0)",
                     "sum: 66.6% (33.4% missing) rgb(255,0,0)", "sum: 100% rgb(0,0,128)"}));
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

TEST(cmdAdd, RefusesFiguresThatCannotBe) {
    DemandDesk desk;
    const auto message_for = [&](const char* volume, const char* probability) {
        return ExpectRunTimeError(ErrorKind::Overflow, [&] { desk.Add(volume, probability); });
    };
    EXPECT_EQ(message_for("-5", "25%"), "Volume is -5; it must be at least 0.");
    EXPECT_EQ(message_for("1000", "100.5%"),
              "Probability is 100.5 %; it must be at least 0 and at most 100.");
    EXPECT_EQ(message_for("1000", "-0.1%"),
              "Probability is -0.1 %; it must be at least 0 and at most 100.");
    ExpectUntouched(desk, {});
    EXPECT_EQ(desk.Boxes(), "1000|-0.1%");
    desk.Add("0", "0%");
    desk.Add("1", "100%");
    EXPECT_EQ(DemandRows(desk.Model), (Lines{"0|0", "1|100"}));
}

TEST(cmdUpdate, RewritesTheRowOfTheSelectedLine) {
    DemandDesk desk(kTwoRows);
    desk.Form.SelectDemand(1);
    desk.Fill("7,500", "35%");
    cmdUpdate_Click(desk.Form, desk.Current);
    EXPECT_EQ(DemandRows(desk.Model), (Lines{"7500|35", "5000|60"}));
    EXPECT_EQ(DemandLines(desk.Form), (Lines{"5,000:  60%", "7,500:  35%"}));
    EXPECT_EQ(desk.Form.Events.back(), "sum: 95% (5% missing) rgb(255,0,0)");
    EXPECT_EQ(desk.Boxes(), "|");
    EXPECT_TRUE(desk.Current.Changed);
}

TEST(cmdUpdate, TakesTheBoxesAsTheSelectionFilledThem) {
    DemandDesk desk("(1250000, 33.3)");
    desk.Form.SelectDemand(0);
    cmdUpdate_Click(desk.Form, desk.Current);
    EXPECT_EQ(DemandRows(desk.Model), Lines{"1250000|33.3"});
    EXPECT_TRUE(desk.Current.Changed);
}

TEST(cmdUpdate, KeepsEveryUnitOfALargeVolume) {
    DemandDesk desk;
    desk.Add("12345678", "25%");
    desk.Form.SelectDemand(0);
    EXPECT_EQ(desk.Boxes(), "12,345,678|25%");
    desk.Fill(desk.Form.Text(TextBox::txtVolume), "30%");
    cmdUpdate_Click(desk.Form, desk.Current);
    EXPECT_EQ(DemandRows(desk.Model), Lines{"12345678|30"});
}

/// Numbers that no line shows in full: doubles of singles, more digits, decimals, no volume, and a
/// row without a number in front of them.
constexpr const char* kRowsOfAnyForm =
    "(NULL, 1), (33333.30078125, 33.2999992370605), (12500.5, 10), (0, 5), (123456789.123, 6.5), "
    "(7000, 33.333333333)";
const Lines kAnyFormTexts = {"|1",
                             "33333.30078125|33.2999992370605",
                             "12500.5|10",
                             "0|5",
                             "123456789.123|6.5",
                             "7000|33.333333333"};

TEST(cmdUpdate, FindsARowHoweverItIsWritten) {
    for (int line = 0; line < 5; ++line) {
        DemandDesk desk(kRowsOfAnyForm);
        desk.Form.SelectDemand(line);
        desk.Fill("77", "7%");
        cmdUpdate_Click(desk.Form, desk.Current);
        constexpr std::array places = {3U, 5U, 2U, 1U, 4U};  // in ascending order of volume
        Lines rows = kAnyFormTexts;
        rows.at(places.at(static_cast<std::size_t>(line))) = "77|7";
        EXPECT_EQ(DemandRows(desk.Model), rows) << line;
    }
}

TEST(cmdDelete, FindsARowHoweverItIsWritten) {
    for (int line = 0; line < 5; ++line) {
        DemandDesk desk(kRowsOfAnyForm);
        desk.Form.SelectDemand(line);
        cmdDelete_Click(desk.Form, desk.Current);
        constexpr std::array places = {3, 5, 2, 1, 4};
        Lines rows = kAnyFormTexts;
        rows.erase(rows.begin() + places.at(static_cast<std::size_t>(line)));
        EXPECT_EQ(DemandRows(desk.Model), rows) << line;
        EXPECT_EQ(desk.Form.DemandCount(), 4);
        EXPECT_EQ(desk.Boxes(), "|");
    }
}

TEST(cmdUpdate, ChangesTheSelectedOneOfEqualRows) {
    DemandDesk desk("(5000, 25), (5000, 25)");
    desk.Form.SelectDemand(1);
    desk.Fill("6000", "30%");
    cmdUpdate_Click(desk.Form, desk.Current);
    EXPECT_EQ(DemandRows(desk.Model), (Lines{"5000|25", "6000|30"}));
}

TEST(cmdUpdate, RefusesFiguresThatCannotBe) {
    DemandDesk desk(kTwoRows);
    desk.Form.SelectDemand(0);
    desk.Fill("7500", "101%");
    ExpectRunTimeError(ErrorKind::Overflow, [&] { cmdUpdate_Click(desk.Form, desk.Current); });
    desk.Fill("-1", "10%");
    ExpectRunTimeError(ErrorKind::Overflow, [&] { cmdUpdate_Click(desk.Form, desk.Current); });
    ExpectUntouched(desk, kTwoRowTexts);
    EXPECT_EQ(desk.Boxes(), "-1|10%");
}

TEST(cmdUpdate, NeedsALineAndBothBoxes) {
    DemandDesk desk(kTwoRows);
    desk.Fill("7500", "35%");
    cmdUpdate_Click(desk.Form, desk.Current);
    desk.Form.SelectDemand(0);
    desk.Fill("", "35%");
    cmdUpdate_Click(desk.Form, desk.Current);
    desk.Fill("7500", "");
    cmdUpdate_Click(desk.Form, desk.Current);
    ExpectUntouched(desk, kTwoRowTexts);
}

TEST(cmdUpdate, RefusesWhatIsNoNumber) {
    DemandDesk desk(kTwoRows);
    desk.Form.SelectDemand(0);
    desk.Fill("7500", "x%");
    const std::string message = ExpectRunTimeError(
        ErrorKind::TypeMismatch, [&] { cmdUpdate_Click(desk.Form, desk.Current); });
    EXPECT_TRUE(message.starts_with("Probability")) << message;
    ExpectUntouched(desk, kTwoRowTexts);
    EXPECT_EQ(desk.Boxes(), "7500|x%");
    EXPECT_EQ(desk.Form.SelectedDemand(), 0);
}

TEST(cmdDelete, DeletesTheSelectedRow) {
    DemandDesk desk(kTwoRows);
    desk.Form.SelectDemand(0);
    cmdDelete_Click(desk.Form, desk.Current);
    EXPECT_EQ(DemandRows(desk.Model), Lines{"20000|40"});
    EXPECT_EQ(DemandLines(desk.Form), Lines{"20,000:  40%"});
    EXPECT_EQ(desk.Form.Events.back(), "sum: 40% (60% missing) rgb(255,0,0)");
    EXPECT_EQ(desk.Boxes(), "|");
    EXPECT_TRUE(desk.Current.Changed);
}

TEST(cmdDelete, DeletesTheSelectedRowWhateverTheBoxesHold) {
    for (const auto* volume : {"20000", "5001", "many", ""}) {
        DemandDesk desk(kTwoRows);
        desk.Form.SelectDemand(0);
        desk.Fill(volume, "40%");
        cmdDelete_Click(desk.Form, desk.Current);
        EXPECT_EQ(DemandRows(desk.Model), Lines{"20000|40"}) << volume;
        EXPECT_EQ(DemandLines(desk.Form), Lines{"20,000:  40%"});
        EXPECT_EQ(desk.Boxes(), "|");
    }
}

TEST(cmdDelete, EndsSilentlyWhenTheRowIsGone) {
    DemandDesk desk(kTwoRows);
    desk.Form.SelectDemand(1);
    desk.Fill("1", "1%");
    RecordSet rows = desk.Model.Open().OpenRecordSet("SELECT * FROM Demand;");
    rows.Delete();
    cmdDelete_Click(desk.Form, desk.Current);
    ExpectUntouched(desk, {"5000|60"});
    EXPECT_EQ(desk.Form.DemandCount(), 2);
    EXPECT_EQ(desk.Boxes(), "1|1%");
}

TEST(cmdDelete, SaysWhenTheDiskIsFull) {
    DemandDesk desk(kTwoRows);
    desk.Form.SelectDemand(1);
    {
        const test::FileSizeLimit limit(0);
        test::ExpectRunTimeError(ErrorKind::FileAccess,
                                 [&] { cmdDelete_Click(desk.Form, desk.Current); });
    }
    ExpectUntouched(desk, kTwoRowTexts);
    EXPECT_EQ(desk.Form.DemandCount(), 2);
}

TEST(cmdDelete, NeedsASelectedLine) {
    DemandDesk desk(kTwoRows);
    desk.Fill("5000", "60%");
    cmdDelete_Click(desk.Form, desk.Current);
    ExpectUntouched(desk, kTwoRowTexts);
    EXPECT_EQ(desk.Boxes(), "5000|60%");
}

TEST(cmdDelete, DeletesTheSelectedOneOfEqualRows) {
    DemandDesk desk("(5000, 25), (5000, 25), (5000, 50)");
    desk.Form.SelectDemand(1);
    cmdDelete_Click(desk.Form, desk.Current);
    EXPECT_EQ(DemandRows(desk.Model), (Lines{"5000|25", "5000|50"}));
}

TEST(cmdDelete, EmptiesTheListWithTheLastRowButKeepsTheSum) {
    DemandDesk desk("(5000, 100)");
    desk.Form.SelectDemand(0);
    cmdDelete_Click(desk.Form, desk.Current);
    EXPECT_EQ(DemandRows(desk.Model), Lines{});
    EXPECT_EQ(desk.Form.DemandCount(), 0);
    EXPECT_EQ(desk.Form.Events, Lines{"select: 0"});
    EXPECT_TRUE(desk.Current.Changed);
}

TEST(cmdDelete, DeletesARowOfNoVolume) {
    DemandDesk desk("(0, 10)");
    desk.Form.SelectDemand(0);
    EXPECT_EQ(desk.Boxes(), "|10%");
    cmdDelete_Click(desk.Form, desk.Current);
    EXPECT_EQ(DemandRows(desk.Model), Lines{});
}

}  // namespace
}  // namespace quarnel02
