// Names of the run files, and what a clean-up deletes and spares.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "stoch/RecordFile.h"
#include "stoch/Records.h"
#include "stoch/RunFiles.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::ExpectRunTimeError;
using test::NamesIn;

using Names = std::vector<std::string>;

constexpr std::size_t kOfAnySize = 16 * 15 * 11;  // whole records of 12, 16, 20 and 22 bytes

class RunFilesTest : public testing::Test {
  protected:
    /// Files of whole records, whatever their size.
    void Make(const Names& names) const {
        for (const std::string& name : names) {
            Make(name, kOfAnySize);
        }
    }
    void Make(const std::string& name, std::size_t bytes) const {
        WriteFile(Directory.Path() / name, std::string(bytes, 'x'));
    }
    /// Whether a clean-up deletes a file of that name and size.
    [[nodiscard]] bool IsDeleted(const std::string& name, std::size_t bytes) const {
        Make(name, bytes);
        Files.DeleteAll();
        return !fs::remove(Directory.Path() / name);
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
    Make({"EProd", "EShift", "F1T1.R1", "F12T112.R10", "IT11", "IT1112", "IT102", "Temp1", "Temp10",
          "TempA", "TempC", "Temp", "Final", "Final1", "Final12"});
    Files.DeleteAll();
    EXPECT_EQ(NamesIn(Directory.Path()), Names{});
}

TEST_F(RunFilesTest, AreKnownWhateverTheLetterCase) {
    Make({"EPROD", "eshift", "f1t1.r1", "it11", "TEMP1", "tempa", "FINAL", "fInAl12"});
    Files.DeleteAll();
    EXPECT_EQ(NamesIn(Directory.Path()), Names{});
}

TEST_F(RunFilesTest, OthersAreSpared) {
    Names others = {"blank.seq",
                    "working.seq",
                    "Marrowgate.cfg",
                    "RunRpt.txt",
                    "ProdRpt.txt",
                    "EProd2",
                    "EProd ",
                    "EShift.txt",
                    "F1T1.S1",
                    "notes.R1",
                    "MyFinal",
                    "Final.mdb",
                    "ITems.mdb",
                    "Template.mdb",
                    "F1.R1.mdb",
                    "aTemp",
                    "TempB",
                    "TempAC",
                    "Temp 1",
                    "Temp1.txt",
                    "Temp01",
                    "Temp0",
                    "Temp-1",
                    "Temporary",
                    "Final line",
                    "Final.bak",
                    "Final1.mdb",
                    "Final report.docx",
                    "Final01",
                    "IT",
                    "IT1",
                    "IT01",
                    "IT list.csv",
                    "IT11.csv",
                    "IT1a",
                    "F1T1.R",
                    "FT1.R1",
                    "F1T.R1",
                    "F1.R1",
                    "F1T1R1",
                    "F1T1.R1.bak",
                    "F01T1.R1",
                    "F1T1.R01",
                    "F1t1.r1x",
                    "X.MDB",
                    "Fork.Repo"};
    Make(others);
    Files.DeleteAll();
    std::sort(others.begin(), others.end());
    EXPECT_EQ(NamesIn(Directory.Path()), others);
}

TEST_F(RunFilesTest, OnlyFilesOfWholeRecordsAreDeleted) {
    for (const auto& [name, size] :
         {std::pair("EProd", 16U), std::pair("EShift", 12U), std::pair("F1T1.R1", 20U),
          std::pair("IT11", 20U), std::pair("TempA", 20U), std::pair("TempC", 20U),
          std::pair("Temp", 22U), std::pair("Temp3", 22U), std::pair("Final", 22U),
          std::pair("Final3", 22U)}) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(IsDeleted(name, 0));
        EXPECT_TRUE(IsDeleted(name, size));
        EXPECT_TRUE(IsDeleted(name, 7 * size));
        EXPECT_FALSE(IsDeleted(name, 1));
        EXPECT_FALSE(IsDeleted(name, size - 1));
        EXPECT_FALSE(IsDeleted(name, 7 * size + 2));
    }
}

