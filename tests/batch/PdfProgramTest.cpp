// --pdf of the batch program: the report as a document, made by the program of the desktop package.
#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/SolveRun.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::SolveRun;
using test::WorkedExample;
using ::testing::ContainsRegex;
using ::testing::HasSubstr;

class PdfProgram : public ::testing::Test {
  protected:
    [[nodiscard]] std::string Text() const {
        return test::RunProgram({"pdftotext", "-layout", Pdf, "-"}).Out;
    }
    [[nodiscard]] static std::vector<std::string> Order(const std::string& model,
                                                        const std::string& pdf) {
        return {model, "--shifts", "1", "--demand", "100000", "--pdf", pdf};
    }

    SolveRun Run;
    std::string Model = Run.Make("line.mdb", WorkedExample());
    std::string Pdf = PathText(Run.File("report.pdf"));
};

TEST_F(PdfProgram, WritesTheReportAsADocumentAndPrintsItAsEver) {
    const auto result = Run(Order(Model, Pdf));
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Err, "");
    EXPECT_THAT(result.Out, HasSubstr("Total Cost:         $64,336\n"));
    const std::string text = Text();
    EXPECT_THAT(text, HasSubstr("1 shift, 100,000 units a year"));
    EXPECT_THAT(text, ContainsRegex("Model +line.mdb"));
    EXPECT_THAT(text, HasSubstr("Arc network"));
    EXPECT_THAT(text, ContainsRegex("All stations .*\\$64,336"));
    EXPECT_TRUE(Run.LeftNothing());
}

TEST_F(PdfProgram, OfAStochasticDesignHoldsDemandAndCosts) {
    test::ModelScript model = WorkedExample();
    model.Demand = {{50000, 40}, {100000, 60}};
    const auto result = Run({Run.Make("two.mdb", model), "--stochastic", "--pdf", Pdf});
    EXPECT_EQ(result.Status, 0) << result.Err;
    for (const char* part : {"Demand distribution", "Expected annual cost", "Final Solution"}) {
        EXPECT_THAT(Text(), HasSubstr(part));
    }
}

TEST_F(PdfProgram, WithoutTheDesktopPackageSaysWhatToInstall) {
    const TemporaryDirectory alone;
    const fs::path solver = alone.Path() / "quarnel02-solve";
    fs::copy_file(fs::path(QUARNEL02_PROGRAMS) / "quarnel02-solve", solver);
    std::vector<std::string> command = Order(Model, Pdf);
    command.insert(command.begin(), PathText(solver));
    const auto result = test::RunProgram(command);
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Out, "");
    EXPECT_EQ(result.Err, "quarnel02-solve: --pdf needs the program " +
                              PathText(alone.Path() / "quarnel02-report") +
                              ", which is not installed. Install the package quarnel02, or keep "
                              "report and drawings with --out DIR --pictures.\n");
    EXPECT_FALSE(fs::exists(Pdf));
}

TEST_F(PdfProgram, BearsTheDateThatABuildAsksFor) {
    std::vector<std::string> command = Order(Model, Pdf);
    command.insert(command.begin(), std::string(QUARNEL02_PROGRAMS) + "/quarnel02-solve");
    const auto result =
        test::RunProgram(command, {{"SOURCE_DATE_EPOCH", "1000000000"}, {"TZ", "UTC"}});
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_THAT(Text(), ContainsRegex("Designed at +2001-09-09 01:46"));
}

TEST_F(PdfProgram, NeverWritesOverTheModel) {
    const std::string before = ReadFile(Model);
    fs::create_symlink(Model, Run.File("link.pdf"));
    for (const std::string& file : {Model, PathText(Run.File("link.pdf"))}) {
        const auto result = Run(Order(Model, file));
        EXPECT_EQ(result.Status, 1);
        EXPECT_THAT(result.Err, HasSubstr("--pdf would write over"));
        EXPECT_EQ(result.Out, "");
    }
    EXPECT_EQ(ReadFile(Model), before);
}

TEST_F(PdfProgram, NamesADirectoryThatIsMissingBeforeItSolves) {
    const auto result = Run(Order(Model, PathText(Run.File("no/report.pdf"))));
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Out, "");
    EXPECT_THAT(result.Err, HasSubstr("there is no directory " + PathText(Run.File("no"))));
}

TEST_F(PdfProgram, AndTheSavedModelAreTwoFiles) {
    std::vector<std::string> order = Order(Model, Pdf);
    order.insert(order.end(), {"--save", Pdf});
    const auto result = Run(order);
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Err, HasSubstr("--pdf and --save name the same file"));
    EXPECT_FALSE(fs::exists(Pdf));
}

TEST_F(PdfProgram, LeavesAFileThatCannotBeReplaced) {
    WriteFile(Pdf, "kept");
    fs::permissions(Pdf, fs::perms::owner_read);
    const auto result = Run(Order(Model, Pdf));
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Err, HasSubstr("report.pdf is write-protected"));
    EXPECT_EQ(ReadFile(Pdf), "kept");
}

TEST_F(PdfProgram, WithoutALineThereIsNone) {
    test::ModelScript model = WorkedExample();
    model.Matrix.pop_back();
    model.Matrix.pop_back();
    const auto result = Run(Order(Run.Make("none.mdb", model), Pdf));
    EXPECT_EQ(result.Status, 2);
    EXPECT_FALSE(fs::exists(Pdf));
}

TEST_F(PdfProgram, IsForOneDesign) {
    const auto study = Run({Model, "--study", "volumes", "--pdf", Pdf});
    EXPECT_NE(study.Status, 0);
    EXPECT_THAT(study.Err, HasSubstr("--pdf does not go with --study volumes"));
    const auto several = Run({Model, Model, "--shifts", "1", "--demand", "1000", "--pdf", Pdf});
    EXPECT_NE(several.Status, 0);
    EXPECT_THAT(several.Err, HasSubstr("--pdf does not go with several models"));
    EXPECT_FALSE(fs::exists(Pdf));
}

TEST_F(PdfProgram, OfTheDesktopPackageTellsItsVersion) {
    const auto result = Run.Program("quarnel02-report", {"--version"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Out, ContainsRegex("^quarnel02-report [0-9]+\\.[0-9]+\\.[0-9]+\n$"));
}

}  // namespace
}  // namespace quarnel02
