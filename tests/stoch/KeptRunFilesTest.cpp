// Run files of whole solves: how many there are, and which of them are kept however the solve ends.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "generate_model.h"
#include "support/RunTimeErrors.h"
#include "support/StochModels.h"
#include "support/StochSolve.h"

namespace quarnel02 {
namespace {

using test::NamesIn;
using test::StagesModel;
using test::StochSolve;

using Names = std::vector<std::string>;

/// Lists the application directory when the status window goes, and looks for tables that are only
/// kept whenever its text changes.
class WatchingForm : public test::ScriptedForm {
  public:
    using ScriptedForm::ScriptedForm;
    void SetStatus(const std::string& text) override {
        for (const std::string& name : NamesIn(Copy().Directory())) {
            Scratch |= name.starts_with("F1") || name.starts_with("Temp") || name == "Final";
        }
        ScriptedForm::SetStatus(text);
    }
    void HideStatus() override { Names = NamesIn(Copy().Directory()); }

    std::vector<std::string> Names;
    bool Scratch = false;
};

std::ptrdiff_t CountOf(const Names& names, const std::string& family) {
    return std::count_if(names.begin(), names.end(),
                         [&](const std::string& name) { return name.starts_with(family); });
}

TEST(RunFilesOfASolve, AreOnePerArcAndPerTaskAndTwo) {
    const test::TestModel model(GeneratedModelScript(12, 6, 1));
    WatchingForm form(model.Directory());
    LoadModel(form);
    ListDemand(form.Copy(), form);
    form.SetText(TextBox::txtPenalty, "15");
    cmdStoch_Click(form);
    EXPECT_FALSE(form.Scratch);
    EXPECT_EQ(CountOf(form.Names, "IT"), 12 * 13 / 2);
    EXPECT_EQ(CountOf(form.Names, "Final"), 12);
    std::erase(form.Names, "blank.seq");
    std::erase(form.Names, "working.seq");
    EXPECT_EQ(form.Names.size(), 78U + 12U + 2U);
    EXPECT_EQ(NamesIn(model.Directory()), (Names{"ProdRpt.txt", "blank.seq", "working.seq"}));
}

const Names kOfStagesModel = {"EProd", "EShift", "F1T1.R1", "F1T2.R1", "F2T2.R1", "F2T2.R2",
                              "Final", "Final1", "Final2",  "IT11",    "IT12",    "IT22",
                              "Temp1", "Temp2",  "TempA",   "TempC"};

TEST(RunFilesOfASolve, AreKeptOnSuccess) {
    const TemporaryDirectory kept;
    StochSolve solve(StagesModel());
    const StochasticOutcome outcome = cmdStoch_Click(solve.Form, kept.Path());
    EXPECT_EQ(outcome.End, StochasticEnd::Designed);
    EXPECT_EQ(NamesIn(kept.Path()), kOfStagesModel);
    EXPECT_EQ(solve.Files(), Names{"ProdRpt.txt"});
}

TEST(RunFilesOfASolve, AreKeptWhenATaskCannotBeDone) {
    test::ModelScript model = StagesModel();
    model.Tasks = 3;
    model.Matrix.push_back({2, 3, 0, 2, 500});  // no time
    const TemporaryDirectory kept;
    StochSolve solve(model);
    const StochasticOutcome outcome = cmdStoch_Click(solve.Form, kept.Path());
    EXPECT_EQ(outcome.End, StochasticEnd::ImpossibleTask);
    EXPECT_EQ(outcome.Summary, "");
    EXPECT_EQ(NamesIn(kept.Path()), kOfStagesModel);
    // Meant: the program ends at once, without a clean-up.
    EXPECT_EQ(solve.Files(),
              (Names{"EProd", "EShift", "Final1", "Final2", "IT11", "IT12", "IT22"}));
}

TEST(RunFilesOfASolve, AreKeptWhenTheSolveFails) {
    test::ModelScript model = StagesModel();
    model.Resources[1].FixedCost = 3e38;
    model.Resources[1].ICF = 2;  // more than a single holds, and only Press on task 2 costs that
    const TemporaryDirectory kept;
    StochSolve solve(model);
    test::ExpectRunTimeError(ErrorKind::Overflow, [&] { cmdStoch_Click(solve.Form, kept.Path()); });
    EXPECT_EQ(NamesIn(kept.Path()), (Names{"EProd", "EShift", "F1T1.R1", "F1T2.R1", "F2T2.R1",
                                           "Final1", "IT11", "IT12", "Temp1", "TempA"}));
    EXPECT_EQ(solve.Files(), Names{});
}

TEST(RunFilesOfASolve, ThatIsNotCompleteAreNone) {
    const TemporaryDirectory kept;
    StochSolve solve(StagesModel().Sql() + "DELETE FROM Resources WHERE ResourceId = 2;");
    EXPECT_EQ(cmdStoch_Click(solve.Form, kept.Path()).End, StochasticEnd::NotStarted);
    EXPECT_EQ(NamesIn(kept.Path()), Names{});
}

}  // namespace
}  // namespace quarnel02
