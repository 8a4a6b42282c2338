#pragma once

#include "files/ReadModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "files/ModelFile.h"
#include "model/Schema.h"
#include "support/ModelScript.h"
#include "support/RawStore.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"

namespace quarnel02::test {

using Texts = std::vector<std::string>;

/// All rows of all tables, fields in the order of the schema, in the order of the rows.
inline Texts AllRows(const std::filesystem::path& file) {
    RawStore store(file);
    Texts all;
    for (const TableSchema& table : ModelSchema()) {
        std::string columns;
        for (const ColumnSchema& column : table.Columns) {
            columns += (columns.empty() ? "\"" : ", \"") + std::string(column.Name) + "\"";
        }
        for (const std::string& row : store.Rows("SELECT " + columns + " FROM " +
                                                 std::string(table.Name) + " ORDER BY rowid")) {
            all.push_back(std::string(table.Name) + ": " + row);
        }
    }
    return all;
}

/// What a database defines, statement by statement.
inline Texts Definitions(const std::filesystem::path& file) {
    return RawStore(file).Rows("SELECT sql FROM sqlite_master WHERE sql NOT NULL ORDER BY name");
}

inline constexpr const char* kFurtherRows =
    "INSERT INTO Tasks VALUES (1, 'Drill'), (2, 'Press'), (3, NULL);"
    "INSERT INTO Demand VALUES (33.3, 40), (1000, 60);"
    "INSERT INTO Arcs VALUES (0, 1, 2, 100, 50, 3.14159, 6.28318);"
    "INSERT INTO Pathways VALUES (1, 0, 1, 4, 64336.5, 61.1, 1, 12600, 60556);"
    "INSERT INTO BestPaths VALUES (2, 1, 1, 64336.5);";

class ReadModelTest : public testing::Test {
  protected:
    void SetUp() override { WriteFile(Copy, "the working copy before"); }

    void Make(const std::string& more = "") const {
        MakeModelFile(File, ReadFile(QUARNEL02_SCHEMA_FILE) + test::WorkedExample().Sql() +
                                kFurtherRows + more);
    }
    void Read() const { ReadModel(File, Copy, "line.mdb"); }

    /// One line that names the file; file and working copy as they were, and nothing beside them.
    std::string ExpectRefused(ErrorKind kind = ErrorKind::NotAModel) const {
        const std::string before = std::filesystem::is_regular_file(File) ? ReadFile(File) : "";
        const auto names = NamesIn(Folder.Path());
        const std::string message = ExpectRunTimeError(kind, [&] { Read(); });
        EXPECT_NE(message.find("line.mdb"), std::string::npos) << message;
        EXPECT_EQ(std::filesystem::is_regular_file(File) ? ReadFile(File) : "", before);
        EXPECT_EQ(ReadFile(Copy), "the working copy before");
        EXPECT_EQ(NamesIn(Folder.Path()), names);
        return message;
    }
    void ExpectRefusedFor(const std::string& words) const {
        const std::string message = ExpectRefused();
        EXPECT_NE(message.find(words), std::string::npos) << message;
    }
    /// The working copy has our own tables and the rows of `rows`; the file is as it was.
    void ExpectRead(const Texts& rows) const {
        const std::string before = ReadFile(File);
        const auto names = NamesIn(Folder.Path());
        ASSERT_NO_THROW(Read());
        EXPECT_EQ(AllRows(Copy), rows);
        EXPECT_EQ(Definitions(Copy), Definitions(QUARNEL02_TEMPLATE_FILE));
        EXPECT_EQ(ReadFile(File), before);
        EXPECT_EQ(NamesIn(Folder.Path()), names);
        EXPECT_NO_THROW(CheckModelFile(Copy, "working copy"));
    }

    TemporaryDirectory Folder;
    std::filesystem::path File = Folder.Path() / std::filesystem::path(u8"Öl, 50% #1?.mdb");
    std::filesystem::path Copy = Folder.Path() / "working.seq";
};

}  // namespace quarnel02::test
