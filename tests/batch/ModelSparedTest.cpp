// The batch program never changes its model, whatever files it is told to write.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/SolveRun.h"
#include "support/StochModels.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::NamesIn;
using test::SolveRun;

using Lines = std::vector<std::string>;

class ModelSpared : public testing::Test {
  protected:
    [[nodiscard]] std::string File(const std::string& name) const {
        return PathText(Run.File(name));
    }
    [[nodiscard]] std::string Make(const std::string& name) const {
        fs::create_directories(Run.File(name).parent_path());
        return Run.Make(name, test::StagesModel());
    }
    /// The solve of `model` ends before anything is written, and the line names the option.
    void ExpectRefused(const std::string& model, Lines options, const std::string& option) const {
        const std::string before = ReadFile(model);
        const auto written = fs::last_write_time(model);
        const auto names = NamesIn(fs::path(model).parent_path());
        options.insert(options.begin(), model);
        const auto result = Run(options);
        EXPECT_EQ(result.Status, 1);
        EXPECT_EQ(result.Out, "");
        EXPECT_NE(result.Err.find(option), std::string::npos) << result.Err;
        EXPECT_EQ(std::count(result.Err.begin(), result.Err.end(), '\n'), 1) << result.Err;
        EXPECT_EQ(ReadFile(model), before);
        EXPECT_EQ(fs::last_write_time(model), written);
        EXPECT_EQ(NamesIn(fs::path(model).parent_path()), names);
        EXPECT_TRUE(Run.LeftNothing());
    }
    const Lines Fixed = {"--shifts", "1", "--demand", "100000"};
    static Lines With(Lines options, const Lines& more) {
        options.insert(options.end(), more.begin(), more.end());
        return options;
    }

    const SolveRun Run;
};

TEST_F(ModelSpared, ByItsReport) {
    const auto model = Make("out/RunRpt.txt");
    ExpectRefused(model, With(Fixed, {"--out", File("out")}), "--out");
    const auto other = Make("out/ProdRpt.txt");
    ExpectRefused(other, {"--stochastic", "--out", File("out")}, "--out");
}

TEST_F(ModelSpared, ByAReportThatLinksToIt) {
    const auto model = Make("line.mdb");
    fs::create_directory(Run.File("out"));
    fs::create_symlink(model, Run.File("out/RunRpt.txt"));
    fs::create_hard_link(model, Run.File("out/ProdRpt.txt"));
    ExpectRefused(model, With(Fixed, {"--out", File("out")}), "--out");
    ExpectRefused(model, {"--stochastic", "--out", File("out")}, "--out");
}

TEST_F(ModelSpared, ByAPicture) {
    const auto model = Make("line.mdb");
    fs::create_directory(Run.File("out"));
    for (const std::string name :
         {"network.svg", "summary.svg", "line.svg", "demand.svg", "costs.svg"}) {
        fs::create_hard_link(model, Run.File("out") / name);
        ExpectRefused(model, {"--stochastic", "--out", File("out"), "--pictures"}, name);
        fs::remove(Run.File("out") / name);
    }
    fs::create_hard_link(model, Run.File("out/line.svg"));
    const auto result = Run({model, "--shifts", "1", "--demand", "100000", "--out", File("out")});
    EXPECT_EQ(result.Status, 0) << result.Err;  // without pictures nothing is written there
    EXPECT_TRUE(fs::equivalent(model, Run.File("out/line.svg")));
}

TEST_F(ModelSpared, ByRunFiles) {
    const auto model = Make("line.mdb");
    fs::create_directory(Run.File("kept"));
    fs::create_symlink(model, Run.File("kept/IT11"));
    ExpectRefused(model, {"--stochastic", "--keep-run-files", File("kept")}, "--keep-run-files");
    const auto named = Make("runs/Final1");
    ExpectRefused(named, {"--stochastic", "--keep-run-files", File("runs")}, "--keep-run-files");
}

TEST_F(ModelSpared, WhenItStandsAmongResultsUnderItsOwnName) {
    const auto model = Make("IT list.mdb");
    const std::string before = ReadFile(model);
    const auto result =
        Run({model, "--stochastic", "--out", File(""), "--save", File("solved.mdb")});
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_EQ(ReadFile(model), before);
}

TEST_F(ModelSpared, BySavingOverAFurtherNameOfIt) {
    const auto model = Make("line.mdb");
    fs::create_hard_link(model, Run.File("same.mdb"));
    ExpectRefused(model, With(Fixed, {"--save", File("same.mdb")}), "--save");
}

TEST_F(ModelSpared, BySavingWhereItWouldPassForAJournal) {
    const auto model = Make("line.mdb-journal");
    ExpectRefused(model, With(Fixed, {"--save", File("line.mdb")}), "--save");
    const auto left = Make(".quarnel02-abcdef");
    ExpectRefused(left, With(Fixed, {"--save", File("line.mdb")}), "--save");
}

TEST_F(ModelSpared, AndAFileInPlaceOfADirectoryIsRefusedBeforeTheSolve) {
    const auto model = Make("line.mdb");
    ExpectRefused(model, With(Fixed, {"--out", model}), "--out");
    ExpectRefused(model, {"--stochastic", "--keep-run-files", model}, "--keep-run-files");
}

}  // namespace
}  // namespace quarnel02
