#include "fixed/CreateLinks.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/LoadedModel.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::kAllArcs;
using test::LoadedModel;
using test::ModelScript;
using test::ScriptedForm;
using test::TestModel;

using Lines = std::vector<std::string>;

Lines ArcsFor(const std::string& tasks) {
    const TestModel model;
    ScriptedForm form(model.Directory());
    form.SetText(TextBox::txtTasks, tasks);
    CreateLinks(form.OpenWorkingCopy(), form, form.picArc);
    return model.RowsOf(kAllArcs, 7);
}

TEST(CreateLinks, WritesNoArcForNoTask) {
    EXPECT_EQ(ArcsFor("0"), Lines{});
}

TEST(CreateLinks, WritesOneLowerArcForOneTask) {
    // Spacing 15000 / 3 = 5000; midpoint 2500 + 5000.
    EXPECT_EQ(ArcsFor("1"), Lines{"0|1|2|7500|2500|3.14159|6.28318"});
}

TEST(CreateLinks, OrdersArcsBySpanThenStart) {
    // Spacing 15000 / 5 = 3000; arcs of span 2 lie above, of span 1 and 3 below.
    EXPECT_EQ(ArcsFor("3"),
              (Lines{"0|1|2|4500|1500|3.14159|6.28318", "1|2|3|7500|1500|3.14159|6.28318",
                     "2|3|4|10500|1500|3.14159|6.28318", "3|1|3|6000|3000|0|3.14159",
                     "4|2|4|9000|3000|0|3.14159", "5|1|4|7500|4500|3.14159|6.28318"}));
}

TEST(CreateLinks, WritesFiftyFiveArcsForTenTasks) {
    const Lines arcs = ArcsFor("10");
    // Spacing 15000 / 12 = 1250; the first span has L = 10, the last L = 1.
    ASSERT_EQ(arcs.size(), 55U);
    EXPECT_EQ(arcs[0], "0|1|2|1875|625|0|3.14159");
    EXPECT_EQ(arcs[9], "9|10|11|13125|625|0|3.14159");
    EXPECT_EQ(arcs[10], "10|1|3|2500|1250|3.14159|6.28318");
    EXPECT_EQ(arcs[53], "53|2|11|8125|5625|0|3.14159");
    EXPECT_EQ(arcs[54], "54|1|11|7500|6250|3.14159|6.28318");
}

TEST(CreateLinks, RoundsMidpointsHalfToEven) {
    const Lines arcs = ArcsFor("6");
    // Spacing 15000 / 8 = 1875: 937.5 + 1875 = 2812.5 and 937.5 + 3750 = 4687.5.
    EXPECT_EQ(arcs[0], "0|1|2|2812|937.5|0|3.14159");
    EXPECT_EQ(arcs[1], "1|2|3|4688|937.5|0|3.14159");
}

TEST(CreateLinks, RoundsTheSpacingHalfToEven) {
    // 15000 / 16 = 937.5 becomes 938, 15000 / 48 = 312.5 becomes 312.
    EXPECT_EQ(ArcsFor("14")[0], "0|1|2|1407|469|0|3.14159");
    EXPECT_EQ(ArcsFor("46")[0], "0|1|2|468|156|0|3.14159");
}

TEST(CreateLinks, RoundsAFractionalTaskCountToNodesHalfToEven) {
    EXPECT_EQ(ArcsFor("2.5"), ArcsFor("3"));  // 3.5 nodes become 4
    EXPECT_EQ(ArcsFor("1.5"), ArcsFor("1"));  // 2.5 nodes become 2
}

TEST(CreateLinks, ReplacesTheArcsOfAnEarlierModel) {
    ModelScript script;
    script.Tasks = 9;
    LoadedModel model(script);
    ASSERT_EQ(model.Copy.RowsOf(kAllArcs, 1).size(), 45U);
    model.Form.SetText(TextBox::txtTasks, "3");
    CreateLinks(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
    EXPECT_EQ(model.Copy.RowsOf(kAllArcs, 7), ArcsFor("3"));
}

TEST(CreateLinks, GivesTheSameArcsWhenRunTwice) {
    LoadedModel model(test::WorkedExample());
    const auto before = model.DerivedTables();
    CreateLinks(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
    EXPECT_EQ(model.DerivedTables(), before);
}

TEST(CreateLinks, TakesTheTaskCountFromTheBoxAndNotFromTheStore) {
    LoadedModel model(test::WorkedExample());
    model.Form.SetText(TextBox::txtTasks, "4");
    CreateLinks(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
    EXPECT_EQ(model.Copy.RowsOf(kAllArcs, 1).size(), 10U);
    EXPECT_EQ(model.Copy.RowsOf("SELECT Tasks FROM Gen;", 1), Lines{"2"});
}

TEST(CreateLinks, RegeneratesThePathways) {
    LoadedModel model(test::WorkedExample());
    EXPECT_EQ(model.Copy.RowsOf("SELECT PathId, ArcId FROM Pathways;", 2),
              (Lines{"1|0", "2|2", "3|1"}));
}

TEST(CreateLinks, BuildsTheLargestNetwork) {
    const Lines arcs = ArcsFor("255");
    // 256 x 255 / 2 arcs; spacing 15000 / 257 = 58.4, so 58.
    ASSERT_EQ(arcs.size(), 32640U);
    EXPECT_EQ(arcs.front(), "0|1|2|87|29|3.14159|6.28318");
    EXPECT_EQ(arcs.back(), "32639|1|256|7453|7395|3.14159|6.28318");
}

TEST(CreateLinks, RefusesOneTaskTooManyAndChangesNothing) {
    LoadedModel model(test::WorkedExample());
    const auto before = model.DerivedTables();
    model.Form.SetText(TextBox::txtTasks, "256");
    const std::string message = ExpectRunTimeError(ErrorKind::Overflow, [&] {
        CreateLinks(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
    });
    EXPECT_NE(message.find("256"), std::string::npos) << message;
    EXPECT_NE(message.find("255"), std::string::npos) << message;
    EXPECT_EQ(model.DerivedTables(), before);
    EXPECT_TRUE(model.Form.Events.empty());
}

TEST(CreateLinks, PassesOnThatTheStoreHasFailed) {
    LoadedModel model(test::WorkedExample());
    const auto before = model.DerivedTables();
    model.Form.SetText(TextBox::txtTasks, "100");
    {
        const test::FileSizeLimit limit(std::filesystem::file_size(model.Copy.File()));
        const std::string message = ExpectRunTimeError(ErrorKind::FileAccess, [&] {
            CreateLinks(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
        });
        EXPECT_NE(message.find("working.seq"), std::string::npos) << message;
    }
    EXPECT_EQ(model.DerivedTables(), before);
}

TEST(CreateLinks, RefusesATextThatIsNoNumberAndChangesNothing) {
    LoadedModel model(test::WorkedExample());
    const auto before = model.DerivedTables();
    for (const char* text : {"abc", "", "3 tasks"}) {
        model.Form.SetText(TextBox::txtTasks, text);
        const std::string message = ExpectRunTimeError(ErrorKind::TypeMismatch, [&] {
            CreateLinks(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
        });
        EXPECT_NE(message.find("Number of tasks"), std::string::npos) << message;
        EXPECT_EQ(message.find("txt"), std::string::npos) << message;
    }
    EXPECT_EQ(model.DerivedTables(), before);
}

}  // namespace
}  // namespace quarnel02
