// Models that are saved for Access.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <random>
#include <string>

#include "files/AccessModelTest.h"
#include "files/ModelImage.h"

namespace fs = std::filesystem;

namespace quarnel02 {
namespace {

using jet::ColumnType;
using test::ExpectRunTimeError;
using test::NamesIn;
using test::RawStore;
using test::Tables;
using Texts = std::vector<std::string>;

/// `Own` is a working copy with the model of `File`.
class SaveAccessTest : public test::AccessModelTest {
  protected:
    void SetUp() override {
        AccessModelTest::SetUp();
        ReadModel(File, Own, "line.mdb");
    }
    void SaveAs(ModelFormat format = ModelFormat::Access) const { SaveModel(Own, File, format); }
    [[nodiscard]] Texts Saved() const {
        ReadModel(File, Copy, "line.mdb");
        return test::AllRows(Copy);
    }
    /// Nothing changes.
    std::string ExpectRefused(ErrorKind kind, ModelFormat format = ModelFormat::Access) const {
        const std::string before = ReadFile(File);
        const auto names = NamesIn(Folder.Path());
        const std::string message = ExpectRunTimeError(kind, [&] { SaveAs(format); });
        EXPECT_EQ(ReadFile(File), before);
        EXPECT_EQ(NamesIn(Folder.Path()), names);
        return message;
    }
    /// An obstacle for good, whatever is to be saved.
    void ExpectNeverReplaced(const std::string& why) const {
        for (const ModelFormat format : {ModelFormat::Sqlite, ModelFormat::Access}) {
            const auto obstacle = ObstacleTo(File, format);
            ASSERT_TRUE(obstacle);
            EXPECT_EQ(obstacle->Why, why);
            EXPECT_TRUE(obstacle->IsFinal);
            EXPECT_EQ(ExpectRefused(ErrorKind::FileAccess, format),
                      PathText(File) + " " + why + " Save the model as another file.");
        }
    }
};

TEST_F(SaveAccessTest, WritesTheEightTablesWithTheTypesThatAccessUsersExpect) {
    fs::remove(File);
    SaveAs();
    jet::Reader reader(File, "line.mdb");
    std::string tables;
    for (const jet::DatabaseObject& object : reader.Objects()) {
        EXPECT_EQ(object.Kind, jet::ObjectKind::Table);
        tables += object.Name + " ";
    }
    EXPECT_EQ(tables, "Gen Tasks Resources Matrix Demand Arcs Pathways BestPaths ");
    constexpr auto kLong = ColumnType::LongInteger;
    constexpr auto kDouble = ColumnType::Double;
    constexpr auto kText = ColumnType::Text;
    EXPECT_EQ(reader.Columns("Gen"), (std::vector<jet::Column>{{"Resources", kLong},
                                                               {"Tasks", kLong},
                                                               {"Days", kDouble},
                                                               {"ACF", kDouble},
                                                               {"LaborCost", kDouble},
                                                               {"TransportTime", kDouble},
                                                               {"Penalty", kDouble},
                                                               {"Product", kText, 255}}));
    EXPECT_EQ(reader.Columns("Demand"), (std::vector<jet::Column>{{"Volume", ColumnType::Single},
                                                                  {"Prob", ColumnType::Single}}));
    for (const TableSchema& table : ModelSchema()) {
        Texts names;
        for (const jet::Column& column : reader.Columns(table.Name)) {
            names.push_back(column.Name);
        }
        const auto ours = NamesOf(table);
        EXPECT_EQ(names, Texts(ours.begin(), ours.end()));
    }
}

TEST_F(SaveAccessTest, LeavesNothingBesideTheFile) {
    SaveAs();
    EXPECT_EQ(Saved(), Rows);
    EXPECT_EQ(NamesIn(Folder.Path()).size(), 3U);
}

TEST_F(SaveAccessTest, ReplacesOneFormatByTheOther) {
    EXPECT_EQ(FormatOfFile(File), ModelFormat::Access);
    SaveAs(ModelFormat::Sqlite);
    EXPECT_EQ(FormatOfFile(File), ModelFormat::Sqlite);
    EXPECT_EQ(Saved(), Rows);
    SaveAs(ModelFormat::Access);
    EXPECT_EQ(FormatOfFile(File), ModelFormat::Access);
    EXPECT_EQ(Saved(), Rows);
}

TEST_F(SaveAccessTest, KnowsNoFormatOfWhatIsNone) {
    EXPECT_EQ(FormatOfFile(Folder.Path()), std::nullopt);
    EXPECT_EQ(FormatOfFile(Folder.Path() / "none.mdb"), std::nullopt);
    WriteFile(File, "notes");
    EXPECT_EQ(FormatOfFile(File), std::nullopt);
}

TEST_F(SaveAccessTest, NamesATextThatAccessCannotHold) {
    RawStore(Own).Run("UPDATE Tasks SET Description = hex(zeroblob(128)) WHERE TaskId = 2");
    const std::string message = ExpectRefused(ErrorKind::Overflow);
    EXPECT_NE(message.find("An Access database cannot hold the model"), std::string::npos);
    EXPECT_NE(message.find("Tasks"), std::string::npos) << message;
    EXPECT_NE(message.find("Description"), std::string::npos) << message;
}

TEST_F(SaveAccessTest, NeverSavesAWorkingCopyThatIsNoModel) {
    RawStore(Own).Run("DROP TABLE BestPaths");
    ExpectRefused(ErrorKind::NotAModel);
}

TEST_F(SaveAccessTest, LeavesTheFileWhenTheDiskIsFull) {
    const test::FileSizeLimit limit(4096);
    ExpectRefused(ErrorKind::FileAccess);
}

TEST_F(SaveAccessTest, FindsNoObstacleInAModel) {
    EXPECT_FALSE(ObstacleTo(File, ModelFormat::Access));
    EXPECT_FALSE(ObstacleTo(File, ModelFormat::Sqlite));
    EXPECT_FALSE(ObstacleTo(Folder.Path() / "none.mdb", ModelFormat::Access));
    EXPECT_FALSE(ObstacleTo(Own, ModelFormat::Access));
}

TEST_F(SaveAccessTest, NeverReplacesWhatHoldsMoreThanAModel) {
    struct Kind {
        int Type;
        const char* Text;
    };
    for (const Kind& kind :
         {Kind{1, "table"}, Kind{6, "linked table"}, Kind{5, "query"}, Kind{8, "relationship"},
          Kind{-32768, "form"}, Kind{-32764, "report"}, Kind{-32766, "macro"},
          Kind{-32761, "module"}, Kind{-32756, "page"}, Kind{77, "object"}}) {
        jet::TinyFile file = jet::TinyFileOf(1, Model);
        file.AddObject("Suppliers", kind.Type);
        WriteFile(File, file.Content());
        ExpectNeverReplaced(std::string("holds more than a model: ") + kind.Text +
                            " Suppliers. Such a file is never replaced.");
    }
}

TEST_F(SaveAccessTest, NeverReplacesATableWithFurtherColumns) {
    test::Named(Model, "Tasks").Columns.push_back({"Note", ColumnType::Text});
    for (jet::Row& row : test::Named(Model, "Tasks").Rows) {
        row.emplace_back("mine");
    }
    Write(Model);
    ExpectNeverReplaced(
        "holds more than a model: column Note of table Tasks. Such a file is never replaced.");
}

TEST_F(SaveAccessTest, NamesTheFirstOfManyObjects) {
    jet::TinyFile file = jet::TinyFileOf(1, Model);
    for (const char* name : {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J"}) {
        file.AddObject(name, 5);
    }
    WriteFile(File, file.Content());
    EXPECT_EQ(ForeignObjects(File).size(), 10U);
    EXPECT_EQ(ObstacleTo(File, ModelFormat::Access)->Why,
              "holds more than a model: query A, query B, query C, query D, query E, query F, "
              "query G, query H and 2 more. Such a file is never replaced.");
}

TEST_F(SaveAccessTest, NeverReplacesAFileOfAccess2007) {
    WriteFile(File, jet::TinyFileOf(2, Model).Content());
    ExpectNeverReplaced("is a database of Access 2007 or later, which is read but not written.");
}

TEST_F(SaveAccessTest, MayReplaceAFileOfAccess97) {
    WriteFile(File, jet::TinyFileOf(0, Model).Content());
    const auto obstacle = ObstacleTo(File, ModelFormat::Access);
    ASSERT_TRUE(obstacle);
    EXPECT_EQ(obstacle->Why,
              "is a database of Access 97. Saving makes it one of Access 2000, which Access 97 "
              "does not open.");
    EXPECT_FALSE(obstacle->IsFinal);
    EXPECT_FALSE(ObstacleTo(File, ModelFormat::Sqlite));
    SaveAs();
    EXPECT_EQ(Saved(), Rows);
    EXPECT_FALSE(ObstacleTo(File, ModelFormat::Access));
}

TEST_F(SaveAccessTest, NeverReplacesWhatCannotBeLookedInto) {
    jet::TinyFile encrypted = jet::TinyFileOf(1, Model);
    encrypted.SetKey(7);
    WriteFile(File, encrypted.Content());
    for (const ModelFormat format : {ModelFormat::Sqlite, ModelFormat::Access}) {
        EXPECT_NE(ExpectRefused(ErrorKind::NotAModel, format).find("is encrypted"),
                  std::string::npos);
    }
}

TEST_F(SaveAccessTest, NeverReplacesWhatIsOpenInAccess) {
    fs::path lock = File;
    WriteFile(lock.replace_extension(".ldb"), "PLANNING");
    for (const ModelFormat format : {ModelFormat::Sqlite, ModelFormat::Access}) {
        const std::string message = ExpectRefused(ErrorKind::DatabaseLocked, format);
        EXPECT_NE(message.find("is open in Access: the lock file"), std::string::npos) << message;
        ExpectRunTimeError(ErrorKind::DatabaseLocked, [&] { (void)ObstacleTo(File, format); });
    }
    fs::remove(File);
    EXPECT_NO_THROW(SaveAs()) << "a lock file alone locks nothing";
}

std::string OutputOf(const std::string& command) {
    FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r");
    std::string output;
    std::array<char, 4096> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
        output.append(buffer.data(), count);
    }
    constexpr int no_command = 127;
    return WEXITSTATUS(pclose(pipe)) == no_command ? "not installed" : output;
}

TEST_F(SaveAccessTest, IsReadByAnotherProgramTypeByType) {
    SaveAs();
    const std::string schema = OutputOf("mdb-schema '" + File.string() + "' access");
    if (schema == "not installed") {
        GTEST_SKIP() << "mdb-schema is not installed.";
    }
    for (const char* line : {"[Demand]", "[Volume]\t\t\tSingle", "[TaskId]\t\t\tLong Integer",
                             "[Description]\t\t\tText (255)", "[TaskTime]\t\t\tDouble"}) {
        EXPECT_NE(schema.find(line), std::string::npos) << line << "\n" << schema;
    }
    EXPECT_EQ(OutputOf("mdb-export -H '" + File.string() + "' Tasks"),
              "1,\"Drill\"\n2,\"Press\"\n3,\n");
}

/// Models of any content that our fields take.
class RandomRows {
  public:
    explicit RandomRows(unsigned seed) : m_random(seed) {}

