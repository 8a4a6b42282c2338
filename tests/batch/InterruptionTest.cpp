// The batch program when a signal ends it during a solve.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
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

class Interruption : public testing::Test {
  protected:
    void SetUp() override {
        fs::create_directory(Temporary);
        MakeModelFile(
            Model, ReadFile(QUARNEL02_SCHEMA_FILE) + GeneratedModelScript(40, 20, 1) +
                       "DELETE FROM Demand; INSERT INTO Demand VALUES (50000, 50), (90000, 50);");
    }
    void TearDown() override {
        if (m_child > 0) {
            ::kill(m_child, SIGKILL);
            ::waitpid(m_child, nullptr, 0);
        }
    }

    /// Starts the solve of a model that takes long, and returns once it works.
    void Start(bool ignoringHangUp = false) {
        m_child = ::fork();
        if (m_child == 0) {
            if (ignoringHangUp) {
                std::signal(SIGHUP, SIG_IGN);
            }
            std::vector<std::string> words = {std::string(QUARNEL02_PROGRAMS) + "/quarnel02-solve",
                                              PathText(Model), "--stochastic"};
            std::vector<char*> arguments;
            for (std::string& word : words) {
                arguments.push_back(word.data());
            }
            arguments.push_back(nullptr);
            test::BecomeProgram(arguments, {{"TMPDIR", PathText(Temporary)}}, Folder.Path() / "out",
                                Folder.Path() / "err");
        }
        for (int wait = 0; wait < 4000 && !HasRunFiles(); ++wait) {
            std::this_thread::sleep_for(Milliseconds(5));
        }
        ASSERT_TRUE(HasRunFiles());
    }
    [[nodiscard]] bool HasRunFiles() const {
        std::error_code ignored;
        for (const auto& entry : fs::recursive_directory_iterator(Temporary, ignored)) {
            if (entry.path().filename().string().starts_with("F1T")) {
                return true;
            }
        }
        return false;
    }
    void Send(int signal) const { ::kill(m_child, signal); }
    [[nodiscard]] bool IsRunning() const { return ::waitpid(m_child, nullptr, WNOHANG) == 0; }
    int StatusAtEnd() {
        int status = 0;
        ::waitpid(m_child, &status, 0);
        m_child = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    TemporaryDirectory Folder;
    fs::path Temporary = Folder.Path() / "tmp";
    fs::path Model = Folder.Path() / "line.mdb";

  private:
    pid_t m_child = 0;
};

TEST_F(Interruption, RemovesTheTemporaryDirectory) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE(signal);
        Start();
        EXPECT_FALSE(fs::is_empty(Temporary));
        Send(signal);
        EXPECT_EQ(StatusAtEnd(), 128 + signal);
        EXPECT_TRUE(fs::is_empty(Temporary));
        EXPECT_EQ(ReadFile(Folder.Path() / "out"), "");
        EXPECT_EQ(ReadFile(Folder.Path() / "err"), "");
    }
}

TEST_F(Interruption, IsIgnoredWhereTheProgramWasToldTo) {
    Start(true);
    Send(SIGHUP);
    std::this_thread::sleep_for(Milliseconds(200));
    EXPECT_TRUE(IsRunning());
    EXPECT_FALSE(fs::is_empty(Temporary));
    Send(SIGTERM);
    EXPECT_EQ(StatusAtEnd(), 128 + SIGTERM);
    EXPECT_TRUE(fs::is_empty(Temporary));
}

}  // namespace
}  // namespace quarnel02