TEST_F(RunFilesTest, WhatIsNoOrdinaryFileIsSpared) {
    MakeDirectory("Temporary");
    MakeDirectory("Final reports");
    MakeDirectory("EProd");
    MakeDirectory("Final1");
    Make("Temporary/Temp1", 22);
    Make("target", 22);
    fs::create_symlink(Directory.Path() / "target", Directory.Path() / "Final2");
    fs::create_symlink("nowhere", Directory.Path() / "Temp2");
    ASSERT_EQ(::mkfifo((Directory.Path() / "IT11").c_str(), 0600), 0);
    Files.DeleteAll();
    EXPECT_EQ(NamesIn(Directory.Path()), (Names{"EProd", "Final reports", "Final1", "Final2",
                                                "IT11", "Temp2", "Temporary", "target"}));
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

TEST_F(RunFilesTest, AreShownAndDeletedFamilyByFamily) {
    Make({"F1T1.R1", "EShift", "EProd", "IT11", "Final1", "Temp1"});
    Names shown;
    Files.ForEach([&](const fs::path& file) { shown.push_back(file.filename().string()); });
    EXPECT_EQ(shown, (Names{"Temp1", "Final1", "IT11", "EProd", "EShift", "F1T1.R1"}));
}

TEST_F(RunFilesTest, OneIsDeletedIfThereIsOne) {
    Make({"TempA"});
    DeleteRunFile(Files.Path("TempA"));
    EXPECT_EQ(NamesIn(Directory.Path()), Names{});
    EXPECT_NO_THROW(DeleteRunFile(Files.Path("TempA")));
}

TEST_F(RunFilesTest, NothingElseIsDeletedInItsPlace) {
    MakeDirectory("TempA");
    Make("IT11", 21);
    DeleteRunFile(Files.Path("TempA"));
    DeleteRunFile(Files.Path("IT11"));
    EXPECT_EQ(NamesIn(Directory.Path()), (Names{"IT11", "TempA"}));
}

TEST_F(RunFilesTest, NothingElseIsReplaced) {
    Make({"TempA"});
    Make("Final2", 21);
    Make("target", 22);
    MakeDirectory("IT11");
    fs::create_symlink(Directory.Path() / "target", Directory.Path() / "EProd");
    ASSERT_EQ(::mkfifo((Directory.Path() / "Temp1").c_str(), 0600), 0);
    for (const char* taken : {"Final2", "IT11", "EProd", "Temp1"}) {
        const fs::path path = Files.Path(taken);
        for (const std::string& message :
             {ExpectRunTimeError(ErrorKind::FileAccess,
                                 [&] { RenameRunFile(Files.Path("TempA"), path); }),
              ExpectRunTimeError(ErrorKind::FileAccess,
                                 [&] { const RecordWriter<ArcSegment> writer(path); })}) {
            EXPECT_NE(message.find(taken), std::string::npos) << message;
            EXPECT_NE(message.find("Move that elsewhere"), std::string::npos) << message;
        }
    }
    EXPECT_EQ(fs::file_size(Files.Path("Final2")), 21U);
    EXPECT_EQ(ReadFile(Files.Path("target")), std::string(22, 'x'));
    EXPECT_EQ(NamesIn(Directory.Path()),
              (Names{"EProd", "Final2", "IT11", "Temp1", "TempA", "target"}));
}

TEST_F(RunFilesTest, OneIsRenamedOverAnother) {
    Make("TempA", 20);
    Make("IT11", 40);
    RenameRunFile(Files.Path("TempA"), Files.Path("IT11"));
    EXPECT_EQ(NamesIn(Directory.Path()), Names{"IT11"});
    EXPECT_EQ(fs::file_size(Files.Path("IT11")), 20U);
    ExpectRunTimeError(ErrorKind::FileAccess,
                       [&] { RenameRunFile(Files.Path("TempA"), Files.Path("IT11")); });
}

TEST_F(RunFilesTest, HoldWholeRecordsAtAnyTime) {
    RecordWriter<DesignSegment> writer(Files.Path("Final"));
    std::size_t largest = 0;
    for (int record = 0; record < 1000; ++record) {
        writer.Write({});
        const auto size = fs::file_size(Files.Path("Final"));
        EXPECT_EQ(size % DesignSegment::kSize, 0U);
        largest = std::max<std::size_t>(largest, size);
    }
    EXPECT_GT(largest, 0U);  // some of it was on the disk meanwhile
    writer.Close();
    EXPECT_EQ(fs::file_size(Files.Path("Final")), 1000 * DesignSegment::kSize);
}

TEST_F(RunFilesTest, GoAgainWhenTheyAreNotEnded) {
    {
        RecordWriter<ArcSegment> writer(Files.Path("TempC"));
        writer.Write({});
        EXPECT_TRUE(fs::exists(Files.Path("TempC")));
    }
    EXPECT_EQ(NamesIn(Directory.Path()), Names{});
}

TEST_F(RunFilesTest, GoAgainWhenTheDiskIsFull) {
    {
        const test::FileSizeLimit limit(30);
        RecordWriter<ArcSegment> writer(Files.Path("TempC"));
        writer.Write({});
        writer.Write({});
        ExpectRunTimeError(ErrorKind::FileAccess, [&] { writer.Close(); });
    }
    EXPECT_EQ(NamesIn(Directory.Path()), Names{});
}

}  // namespace
}  // namespace quarnel02
