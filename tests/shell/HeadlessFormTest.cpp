#include "shell/HeadlessForm.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "shell/Demand.h"
#include "support/ScriptedForm.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ScriptedForm;
using test::TestModel;

struct DemandForm {
    explicit DemandForm(const std::string& rows = "") : Model(Script(rows)) {}

    static std::string Script(const std::string& rows) {
        return rows.empty() ? "" : "INSERT INTO Demand VALUES " + rows + ";";
    }
    [[nodiscard]] std::string Shown() const {
        return Form.Text(TextBox::txtVolume) + " at " + Form.Text(TextBox::txtProb);
    }

    TestModel Model;
    ScriptedForm Form{Model.Directory()};
};

TEST(ShowDemandRow, ShowsEqualVolumesInTheOrderAdded) {
    DemandForm demand("(500, 30), (500, 10), (500, 20)");
    std::string shown;
    for (int line = 0; line < 3; ++line) {
        ShowDemandRow(demand.Form.OpenWorkingCopy(), line, demand.Form);
        shown += demand.Form.Text(TextBox::txtProb);
    }
    EXPECT_EQ(shown, "30%10%20%");
}

TEST(ShowDemandRow, RoundsTheVolumeButNotThePercentage) {
    DemandForm demand("(999.5, 0.125)");
    ShowDemandRow(demand.Form.OpenWorkingCopy(), 0, demand.Form);
    EXPECT_EQ(demand.Shown(), "1,000 at 0.125%");
}

TEST(HeadlessForm, KeepsTheTextOfEachBox) {
    const TestModel model;
    ScriptedForm form(model.Directory());
    for (std::size_t box = 0; box < kTextBoxes; ++box) {
        EXPECT_EQ(form.Text(static_cast<TextBox>(box)), "");
        form.SetText(static_cast<TextBox>(box), "text " + std::to_string(box));
    }
    EXPECT_EQ(form.Text(TextBox::txtResources), "text 0");
    EXPECT_EQ(form.Text(TextBox::txtPenalty), "text 6");
    EXPECT_EQ(form.Text(TextBox::txtProb), "text 9");
}

TEST(HeadlessForm, HasNoDemandBeforeItIsListed) {
    const DemandForm demand("(500, 40), (400, 60)");
    EXPECT_EQ(demand.Form.DemandCount(), 0);
    EXPECT_EQ(demand.Form.SelectedDemand(), -1);
}

TEST(HeadlessForm, ListsAndSelectsDemand) {
    DemandForm demand("(500, 40), (400, 60)");
    ListDemand(demand.Form.Copy(), demand.Form);
    EXPECT_EQ(demand.Form.DemandCount(), 2);
    EXPECT_EQ(demand.Form.SelectedDemand(), -1);
    demand.Form.SelectDemand(1);
    EXPECT_EQ(demand.Form.SelectedDemand(), 1);
    EXPECT_EQ(demand.Shown(), "500 at 40%");
    EXPECT_EQ(demand.Form.Events,
              (std::vector<std::string>{"sum: 100% rgb(0,0,128)", "select: 1"}));
    ListDemand(demand.Form.Copy(), demand.Form);
    EXPECT_EQ(demand.Form.SelectedDemand(), -1);
}

TEST(HeadlessForm, TheSelectionStaysOnItsLineWhenAnotherOneGoes) {
    DemandForm demand("(500, 40), (400, 30), (300, 30)");
    ListDemand(demand.Form.Copy(), demand.Form);
    const std::string line = demand.Form.DemandLine(1);
    demand.Form.SelectDemand(1);
    demand.Form.RemoveDemandLine(2);
    EXPECT_EQ(demand.Form.SelectedDemand(), 1);
    demand.Form.RemoveDemandLine(0);
    EXPECT_EQ(demand.Form.SelectedDemand(), 0);
    EXPECT_EQ(demand.Form.DemandLine(0), line);
    demand.Form.RemoveDemandLine(0);
    EXPECT_EQ(demand.Form.SelectedDemand(), -1);
}

TEST(HeadlessForm, HasNobodyToAnswer) {
    HeadlessForm form(std::filesystem::path("nowhere"));
    EXPECT_FALSE(form.AskYesNo("Do you?", MessageIcon::Question, Answer::Yes));
    EXPECT_FALSE(form.SolveAnyway("It may be wrong."));
    EXPECT_EQ(form.InputBox("How many?", "Number", "3"), "");
}

}  // namespace
}  // namespace quarnel02
