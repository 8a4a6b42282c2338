#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "basic/Numbers.h"
#include "model/Database.h"
#include "support/RawStore.h"
#include "support/RunTimeErrors.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::RawStore;
using test::TestModel;
using Texts = std::vector<std::string>;

Value Written(FieldType type, const Value& value) {
    return ConvertTo(type, value, "Field");
}

TEST(ConvertTo, MakesNumbersOfTexts) {
    EXPECT_EQ(Written(FieldType::Real, "12,500"), Value(12500.0));
    EXPECT_EQ(Written(FieldType::Real, " 0.25 "), Value(0.25));
    EXPECT_EQ(Written(FieldType::Integer, "1,000"), Value(std::int64_t{1000}));
    EXPECT_EQ(Written(FieldType::Integer, "2.5"), Value(std::int64_t{2}));
    EXPECT_EQ(Written(FieldType::Single, "33.3"), Value(33.3));
}

TEST(ConvertTo, MakesTextsOfNumbers) {
    EXPECT_EQ(Written(FieldType::Text, 2.5), Value(std::string("2.5")));
    EXPECT_EQ(Written(FieldType::Text, std::int64_t{-7}), Value(std::string("-7")));
    EXPECT_EQ(Written(FieldType::Text, std::string("  as it is ")),
              Value(std::string("  as it is ")));
    EXPECT_EQ(Written(FieldType::Text, std::string()), Value(std::string()));
}

TEST(ConvertTo, RoundsIntegersHalfToEven) {
    const std::vector<std::pair<double, std::int64_t>> cases = {
        {2.5, 2}, {3.5, 4}, {-2.5, -2}, {0.5, 0}, {2.51, 3}, {32767.4, 32767}, {-32768.5, -32768}};
    for (const auto& [value, stored] : cases) {
        EXPECT_EQ(Written(FieldType::Integer, value), Value(stored)) << value;
    }
}

TEST(ConvertTo, TakesWholeNumbersIntoReals) {
    EXPECT_EQ(Written(FieldType::Real, std::int64_t{3}), Value(3.0));
    EXPECT_EQ(Written(FieldType::Single, std::int64_t{3}), Value(3.0));
}

TEST(ConvertTo, KeepsASingleAsItsShortestDecimal) {
    EXPECT_EQ(Written(FieldType::Single, double{33.3F}), Value(33.3));
    EXPECT_EQ(Written(FieldType::Single, 1.0 / 3), Value(0.33333334));
    EXPECT_EQ(Written(FieldType::Single, 33.33333333), Value(33.333332));
}

TEST(ConvertTo, KeepsEveryUnitOfAWholeSingle) {
    EXPECT_EQ(Written(FieldType::Single, 12345678.0), Value(12345678.0));
    EXPECT_EQ(Written(FieldType::Single, 16777217.0), Value(16777216.0));  // no single of its own
    EXPECT_EQ(Written(FieldType::Single, 100000008.0), Value(100000008.0));
}

TEST(ConvertTo, AStoredSingleReadsBack) {
    constexpr std::uint32_t infinity = 0x7F800000;
    rc::check([] {
        const auto single = std::bit_cast<float>(*rc::gen::inRange<std::uint32_t>(0, infinity));
        RC_ASSERT(static_cast<float>(DecimalOfSingle(single)) == single);
    });
    EXPECT_FALSE(testing::Test::HasFailure());
}

TEST(ConvertTo, LeavesNull) {
    for (const FieldType type :
         {FieldType::Integer, FieldType::Real, FieldType::Single, FieldType::Text}) {
        EXPECT_TRUE(IsNull(Written(type, Value())));
    }
}

