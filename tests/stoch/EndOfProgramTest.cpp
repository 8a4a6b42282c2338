// A task that no resource can do ends the program at once, run files and all.

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "commands/LoadModel.h"
#include "shell/Demand.h"
#include "stoch/cmdStoch.h"
#include "support/ScriptedForm.h"
#include "support/StochModels.h"
#include "support/Surroundings.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

/// A form whose program really ends, after it has said why.
class EndingForm : public test::ScriptedForm {
  public:
    using ScriptedForm::ScriptedForm;
    void ShowMessage(const std::string& text, MessageIcon /*icon*/) override {
        std::cerr << text << '\n';
    }
    [[noreturn]] void EndProgram() override { std::_Exit(3); }
};

TEST(EndOfProgram, LeavesRunFilesAsTheyAre) {
    test::ModelScript script = test::StagesModel();
    script.Matrix = {{1, 1, 60, 1, 1000}, {2, 1, 24, 1, 1000}};  // no resource can do task 2
    const test::TestModel model(script.Sql());
    EndingForm form(model.Directory());
    LoadModel(form);
    ListDemand(form.Copy(), form);
    form.SetText(TextBox::txtPenalty, "0");
    EXPECT_EXIT(cmdStoch_Click(form), testing::ExitedWithCode(3),
                "Error creating intermediate task table");
    EXPECT_EQ(test::NamesIn(model.Directory()),
              (std::vector<std::string>{"EProd", "EShift", "Final1", "IT11", "blank.seq",
                                        "working.seq"}));
}

}  // namespace
}  // namespace quarnel02
