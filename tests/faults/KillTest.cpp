// The program, killed at any moment of any command that writes, and started again. KILLS sets how
// often; scripts/kill-test runs a thousand.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "commands/IncomingModel.h"
#include "faults/FaultDesk.h"
#include "stoch/cmdStoch.h"
#include "support/Surroundings.h"

namespace fs = std::filesystem;

namespace quarnel02::test {
namespace {

constexpr std::uint64_t kReady = 0;  ///< in the place of a state: from now on it may be killed
/// The first run whose states are told: rows that a command removes and enters again come to stand
/// behind the others, which is another state, once.
constexpr int kTold = 2;

/// A process that runs a command again and again and tells each whole state, which come again every
/// two runs.
class Victim {
  public:
    Victim(const fs::path& root, const WritingCommand& command) {
        std::array<int, 2> pipe{};
        EXPECT_EQ(::pipe(pipe.data()), 0);
        m_read = pipe[0];
        m_child = ::fork();
        if (m_child == 0) {
            ::close(pipe[0]);
            RunForEver(root, command, pipe[1]);
        }
        ::close(pipe[1]);
    }
    ~Victim() { ::close(m_read); }
    Victim(const Victim&) = delete;
    Victim& operator=(const Victim&) = delete;
    Victim(Victim&&) = delete;
    Victim& operator=(Victim&&) = delete;

    /// The states of two runs, after which it may be killed.
    std::vector<std::uint64_t> States() {
        std::vector<std::uint64_t> states;
        std::uint64_t state = 0;
        while (::read(m_read, &state, sizeof state) == sizeof state && state != kReady) {
            states.push_back(state);
        }
        EXPECT_EQ(state, kReady) << "it ended by itself";
        return states;
    }

    /// The states that it told since.
    std::vector<std::uint64_t> Kill() {
        ::kill(m_child, SIGKILL);
        ::waitpid(m_child, nullptr, 0);
        std::vector<std::uint64_t> states;
        std::uint64_t state = 0;
        while (::read(m_read, &state, sizeof state) == sizeof state) {
            states.push_back(state);
        }
        return states;
    }

  private:
    [[noreturn]] static void RunForEver(const fs::path& root, const WritingCommand& command,
                                        int told) {
        constexpr unsigned longest = 60;
        ::alarm(longest);
        const auto tell = [&](std::uint64_t state) {
            [[maybe_unused]] const auto written = ::write(told, &state, sizeof state);
        };
        const std::string failure = FailureOf([&] {
            FaultDesk desk(root);
            desk.Commands.StartUp();
            desk.Open("line.mdb");
            for (int turn = 0;; ++turn) {
                if (turn == kTold) {
                    desk.OnState = [&] { tell(desk.Inputs()); };
                } else if (turn == kTold + 2) {
                    tell(kReady);
                }
                command.Run(desk, turn);
            }
        });
        std::cerr << command.Name << " failed: " << failure << std::endl;
        ::_exit(1);
    }

    pid_t m_child = 0;
    int m_read = -1;
};

/// What the next start finds, as a process of its own would.
struct Findings {
    std::set<std::uint64_t> Held;  ///< states in the working copy, kept work and the user's files
    std::string Messages;
};

Findings NextStart(const fs::path& root) {
    Findings findings;
    FaultDesk desk(root);
    desk.Commands.StartUp();
    findings.Held.insert(desk.Inputs());
    for (const KeptModel& kept : desk.Commands.KeptModels()) {
        findings.Held.insert(InputsIn(kept.Path));
    }
    for (const auto& entry : fs::directory_iterator(FaultDesk::UserIn(root))) {
        const std::string name = PathText(entry.path().filename());
        if (name.starts_with(".quarnel02-")) {
            continue;
        }
        EXPECT_TRUE(IsWhole(entry.path())) << name;
        if (entry.path().extension() == ".mdb") {
            findings.Held.insert(InputsIn(entry.path()));
        }
    }
    desk.Open("other.mdb");
    for (const char* name : {"line.mdb", "linked.mdb"}) {
        desk.UseFile(name);
        desk.Commands.Save();
    }
    EXPECT_TRUE(desk.Commands.Exit());
    cmdStoch_Click(desk.Form);  // which clears what one that was killed has left
    for (const std::string& message : desk.Form.Messages) {
        findings.Messages += message + "\n";
    }
    return findings;
}

/// Nothing but the files that belong there, however often the program was killed.
void ExpectNoLitter(const fs::path& root, const fs::path& temporary) {
    const std::set<std::string> belong = {"Marrowgate.cfg", "ProdRpt.txt", "Recovered",
                                          "RunRpt.txt",     "blank.seq",   "session.state",
                                          "working.seq"};
    for (const std::string& name : NamesIn(FaultDesk::ApplicationIn(root))) {
        EXPECT_TRUE(belong.contains(name)) << name;
    }
    for (const fs::path& directory :
         {FaultDesk::UserIn(root), FaultDesk::ApplicationIn(root) / "Recovered"}) {
        const auto names = fs::exists(directory) ? NamesIn(directory) : std::vector<std::string>();
        EXPECT_LE(names.size(), 21U);
        for (const std::string& name : names) {
            EXPECT_FALSE(name.starts_with(".") || name.ends_with("-journal")) << name;
        }
    }
    EXPECT_TRUE(NamesIn(temporary).empty())
        << NamesIn(temporary).front() << " in the directory for temporary files";
}

int KillsAsked() {
    constexpr int in_every_run = 54;
    const char* const asked = std::getenv("KILLS");
    return asked == nullptr ? in_every_run : std::atoi(asked);
}

TEST(Kills, LoseNothingAndLeaveNothing) {
    const TemporaryDirectory root;
    const TemporaryDirectory temporary;
    { const FaultDesk made(root.Path()); }
    ::setenv("TMPDIR", temporary.Path().c_str(), 1);
    std::mt19937 random(static_cast<unsigned>(KillsAsked()));
    std::uniform_int_distribution<useconds_t> any_moment(0, 60000);
    int in_between = 0;
    int kill = 0;
    for (; kill < KillsAsked() && !testing::Test::HasFailure(); ++kill) {
        const WritingCommand& command =
            WritingCommands()[static_cast<std::size_t>(kill) % WritingCommands().size()];
        SCOPED_TRACE(std::string(command.Name) + ", kill " + std::to_string(kill));
        Victim victim(root.Path(), command);
        const std::vector<std::uint64_t> cycle = victim.States();
        ::usleep(any_moment(random));
        const std::vector<std::uint64_t> told = victim.Kill();
        in_between += told.size() % cycle.size() == 0 ? 0 : 1;
        for (std::size_t i = 0; i < told.size(); ++i) {
            EXPECT_EQ(told[i], cycle[i % cycle.size()]) << "state " << i << " of " << told.size();
        }
        const Findings found = NextStart(root.Path());
        // The command came as far as it told, or one state further.
        const std::uint64_t last = told.empty() ? cycle.back() : told.back();
        const std::uint64_t next = cycle[told.size() % cycle.size()];
        EXPECT_TRUE(found.Held.contains(last) || found.Held.contains(next)) << "work is lost";
        EXPECT_EQ(found.Messages, "");
        ExpectNoLitter(root.Path(), temporary.Path());
    }
    ::unsetenv("TMPDIR");
    std::cout << kill << " kills, " << in_between << " inside a command\n";
}

}  // namespace
}  // namespace quarnel02::test
