#include <gtest/gtest.h>

#include <algorithm>

#include "basic/RunTimeError.h"
#include "jet/ReadTables.h"

namespace quarnel02::jet {
namespace {

using namespace std::string_literals;

constexpr auto kGen = "3|4|250|0.3|15|5|12.5|\"Pump\"\n";
constexpr auto kTasks =
    "1|\"Insert bearing\"\n"
    "2|\"Press shaft\"\n"
    "3|\"Fasten cover\"\n"
    "4|\"Leak test\"\n";
constexpr auto kResources =
    "1|\"MAN\"|\"Manual station\"|0|2000|500|0.98|1.2|3|1\n"
    "2|\"FIX\"|\"Fixed automation\"|2|80000|12000|0.92|1.5|0|6\n"
    "3|\"ROB\"|\"Assembly robot\"|3|60000|25000|0.95|1.8|2.5|8\n";
constexpr auto kMatrix =
    "1|1|6.5|0|0\n"
    "1|2|8|1|250\n"
    "1|3|12.25|2|400\n"
    "1|4|15|3|1500\n"
    "2|1|4|4|9000\n"
    "2|2|4.5|5|14000\n"
    "2|3|5|6|16500\n"
    "3|1|5.5|7|4000\n"
    "3|3|7.5|8|6200.5\n";
constexpr auto kDemand =
    "30000|25\n"
    "50000|50\n"
    "80000|25\n";

class Fixture : public Reader {
  public:
    explicit Fixture(std::string_view name) : Reader(FixturePath(name), "line.mdb") {}
    std::string Text(std::string_view table) { return TextOf(ReadWhole(*this, table).Rows); }
};

class PumpTest : public testing::TestWithParam<const char*> {};

TEST_P(PumpTest, IsReadValueForValue) {
    Fixture file(GetParam());
    EXPECT_EQ(file.Text("Gen"), kGen);
    EXPECT_EQ(file.Text("Tasks"), kTasks);
    EXPECT_EQ(file.Text("Resources"), kResources);
    EXPECT_EQ(file.Text("Matrix"), kMatrix);
    EXPECT_EQ(file.Text("Demand"), kDemand);
    EXPECT_EQ(file.Text("BestPaths"), "");
}

INSTANTIATE_TEST_SUITE_P(Fixtures, PumpTest,
                         testing::Values("pump_v2000", "pump_v2003", "pump_long_currency",
                                         "pump_pk", "pump_bulk3000"),
                         [](const auto& test) { return std::string(test.param); });

TEST(FixturesTest, NameOnlyWhatAUserMade) {
    const std::vector<DatabaseObject> expected = {
        {ObjectKind::Table, "Gen"},       {ObjectKind::Table, "Tasks"},
        {ObjectKind::Table, "Resources"}, {ObjectKind::Table, "Matrix"},
        {ObjectKind::Table, "Demand"},    {ObjectKind::Table, "Arcs"},
        {ObjectKind::Table, "Pathways"},  {ObjectKind::Table, "BestPaths"}};
    EXPECT_EQ(Fixture("pump_v2000").Objects(), expected);
    EXPECT_EQ(Fixture("pump_v2003").Objects(), expected);
}

TEST(FixturesTest, DescribeTheirColumns) {
    const std::vector<Column> expected = {
        {"Resources", ColumnType::LongInteger, 255}, {"Tasks", ColumnType::LongInteger, 255},
        {"Days", ColumnType::Double, 255},           {"ACF", ColumnType::Double, 255},
        {"LaborCost", ColumnType::Currency, 255},    {"TransportTime", ColumnType::Double, 255},
        {"Penalty", ColumnType::Currency, 255},      {"Product", ColumnType::Text, 50}};
    EXPECT_EQ(Fixture("pump_long_currency").Columns("Gen"), expected);
    EXPECT_EQ(Fixture("pump_v2000").Columns("GEN")[0].Type, ColumnType::Integer);
    EXPECT_EQ(Fixture("pump_v2000").Columns("demand")[1],
              (Column{"Prob", ColumnType::Single, 255}));
}

TEST(FixturesTest, TellNullFromEmptyTextAndKeepEveryScript) {
    for (const auto* name : {"pump_nulls_utf16", "pump_nulls_uncompressed_wide"}) {
        Fixture file(name);
        EXPECT_EQ(file.Text("Tasks"),
                  "1|\"Lager einfügen\"\n"
                  "2|Null\n"
                  "3|\"Deckel – 4×M6 € Łódź 組立\"\n"
                  "4|\"\"\n");
        EXPECT_EQ(file.Text("Resources"),
                  "1|Null|\"Handarbeitsplatz\"|0|2000|500|0.98|1.2|3|1\n"
                  "2|\"SCHR\"|\"Schraubstation Übergabe\"|2|80000|12000|0.92|Null|0|6\n"
                  "3|\"ROB\"|Null|3|60000|25000.1234|0.95|1.8|2.5|8\n");
        EXPECT_EQ(file.Text("Matrix"), kMatrix + "3|4|Null|Null|Null\n"s);
    }
}

TEST(FixturesTest, LeaveOutADeletedRowAndFindAMovedOne) {
    std::string longest;
    for (int i = 0; i < 255; ++i) {
        longest += "Ü";
    }
    Fixture file("pump_deleted_row");
    auto rows = ReadWhole(file, "Tasks").Rows;
    std::sort(rows.begin(), rows.end());
    EXPECT_EQ(TextOf(rows), "1|\"" + longest + "\"\n3|\"Fasten cover\"\n4|\"Leak test\"\n");
}

TEST(FixturesTest, MayBeEmpty) {
    Fixture file("pump_empty_v2000");
    EXPECT_EQ(file.Objects().size(), 8U);
    for (const DatabaseObject& table : file.Objects()) {
        EXPECT_EQ(file.Text(table.Name), "") << table.Name;
    }
}

TEST(FixturesTest, MayFillManyPages) {
    Fixture file("pump_bulk3000");
    auto paths = ReadWhole(file, "Pathways").Rows;
    ASSERT_EQ(paths.size(), 3000U);
    std::sort(paths.begin(), paths.end());
    for (std::size_t i = 0; i < paths.size(); ++i) {
        EXPECT_EQ(std::get<std::int64_t>(paths[i][0]), static_cast<std::int64_t>(i) + 1);
    }
    EXPECT_EQ(ReadWhole(file, "Arcs").Rows.size(), 3000U);
}

TEST(FixturesTest, GiveOnlyTheColumnsAskedFor) {
    Fixture file("pump_v2000");
    std::vector<Row> rows;
    const std::vector<std::size_t> places = {4, 2};
    file.ReadRows("Matrix", places, [&](const Row& row) { rows.push_back(row); });
    ASSERT_EQ(rows.size(), 9U);
    EXPECT_EQ(TextOf({rows[1], rows[8]}), "250|8\n6200.5|7.5\n");
}

TEST(FixturesTest, NameATableThatIsMissing) {
    Fixture file("pump_v2000");
    try {
        ReadWhole(file, "Suppliers");
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Kind(), ErrorKind::NotAModel);
        EXPECT_STREQ(error.what(),
                     "line.mdb has no table Suppliers. Choose a file that holds a model.");
    }
}

TEST(FixturesTest, ThrowWhatTheActionThrows) {
    Fixture file("pump_v2000");
    const std::vector<std::size_t> places = {0};
    EXPECT_THROW(file.ReadRows("Tasks", places, [](const Row& /*row*/) { throw 1; }), int);
}

TEST(FixturesTest, AMissingFileIsNamed) {
    try {
        const Reader reader(FixturePath("none"), "none.mdb");
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Kind(), ErrorKind::FileNotFound);
    }
}

}  // namespace
}  // namespace quarnel02::jet
