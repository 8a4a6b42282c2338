// Names of the run files, and what a clean-up deletes and spares.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "stoch/RunFiles.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::ExpectRunTimeError;
using test::NamesIn;

using Names = std::vector<std::string>;

class RunFilesTest : public testing::Test {
  protected:
    void Make(const Names& names) const {
        for (const std::string& name : names) {
            WriteFile(Directory.Path() / name, name);
        }
    }
    void MakeDirectory(const std::string& name) const {
        fs::create_directory(Directory.Path() / name);
    }

    TemporaryDirectory Directory;
    RunFiles Files{Directory.Path()};
};

TEST_F(RunFilesTest, AreNamedByTaskAndResource) {
    EXPECT_EQ(Files.ExpectedProduction(), Directory.Path() / "EProd");
    EXPECT_EQ(Files.ExpectedShifts().filename(), "EShift");
    EXPECT_EQ(Files.Resource(1, 12, 3).filename(), "F1T12.R3");
    EXPECT_EQ(Files.Candidate(2).filename(), "Temp2");
    EXPECT_EQ(Files.Final(10).filename(), "Final10");
}

TEST_F(RunFilesTest, InitialTablesOfSomeArcsShareAName) {
    EXPECT_EQ(Files.Initial(1, 12).filename(), "IT112");
    EXPECT_EQ(Files.Initial(1, 112).filename(), "IT1112");
    EXPECT_EQ(Files.Initial(11, 12).filename(), "IT1112");
}

TEST_F(RunFilesTest, AllOfThemAreDeleted) {
    Make({"EProd", "EShift", "F1T1.R1", "F12T112.R10", "IT11", "IT1112", "Temp1", "TempA", "TempC",
          "Temp", "Final", "Final1", "Final12", "Final.bak"});
    Files.DeleteAll();
    EXPECT_EQ(NamesIn(Directory.Path()), Names{});
}

TEST_F(RunFilesTest, OthersAreSpared) {
    Names others = {"blank.seq", "working.seq", "Marrowgate.cfg", "RunRpt.txt", "ProdRpt.txt",
                    "EProd2",    "EShift.txt",  "F1T1.S1",        "notes.R1",   "MyFinal",
                    "Final.mdb", "ITems.mdb",   "Template.mdb",   "F1.R1.mdb",  "aTemp"};
    Make(others);
    Files.DeleteAll();
    std::sort(others.begin(), others.end());
    EXPECT_EQ(NamesIn(Directory.Path()), others);
}

TEST_F(RunFilesTest, DirectoriesAreSpared) {
    MakeDirectory("Temporary");
    MakeDirectory("Final reports");
    MakeDirectory("F.Reports");
    MakeDirectory("EProd");
    WriteFile(Directory.Path() / "Temporary" / "Temp1", "");
    Files.DeleteAll();
    EXPECT_EQ(NamesIn(Directory.Path()),
              (Names{"EProd", "F.Reports", "Final reports", "Temporary"}));
    EXPECT_EQ(NamesIn(Directory.Path() / "Temporary"), Names{"Temp1"});
}

TEST_F(RunFilesTest, CleanUpNeverFails) {
    const RunFiles nowhere(Directory.Path() / "nowhere");
    EXPECT_NO_THROW(nowhere.DeleteAll());
}

TEST_F(RunFilesTest, EachIsShownOnce) {
    Make({"EProd", "EShift", "F1T1.R1", "IT11", "Final1", "Temp1", "blank.seq", "Final.mdb"});
    Names shown;
    Files.ForEach([&](const fs::path& file) { shown.push_back(file.filename().string()); });
    std::sort(shown.begin(), shown.end());
    EXPECT_EQ(shown, (Names{"EProd", "EShift", "F1T1.R1", "Final1", "IT11", "Temp1"}));
}

TEST_F(RunFilesTest, OneIsDeletedIfThereIsOne) {
    Make({"TempA"});
    DeleteRunFile(Files.Path("TempA"));
    EXPECT_EQ(NamesIn(Directory.Path()), Names{});
    EXPECT_NO_THROW(DeleteRunFile(Files.Path("TempA")));
    MakeDirectory("TempA");
    WriteFile(Files.Path("TempA") / "file", "");
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileAccess, [&] { DeleteRunFile(Files.Path("TempA")); });
    EXPECT_NE(message.find("TempA"), std::string::npos) << message;
}

TEST_F(RunFilesTest, OneIsRenamedOverAnother) {
    Make({"TempA", "IT11"});
    RenameRunFile(Files.Path("TempA"), Files.Path("IT11"));
    EXPECT_EQ(NamesIn(Directory.Path()), Names{"IT11"});
    EXPECT_EQ(ReadFile(Files.Path("IT11")), "TempA");
    ExpectRunTimeError(ErrorKind::FileAccess,
                       [&] { RenameRunFile(Files.Path("TempA"), Files.Path("IT11")); });
}

}  // namespace
}  // namespace quarnel02
