#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"

namespace fs = std::filesystem;

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::NamesIn;
using test::PermissionsOf;
using test::SetPermissions;
using Names = std::vector<std::string>;

struct stat StatusOf(const fs::path& file) {
    struct stat status {};
    EXPECT_EQ(::stat(file.c_str(), &status), 0) << file;
    return status;
}

bool IsRoot() {
    return ::geteuid() == 0;
}

class WriteWholeTest : public testing::Test {
  protected:
    void SetUp() override {
        SetPermissions(Folder.Path(), 0777);
        WriteFile(Target, "old");
    }
    [[nodiscard]] fs::path File(const std::string& name) const { return Folder.Path() / name; }

    TemporaryDirectory Folder;
    fs::path Target = Folder.Path() / "line.mdb";
};

TEST_F(WriteWholeTest, RefusesAWriteProtectedFile) {
    for (const unsigned bits : {0444U, 0400U, 0555U}) {
        SetPermissions(Target, bits);
        const std::string message =
            ExpectRunTimeError(ErrorKind::FileAccess, [&] { WriteWhole(Target, "new"); });
        EXPECT_TRUE(message.starts_with(PathText(Target) + " is write-protected. ")) << message;
        EXPECT_EQ(ReadFile(Target), "old");
        EXPECT_EQ(PermissionsOf(Target), bits);
    }
    EXPECT_EQ(NamesIn(Folder.Path()), Names{"line.mdb"});
}

TEST_F(WriteWholeTest, RefusesAFileThatOnlyOthersMayWrite) {
    if (!IsRoot()) {
        GTEST_SKIP() << "needs a file of another user";
    }
    SetPermissions(Target, 0644);
    const test::OrdinaryUser user;
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileAccess, [&] { WriteWhole(Target, "new"); });
    EXPECT_NE(message.find("is write-protected"), std::string::npos) << message;
    EXPECT_EQ(ReadFile(Target), "old");
}

TEST_F(WriteWholeTest, KeepsTheModeBitsBeyondPermissions) {
    for (const unsigned bits : {02664U, 01644U, 06755U}) {
        SetPermissions(Target, bits);
        const auto before = StatusOf(Target);
        WriteWhole(Target, "new");
        EXPECT_EQ(PermissionsOf(Target), bits);
        EXPECT_NE(StatusOf(Target).st_ino, before.st_ino) << "written in place for want of a bit";
    }
    EXPECT_EQ(ReadFile(Target), "new");
}

TEST_F(WriteWholeTest, KeepsOwnerAndGroup) {
    if (!IsRoot()) {
        GTEST_SKIP() << "only root may give a file away";
    }
    SetPermissions(Target, 02664);
    ASSERT_EQ(::chown(Target.c_str(), 1234, 4321), 0);
    SetPermissions(Target, 02664);
    const auto before = StatusOf(Target);
    WriteWhole(Target, "new");
    EXPECT_NE(StatusOf(Target).st_ino, before.st_ino);
    EXPECT_EQ(StatusOf(Target).st_uid, 1234U);
    EXPECT_EQ(StatusOf(Target).st_gid, 4321U);
    EXPECT_EQ(PermissionsOf(Target), 02664U);
    EXPECT_EQ(ReadFile(Target), "new");
}

TEST_F(WriteWholeTest, WritesIntoAFileWhoseOwnerItCannotKeep) {
    if (!IsRoot()) {
        GTEST_SKIP() << "needs a file of another user";
    }
    WriteWhole(Target, "a longer old content");
    SetPermissions(Target, 0666);
    ASSERT_EQ(::chown(Target.c_str(), 1234, 4321), 0);
    const auto before = StatusOf(Target);
    {
        const test::OrdinaryUser user;
        WriteWhole(Target, "new");
    }
    EXPECT_EQ(ReadFile(Target), "new");
    EXPECT_EQ(StatusOf(Target).st_ino, before.st_ino);
    EXPECT_EQ(StatusOf(Target).st_uid, 1234U);
    EXPECT_EQ(StatusOf(Target).st_gid, 4321U);
    EXPECT_EQ(NamesIn(Folder.Path()), Names{"line.mdb"});
}

