#include "shell/Reports.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/ScriptedForm.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ScriptedForm;
using test::TestModel;

TEST(HasReport, FindsFilesOnly) {
    const TestModel model;
    const ScriptedForm form(model.Directory());
    EXPECT_FALSE(HasReport(form.Copy(), kProductionReport));
    std::filesystem::create_directory(model.File("ProdRpt.txt"));
    EXPECT_FALSE(HasReport(form.Copy(), kProductionReport));
    WriteFile(model.File("RunRpt.txt"), "x");
    EXPECT_TRUE(HasReport(form.Copy(), kRunReport));
}

TEST(RemoveReport, RemovesTheNamedReportOnly) {
    const TestModel model;
    const ScriptedForm form(model.Directory());
    WriteFile(model.File("RunRpt.txt"), "x");
    WriteFile(model.File("ProdRpt.txt"), "x");
    RemoveReport(form.Copy(), kRunReport);
    EXPECT_FALSE(HasReport(form.Copy(), kRunReport));
    EXPECT_TRUE(HasReport(form.Copy(), kProductionReport));
    EXPECT_NO_THROW(RemoveReport(form.Copy(), kRunReport));
}

TEST(RemoveReport, LeavesADirectoryOfThatName) {
    const TestModel model;
    std::filesystem::create_directory(model.File("RunRpt.txt"));
    RemoveReport(WorkingCopy(model.Directory()), kRunReport);
    EXPECT_TRUE(std::filesystem::is_directory(model.File("RunRpt.txt")));
}

TEST(ClearResults, ClearsThePicturesAndForgetsTheDesign) {
    const TestModel model;
    ScriptedForm form(model.Directory());
    form.LastDesign.emplace();
    for (Picture& picture : form.picGraph) {
        picture.Print("old");
    }
    form.picLoad.Print("old");
    ClearResults(form);
    EXPECT_FALSE(form.LastDesign);
    for (const Picture& picture : form.picGraph) {
        EXPECT_TRUE(picture.Figures().empty());
    }
    EXPECT_TRUE(form.picLoad.Figures().empty());
}

TEST(OpenReport, StartsTheEditorOnTheFullPath) {
    const TestModel model;
    WriteFile(model.File("RunRpt.txt"), "x");
    WriteFile(model.File("ProdRpt.txt"), "x");
    ScriptedForm form(model.Directory());
    OpenReport(form.Copy(), kRunReport, form);
    OpenReport(form.Copy(), kProductionReport, form);
    EXPECT_EQ(form.Events, (std::vector<std::string>{
                               "start: notepad.exe " + PathText(model.File("RunRpt.txt")),
                               "start: notepad.exe " + PathText(model.File("ProdRpt.txt"))}));
}

TEST(OpenReport, DoesNothingWithoutAReport) {
    const TestModel model;
    ScriptedForm form(model.Directory());
    OpenReport(form.Copy(), kRunReport, form);
    OpenReport(form.Copy(), kProductionReport, form);
    EXPECT_TRUE(form.Events.empty());
}

TEST(OpenReport, TakesPathsWithUmlautsBlanksAndCommas) {
    const TestModel model;
    const auto folder = model.Directory() / std::filesystem::path(u8"Öl, neu");
    std::filesystem::create_directory(folder);
    WriteFile(folder / "Bericht 1.txt", "");
    ScriptedForm form(folder);
    OpenReport(form.Copy(), "Bericht 1.txt", form);
    EXPECT_EQ(form.Events, std::vector<std::string>{"start: notepad.exe " + PathText(folder) +
                                                    "/Bericht 1.txt"});
}

TEST(OpenReport, OpensTheReportThatIsNamed) {
    const TestModel model;
    WriteFile(model.File("ProdRpt.txt"), "x");
    ScriptedForm form(model.Directory());
    OpenReport(form.Copy(), kRunReport, form);
    EXPECT_TRUE(form.Events.empty());
    OpenReport(form.Copy(), "ProdRpt.txt", form);
    EXPECT_EQ(form.Events.size(), 1U);
}

}  // namespace
}  // namespace quarnel02
