// Names of the run files, and what a clean-up deletes and spares.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <string>
#include <utility>
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

TEST(RunFileNames, AreThoseOfTaskAndResource) {
    EXPECT_EQ(RunFileName({CurveStage::Resource, 1, 12, 3}), "F1T12.R3");
    EXPECT_EQ(RunFileName({CurveStage::ArcMerge, 1, 12, 2}), "TempC");
    EXPECT_EQ(RunFileName({CurveStage::Candidate, 1, 12, 2}), "Temp2");
    EXPECT_EQ(RunFileName({CurveStage::PrefixMerge, 1, 12, 2}), "Final");
    EXPECT_EQ(RunFileName({CurveStage::Prefix, 1, 10, 0}), "Final10");
    EXPECT_EQ(RunFileName({CurveStage::WithPenalties, 1, 10, 0}), "Final10");
}

TEST(RunFileNames, OfSomeArcsAreTheSame) {
    EXPECT_EQ(RunFileName({CurveStage::Arc, 1, 12, 0}), "IT112");
    EXPECT_EQ(RunFileName({CurveStage::Arc, 1, 112, 0}), "IT1112");
    EXPECT_EQ(RunFileName({CurveStage::Arc, 11, 12, 0}), "IT1112");
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

TEST_F(RunFilesTest, OneIsDeletedIfThereIsOne) {
    Make({"TempA"});
    Files.Delete("TempA");
    EXPECT_EQ(NamesIn(Directory.Path()), Names{});
    EXPECT_NO_THROW(Files.Delete("TempA"));
}

TEST_F(RunFilesTest, NothingElseIsDeletedInItsPlace) {
    MakeDirectory("TempA");
    Make("IT11", 21);
    Files.Delete("TempA");
    Files.Delete("IT11");
    EXPECT_EQ(NamesIn(Directory.Path()), (Names{"IT11", "TempA"}));
}

TEST_F(RunFilesTest, NothingElseIsReplaced) {
    Make("Final2", 21);
    Make("target", 22);
    MakeDirectory("IT11");
    fs::create_symlink(Directory.Path() / "target", Directory.Path() / "EProd");
    ASSERT_EQ(::mkfifo((Directory.Path() / "Temp1").c_str(), 0600), 0);
    for (const char* taken : {"Final2", "IT11", "EProd", "Temp1"}) {
        const std::string message = ExpectRunTimeError(
            ErrorKind::FileAccess, [&] { Files.Write(taken, std::string(2640, 'r')); });
        EXPECT_EQ(message, "The run file " + PathText(Directory.Path() / taken) +
                               " cannot be made: something else has its name. Move that elsewhere "
                               "and solve again.");
    }
    EXPECT_EQ(fs::file_size(Directory.Path() / "Final2"), 21U);
    EXPECT_EQ(ReadFile(Directory.Path() / "target"), std::string(22, 'x'));
    EXPECT_EQ(NamesIn(Directory.Path()), (Names{"EProd", "Final2", "IT11", "Temp1", "target"}));
}

TEST_F(RunFilesTest, OneIsWrittenOverAnother) {
    Files.Write("IT11", std::string(40, 'a'));
    Files.Write("IT11", std::string(20, 'b'));
    EXPECT_EQ(ReadFile(Directory.Path() / "IT11"), std::string(20, 'b'));
    Files.Write("Final1", "");
    EXPECT_EQ(fs::file_size(Directory.Path() / "Final1"), 0U);
}

TEST_F(RunFilesTest, GoAgainWhenTheDiskIsFull) {
    {
        const test::FileSizeLimit limit(30);
        const std::string message = ExpectRunTimeError(
            ErrorKind::FileAccess, [&] { Files.Write("IT12", std::string(40, 'a')); });
        EXPECT_TRUE(message.starts_with("The run file " + PathText(Directory.Path() / "IT12") +
                                        " cannot be written: "))
            << message;
        EXPECT_TRUE(
            message.ends_with(". Check the space and the rights of the application directory."))
            << message;
    }
    EXPECT_EQ(NamesIn(Directory.Path()), Names{});
}

TEST_F(RunFilesTest, NeedADirectory) {
    const RunFiles nowhere(Directory.Path() / "nowhere");
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileAccess, [&] { nowhere.Write("EProd", ""); });
    EXPECT_NE(message.find("nowhere/EProd cannot be made: No such file"), std::string::npos)
        << message;
}

TEST_F(RunFilesTest, OfScratchAreOnlyKept) {
    EXPECT_FALSE(Files.KeepsScratch());
    Files.WriteScratch("TempC", "abc");
    Files.RenameScratch("TempC", "TempA");
    EXPECT_EQ(NamesIn(Directory.Path()), Names{});
}

class KeptRunFiles : public RunFilesTest {
  protected:
    TemporaryDirectory Kept;
    RunFiles KeptFiles{Directory.Path(), Kept.Path()};
};

TEST_F(KeptRunFiles, AreWrittenTwice) {
    KeptFiles.Write("IT11", "abc");
    EXPECT_EQ(ReadFile(Directory.Path() / "IT11"), "abc");
    EXPECT_EQ(ReadFile(Kept.Path() / "IT11"), "abc");
}

TEST_F(KeptRunFiles, OutliveTheRun) {
    KeptFiles.Write("EProd", std::string(16, 'a'));
    KeptFiles.DeleteAll();
    EXPECT_EQ(NamesIn(Directory.Path()), Names{});
    EXPECT_EQ(NamesIn(Kept.Path()), Names{"EProd"});
}

TEST_F(KeptRunFiles, AreDeletedWithTheirTable) {
    KeptFiles.Write("IT11", std::string(20, 'a'));
    KeptFiles.Delete("IT11");
    EXPECT_EQ(NamesIn(Directory.Path()), Names{});
    EXPECT_EQ(NamesIn(Kept.Path()), Names{});
}

TEST_F(KeptRunFiles, OfScratchAreRenamedOverOneAnother) {
    EXPECT_TRUE(KeptFiles.KeepsScratch());
    KeptFiles.WriteScratch("TempA", "old");
    KeptFiles.WriteScratch("TempC", "new");
    KeptFiles.RenameScratch("TempC", "TempA");
    EXPECT_EQ(NamesIn(Kept.Path()), Names{"TempA"});
    EXPECT_EQ(ReadFile(Kept.Path() / "TempA"), "new");
    EXPECT_EQ(NamesIn(Directory.Path()), Names{});
    ExpectRunTimeError(ErrorKind::FileAccess, [&] { KeptFiles.RenameScratch("TempC", "TempA"); });
}

}  // namespace
}  // namespace quarnel02