TEST_F(WriteWholeTest, WritesIntoAFileThatHasFurtherNames) {
    fs::create_hard_link(Target, File("other.mdb"));
    for (const std::string& content : {std::string(100000, 'n'), std::string("short")}) {
        WriteWhole(Target, content);
        EXPECT_EQ(ReadFile(Target), content);
        EXPECT_EQ(ReadFile(File("other.mdb")), content);
        EXPECT_TRUE(fs::equivalent(Target, File("other.mdb")));
    }
    EXPECT_EQ(NamesIn(Folder.Path()), (Names{"line.mdb", "other.mdb"}));
}

TEST_F(WriteWholeTest, LeavesAFileWithFurtherNamesWhenTheDiskIsFull) {
    fs::create_hard_link(Target, File("other.mdb"));
    WriteFile(File("line.mdb-journal"), "journal");
    const test::FileSizeLimit limit(4096);
    ExpectRunTimeError(ErrorKind::FileAccess,
                       [&] { WriteWhole(Target, std::string(100000, 'n')); });
    EXPECT_EQ(ReadFile(File("other.mdb")), "old");
    EXPECT_EQ(NamesIn(Folder.Path()), (Names{"line.mdb", "line.mdb-journal", "other.mdb"}));
}

TEST_F(WriteWholeTest, RenamesAFileOfOneName) {
    const auto before = StatusOf(Target);
    WriteWhole(Target, "new");
    EXPECT_NE(StatusOf(Target).st_ino, before.st_ino);
}

TEST_F(WriteWholeTest, TakesTheJournalsOfTheReplacedContentAway) {
    for (const bool linked : {false, true}) {
        if (linked) {
            fs::create_hard_link(Target, File("other.mdb"));
        }
        for (const char* suffix : {"-journal", "-wal", "-shm"}) {
            WriteFile(Target.string() + suffix, "journal");
        }
        WriteFile(File("line2.mdb-journal"), "of another file");
        fs::create_directories(File("line.mdb-wal2"));
        WriteWhole(Target, "new");
        Names left = {"line.mdb", "line.mdb-wal2", "line2.mdb-journal"};
        if (linked) {
            left.emplace_back("other.mdb");
        }
        EXPECT_EQ(NamesIn(Folder.Path()), left);
    }
}

TEST_F(WriteWholeTest, TakesAJournalAwayThatWaitsForANewFile) {
    fs::remove(Target);
    WriteFile(File("line.mdb-journal"), "journal");
    WriteWhole(Target, "new");
    EXPECT_EQ(NamesIn(Folder.Path()), Names{"line.mdb"});
}

TEST_F(WriteWholeTest, BringsTheJournalsBackWhenItFails) {
    if (!IsRoot()) {
        GTEST_SKIP() << "needs a file of another user";
    }
    WriteFile(File("line.mdb-journal"), "journal");
    WriteFile(File("line.mdb-wal"), "log");
    for (const char* name : {"line.mdb", "line.mdb-journal"}) {
        ASSERT_EQ(::chown(File(name).c_str(), 65534, 0), 0);
    }
    SetPermissions(Folder.Path(), 01777);  // nobody but its owner may move the log
    {
        const test::OrdinaryUser user;
        ExpectRunTimeError(ErrorKind::FileAccess, [&] { WriteWhole(Target, "new"); });
    }
    EXPECT_EQ(ReadFile(Target), "old");
    EXPECT_EQ(ReadFile(File("line.mdb-journal")), "journal");
    EXPECT_EQ(NamesIn(Folder.Path()), (Names{"line.mdb", "line.mdb-journal", "line.mdb-wal"}));
}

TEST_F(WriteWholeTest, RemovesWhatAKilledProgramLeft) {
    WriteFile(File(".quarnel02-abC0e9"), "left");
    WriteWhole(Target, "new");
    EXPECT_EQ(NamesIn(Folder.Path()), Names{"line.mdb"});
}

TEST_F(WriteWholeTest, SparesWhatAnotherProgramHolds) {
    WriteFile(File(".quarnel02-abcdef"), "another save");
    const int held = ::open(File(".quarnel02-abcdef").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);
    WriteWhole(Target, "new");
    EXPECT_EQ(NamesIn(Folder.Path()), (Names{".quarnel02-abcdef", "line.mdb"}));
    ::close(held);
    WriteWhole(Target, "new");
    EXPECT_EQ(NamesIn(Folder.Path()), Names{"line.mdb"});
}

