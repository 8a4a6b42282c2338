#include "batch/SolveFile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "batch/BatchForm.h"
#include "batch/Results.h"
#include "shell/Reports.h"
#include "support/RunTimeErrors.h"
#include "support/SolveRun.h"

namespace quarnel02 {
namespace {

using test::SolveRun;
using test::WorkedExample;

SolveRequest RequestFor(const std::string& model, const std::string& demand) {
    SolveRequest request;
    request.Model = model;
    request.Demand = demand;
    return request;
}

TEST(SolveFile, SolvesTheWorkedExample) {
    const std::string model = std::string(QUARNEL02_PROGRAMS) + "/examples/worked-example.mdb";
    const SolveOutcome outcome = SolveFile(RequestFor(model, "100000"));
    EXPECT_NE(outcome.Report.find("\nTotal Cost:         $64,336\n"), std::string::npos);
    EXPECT_TRUE(outcome.Messages.empty());
}

TEST(SolveFile, PassesOnWhatTheSystemSays) {
    const SolveRun run;
    SolveRequest request = RequestFor(run.Make("line.mdb", WorkedExample()), "5000000");
    request.StationLimit = "1";
    const SolveOutcome outcome = SolveFile(request);
    EXPECT_EQ(outcome.Report, "");
    EXPECT_EQ(outcome.Messages, std::vector<std::string>{"There is not a feasible solution!"});
}

TEST(SolveFile, SolvesTheSameModelTwiceInOneProcess) {
    const SolveRun run;
    const SolveRequest request = RequestFor(run.Make("line.mdb", WorkedExample()), "200000");
    const SolveOutcome first = SolveFile(request);
    EXPECT_FALSE(first.Report.empty());
    EXPECT_EQ(SolveFile(request).Report, first.Report);
}

TEST(SolveFile, NamesTheFileThatIsNoModel) {
    const SolveRun run;
    WriteFile(run.File("notes.mdb"), "notes");
    const auto message = test::ExpectRunTimeError(
        ErrorKind::NotAModel, [&] { SolveFile(RequestFor(PathText(run.File("notes.mdb")), "5")); });
    EXPECT_NE(message.find("notes.mdb"), std::string::npos) << message;
}

constexpr const char* kEndsEarly =
    "This line ends after task 11: no resource can do tasks 12 to 12 within the limits.";

/// A solve that has left a report.
class Outcome : public testing::Test {
  protected:
    Outcome() {
        MakeEmptyModel(Form.Copy().Path());
        WriteFile(Form.Copy().File(kRunReport), "Solution\n");
        Request.OutDirectory = Run.File("out");
        Request.SaveAs = Run.File("solved.mdb");
    }

    const SolveRun Run;
    const TemporaryDirectory Directory;
    BatchForm Form{Directory.Path(), false};
    SolveRequest Request = RequestFor("line.mdb", "5");
};

TEST_F(Outcome, OfAWholeLineIsItsReport) {
    const SolveOutcome outcome = TakeOutcome(Form, Request, kRunReport, ModelFormat::Sqlite);
    EXPECT_EQ(outcome.Report, "Solution\n");
    EXPECT_TRUE(outcome.Messages.empty());
    EXPECT_EQ(ReadFile(Run.File("out/RunRpt.txt")), "Solution\n");
    EXPECT_NO_THROW(CheckModelFile(Run.File("solved.mdb"), "solved.mdb"));
}

TEST_F(Outcome, OfALineThatEndsEarlyIsItsReportAndTheMessage) {
    Form.ShowMessage(kEndsEarly, MessageIcon::Information);
    const SolveOutcome outcome = TakeOutcome(Form, Request, kRunReport, ModelFormat::Sqlite);
    EXPECT_EQ(outcome.Report, "Solution\n");
    EXPECT_EQ(outcome.Messages, std::vector<std::string>{kEndsEarly});
    EXPECT_EQ(ReadFile(Run.File("out/RunRpt.txt")), "Solution\n");
    EXPECT_FALSE(std::filesystem::exists(Run.File("solved.mdb")));
}

TEST_F(Outcome, OfNoLineIsTheMessageAlone) {
    std::filesystem::remove(Form.Copy().File(kRunReport));
    Form.ShowMessage("There is no feasible solution!", MessageIcon::Information);
    const SolveOutcome outcome = TakeOutcome(Form, Request, kRunReport, ModelFormat::Sqlite);
    EXPECT_EQ(outcome.Report, "");
    EXPECT_EQ(outcome.Messages, std::vector<std::string>{"There is no feasible solution!"});
    EXPECT_EQ(test::NamesIn(Run.File("")), std::vector<std::string>{"tmp"});
}

TEST(BatchForm, SaysAWarningAndSolvesAnyway) {
    const TemporaryDirectory directory;
    BatchForm form(directory.Path(), false);
    testing::internal::CaptureStderr();
    EXPECT_TRUE(form.SolveAnyway("The probabilities add up to 85%."));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "The probabilities add up to 85%.\n");
    EXPECT_TRUE(form.Messages().empty());
}

TEST(BatchForm, KeepsMessagesInOrder) {
    const TemporaryDirectory directory;
    BatchForm form(directory.Path(), false);
    form.ShowMessage("first", MessageIcon::Information);
    form.ShowMessage("second", MessageIcon::Critical);
    EXPECT_EQ(form.Messages(), (std::vector<std::string>{"first", "second"}));
}

}  // namespace
}  // namespace quarnel02