TEST(ConvertTo, NamesTheFieldThatRefuses) {
    struct Case {
        FieldType Type;
        Value Given;
        ErrorKind Kind;
    };
    const std::vector<Case> cases = {
        {FieldType::Integer, std::int64_t{32768}, ErrorKind::Overflow},
        {FieldType::Integer, -32769.0, ErrorKind::Overflow},
        {FieldType::Integer, std::string("40,000"), ErrorKind::Overflow},
        {FieldType::Integer, std::string("abc"), ErrorKind::TypeMismatch},
        {FieldType::Integer, std::string(), ErrorKind::TypeMismatch},
        {FieldType::Real, std::string("abc"), ErrorKind::TypeMismatch},
        {FieldType::Real, std::string("12,5"), ErrorKind::TypeMismatch},
        {FieldType::Real, std::string("1e999"), ErrorKind::Overflow},
        {FieldType::Single, 1e39, ErrorKind::Overflow},
        {FieldType::Single, std::string("nan"), ErrorKind::TypeMismatch},
    };
    for (const Case& each : cases) {
        const std::string message =
            ExpectRunTimeError(each.Kind, [&] { ConvertTo(each.Type, each.Given, "Gen.Tasks"); });
        EXPECT_EQ(message.find("Gen.Tasks"), 0U) << message;
    }
}

TEST(Field, StoresTextsByTheTypeOfTheField) {
    const TestModel model;
    {
        RecordSet gen = model.Open().OpenRecordSet("SELECT * FROM Gen;");
        gen.Edit();
        for (const auto& [name, text] :
             std::vector<std::pair<std::string, std::string>>{{"Resources", "2"},
                                                              {"Tasks", "2.5"},
                                                              {"Days", "12,500"},
                                                              {"ACF", ".3"},
                                                              {"LaborCost", " 15 "},
                                                              {"TransportTime", "1e1"},
                                                              {"Penalty", "-1"},
                                                              {"Product", "12,500"}}) {
            gen.Set(name, text);
        }
        gen.Update();
        EXPECT_EQ(gen.Integer("Tasks"), 2);
        EXPECT_EQ(gen.Number("Days"), 12500);
    }
    EXPECT_EQ(RawStore(model.File()).Rows("SELECT * FROM Gen"),
              Texts{"2|2|12500.0|0.3|15.0|10.0|-1.0|12,500"});
}

TEST(Field, RefusedValueLeavesTheRowAsItWas) {
    const TestModel model;
    const Database database = model.Open();
    RecordSet gen = database.OpenRecordSet("SELECT * FROM Gen;");
    gen.Edit();
    gen.Set("Days", std::string("300"));
    EXPECT_EQ(
        ExpectRunTimeError(ErrorKind::TypeMismatch, [&] { gen.Set("ACF", std::string("abc")); }),
        "Gen.ACF: \"abc\" is not a number. Enter digits, for example 12,500 or 0.25.");
    ExpectRunTimeError(ErrorKind::Overflow, [&] { gen.Set("Tasks", std::int64_t{32768}); });
    EXPECT_EQ(model.RowsOf("SELECT * FROM Gen;", 8), Texts{"0|0|250|0.25|20|5|0|Untitled"});
}

TEST(Field, ReadsByTheTypeThatIsAsked) {
    const TestModel model(
        "INSERT INTO Matrix VALUES (1, 2, 12.5, NULL, 40000);"
        "INSERT INTO Tasks VALUES (1, '1,234'), (2, 'Screw');");
    const Database database = model.Open();
    const RecordSet matrix = database.OpenRecordSet("SELECT * FROM Matrix;");
    EXPECT_EQ(matrix.Integer("TaskTime"), 12);
    EXPECT_EQ(matrix.Number("ResourceId"), 1);
    EXPECT_EQ(matrix.Single("TaskTime"), 12.5F);
    EXPECT_EQ(matrix.Text("TaskTime"), "12.5");
    EXPECT_EQ(matrix.Text("ToolNum"), "");
    for (const auto& read : std::vector<std::function<void()>>{
             [&] { (void)matrix.Number("ToolNum"); }, [&] { (void)matrix.Integer("ToolNum"); },
             [&] { (void)matrix.Single("ToolNum"); }}) {
        EXPECT_EQ(ExpectRunTimeError(ErrorKind::InvalidUseOfNull, read),
                  "Matrix.ToolNum is empty. Enter a number there.");
    }
    EXPECT_EQ(ExpectRunTimeError(ErrorKind::Overflow, [&] { (void)matrix.Integer("ToolCost"); })
                  .find("Matrix.ToolCost: 40000"),
              0U);
    RecordSet tasks = database.OpenRecordSet("SELECT * FROM Tasks;");
    EXPECT_EQ(tasks.Number("Description"), 1234);
    tasks.MoveNext();
    ExpectRunTimeError(ErrorKind::TypeMismatch, [&] { (void)tasks.Integer("Description"); });
}

