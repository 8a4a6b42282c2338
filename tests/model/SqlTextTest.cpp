#include "model/SqlText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/Selection.h"

namespace quarnel02 {
namespace {

SqlText Parameterized(std::string_view sql) {
    SqlText text;
    ParameterizeSql(sql, text);
    return text;
}

TEST(ParameterizeSql, TakesTheNumbersOut) {
    const SqlText text =
        Parameterized("SELECT * FROM Demand WHERE Volume = 12500 AND Prob = 33.3;");
    EXPECT_EQ(text.Text, "SELECT * FROM Demand WHERE Volume = ? AND Prob = ?;");
    EXPECT_EQ(text.Literals, (std::vector<Value>{std::int64_t{12500}, 33.3}));
}

TEST(ParameterizeSql, ReadsEveryFormOfANumber) {
    const std::vector<std::pair<std::string, Value>> cases = {
        {"0", std::int64_t{0}},
        {"1E+07", 1e7},
        {"1.5E-08", 1.5e-8},
        {".5", 0.5},
        {"5.", 5.0},
        {"9007199254740993", std::int64_t{9007199254740993}},
    };
    for (const auto& [number, value] : cases) {
        const SqlText text = Parameterized("x=" + number + ";");
        EXPECT_EQ(text.Text, "x=?;") << number;
        EXPECT_EQ(text.Literals, std::vector<Value>{value}) << number;
    }
}

TEST(ParameterizeSql, LeavesSignsNamesAndTexts) {
    EXPECT_EQ(Parameterized("a1 = -5").Text, "a1 = -?");
    EXPECT_EQ(Parameterized("T_2.b3").Text, "T_2.b3");
    EXPECT_EQ(Parameterized("x = '12 and 3' OR \"4\" = 5").Text, "x = '12 and 3' OR \"4\" = ?");
    EXPECT_EQ(Parameterized("x = 'it''s 1'").Text, "x = 'it''s 1'");
    EXPECT_EQ(Parameterized("x = 'öl 1'").Text, "x = 'öl 1'");
    EXPECT_EQ(Parameterized("x = 'open 1").Text, "x = 'open 1");
}

TEST(ParameterizeSql, DropsWhatItHeldBefore) {
    SqlText text = Parameterized("x = 1 AND y = 2");
    ParameterizeSql("z = 3", text);
    EXPECT_EQ(text.Text, "z = ?");
    EXPECT_EQ(text.Literals, std::vector<Value>{std::int64_t{3}});
}

TEST(Tokens, AreWordsAndSigns) {
    EXPECT_EQ(Tokens("SELECT  a,b FROM\tT WHERE (x)=?;"),
              (std::vector<std::string_view>{"SELECT", "a", ",", "b", "FROM", "T", "WHERE", "(",
                                             "x", ")", "=", "?"}));
    EXPECT_EQ(Tokens("x = 'a b'"), (std::vector<std::string_view>{"x", "=", "'a b'"}));
    EXPECT_TRUE(Tokens("").empty());
    EXPECT_TRUE(Tokens(" ; ").empty());
}

TEST(ShapeOf, NamesTheSingleTable) {
    for (const std::string sql :
         {"SELECT * FROM Gen;", "select Tasks from Gen;", "SELECT Tasks From Gen WHERE Days = ?;",
          "SELECT * FROM Gen ORDER BY Days DESC;"}) {
        EXPECT_EQ(ShapeOf(sql).Table, "Gen") << sql;
    }
}

TEST(ShapeOf, KnowsWholeTables) {
    EXPECT_TRUE(ShapeOf("SELECT * FROM Gen;").WholeTable);
    EXPECT_TRUE(ShapeOf("select * from GEN").WholeTable);
    EXPECT_FALSE(ShapeOf("SELECT Tasks FROM Gen;").WholeTable);
    EXPECT_FALSE(ShapeOf("SELECT * FROM Gen ORDER BY Days;").WholeTable);
    EXPECT_FALSE(ShapeOf("SELECT * FROM Gen WHERE Days = ?;").WholeTable);
}

TEST(ShapeOf, HasNoTableForJoinsAggregatesAndDistinct) {
    for (const std::string sql :
         {"SELECT COUNT(*) FROM Tasks;", "SELECT Sum(Pathways.Cost) AS S FROM Pathways;",
          "SELECT max(Time) FROM Pathways;", "SELECT DISTINCT ArcId FROM Pathways;",
          "SELECT a.b, c.d FROM a, c WHERE a.b = c.d;", "SELECT a.b FROM a INNER JOIN c ON 1;",
          "SELECT a.b FROM (a INNER JOIN c ON 1) INNER JOIN d ON 1;", "SELECT", "", "x y z w",
          "SELECT * FROM"}) {
        EXPECT_EQ(ShapeOf(sql).Table, "") << sql;
        EXPECT_FALSE(ShapeOf(sql).WholeTable) << sql;
    }
}

TEST(WithRowId, PutsTheIdentityInFront) {
    EXPECT_EQ(Tokens(WithRowId("SELECT a FROM T WHERE b = ?;")).at(1), "rowid");
    const std::string ordered = WithRowId("SELECT a FROM T ORDER BY b DESC;");
    const auto tokens = Tokens(ordered);
    EXPECT_EQ(tokens.at(1), "rowid");
    EXPECT_EQ(tokens.back(), "rowid");
    EXPECT_EQ(tokens.at(tokens.size() - 3), "DESC");
}

TEST(ReadSelection, UnderstandsRangesAndOrders) {
    const auto selection = ReadSelection(
        "SELECT TaskTime, ToolNum From Matrix WHERE (ResourceId = ? AND TaskId Between ? And ?) "
        "ORDER BY ToolNum, TaskId;");
    ASSERT_TRUE(selection.has_value());
    EXPECT_EQ(selection->Columns, (std::vector<std::string>{"TaskTime", "ToolNum"}));
    EXPECT_EQ(selection->Order, (std::vector<std::string>{"ToolNum", "TaskId"}));
    ASSERT_EQ(selection->Conditions.size(), 2U);
    EXPECT_EQ(selection->Conditions[0].Column, "ResourceId");
    EXPECT_EQ(selection->Conditions[0].LowLiteral, 0U);
    EXPECT_EQ(selection->Conditions[0].HighLiteral, 0U);
    EXPECT_EQ(selection->Conditions[1].Column, "TaskId");
    EXPECT_EQ(selection->Conditions[1].LowLiteral, 1U);
    EXPECT_EQ(selection->Conditions[1].HighLiteral, 2U);
}

TEST(ReadSelection, LeavesTheRestToTheStore) {
    for (const std::string sql :
         {"SELECT * FROM T ORDER BY a DESC;", "SELECT * FROM T WHERE a > ?;",
          "SELECT * FROM T WHERE a = ? OR b = ?;", "SELECT * FROM T WHERE a = -?;",
          "SELECT * FROM T WHERE NOT a = ?;", "SELECT COUNT(*) FROM T;",
          "SELECT DISTINCT a FROM T;", "SELECT a FROM T, U;", "SELECT a FROM T WHERE a = 'x';",
          "SELECT a FROM T WHERE a = b;", "SELECT a + ? FROM T;", "SELECT a FROM T LIMIT ?;",
          "SELECT a FROM T WHERE (a = ?;", "SELECT a FROM T WHERE a BETWEEN ?;"}) {
        EXPECT_FALSE(ReadSelection(sql).has_value()) << sql;
    }
}

}  // namespace
}  // namespace quarnel02
