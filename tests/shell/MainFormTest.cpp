#include "shell/MainForm.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "support/RunTimeErrors.h"
#include "support/ScriptedForm.h"
#include "support/Surroundings.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::ScriptedForm;
using test::TestModel;
using Texts = std::vector<std::string>;

TEST(MainForm, StartsWithNoLimitAndNoModel) {
    const TestModel model;
    const ScriptedForm form(model.Directory());
    EXPECT_FALSE(form.Model.IsOpen());
    EXPECT_FALSE(form.GenRecords.IsOpen());
    EXPECT_FALSE(form.PathwayRecords.IsOpen());
    EXPECT_EQ(form.FixedDemandSolve.StationLimit, -1);
    EXPECT_EQ(form.FixedDemandSolve.StationLimitText, "--");
    EXPECT_EQ(form.FixedDemandSolve.ShiftCount, 0);
    EXPECT_EQ(form.FixedDemandSolve.FixedDemand, "");
}

TEST(MainForm, HasEmptyPicturesOfItsSizes) {
    const TestModel model;
    const ScriptedForm form(model.Directory());
    EXPECT_EQ(form.picArc.Width(), 15000);
    EXPECT_GT(form.picArc.Height(), 1500);
    EXPECT_TRUE(form.picArc.Figures().empty());
    for (const Picture& picture : form.picGraph) {
        EXPECT_GT(picture.Width(), 0);
        EXPECT_GT(picture.Height(), 0);
        EXPECT_TRUE(picture.Figures().empty());
    }
}

TEST(MainForm, JoinsFilesToItsDirectory) {
    const ScriptedForm form(std::filesystem::path(u8"/Öl, neu"));
    EXPECT_EQ(PathText(form.InApplicationDirectory("RunRpt.txt")), "/Öl, neu/RunRpt.txt");
}

TEST(MainForm, OpensTheWorkingCopyAsItsSharedHandle) {
    const TestModel model("UPDATE Gen SET Tasks = 7;");
    ScriptedForm form(model.Directory());
    EXPECT_EQ(form.OpenWorkingCopy().OpenRecordSet("SELECT Tasks FROM Gen;").Integer(0), 7);
    EXPECT_TRUE(form.Model.IsOpen());
}

TEST(MainForm, RecordSetsOutliveTheNextOpening) {
    const TestModel model("UPDATE Gen SET Tasks = 7;");
    ScriptedForm form(model.Directory());
    form.GenRecords = form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Gen;");
    form.OpenWorkingCopy();
    EXPECT_EQ(form.GenRecords.Integer("Tasks"), 7);
}

TEST(MainForm, HasNoWorkingCopyToOpen) {
    const TemporaryDirectory nothing;
    ScriptedForm form(nothing.Path());
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileNotFound, [&] { form.OpenWorkingCopy(); });
    EXPECT_NE(message.find("working.seq"), std::string::npos) << message;
    EXPECT_TRUE(test::NamesIn(nothing.Path()).empty());
}

TEST(CloseModel, ClosesTheSharedHandleAndItsRecordSets) {
    const TestModel model;
    ScriptedForm form(model.Directory());
    form.GenRecords = form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Gen;");
    form.PathwayRecords = form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Pathways;");
    form.PathwayRecords.AddNew();
    form.PathwayRecords.Set("PathId", std::int64_t{1});
    form.PathwayRecords.Update();
    form.CloseModel();
    EXPECT_FALSE(form.Model.IsOpen());
    EXPECT_FALSE(form.GenRecords.IsOpen());
    EXPECT_FALSE(form.PathwayRecords.IsOpen());
    form.CloseModel();
}

TEST(CloseModel, LeavesTheWorkingCopyAsOneWholeFile) {
    const TestModel model;
    ScriptedForm form(model.Directory());
    form.GenRecords = form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Gen;");
    form.GenRecords.Edit();
    form.GenRecords.Set("Product", std::string("Pump"));
    form.GenRecords.Update();
    form.CloseModel();
    EXPECT_EQ(test::NamesIn(model.Directory()), (Texts{"blank.seq", "working.seq"}));
    CopyWhole(model.File(), model.File("saved.mdb"));
    CopyWhole(model.File("blank.seq"), model.File());
    const auto product = [&] {
        return form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Gen;").Text("Product");
    };
    EXPECT_EQ(product(), "Untitled");
    form.CloseModel();
    CopyWhole(model.File("saved.mdb"), model.File());
    EXPECT_EQ(product(), "Pump");
}

}  // namespace
}  // namespace quarnel02
