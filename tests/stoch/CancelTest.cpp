// A stochastic solve that is cancelled, wherever that is, leaves everything as it was.
#include <gmock/gmock.h>

#include <map>

#include "basic/RunTimeError.h"
#include "generate_model.h"
#include "shell/Reports.h"
#include "support/StochModels.h"
#include "support/StochSolve.h"

namespace quarnel02 {
namespace {

using test::StochSolve;

/// All that a solve may touch.
struct State {
    std::map<std::string, std::string> Files;
    std::map<std::string, std::filesystem::file_time_type> Times;
    std::vector<std::vector<PictureFigure>> Figures;
    std::optional<std::chrono::system_clock::time_point> Design;

    bool operator==(const State&) const = default;
};

State StateOf(const StochSolve& solve) {
    State state;
    for (const std::string& name : test::NamesIn(solve.Copy.Directory())) {
        state.Files[name] = ReadFile(solve.Copy.File(name));
        state.Times[name] = std::filesystem::last_write_time(solve.Copy.File(name));
    }
    state.Figures.push_back(solve.Form.picArc.Figures());
    for (const Picture& picture : solve.Form.picGraph) {
        state.Figures.push_back(picture.Figures());
    }
    if (solve.Form.LastDesign) {
        state.Design = solve.Form.LastDesign->When;
    }
    return state;
}

/// Presses with a cancel at that look; the next solve then counts its looks anew.
void PressAndCancel(StochSolve& solve, int look) {
    solve.Form.Looks = 0;
    solve.Form.CancelAt = look;
    solve.Press();
    solve.Form.CancelAt = 0;
}

int LooksOf(const std::string& model) {
    StochSolve solve(model);
    solve.Press();
    return solve.Form.Looks;
}

TEST(Cancel, LeavesAnEarlierDesignWhereverItComes) {
    const std::string model = test::StagesModel().Sql();
    StochSolve solve(model);
    solve.Press();
    const State before = StateOf(solve);
    ASSERT_TRUE(before.Files.contains("ProdRpt.txt"));
    ASSERT_TRUE(before.Design);
    const int looks = LooksOf(model);
    ASSERT_GT(looks, 20);
    for (int look = 1; look <= looks; ++look) {
        solve.Form.Events.clear();
        PressAndCancel(solve, look);
        EXPECT_TRUE(StateOf(solve) == before) << "look " << look;
        EXPECT_EQ(solve.Form.Events.back(), "hide status");
        EXPECT_EQ(solve.EventsOf({"message", "start"}), std::vector<std::string>{});
    }
}

TEST(Cancel, LeavesAModelWithoutADesign) {
    StochSolve solve(GeneratedModelScript(6, 4, 7));
    const State before = StateOf(solve);
    const int looks = LooksOf(GeneratedModelScript(6, 4, 7));
    for (const int look : {1, looks / 3, looks / 2, looks}) {
        PressAndCancel(solve, look);
        EXPECT_TRUE(StateOf(solve) == before) << "look " << look;
    }
}

TEST(Cancel, TheNextSolveIsAsWithoutIt) {
    const std::string model = GeneratedModelScript(6, 4, 7);
    StochSolve solve(model);
    PressAndCancel(solve, 30);
    solve.Press();
    StochSolve undisturbed(model);
    undisturbed.Press();
    EXPECT_EQ(solve.ProductionReport(), undisturbed.ProductionReport());
    EXPECT_EQ(solve.DerivedTables(), undisturbed.DerivedTables());
}

/// Pictures of a window are told that they show something else.
TEST(Cancel, PicturesSayThatTheyChanged) {
    StochSolve solve(test::StagesModel());
    solve.Press();
    const auto demand = solve.Form.picGraph[1].Figures();
    std::vector<bool> as_before;
    solve.Form.picGraph[1].OnChange = [&] {
        as_before.push_back(solve.Form.picGraph[1].Figures() == demand);
    };
    PressAndCancel(solve, 1);
    ASSERT_GE(as_before.size(), 2U);
    EXPECT_FALSE(as_before.front());
    EXPECT_TRUE(as_before.back());
}

/// A planner who has made the window larger meanwhile sees the results in its new shape.
TEST(Cancel, ResultsAreLaidOutForThePageThatIsNow) {
    StochSolve solve(test::StagesModel());
    solve.Press();
    const PictureBoxes earlier = solve.Form;
    Page larger = solve.Form.picGraph[1].LaidOutFor();
    larger.Width *= 2;
    solve.Form.picGraph[1].LayOut(larger);
    const auto wide = solve.Form.picGraph[1].Figures();
    ClearResults(solve.Form);
    ShowResultsAgain(earlier, solve.Form);
    EXPECT_EQ(solve.Form.picGraph[1].LaidOutFor(), larger);
    EXPECT_EQ(solve.Form.picGraph[1].Figures(), wide);
}

/// What fails is no cancel: a report of other figures must not pass for that of this solve.
TEST(Cancel, AFailureTakesTheEarlierReportAway) {
    StochSolve solve(test::StagesModel());
    solve.Press();
    solve.MakeFile("keep");
    std::filesystem::create_directories(solve.Copy.File("IT11") / "in the way");
    EXPECT_THROW(solve.Press(), RunTimeError);
    EXPECT_FALSE(std::filesystem::exists(solve.Copy.File("ProdRpt.txt")));
}

}  // namespace
}  // namespace quarnel02
