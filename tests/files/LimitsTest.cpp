// The guide states the limits that the code has; a file at its limit is read, one beyond is not.
#include "basic/Limits.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "files/ReadModelTest.h"
#include "files/SaveModel.h"
#include "files/SqlText.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::RawStore;
using test::Texts;

/// 1,048,576
std::string Grouped(std::uintmax_t number) {
    std::string text = std::to_string(number);
    for (std::size_t end = text.size(); end > 3; end -= 3) {
        text.insert(end - 3, ",");
    }
    return text;
}

std::string Megabytes(std::uintmax_t bytes) {
    return std::to_string(bytes >> 20) + " MB";
}

TEST(Guide, StatesTheLimits) {
    const std::string guide =
        ReadFile(std::filesystem::path(QUARNEL02_SOURCES) / "app" / "guide.md");
    const std::size_t begin = guide.find("\n## Limits\n");
    ASSERT_NE(begin, std::string::npos);
    const std::string section = guide.substr(begin, guide.find("\n## ", begin + 1) - begin);
    using namespace limits;
    for (const std::string& row :
         {"| Tasks | " + Grouped(kTasks) + " |", "| Resources | " + Grouped(kResources) + ";",
          "resource that can do it) | " + Grouped(kPathways) + " |",
          "stations of a pathway | " + Grouped(kStations) + ";",
          "| Model file | " + Megabytes(kModelFile) + ", with " + Grouped(kRows) +
              " rows in a table and " + Megabytes(kContent) + " of",
          "| Access database | " + Megabytes(kAccessFile) + " |",
          "| Text | " + std::to_string(kText >> 10U) + " KB; " + Grouped(kAccessText) +
              " characters in an Access database, " + Grouped(kCellText) + " characters in",
          Grouped(kSheetFile) + " bytes, " + Grouped(kCells) + " cells, " + Grouped(kPairs) +
              " pairs",
          "| SQL text | " + Megabytes(kSqlFile) + " |"}) {
        EXPECT_NE(section.find(row), std::string::npos) << row;
    }
}

class FileLimits : public test::ReadModelTest {
  protected:
    /// The file that is made of the model is `size` long, behind its end with nothing.
    void Resize(std::uintmax_t size) const { std::filesystem::resize_file(File, size); }
};

TEST_F(FileLimits, OfTheModelFile) {
    Make();
    Resize(limits::kModelFile);
    EXPECT_NO_THROW(Read());
    Resize(limits::kModelFile + 1);
    const std::string message = ExpectRunTimeError(ErrorKind::NotAModel, [&] { Read(); });
    EXPECT_NE(message.find("is larger than 256 MB"), std::string::npos) << message;
}

TEST_F(FileLimits, OfTheRowsOfATable) {
    const auto insert = [](std::int64_t rows) {
        return "DELETE FROM Tasks; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
               "WHERE i < " +
               std::to_string(rows) + ") INSERT INTO Tasks SELECT 1, NULL FROM n;";
    };
    Make(insert(limits::kRows + 1));
    ExpectRefusedFor("has more than 1,048,576 rows in table Tasks");
    RawStore(File).Run("DELETE FROM Tasks WHERE rowid = 1");
    Read();
    EXPECT_EQ(RawStore(Copy).Rows("SELECT COUNT(*) FROM Tasks"),
              Texts{std::to_string(limits::kRows)});
}

TEST_F(FileLimits, OfATextInAnAccessDatabase) {
    const auto access = Folder.Path() / "access.mdb";
    Make("UPDATE Tasks SET Description = '" + std::string(limits::kAccessText, 'x') +
         "' WHERE TaskId = 1;");
    SaveModel(File, access, ModelFormat::Access);
    ReadModel(access, Copy, "access.mdb");
    EXPECT_EQ(RawStore(Copy).Rows("SELECT length(Description) FROM Tasks WHERE TaskId = 1"),
              Texts{"255"});
    RawStore(File).Run("UPDATE Tasks SET Description = Description || 'x' WHERE TaskId = 1");
    ExpectRunTimeError(ErrorKind::Overflow, [&] { SaveModel(File, access, ModelFormat::Access); });
}

TEST_F(FileLimits, OfAnSqlText) {
    const auto text = Folder.Path() / "line.sql";
    WriteFile(text, "DELETE FROM Tasks;");
    const std::string blank(std::size_t{1} << 20U, ' ');
    std::string content = ReadFile(text);
    while (content.size() + blank.size() <= limits::kSqlFile) {
        content += blank;
    }
    content.resize(limits::kSqlFile, ' ');
    WriteFile(text, content);
    EXPECT_NO_THROW(ReadSqlText(text, Copy, "line.sql"));
    WriteFile(text, content + ' ');
    const std::string message =
        ExpectRunTimeError(ErrorKind::NotAModel, [&] { ReadSqlText(text, Copy, "line.sql"); });
    EXPECT_NE(message.find("is larger than 64 MB"), std::string::npos) << message;
}

}  // namespace
}  // namespace quarnel02