TEST_F(WriteWholeTest, SparesFilesThatAreNotItsOwn) {
    const Names others = {".quarnel02-abcde", ".quarnel02-abcdefg", ".quarnel02-abc.ef",
                          ".quarnel03-abcdef", "quarnel02-abcdef"};
    for (const std::string& name : others) {
        WriteFile(File(name), "mine");
    }
    fs::create_directory(File(".quarnel02-direct"));
    fs::create_directory(File(".quarnel02-folder"));
    fs::create_symlink("line.mdb", File(".quarnel02-linked"));
    WriteWhole(Target, "new");
    EXPECT_EQ(NamesIn(Folder.Path()).size(), others.size() + 4);
    EXPECT_EQ(ReadFile(Target), "new");
}

TEST_F(WriteWholeTest, SparesWhatAnotherUserLeft) {
    if (!IsRoot()) {
        GTEST_SKIP() << "needs a file of another user";
    }
    WriteFile(File(".quarnel02-abcdef"), "left");
    ASSERT_EQ(::chown(File(".quarnel02-abcdef").c_str(), 1234, 4321), 0);
    WriteWhole(Target, "new");
    EXPECT_EQ(NamesIn(Folder.Path()), (Names{".quarnel02-abcdef", "line.mdb"}));
}

TEST_F(WriteWholeTest, LeavesAWholeFileWheneverItIsKilled) {
    const std::string one(3000000, '1');
    const std::string two(3000000, '2');
    WriteWhole(Target, one);
    for (int round = 0; round < 20; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (;;) {
                WriteWhole(Target, two);
                WriteWhole(Target, one);
            }
        }
        ::usleep(static_cast<useconds_t>(3000 + 1700 * round));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const std::string content = ReadFile(Target);
        EXPECT_TRUE(content == one || content == two) << content.size();
    }
    WriteWhole(Target, "new");
    EXPECT_EQ(NamesIn(Folder.Path()), Names{"line.mdb"});
}

TEST_F(WriteWholeTest, WritesAPrivateFileForItsOwnerOnly) {
    const test::FileMask mask(0);
    for (const unsigned bits : {0644U, 0444U, 0666U}) {
        SetPermissions(Target, bits);
        WritePrivate(Target, "new");
        EXPECT_EQ(PermissionsOf(Target), 0600U);
    }
    WriteFile(File("from.mdb"), "copied");
    CopyPrivate(File("from.mdb"), File("fresh.mdb"));
    EXPECT_EQ(PermissionsOf(File("fresh.mdb")), 0600U);
    EXPECT_EQ(ReadFile(File("fresh.mdb")), "copied");
}

TEST_F(WriteWholeTest, PartsAPrivateFileFromItsFurtherNames) {
    fs::create_hard_link(Target, File("other.mdb"));
    WriteFile(File("line.mdb-journal"), "journal");
    WritePrivate(Target, "new");
    EXPECT_EQ(ReadFile(Target), "new");
    EXPECT_EQ(ReadFile(File("other.mdb")), "old");
    EXPECT_EQ(NamesIn(Folder.Path()), (Names{"line.mdb", "other.mdb"}));
}

TEST(SpecialFiles, AreRefusedWithoutWaiting) {
    const TemporaryDirectory folder;
    const fs::path pipe = folder.Path() / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& message :
         {ExpectRunTimeError(ErrorKind::FileAccess, [&] { ReadFile(pipe); }),
          ExpectRunTimeError(ErrorKind::FileAccess, [&] { WriteFile(pipe, "x"); }),
          ExpectRunTimeError(ErrorKind::FileAccess, [&] { WriteWhole(pipe, "x"); })}) {
        EXPECT_NE(message.find(PathText(pipe) + ": it is not an ordinary file."), std::string::npos)
            << message;
    }
    ExpectRunTimeError(ErrorKind::FileAccess, [] { ReadFile("/dev/zero"); });
}

TEST(FullDisk, IsCalledByItsName) {
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileAccess, [] { WriteFile("/dev/full", "x"); });
    EXPECT_NE(message.find("The disk is full"), std::string::npos) << message;
}

}  // namespace
}  // namespace quarnel02