    ModelImage Image() {
        ModelImage image;
        for (const TableSchema& table : ModelSchema()) {
            const int rows = table.Name == "Gen" ? 1 : Below(8);
            image.Fill(table, [&](const ModelImage::AddRow& add) {
                for (int i = 0; i < rows; ++i) {
                    add(Row(table));
                }
            });
        }
        return image;
    }

  private:
    int Below(int end) { return std::uniform_int_distribution(0, end - 1)(m_random); }

    std::vector<Value> Row(const TableSchema& table) {
        std::vector<Value> row;
        for (const ColumnSchema& column : table.Columns) {
            row.push_back(Below(10) == 0 ? Value() : Field(column));
        }
        return row;
    }

    Value Field(const ColumnSchema& column) {
        constexpr int all_integers = 65536;
        switch (column.Type) {
            case FieldType::Integer:
                return std::int64_t{Below(all_integers)} - all_integers / 2;
            case FieldType::Text:
                return Below(8) == 0 ? std::string() : jet::RandomText(255, m_random);
            case FieldType::Single:
            case FieldType::Real:
                break;
        }
        const double real =
            std::ldexp(std::uniform_real_distribution(-1.0, 1.0)(m_random), Below(60) - 20);
        return ConvertTo(column.Type, Below(4) == 0 ? std::trunc(real) : real, "x");
    }

