#include "batch/SolveFile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/RunTimeErrors.h"
#include "support/SolveRun.h"

namespace quarnel02 {
namespace {

using test::SolveRun;
using test::WorkedExample;

SolveRequest RequestFor(const std::string& model, const std::string& demand) {
    SolveRequest request;
    request.Model = model;
    request.Answers.Demand = demand;
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
    request.Answers.StationLimit = "1";
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

TEST(BatchForm, AnswersFromTheCommandLine) {
    const TemporaryDirectory directory;
    BatchForm form(directory.Path(), {"60000", "3"});
    EXPECT_EQ(form.DemandCount(), 0);
    EXPECT_EQ(form.InputBox("any prompt", "Fixed Demand", "proposal"), "60000");
    EXPECT_TRUE(form.AskYesNo("any question", MessageIcon::None, Answer::Yes));
    EXPECT_EQ(form.InputBox("any prompt", "Quarnel02", "proposal"), "3");
}

TEST(BatchForm, LimitsNothingWithoutALimit) {
    const TemporaryDirectory directory;
    BatchForm form(directory.Path(), {});
    EXPECT_FALSE(form.AskYesNo("any question", MessageIcon::None, Answer::Yes));
    EXPECT_EQ(form.InputBox("any prompt", "Fixed Demand", "proposal"), "");
}

TEST(BatchForm, KeepsMessagesInOrder) {
    const TemporaryDirectory directory;
    BatchForm form(directory.Path(), {});
    form.ShowMessage("first", MessageIcon::Information);
    form.ShowMessage("second", MessageIcon::Critical);
    EXPECT_EQ(form.Messages(), (std::vector<std::string>{"first", "second"}));
}

}  // namespace
}  // namespace quarnel02
