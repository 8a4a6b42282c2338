// Models that were made in Access.

#include <gtest/gtest.h>

#include <bit>
#include <filesystem>
#include <string>

#include "files/AccessModelTest.h"

namespace fs = std::filesystem;

namespace quarnel02 {
namespace {

using jet::ColumnType;
using test::AllRows;
using test::ExpectRunTimeError;
using test::Named;
using test::RawStore;
using test::Tables;
using Texts = std::vector<std::string>;

class ReadAccessTest : public test::AccessModelTest {
  protected:
    /// Replaces column `place` of the table by one of another type and values.
    void Retype(const char* table, std::size_t place, ColumnType type,
                const std::vector<jet::Value>& values) {
        jet::NewTable& changed = Named(Model, table);
        changed.Columns[place].Type = type;
        changed.Rows.resize(values.size(), jet::Row(changed.Columns.size()));
        for (std::size_t i = 0; i < values.size(); ++i) {
            changed.Rows[i][place] = values[i];
        }
    }
    void Drop(const std::string& table, std::size_t place) {
        jet::NewTable& changed = Named(Model, table);
        const auto at = static_cast<std::ptrdiff_t>(place);
        changed.Columns.erase(changed.Columns.begin() + at);
        for (jet::Row& row : changed.Rows) {
            row.erase(row.begin() + at);
        }
    }
    [[nodiscard]] Texts Read(const std::string& select) const {
        ReadModel(File, Copy, "line.mdb");
        return RawStore(Copy).Rows(select);
    }
};

TEST_F(ReadAccessTest, TakesTheSameRowsAsFromAFileOfOurOwn) {
    ASSERT_GT(Rows.size(), 8U);
    ExpectRead(Rows);
    EXPECT_EQ(test::PermissionsOf(Copy), 0600U);
}

TEST_F(ReadAccessTest, SaysWhichFormatTheFileHas) {
    EXPECT_EQ(ReadModel(File, Copy, "line.mdb"), ModelFormat::Access);
    EXPECT_EQ(ReadModel(QUARNEL02_TEMPLATE_FILE, Copy, "blank.seq"), ModelFormat::Sqlite);
}

TEST_F(ReadAccessTest, ReadsFilesOfEveryGenerationOfAccess) {
    for (const unsigned version : {0U, 1U, 2U, 5U}) {
        WriteFile(File, jet::TinyFileOf(version, Model).Content());
        ExpectRead(Rows);
    }
}

TEST_F(ReadAccessTest, ReadsTheFixtures) {
    for (const char* name :
         {"pump_v2000", "pump_v2003", "pump_long_currency", "pump_pk", "pump_bulk3000"}) {
        SCOPED_TRACE(name);
        ReadModel(jet::FixturePath(name), Copy, "line.mdb");
        RawStore copy(Copy);
        EXPECT_EQ(copy.Rows("SELECT * FROM Gen"), Texts{"3|4|250.0|0.3|15.0|5.0|12.5|Pump"});
        EXPECT_EQ(copy.Rows("SELECT * FROM Tasks"),
                  (Texts{"1|Insert bearing", "2|Press shaft", "3|Fasten cover", "4|Leak test"}));
        EXPECT_EQ(copy.Rows("SELECT * FROM Resources WHERE ResourceId = 3"),
                  Texts{"3|ROB|Assembly robot|3|60000.0|25000.0|0.95|1.8|2.5|8.0"});
        EXPECT_EQ(copy.Rows("SELECT COUNT(*), SUM(TaskTime), SUM(ToolCost) FROM Matrix"),
                  Texts{"9|68.25|51850.5"});
        EXPECT_EQ(copy.Rows("SELECT * FROM Demand"),
                  (Texts{"30000.0|25.0", "50000.0|50.0", "80000.0|25.0"}));
    }
}

TEST_F(ReadAccessTest, KeepsNullAndEmptyTextsOfTheFixturesApart) {
    for (const char* name : {"pump_nulls_utf16", "pump_nulls_uncompressed_wide"}) {
        jet::Reader reader(jet::FixturePath(name), "line.mdb");
        ReadModel(jet::FixturePath(name), Copy, "line.mdb");
        std::string expected;
        for (const jet::Row& row : jet::ReadWhole(reader, "Tasks").Rows) {
            const auto* text = std::get_if<std::string>(&row[1]);
            expected += text == nullptr ? "null;" : "text" + *text + ";";
        }
        std::string found;
        for (const std::string& row :
             RawStore(Copy).Rows("SELECT typeof(Description) || coalesce(Description, '') FROM "
                                 "Tasks")) {
            found += row + ";";
        }
        EXPECT_EQ(found, expected);
        EXPECT_NE(found.find("null;"), std::string::npos) << found;
    }
}

TEST_F(ReadAccessTest, NeedsOneRowOfParameters) {
    fs::copy_file(jet::FixturePath("pump_empty_v2000"), File, fs::copy_options::overwrite_existing);
    ExpectRefusedFor("has 0 rows of production parameters in table Gen instead of one.");
}

TEST_F(ReadAccessTest, FindsTablesAndColumnsByName) {
    jet::NewTable& matrix = Named(Model, "Matrix");
    matrix.Name = "MATRIX";
    std::reverse(matrix.Columns.begin(), matrix.Columns.end());
    matrix.Columns[0].Name = "TOOLCOST";
    for (jet::Row& row : matrix.Rows) {
        std::reverse(row.begin(), row.end());
    }
    Named(Model, "Tasks").Columns.push_back({"Note", ColumnType::Text});
    for (jet::Row& row : Named(Model, "Tasks").Rows) {
        row.emplace_back("mine");
    }
    Write(Model);
    ExpectRead(Rows);
}

TEST_F(ReadAccessTest, ConvertsValuesToTheTypesOfTheFields) {
    Retype("Demand", 0, ColumnType::Text, {"12,500", jet::Value()});
    Retype("Demand", 1, ColumnType::Double, {33.2999992370605, 7.0});
    Retype("Tasks", 0, ColumnType::Double, {1.0, 2.0});
    Retype("Tasks", 1, ColumnType::Currency, {12.5, jet::Value()});
    Write(Model);
    EXPECT_EQ(Read("SELECT Volume, typeof(Volume), Prob, typeof(Prob) FROM Demand"),
              (Texts{"12500.0|real|33.3|real", "|null|7.0|real"}));
    EXPECT_EQ(Read("SELECT TaskId, typeof(TaskId), Description, typeof(Description) FROM Tasks"),
              (Texts{"1|integer|12.5|text", "2|integer||null"}));
}

TEST_F(ReadAccessTest, TakesASingleForTheDecimalNumberThatWasEntered) {
    const auto single = static_cast<double>(12.1F);
    Retype("Matrix", 2, ColumnType::Single, {single, jet::Value()});
    Retype("Demand", 0, ColumnType::Single, {static_cast<double>(33.3F), 12345678.0});
    Write(Model);
    EXPECT_EQ(Read("SELECT TaskTime FROM Matrix"), (Texts{"12.1", ""}));
    EXPECT_EQ(Read("SELECT Volume FROM Demand"), (Texts{"33.3", "12345678.0"}));
}

TEST_F(ReadAccessTest, NamesAValueThatAFieldCannotHold) {
    const Tables whole = Model;
    const auto expect = [&](ColumnType type, const jet::Value& value, const std::string& words) {
        Model = whole;
        Retype("Tasks", 0, type, {type == ColumnType::Text ? jet::Value("1") : 1.0, value});
        Write(Model);
        ExpectRefusedFor("line.mdb has a wrong value in row 2 of table Tasks: TaskId" + words);
    };
    expect(ColumnType::Text, "abc", ": \"abc\" is not a number");
    expect(ColumnType::Text, std::string(101, '1'), " is a text, not a number.");
    expect(ColumnType::Double, 40000.0, ": 40000 is out");
    expect(ColumnType::Double, 2.5, ": 2.5 is no whole number. Correct it there.");
}

TEST_F(ReadAccessTest, RefusesNumbersThatAreNone) {
    for (const double wrong :
         {std::bit_cast<double>(0x7FF0000000000000U), std::bit_cast<double>(0x7FF8000000000000U)}) {
        for (const ColumnType type : {ColumnType::Double, ColumnType::Single}) {
            jet::NewTable& matrix = Named(Model, "Matrix");
            matrix.Columns[2].Type = type;
            matrix.Rows[0][2] = wrong;
            WriteFile(File, jet::TinyFileOf(1, Model).Content());
            ExpectRefusedFor("row 1 of table Matrix: TaskTime is infinite.");
        }
    }
}

TEST_F(ReadAccessTest, NamesEachMissingTable) {
    for (std::size_t i = 0; i < Model.size(); ++i) {
        Tables fewer = Model;
        fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(i));
        Write(fewer);
        ExpectRefusedFor("line.mdb has no table " + Model[i].Name + ".");
    }
}

/// What new records begin with, and what a solve makes anew.
TEST_F(ReadAccessTest, NeedsNoColumnForWhichAValueChangesNothing) {
    const std::vector<std::pair<std::string, std::string>> defaults = {
        {"Gen.Product", "Untitled"},     {"Tasks.Description", "   "},
        {"Resources.ShortName", "   "},  {"Resources.Description", "   "},
        {"Resources.UpTime", "100.0"},   {"Resources.ICF", "1.0"},
        {"Resources.ToolChange", "0.0"}, {"Resources.StatPerWrk", "1.0"},
        {"Matrix.ToolNum", "0"},         {"Matrix.ToolCost", "0.0"},
        {"Arcs.Midpoint", "0.0"},        {"Arcs.Radius", "0.0"},
        {"Arcs.Start", "0.0"},           {"Arcs.End", "0.0"},
        {"Pathways.Feasible", "0"},      {"Pathways.Cost", "0.0"},
        {"Pathways.Time", "0.0"},        {"Pathways.Stations", "0"},
        {"Pathways.Investment", "0.0"},  {"Pathways.AnnualLabor", "0.0"},
        {"BestPaths.PathCost", "0.0"}};
    const Tables whole = Model;
    std::size_t optional = 0;
    for (const TableSchema& table : ModelSchema()) {
        for (std::size_t place = 0; place < table.Columns.size(); ++place) {
            const std::string name(table.Columns[place].Name);
            const std::string full = std::string(table.Name) + "." + name;
            const auto found = std::find_if(defaults.begin(), defaults.end(),
                                            [&](auto& each) { return each.first == full; });
            Model = whole;
            Drop(std::string(table.Name), place);
            Write(Model);
            if (found == defaults.end()) {
                ExpectRefusedFor("has no column " + name + " in table " + std::string(table.Name) +
                                 ".");
                continue;
            }
            ++optional;
            EXPECT_EQ(Read("SELECT DISTINCT \"" + name + "\" FROM " + std::string(table.Name)),
                      Texts{found->second})
                << full;
            SetUp();
        }
    }
    EXPECT_EQ(optional, defaults.size());
}

TEST_F(ReadAccessTest, RefusesAQueryOrALinkInPlaceOfATable) {
    Tables fewer = Model;
    fewer.pop_back();
    jet::TinyFile file = jet::TinyFileOf(1, fewer);
    file.AddObject("BestPaths", 5);
    WriteFile(File, file.Content());
    ExpectRefusedFor("has no table BestPaths: a query stands in its place.");
    jet::TinyFile linking = jet::TinyFileOf(1, fewer);
    linking.AddObject("BestPaths", 6);
    WriteFile(File, linking.Content());
    ExpectRefusedFor("has no table BestPaths of its own: it links to one in another file.");
}

TEST_F(ReadAccessTest, RefusesWhatIsProtected) {
    jet::TinyFile encrypted = jet::TinyFileOf(1, Model);
    encrypted.SetKey(7);
    WriteFile(File, encrypted.Content());
    ExpectRefusedFor("line.mdb is encrypted. Open it in Access");
    jet::TinyFile locked = jet::TinyFileOf(0, Model);
    locked.SetPassword("secret");
    WriteFile(File, locked.Content());
    ExpectRefusedFor("line.mdb is protected by a database password. Open it in Access");
}

TEST_F(ReadAccessTest, SaysThatAFileIsOpenElsewhere) {
    for (const char* extension : {".ldb", ".LDB", ".laccdb"}) {
        fs::path lock = File;
        lock.replace_extension(extension);
        WriteFile(lock, "PLANNING");
        const std::string message = ExpectRefused(ErrorKind::DatabaseLocked);
        EXPECT_EQ(message, "line.mdb is open in Access: the lock file " +
                               PathText(lock.filename()) +
                               " stands beside it. Close it there. If nobody has it open, delete " +
                               PathText(lock.filename()) + ".");
        fs::remove(lock);
    }
    ExpectRead(Rows);
}

TEST_F(ReadAccessTest, MindsNoLockFileBesideAFileOfOurOwn) {
    Make();
    fs::path lock = File;
    WriteFile(lock.replace_extension(".ldb"), "PLANNING");
    ExpectRead(Rows);
}

/// A model, the same one, or one message; and the file stays as it is.
class DamagedAccessTest : public test::AccessModelTest {
  protected:
    bool IsRead() const {
        try {
            ReadModel(File, Copy, "line.mdb");
            return true;
        } catch (const RunTimeError& error) {
            const std::string message = error.what();
            EXPECT_EQ(error.Kind(), ErrorKind::NotAModel) << message;
            EXPECT_TRUE(message.starts_with("line.mdb ") && message.ends_with('.')) << message;
            EXPECT_EQ(message.find('\n'), std::string::npos) << message;
            return false;
        }
    }
};

/// A quarter of the bytes.
class FlippedAccessTest : public DamagedAccessTest,
                          public testing::WithParamInterface<std::size_t> {};

INSTANTIATE_TEST_SUITE_P(Quarters, FlippedAccessTest, testing::Values(0U, 1U, 2U, 3U));

TEST_P(FlippedAccessTest, GivesAModelOrOneMessage) {
    std::string content = jet::TinyFileOf(0, Model).Content();
    int read = 0;
    int refused = 0;
    for (std::size_t at = GetParam(); at < content.size(); at += 4) {
        if (content[at] == '\0' && at % 61 != 0) {
            continue;  // free space, of which a few samples do
        }
        content[at] = static_cast<char>(~content[at]);
        WriteFile(File, content);
        ++(IsRead() ? read : refused);
        content[at] = static_cast<char>(~content[at]);
    }
    EXPECT_GT(read, 100);
    EXPECT_GT(refused, 100);
}

TEST_F(DamagedAccessTest, TruncatedAtEveryLength) {
    WriteFile(File, jet::TinyFileOf(0, Model).Content());
    for (auto length = fs::file_size(File); length-- > 0;) {
        fs::resize_file(File, length);
        ASSERT_FALSE(IsRead()) << length;
    }
    EXPECT_EQ(ReadFile(Copy), "the working copy before");
}

}  // namespace
}  // namespace quarnel02
