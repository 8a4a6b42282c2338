#include "shell/Demand.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/RunTimeErrors.h"
#include "support/ScriptedForm.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
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

TEST(CountDemandRows, CountsTheTable) {
    DemandForm none;
    EXPECT_EQ(CountDemandRows(none.Form), 0);
    DemandForm three("(1, 20), (1, 20), (2, 60)");
    EXPECT_EQ(CountDemandRows(three.Form), 3);
}

TEST(ShowDemandRow, ShowsTheRowAtItsPlaceByVolume) {
    DemandForm demand("(1234567, 25), (12500, 33.3), (20000, 41.7)");
    ShowDemandRow(demand.Form, 0);
    EXPECT_EQ(demand.Shown(), "12,500 at 33.3%");
    ShowDemandRow(demand.Form, 1);
    EXPECT_EQ(demand.Shown(), "20,000 at 41.7%");
    ShowDemandRow(demand.Form, 2);
    EXPECT_EQ(demand.Shown(), "1,234,567 at 25%");
}

TEST(ShowDemandRow, ShowsEqualVolumesInTheOrderAdded) {
    DemandForm demand("(500, 30), (500, 10), (500, 20)");
    std::string shown;
    for (int line = 0; line < 3; ++line) {
        ShowDemandRow(demand.Form, line);
        shown += demand.Form.Text(TextBox::txtProb);
    }
    EXPECT_EQ(shown, "30%10%20%");
}

TEST(ShowDemandRow, ShowsNothingForAVolumeOfZero) {
    DemandForm demand("(0, 100)");
    ShowDemandRow(demand.Form, 0);
    EXPECT_EQ(demand.Shown(), " at 100%");
}

TEST(ShowDemandRow, RoundsTheVolumeButNotThePercentage) {
    DemandForm demand("(999.5, 0.125)");
    ShowDemandRow(demand.Form, 0);
    EXPECT_EQ(demand.Shown(), "1,000 at 0.125%");
}

TEST(ShowDemandRow, NeedsARow) {
    DemandForm none;
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { ShowDemandRow(none.Form, 0); });
    DemandForm one("(500, 100)");
    one.Form.SetText(TextBox::txtVolume, "kept");
    for (const int line : {1, 2, -1}) {
        ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { ShowDemandRow(one.Form, line); });
    }
    EXPECT_EQ(one.Form.Text(TextBox::txtVolume), "kept");
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
    demand.Form.ListDemand();
    EXPECT_EQ(demand.Form.DemandCount(), 2);
    EXPECT_EQ(demand.Form.SelectedDemand(), -1);
    demand.Form.SelectDemand(1);
    EXPECT_EQ(demand.Form.SelectedDemand(), 1);
    EXPECT_EQ(demand.Shown(), "500 at 40%");
    EXPECT_EQ(demand.Form.Events, std::vector<std::string>{"select: 1"});
    demand.Form.ListDemand();
    EXPECT_EQ(demand.Form.SelectedDemand(), -1);
}

}  // namespace
}  // namespace quarnel02
