// Every command that writes, with every call to the file system failing in turn: a few of them in
// every run of the tests, all of them where FAULTS is "all" (scripts/fault-test).

#include "faults/FailingCalls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "commands/IncomingModel.h"
#include "faults/FaultDesk.h"
#include "support/Surroundings.h"

namespace fs = std::filesystem;

namespace quarnel02::test {
namespace {

using States = std::vector<std::uint64_t>;
using Names = std::vector<std::string>;

bool Contains(const States& states, std::uint64_t state) {
    return std::find(states.begin(), states.end(), state) != states.end();
}

/// Files of both directories; kept work, what a design leaves, and the journal of the working copy,
/// which the next write takes over, aside.
Names FilesIn(const fs::path& root) {
    Names names;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string name = PathText(fs::relative(entry.path(), root));
        if (name.find("Recovered") == std::string::npos && name.find("Rpt") == std::string::npos &&
            name.find("session.state") == std::string::npos &&
            name.find("Marrowgate") == std::string::npos &&
            name.find("working.seq-journal") == std::string::npos) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// A command on a desk of its own.
class Trial {
  public:
    explicit Trial(const WritingCommand& command) : m_command(command), m_desk(m_root.Path()) {
        ShowLoadedModel(m_desk.Form);
        m_desk.Form.Messages.clear();
    }

    void Run() {
        const std::string failure = FailureOf([&] { m_command.Run(m_desk, 0); });
        if (!failure.empty()) {
            m_desk.Form.Messages.push_back(failure);
        }
    }
    void Collect(States& states) {
        states.push_back(m_desk.Inputs());
        m_desk.OnState = [&] { states.push_back(m_desk.Inputs()); };
    }
    [[nodiscard]] Names Files() const { return FilesIn(m_root.Path()); }
    [[nodiscard]] std::vector<std::string>& Messages() { return m_desk.Form.Messages; }
    [[nodiscard]] std::string AllMessages() const {
        std::string all;
        for (const std::string& message : m_desk.Form.Messages) {
            all += message + "\n";
        }
        return all;
    }
    [[nodiscard]] FaultDesk& Desk() { return m_desk; }

    void ExpectFilesWhole() const {
        const bool copy_told = AllMessages().find("a whole copy is") != std::string::npos;
        for (const auto& entry : fs::directory_iterator(FaultDesk::UserIn(m_root.Path()))) {
            const std::string name = PathText(entry.path().filename());
            const bool linked = name == "linked.mdb" || name == "second.mdb";
            if (!(copy_told && linked) && !name.starts_with(".quarnel02-") && name != "sheets" &&
                IsChanged(entry.path())) {
                EXPECT_TRUE(IsWhole(entry.path())) << name;
            }
        }
    }

    /// Every state that work is in now: the working copy, kept work and the user's files.
    [[nodiscard]] States Held() const {
        States held = {m_desk.Inputs()};
        for (const KeptModel& kept : m_desk.Commands.KeptModels()) {
            held.push_back(InputsIn(kept.Path));
        }
        for (const char* name : {"line.mdb", "new0.mdb", "linked.mdb", "access.mdb"}) {
            if (IsChanged(m_desk.UserFile(name)) && IsWhole(m_desk.UserFile(name))) {
                held.push_back(InputsIn(m_desk.UserFile(name)));
            }
        }
        return held;
    }

  private:
    /// Since the desk was made; what is not was whole then.
    [[nodiscard]] bool IsChanged(const fs::path& file) const {
        const auto before = m_before.find(file);
        return fs::exists(file) && (before == m_before.end() || ReadFile(file) != before->second);
    }
    [[nodiscard]] std::map<fs::path, std::string> ContentOfFiles() const {
        std::map<fs::path, std::string> contents;
        for (const auto& entry : fs::directory_iterator(FaultDesk::UserIn(m_root.Path()))) {
            contents[entry.path()] = ReadFile(entry.path());
        }
        return contents;
    }

    const WritingCommand& m_command;
    TemporaryDirectory m_root;
    FaultDesk m_desk;
    std::map<fs::path, std::string> m_before = ContentOfFiles();
};

struct Expected {
    States Whole;  ///< from before the command to its end
    Names Files;   ///< after two runs
};

Expected ExpectedOf(const WritingCommand& command) {
    Expected expected;
    Trial trial(command);
    trial.Collect(expected.Whole);
    trial.Run();
    EXPECT_EQ(trial.AllMessages(), "");
    trial.Run();
    expected.Files = trial.Files();
    return expected;
}

void ExpectOneClearMessage(Trial& trial) {
    for (const std::string& message : trial.Messages()) {
        EXPECT_NE(message.find_first_of("/."), std::string::npos) << message;
        EXPECT_LT(message.size(), 600U) << message;
    }
    constexpr std::size_t most = 3;  // the work cannot be kept, nor be read, nor is any listed
    EXPECT_LE(trial.Messages().size(), most) << trial.AllMessages();
}

/// What stands after a command that failed, or that did not mind the failure.
void ExpectNothingLost(Trial& trial, const Expected& expected) {
    trial.ExpectFilesWhole();
    ExpectOneClearMessage(trial);
    EXPECT_TRUE(Contains(expected.Whole, trial.Desk().Inputs())) << "half a state";
    const States held = trial.Held();
    EXPECT_TRUE(std::any_of(held.begin(), held.end(),
                            [&](std::uint64_t state) { return Contains(expected.Whole, state); }));
    if (trial.Desk().Inputs() != expected.Whole.back()) {
        EXPECT_FALSE(trial.Messages().empty()) << "the command failed in silence";
    }
}

void ExpectUsable(Trial& trial, const Expected& expected) {
    const std::uint64_t now = trial.Desk().Inputs();
    const bool half_way = now != expected.Whole.front() && now != expected.Whole.back();
    trial.Messages().clear();
    trial.Desk().OnState = [] {};
    trial.Run();
    if (trial.AllMessages().find("It shows that one now") != std::string::npos) {
        trial.Messages().clear();
        trial.Run();
    }
    if (trial.AllMessages().find("There is nothing to import.") == std::string::npos) {
        EXPECT_EQ(trial.AllMessages(), "");
    }
    if (!half_way) {
        EXPECT_EQ(trial.Desk().Inputs(), expected.Whole.back());
    }
    trial.Run();
    const Names files = trial.Files();
    Names more;
    std::set_difference(files.begin(), files.end(), expected.Files.begin(), expected.Files.end(),
                        std::back_inserter(more));
    EXPECT_EQ(more, Names{}) << "something was left";
}

/// How many calls to go on.
int Stride() {
    constexpr int in_every_run = 17;
    const char* const asked = std::getenv("FAULTS");
    return asked != nullptr && std::string(asked) == "all" ? 1 : in_every_run;
}

class FailingSystem : public testing::TestWithParam<std::size_t> {};

TEST_P(FailingSystem, LosesNothing) {
    const WritingCommand& command = WritingCommands().at(GetParam());
    const Expected expected = ExpectedOf(command);
    int cases = 0;
    int first = 1;  // another one for each kind of failure
    for (const int code : {ENOSPC, EIO, EACCES}) {
        for (const bool stays : {false, true}) {
            first += Stride() > 1 ? 2 : 0;
            for (int at = first; !HasFailure(); at += Stride(), ++cases) {
                Trial trial(command);
                bool hit = false;
                {
                    const FailingCalls failing({at, code, stays});
                    trial.Run();
                    hit = FailingCalls::Stop();
                }
                if (!hit) {
                    break;
                }
                SCOPED_TRACE(std::string(command.Name) + ": call " + std::to_string(at) + ", " +
                             FailingCalls::Failed() + ", error " + std::to_string(code) +
                             (stays ? " for good" : " once") + "\n" + trial.AllMessages());
                ExpectNothingLost(trial, expected);
                ExpectUsable(trial, expected);
            }
        }
    }
    EXPECT_GT(cases, 3);
    std::cout << command.Name << ": " << cases << " failing calls\n";
}

INSTANTIATE_TEST_SUITE_P(EveryCommand, FailingSystem,
                         testing::Range<std::size_t>(0, WritingCommands().size()),
                         [](const auto& each) { return WritingCommands()[each.param].Name; });

}  // namespace
}  // namespace quarnel02::test
