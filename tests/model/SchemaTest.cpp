#include "model/Schema.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/RawStore.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::RawStore;
using test::TestModel;
using Texts = std::vector<std::string>;

std::string StoreType(FieldType type) {
    switch (type) {
        case FieldType::Integer:
            return "INTEGER";
        case FieldType::Real:
        case FieldType::Single:
            return "REAL";
        case FieldType::Text:
            return "TEXT";
    }
    return "?";
}

TEST(Schema, SaysTheSameAsTheTemplate) {
    const TestModel model;
    RawStore store(model.File());
    for (const TableSchema& table : ModelSchema()) {
        Texts expected;
        for (const ColumnSchema& column : table.Columns) {
            expected.push_back(std::string(column.Name) + "|" + StoreType(column.Type));
        }
        EXPECT_EQ(store.Rows("SELECT name, type FROM pragma_table_info('" +
                             std::string(table.Name) + "')"),
                  expected)
            << table.Name;
    }
}

TEST(Schema, NamesAllTablesOfTheTemplate) {
    const TestModel model;
    Texts names;
    for (const TableSchema& table : ModelSchema()) {
        names.emplace_back(table.Name);
    }
    EXPECT_EQ(names.size(), 8U);
    names.emplace_back(ScenariosSchema().Name);
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (Texts{"Arcs", "BestPaths", "Demand", "Gen", "Matrix", "Pathways", "Resources",
                            "Scenarios", "Tasks"}));
    EXPECT_EQ(RawStore(model.File())
                  .Rows("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"),
              names);
}

TEST(Schema, TablesOfTheTemplateAreStrictAndTakeEqualRows) {
    const TestModel model;
    RawStore store(model.File());
    EXPECT_EQ(store.Rows("SELECT COUNT(*) FROM pragma_table_list WHERE schema = 'main' AND "
                         "strict = 1"),
              Texts{"9"});
    EXPECT_EQ(store.Rows("SELECT COUNT(*) FROM sqlite_master WHERE sql LIKE '%UNIQUE%' OR "
                         "sql LIKE '%PRIMARY%'"),
              Texts{"0"});
    EXPECT_THROW(store.Run("INSERT INTO Demand VALUES ('abc', 1)"), SQLite::Exception);
    for (const TableSchema& table : ModelSchema()) {
        const std::string name(table.Name);
        EXPECT_NO_THROW(store.Run("INSERT INTO " + name + " DEFAULT VALUES; INSERT INTO " + name +
                                  " DEFAULT VALUES"))
            << name;
    }
}

TEST(Schema, OnlyDemandHoldsSingles) {
    for (const TableSchema& table : ModelSchema()) {
        for (const ColumnSchema& column : table.Columns) {
            EXPECT_EQ(column.Type == FieldType::Single, table.Name == "Demand") << column.Name;
        }
    }
}

TEST(Schema, SaysTheSameOfScenariosAsTheTemplate) {
    const TestModel model;
    EXPECT_EQ(RawStore(model.File()).Rows("SELECT name, type FROM pragma_table_info('Scenarios')"),
              (Texts{"Name|TEXT", "Differences|TEXT"}));
    EXPECT_EQ(NamesOf(ScenariosSchema()), (std::vector<std::string_view>{"Name", "Differences"}));
    EXPECT_EQ(FindTable("scenarios"), &ScenariosSchema());
}

TEST(FindTable, IgnoresLetterCase) {
    ASSERT_NE(FindTable("GEN"), nullptr);
    EXPECT_EQ(FindTable("GEN")->Name, "Gen");
    EXPECT_EQ(FindTable("bestpaths")->Name, "BestPaths");
    EXPECT_EQ(FindTable("Ge"), nullptr);
    EXPECT_EQ(FindTable(""), nullptr);
}

TEST(TypeOfColumn, IsTextForWhatAModelDoesNotKnow) {
    EXPECT_EQ(TypeOfColumn(FindTable("Gen"), "DAYS"), FieldType::Real);
    EXPECT_EQ(TypeOfColumn(FindTable("Gen"), "tasks"), FieldType::Integer);
    EXPECT_EQ(TypeOfColumn(FindTable("Demand"), "Volume"), FieldType::Single);
    EXPECT_EQ(TypeOfColumn(FindTable("Gen"), "Volume"), FieldType::Text);
    EXPECT_EQ(TypeOfColumn(nullptr, "Volume"), FieldType::Text);
}

TEST(SameName, ComparesLettersWithoutCase) {
    EXPECT_TRUE(SameName("ArcId", "ARCID"));
    EXPECT_TRUE(SameName("", ""));
    EXPECT_FALSE(SameName("ArcId", "ArcI"));
    EXPECT_FALSE(SameName("ArcId", "ArcIdx"));
    EXPECT_FALSE(SameName("[", "{"));
}

}  // namespace
}  // namespace quarnel02
