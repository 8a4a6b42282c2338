#include "basic/Files.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"

namespace fs = std::filesystem;

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::NamesIn;

TEST(ReadFile, GivesTheContentByteForByte) {
    const TemporaryDirectory directory;
    const fs::path file = directory.Path() / "bytes";
    const std::string content("a\r\n\0\xff\n", 6);
    WriteFile(file, content);
    EXPECT_EQ(ReadFile(file), content);
    WriteFile(file, "");
    EXPECT_EQ(ReadFile(file), "");
}

TEST(ReadFile, NamesAFileThatDoesNotExist) {
    const TemporaryDirectory directory;
    const fs::path file = directory.Path() / "no such.seq";
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileNotFound, [&] { ReadFile(file); });
    EXPECT_NE(message.find(PathText(file)), std::string::npos) << message;
}

TEST(ReadFile, RefusesADirectory) {
    const TemporaryDirectory directory;
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileAccess, [&] { ReadFile(directory.Path()); });
    EXPECT_NE(message.find(PathText(directory.Path())), std::string::npos) << message;
}

TEST(ReadFile, RefusesAFileWithoutRights) {
    const TemporaryDirectory directory;
    test::SetPermissions(directory.Path(), 0755);
    const fs::path file = directory.Path() / "secret";
    WriteFile(file, "x");
    test::SetPermissions(file, 0);
    const test::OrdinaryUser user;
    ExpectRunTimeError(ErrorKind::FileAccess, [&] { ReadFile(file); });
}

TEST(ReadFile, RefusesAFileBehindALinkThatNamesItself) {
    const TemporaryDirectory directory;
    const fs::path link = directory.Path() / "loop";
    fs::create_symlink("loop", link);
    ExpectRunTimeError(ErrorKind::FileAccess, [&] { ReadFile(link); });
}

TEST(WriteFile, ReplacesTheContent) {
    const TemporaryDirectory directory;
    const fs::path file = directory.Path() / "Bericht über, alles.txt";
    WriteFile(file, "a long first content");
    WriteFile(file, "short");
    EXPECT_EQ(ReadFile(file), "short");
    EXPECT_EQ(NamesIn(directory.Path()), std::vector<std::string>{"Bericht über, alles.txt"});
}

TEST(WriteFile, NamesAFileThatCannotBeWritten) {
    const TemporaryDirectory directory;
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileAccess, [&] { WriteFile(directory.Path(), "x"); });
    EXPECT_NE(message.find(PathText(directory.Path())), std::string::npos) << message;
}

TEST(WriteFile, NamesAFileInAMissingDirectory) {
    const TemporaryDirectory directory;
    const fs::path file = directory.Path() / "missing" / "x.txt";
    try {
        WriteFile(file, "x");
        ADD_FAILURE() << "nothing was thrown";
    } catch (const RunTimeError& error) {
        EXPECT_NE(std::string(error.what()).find(PathText(file)), std::string::npos);
    }
    EXPECT_TRUE(NamesIn(directory.Path()).empty());
}

TEST(WriteFile, ReportsAFullDisk) {
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileAccess, [] { WriteFile("/dev/full", "report"); });
    EXPECT_NE(message.find("/dev/full"), std::string::npos) << message;
}

TEST(PathText, IsUtf8) {
    EXPECT_EQ(PathText(fs::path(u8"Träger/Größe, neu.mdb")), "Träger/Größe, neu.mdb");
}

TEST(TemporaryDirectory, IsNewEmptyAndPrivate) {
    const TemporaryDirectory first;
    const TemporaryDirectory second;
    EXPECT_NE(first.Path(), second.Path());
    EXPECT_TRUE(NamesIn(first.Path()).empty());
    EXPECT_EQ(test::PermissionsOf(first.Path()), 0700U);
}

TEST(TemporaryDirectory, RemovesItselfWithEverythingInIt) {
    fs::path path;
    {
        const TemporaryDirectory directory;
        path = directory.Path();
        fs::create_directories(path / "a" / "b");
        WriteFile(path / "a" / "b" / "c.txt", "x");
        fs::create_symlink("/", path / "root");
    }
    EXPECT_FALSE(fs::exists(path));
    EXPECT_TRUE(fs::exists("/"));
}

/// Puts an environment variable back when it goes.
class Variable {
  public:
    Variable(const char* name, const std::string& value) : m_name(name) {
        const char* before = std::getenv(name);
        m_had = before != nullptr;
        m_before = m_had ? before : "";
        ::setenv(name, value.c_str(), 1);
    }
    ~Variable() {
        if (m_had) {
            ::setenv(m_name, m_before.c_str(), 1);
        } else {
            ::unsetenv(m_name);
        }
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    Variable(Variable&&) = delete;
    Variable& operator=(Variable&&) = delete;

  private:
    const char* m_name;
    std::string m_before;
    bool m_had = false;
};

/// One that another program holds, and what stands beside it under another name, stay.
TEST(TemporaryDirectory, RemovesWhatAKilledProgramLeft) {
    const TemporaryDirectory place;
    const Variable variable("TMPDIR", PathText(place.Path()));
    const pid_t killed = ::fork();
    if (killed == 0) {
        const TemporaryDirectory left;
        WriteFile(left.Path() / "a.txt", "x");
        ::_exit(0);
    }
    ::waitpid(killed, nullptr, 0);
    ASSERT_EQ(NamesIn(place.Path()).size(), 1U);
    fs::create_directory(place.Path() / "quarnel02.other");
    const TemporaryDirectory held;
    const TemporaryDirectory last;
    const auto names = NamesIn(place.Path());
    EXPECT_EQ(names.size(), 3U);
    EXPECT_TRUE(fs::exists(held.Path()) && fs::exists(last.Path()));
    EXPECT_TRUE(fs::exists(place.Path() / "quarnel02.other"));
}

TEST(TemporaryDirectory, ReportsThatItCannotBeMade) {
    const TemporaryDirectory directory;
    const Variable place("TMPDIR", PathText(directory.Path() / "missing"));
    ExpectRunTimeError(ErrorKind::FileAccess, [] { const TemporaryDirectory never; });
}

}  // namespace
}  // namespace quarnel02