TEST(Field, SumOfNoRowsIsNull) {
    const TestModel model;
    const Database database = model.Open();
    const RecordSet sum = database.OpenRecordSet("SELECT SUM(Prob) FROM Demand;");
    EXPECT_EQ(sum.RecordCount(), 1);
    EXPECT_TRUE(IsNull(sum.Field(0)));
    EXPECT_EQ(sum.Text(0), "");
    ExpectRunTimeError(ErrorKind::InvalidUseOfNull, [&] { (void)sum.Number(0); });
}

class DemandPairTest : public testing::Test {
  protected:
    void Add(const Value& volume, const Value& percent) const {
        RecordSet demand = Handle.OpenRecordSet("SELECT * FROM Demand;");
        demand.AddNew();
        demand.Set("Volume", volume);
        demand.Set("Prob", percent);
        demand.Update();
    }
    [[nodiscard]] int CountOf(const std::string& volume, const std::string& percent) const {
        return Handle
            .OpenRecordSet("SELECT * FROM Demand WHERE Volume = " + volume +
                           " AND Prob = " + percent + ";")
            .RecordCount();
    }

    TestModel Model;
    Database Handle = Model.Open();
};

TEST_F(DemandPairTest, IsFoundAgainByItsText) {
    Add(12500.0, double{33.3F});
    EXPECT_EQ(CountOf("12500", "33.3"), 1);
    Add(std::string("12,500"), std::string("33.3"));
    EXPECT_EQ(CountOf("12500", "33.3"), 2);
    Add(std::int64_t{12500}, 33.3);
    EXPECT_EQ(CountOf("12500", "33.3"), 3);
    EXPECT_EQ(CountOf("12500", "33.4"), 0);
    EXPECT_EQ(CountOf("12501", "33.3"), 0);
}

TEST_F(DemandPairTest, IsFoundWhenItsTextNeedsAnExponent) {
    Add(1e7, 0.01234567);
    EXPECT_EQ(CountOf(NumberText(1e7F), NumberText(0.01234567F)), 1);
    EXPECT_EQ(CountOf("1E+07", "1.234567E-02"), 1);
}

TEST_F(DemandPairTest, IsFoundInATransactionThatReadsOften) {
    Add(12500.0, double{33.3F});
    const Transaction transaction(Handle);
    for (int i = 0; i < 40; ++i) {
        ASSERT_EQ(CountOf("12500", "33.3"), 1);
        ASSERT_EQ(CountOf("12500", "33.4"), 0);
    }
}

TEST_F(DemandPairTest, AnyPairThatIsEnteredIsFound) {
    rc::check([&] {
        const auto volume = static_cast<float>(*rc::gen::inRange(0, 10'000'000));
        const float percent = static_cast<float>(*rc::gen::inRange(1, 1'000'001)) / 10000;
        Add(double{volume}, double{percent});
        RecordSet demand = Handle.OpenRecordSet("SELECT * FROM Demand;");
        RC_ASSERT(demand.Single("Volume") == volume);
        RC_ASSERT(demand.Single("Prob") == percent);
        RC_ASSERT(CountOf(NumberText(volume), NumberText(percent)) == 1);
        RC_ASSERT(CountOf(demand.Text("Volume"), demand.Text("Prob")) == 1);
        demand.Delete();
    });
    EXPECT_FALSE(HasFailure());
}

}  // namespace
}  // namespace quarnel02
