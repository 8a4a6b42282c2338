// Commands that write a file of the user's, to places that cannot take it.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "commands/IncomingModel.h"
#include "commands/SheetFiles.h"
#include "faults/FaultDesk.h"
#include "support/Surroundings.h"

namespace fs = std::filesystem;

namespace quarnel02::test {
namespace {

/// A command that writes to a file, and what stands in the file after it.
struct Writer {
    const char* Name;
    std::function<void(FaultDesk& desk, const fs::path& target)> Write;
};

void SaveTo(FaultDesk& desk, const fs::path& target, ModelFormat format) {
    desk.Commands.Current() = {PathText(target.parent_path()), PathText(target.filename()), format,
                               true};
    desk.Commands.Save();
}

const std::vector<Writer>& Writers() {
    static const std::vector<Writer> writers = {
        {"Save", [](FaultDesk& d, const fs::path& to) { SaveTo(d, to, ModelFormat::Sqlite); }},
        {"SaveForAccess",
         [](FaultDesk& d, const fs::path& to) { SaveTo(d, to, ModelFormat::Access); }},
        {"SaveAs",
         [](FaultDesk& d, const fs::path& to) {
             d.Dialog.Chosen = to;
             d.Commands.SaveAs();
         }},
        {"ExportXlsx", [](FaultDesk& d, const fs::path& to) { ExportXlsx(d.Form, to); }}};
    return writers;
}

class Places : public testing::TestWithParam<std::size_t> {
  protected:
    void SetUp() override {
        fs::create_directory(Folder);
        fs::permissions(Root.Path(), fs::perms::all);
        ShowLoadedModel(Desk.Form);
    }
    void TearDown() override { fs::permissions(Folder, fs::perms::all); }

    /// All that the command says.
    std::string Run(const fs::path& target) {
        Desk.Form.Messages.clear();
        const std::string failure =
            FailureOf([&] { Writers().at(GetParam()).Write(Desk, target); });
        std::string all = failure;
        for (const std::string& message : Desk.Form.Messages) {
            all += message;
        }
        return all;
    }
    /// One message that names the file; the work is where it was, and can be saved elsewhere.
    void ExpectRefused(const fs::path& target, const std::string& words) {
        const std::uint64_t inputs = Desk.Inputs();
        const bool unsaved = Desk.Commands.HasUnsavedWork();
        const std::string message = Run(target);
        EXPECT_NE(message.find(PathText(target.filename())), std::string::npos) << message;
        EXPECT_NE(message.find(words), std::string::npos) << message;
        EXPECT_EQ(Desk.Inputs(), inputs);
        EXPECT_EQ(Desk.Commands.HasUnsavedWork(), unsaved);
    }
    void ExpectWritten(const fs::path& target) {
        EXPECT_EQ(Run(target), "");
        EXPECT_TRUE(fs::is_regular_file(target));
    }
    /// All files of the application, so that an ordinary user can work there.
    void GiveToEverybody() const {
        for (const auto& entry : fs::recursive_directory_iterator(Root.Path())) {
            fs::permissions(entry.path(), fs::perms::all);
            [[maybe_unused]] const int given = ::chown(entry.path().c_str(), 65534, 65534);
        }
    }

    TemporaryDirectory Root;
    FaultDesk Desk{Root.Path()};
    fs::path Folder = Root.Path() / "place";
};

TEST_P(Places, ADirectoryThatMayOnlyBeRead) {
    GiveToEverybody();
    WriteFile(Folder / "line.x", "old");
    fs::permissions(Folder, fs::perms::owner_read | fs::perms::owner_exec);
    const OrdinaryUser user;
    ExpectRefused(Folder / "new.x", "Permission denied");
    const auto names = NamesIn(Folder);
    EXPECT_EQ(names, std::vector<std::string>{"line.x"});
}

TEST_P(Places, AFileThatIsWriteProtected) {
    GiveToEverybody();
    WriteFile(Folder / "line.x", "old");
    SetPermissions(Folder / "line.x", 0444);
    const OrdinaryUser user;
    ExpectRefused(Folder / "line.x", "is write-protected");
    EXPECT_EQ(ReadFile(Folder / "line.x"), "old");
}

TEST_P(Places, ADirectoryThatHasGone) {
    fs::remove(Folder);
    ExpectRefused(Folder / "line.x", "No such file or directory");
    fs::create_directory(Folder);
    ExpectWritten(Folder / "line.x");
}

TEST_P(Places, WhatIsNoFile) {
    fs::create_directory(Folder / "line.x");
    ExpectRefused(Folder / "line.x", "");
    ASSERT_EQ(::mkfifo((Folder / "pipe.x").c_str(), 0600), 0);
    ExpectRefused(Folder / "pipe.x", "is not an ordinary file");
    EXPECT_EQ(NamesIn(Folder), (std::vector<std::string>{"line.x", "pipe.x"}));
}

TEST_P(Places, BehindLinks) {
    fs::create_symlink("line.x", Folder / "link.x");
    ExpectWritten(Folder / "link.x");
    EXPECT_TRUE(fs::is_symlink(Folder / "link.x") && fs::is_regular_file(Folder / "line.x"));
    fs::create_hard_link(Folder / "line.x", Folder / "second.x");
    ExpectWritten(Folder / "line.x");
    EXPECT_TRUE(fs::equivalent(Folder / "line.x", Folder / "second.x"));
    EXPECT_EQ(ReadFile(Folder / "line.x"), ReadFile(Folder / "second.x"));
    fs::create_symlink("self.x", Folder / "self.x");
    ExpectRefused(Folder / "self.x", "Too many levels of symbolic links");
    fs::create_symlink("none/line.x", Folder / "dangling.x");
    const std::string message = Run(Folder / "dangling.x");
    EXPECT_NE(message.find("none/line.x: No such file or directory."), std::string::npos)
        << message;
}

TEST_P(Places, OnAnotherFileSystem) {
    const fs::path memory = "/dev/shm";
    struct stat here {};
    struct stat there {};
    if (::stat(memory.c_str(), &there) != 0 || ::access(memory.c_str(), W_OK) != 0 ||
        ::stat(Folder.c_str(), &here) != 0 || here.st_dev == there.st_dev) {
        GTEST_SKIP() << "needs a second file system";
    }
    ::setenv("TMPDIR", memory.c_str(), 1);
    const TemporaryDirectory other;
    ::unsetenv("TMPDIR");
    ExpectWritten(other.Path() / "line.x");
    ExpectWritten(other.Path() / "line.x");
    fs::create_symlink(other.Path() / "line.x", Folder / "link.x");
    ExpectWritten(Folder / "link.x");
    EXPECT_EQ(NamesIn(other.Path()), std::vector<std::string>{"line.x"});
}

TEST_P(Places, OnAFullDisk) {
    WriteFile(Folder / "line.x", "old");
    {
        const FileSizeLimit limit(2000);
        ExpectRefused(Folder / "line.x", "");
    }
    EXPECT_EQ(ReadFile(Folder / "line.x"), "old");
    EXPECT_EQ(NamesIn(Folder), std::vector<std::string>{"line.x"});
    ExpectWritten(Folder / "line.x");
}

INSTANTIATE_TEST_SUITE_P(EveryWriter, Places, testing::Range<std::size_t>(0, Writers().size()),
                         [](const auto& each) { return Writers()[each.param].Name; });

}  // namespace
}  // namespace quarnel02::test