    std::mt19937 m_random;
};

/// All rows, Null and empty texts apart, reals to the last bit.
Texts ExactRows(const fs::path& file) {
    RawStore store(file);
    Texts all;
    for (const TableSchema& table : ModelSchema()) {
        std::string columns;
        for (const std::string_view name : NamesOf(table)) {
            columns += (columns.empty() ? "" : ", ") + std::string("typeof(\"") +
                       std::string(name) + "\"), quote(\"" + std::string(name) + "\")";
        }
        for (const std::string& row : store.Rows("SELECT " + columns + " FROM " +
                                                 std::string(table.Name) + " NOT INDEXED")) {
            all.push_back(std::string(table.Name) + ": " + row);
        }
    }
    return all;
}

class RoundTripTest : public testing::TestWithParam<unsigned> {};

INSTANTIATE_TEST_SUITE_P(RandomModels, RoundTripTest, testing::Values(0, 250, 500, 750));

TEST_P(RoundTripTest, ThroughAccessGivesTheSameModelFieldForField) {
    const TemporaryDirectory folder;
    const fs::path own = folder.Path() / "own.seq";
    const fs::path access = folder.Path() / "line.mdb";
    const fs::path again = folder.Path() / "again.seq";
    constexpr unsigned models = 250;
    for (unsigned seed = GetParam(); seed < GetParam() + models; ++seed) {
        WriteFile(own, RandomRows(seed).Image().Content("model"));
        SaveModel(own, access, ModelFormat::Access);
        ASSERT_EQ(ReadModel(access, again, "line.mdb"), ModelFormat::Access);
        ASSERT_EQ(ExactRows(again), ExactRows(own)) << seed;
    }
}

}  // namespace
}  // namespace quarnel02
