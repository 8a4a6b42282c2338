#include "commands/LoadModel.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/LoadedModel.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::ScriptedForm;
using test::TestModel;

using Lines = std::vector<std::string>;

constexpr const char* kGenRow =
    "UPDATE Gen SET Resources = 0, Tasks = 3, Days = 240.5, ACF = 0.28, LaborCost = 24, "
    "TransportTime = 4.25, Penalty = 18, Product = 'Pump, small';";

Lines Boxes(const ScriptedForm& form) {
    Lines texts;
    for (const TextBox box :
         {TextBox::txtResources, TextBox::txtTasks, TextBox::txtDays, TextBox::txtACF,
          TextBox::txtLaborCost, TextBox::txtTransTime, TextBox::txtPenalty, TextBox::txtProduct}) {
        texts.push_back(form.Text(box));
    }
    return texts;
}

TEST(LoadModel, FillsTheBoxesFromGen) {
    const TestModel model(kGenRow);
    ScriptedForm form(model.Directory());
    LoadModel(form);
    EXPECT_EQ(Boxes(form), (Lines{"0", "3", "240.5", "0.28", "24", "4.25", "18", "Pump, small"}));
}

TEST(LoadModel, ClearsTheBoxesOfADemandRow) {
    const TestModel model(kGenRow);
    ScriptedForm form(model.Directory());
    form.SetText(TextBox::txtVolume, "5,000");
    form.SetText(TextBox::txtProb, "60%");
    LoadModel(form);
    EXPECT_EQ(form.Text(TextBox::txtVolume), "");
    EXPECT_EQ(form.Text(TextBox::txtProb), "");
}

TEST(LoadModel, ClearsTheResultsEvenWhenTheNetworkCannotBeBuilt) {
    const TestModel model("UPDATE Gen SET Tasks = 256;");
    ScriptedForm form(model.Directory());
    form.LastDesign.emplace();
    form.picGraph[0].Print("old");
    ExpectRunTimeError(ErrorKind::Overflow, [&] { LoadModel(form); });
    EXPECT_FALSE(form.LastDesign);
    EXPECT_TRUE(form.picGraph[0].Figures().empty());
}

TEST(LoadModel, ShowsTheTemplate) {
    const TestModel model;
    ScriptedForm form(model.Directory());
    LoadModel(form);
    EXPECT_EQ(Boxes(form), (Lines{"0", "0", "250", "0.25", "20", "5", "0", "Untitled"}));
    EXPECT_EQ(model.RowsOf("SELECT * FROM Arcs;", 1), Lines{});
}

TEST(LoadModel, LeavesABoxEmptyForAnEmptyField) {
    const TestModel model("UPDATE Gen SET Product = NULL, Penalty = NULL;");
    ScriptedForm form(model.Directory());
    LoadModel(form);
    EXPECT_EQ(form.Text(TextBox::txtProduct), "");
    EXPECT_EQ(form.Text(TextBox::txtPenalty), "");
}

TEST(LoadModel, IsBusyFromStartToEndAndSaysNothing) {
    const TestModel model(kGenRow);
    ScriptedForm form(model.Directory());
    LoadModel(form);
    EXPECT_EQ(form.Events, (Lines{"busy", "idle"}));
}

TEST(LoadModel, RebuildsTheNetworkAndClearsTheResults) {
    const TestModel model(kGenRow);
    ScriptedForm form(model.Directory());
    for (Picture& picture : form.picGraph) {
        picture.Print("old");
    }
    form.LastDesign.emplace();
    LoadModel(form);
    EXPECT_FALSE(form.LastDesign);
    EXPECT_EQ(model.RowsOf("SELECT * FROM Arcs;", 1).size(), 6U);
    for (const Picture& picture : form.picGraph) {
        EXPECT_TRUE(picture.Figures().empty());
    }
    EXPECT_FALSE(form.picArc.Figures().empty());
}

TEST(LoadModel, NeedsTheRowOfGenAndRestoresThePointer) {
    const TestModel model("DELETE FROM Gen;");
    ScriptedForm form(model.Directory());
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { LoadModel(form); });
    EXPECT_EQ(form.Events, (Lines{"busy", "idle"}));
}

TEST(LoadModel, RestoresThePointerWhenTheNetworkIsTooLarge) {
    const TestModel model("UPDATE Gen SET Tasks = 256;");
    ScriptedForm form(model.Directory());
    ExpectRunTimeError(ErrorKind::Overflow, [&] { LoadModel(form); });
    EXPECT_EQ(form.Events, (Lines{"busy", "idle"}));
}

TEST(LoadModel, NeedsTheWorkingCopy) {
    const TestModel model;
    std::filesystem::remove(model.File());
    ScriptedForm form(model.Directory());
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileNotFound, [&] { LoadModel(form); });
    EXPECT_NE(message.find("working.seq"), std::string::npos) << message;
    EXPECT_EQ(form.Events, (Lines{"busy", "idle"}));
}

}  // namespace
}  // namespace quarnel02
