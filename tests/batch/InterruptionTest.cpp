// The batch program when a signal ends it during a solve.

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "generate_model.h"
#include "support/SolveRun.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::SolveRun;

using Milliseconds = std::chrono::milliseconds;

/// The solve tells its progress to a pipe that nobody reads meanwhile: when that is full it waits,
/// however fast the machine is. Looking whether it is running may read it once.
class Interruption : public testing::Test {
  protected:
    void SetUp() override {
        fs::create_directory(Temporary);
        MakeModelFile(
            Model, ReadFile(QUARNEL02_SCHEMA_FILE) + GeneratedModelScript(55, 20, 1) +
                       "DELETE FROM Demand; INSERT INTO Demand VALUES (50000, 50), (90000, 50);");
    }

    /// Starts the solve of a model with many arcs, and returns once it works.
    void Start() {
        Solve.emplace(std::vector<std::string>{std::string(QUARNEL02_PROGRAMS) + "/quarnel02-solve",
                                               PathText(Model), "--stochastic", "--progress"},
                      test::Environment{{"TMPDIR", PathText(Temporary)}});
        for (int wait = 0; wait < 4000 && !HasRunFiles(); ++wait) {
            std::this_thread::sleep_for(Milliseconds(5));
        }
        ASSERT_TRUE(HasRunFiles());
    }
    void StartIgnoringHangUp() {
        const auto before = std::signal(SIGHUP, SIG_IGN);
        Start();
        std::signal(SIGHUP, before);
    }
    [[nodiscard]] bool HasRunFiles() const {
        std::error_code ignored;
        for (const auto& entry : fs::recursive_directory_iterator(Temporary, ignored)) {
            if (entry.path().filename().string().starts_with("IT1")) {
                return true;
            }
        }
        return false;
    }
    TemporaryDirectory Folder;
    fs::path Temporary = Folder.Path() / "tmp";
    fs::path Model = Folder.Path() / "line.mdb";
    std::optional<test::ProgramRun> Solve;
};

TEST_F(Interruption, RemovesTheTemporaryDirectory) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE(signal);
        Start();
        EXPECT_FALSE(fs::is_empty(Temporary));
        Solve->Send(signal);
        const test::ProgramResult result = Solve->Result();
        EXPECT_EQ(result.Status, 128 + signal);
        EXPECT_TRUE(fs::is_empty(Temporary));
        EXPECT_EQ(result.Out, "");
        EXPECT_TRUE(result.Err.starts_with("PLEASE WAIT")) << result.Err;
        EXPECT_EQ(result.Err.find("quarnel02-solve"), std::string::npos) << result.Err;
    }
}

TEST_F(Interruption, IsIgnoredWhereTheProgramWasToldTo) {
    StartIgnoringHangUp();
    Solve->Send(SIGHUP);
    std::this_thread::sleep_for(Milliseconds(200));
    EXPECT_TRUE(Solve->IsRunning());
    EXPECT_FALSE(fs::is_empty(Temporary));
    Solve->Send(SIGTERM);
    EXPECT_EQ(Solve->Result().Status, 128 + SIGTERM);
    EXPECT_TRUE(fs::is_empty(Temporary));
}

}  // namespace
}  // namespace quarnel02
