#include "shell/Reports.h"

#include <gtest/gtest.h>

#include "support/ScriptedForm.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ScriptedForm;
using test::TestModel;

TEST(OpenReport, StartsTheEditorOnTheFullPath) {
    const TestModel model;
    WriteFile(model.File("RunRpt.txt"), "x");
    ScriptedForm form(model.Directory());
    mnuViewLastCont(form);
    EXPECT_EQ(form.Events,
              std::vector<std::string>{"start: notepad.exe " + PathText(model.File("RunRpt.txt"))});
}

TEST(OpenReport, DoesNothingWithoutAReport) {
    const TestModel model;
    ScriptedForm form(model.Directory());
    mnuViewLastCont(form);
    EXPECT_TRUE(form.Events.empty());
}

}  // namespace
}  // namespace quarnel02
