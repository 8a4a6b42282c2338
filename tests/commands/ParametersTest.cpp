#include "commands/Parameters.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/LoadedModel.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
/// A model in a window, and whether it has changed.
struct LoadedModel : test::LoadedModel {
    using test::LoadedModel::LoadedModel;
    CurrentModel Current;
};

using Lines = std::vector<std::string>;

constexpr const char* kRow =
    "UPDATE Gen SET Resources = 3, Tasks = 4, Days = 240, ACF = 0.28, LaborCost = 24, "
    "TransportTime = 4, Penalty = 18, Product = 'Pump';";

Lines GenRow(const LoadedModel& model) {
    return model.Copy.RowsOf("SELECT * FROM Gen;", 8);
}

TEST(SaveGeneral, WritesTheEightBoxes) {
    LoadedModel model(kRow);
    model.Form.SetText(TextBox::txtResources, "5");
    model.Form.SetText(TextBox::txtTasks, "6");
    model.Form.SetText(TextBox::txtDays, " 231.5 ");
    model.Form.SetText(TextBox::txtACF, ".3");
    model.Form.SetText(TextBox::txtLaborCost, "1,234.5");
    model.Form.SetText(TextBox::txtTransTime, "0");
    model.Form.SetText(TextBox::txtPenalty, "1e2");
    model.Form.SetText(TextBox::txtProduct, "Pumpe 'groß', 2");
    SaveGeneral(model.Form, model.Current);
    EXPECT_EQ(GenRow(model), Lines{"5|6|231.5|0.3|1234.5|0|100|Pumpe 'groß', 2"});
    EXPECT_TRUE(model.Current.Changed);
    EXPECT_EQ(model.Form.Events, Lines{});
}

TEST(SaveGeneral, LeavesTheBoxesAndMayBeRepeated) {
    LoadedModel model(kRow);
    model.Form.SetText(TextBox::txtLaborCost, "1,234.50");
    SaveGeneral(model.Form, model.Current);
    SaveGeneral(model.Form, model.Current);
    EXPECT_EQ(model.Form.Text(TextBox::txtLaborCost), "1,234.50");
    EXPECT_EQ(GenRow(model), Lines{"3|4|240|0.28|1234.5|4|18|Pump"});
}

TEST(SaveGeneral, TakesAnEmptyProductAndRoundsCountsToEven) {
    LoadedModel model(kRow);
    model.Form.SetText(TextBox::txtProduct, "");
    model.Form.SetText(TextBox::txtResources, "2.5");
    SaveGeneral(model.Form, model.Current);
    EXPECT_EQ(GenRow(model), Lines{"2|4|240|0.28|24|4|18|"});
}

struct BadText {
    TextBox Box;
    const char* Text;
    ErrorKind Kind;
    const char* Field;
};

class SaveGeneralRefuses : public ::testing::TestWithParam<BadText> {};

TEST_P(SaveGeneralRefuses, ATextThatTheFieldDoesNotTake) {
    LoadedModel model(kRow);
    model.Form.SetText(TextBox::txtProduct, "New");
    model.Form.SetText(GetParam().Box, GetParam().Text);
    const std::string message =
        ExpectRunTimeError(GetParam().Kind, [&] { SaveGeneral(model.Form, model.Current); });
    EXPECT_NE(message.find(GetParam().Field), std::string::npos) << message;
    EXPECT_EQ(GenRow(model), Lines{"3|4|240|0.28|24|4|18|Pump"});
    EXPECT_FALSE(model.Current.Changed);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SaveGeneralRefuses,
    ::testing::Values(
        BadText{TextBox::txtResources, "40000", ErrorKind::Overflow,
                "Number of resources: 40000 is out of range."},
        BadText{TextBox::txtTasks, "four", ErrorKind::TypeMismatch, "Number of tasks: \"four\""},
        BadText{TextBox::txtDays, "", ErrorKind::TypeMismatch, "Working days per year is empty."},
        BadText{TextBox::txtDays, "5 days", ErrorKind::TypeMismatch,
                "Working days per year: \"5 days\""},
        BadText{TextBox::txtACF, "0,3", ErrorKind::TypeMismatch,
                "Annual capital factor (ACF): \"0,3\""},
        BadText{TextBox::txtLaborCost, "$20", ErrorKind::TypeMismatch, "Labour cost: \"$20\""},
        BadText{TextBox::txtTransTime, "1e999", ErrorKind::Overflow, "Transport time: 1e999"},
        BadText{TextBox::txtPenalty, "none", ErrorKind::TypeMismatch, "Penalty: \"none\""}));

INSTANTIATE_TEST_SUITE_P(
    Figures, SaveGeneralRefuses,
    ::testing::Values(BadText{TextBox::txtDays, "0", ErrorKind::Overflow,
                              "Working days per year is 0; it must be above 0 and at most 366."},
                      BadText{TextBox::txtDays, "-1", ErrorKind::Overflow,
                              "Working days per year is -1; it must be above 0 and at most 366."},
                      BadText{
                          TextBox::txtDays, "366.5", ErrorKind::Overflow,
                          "Working days per year is 366.5; it must be above 0 and at most 366."},
                      BadText{TextBox::txtACF, "-0.1", ErrorKind::Overflow,
                              "Annual capital factor (ACF) is -0.1; it must be at least 0."},
                      BadText{TextBox::txtLaborCost, "-1", ErrorKind::Overflow,
                              "Labour cost is -1 $/h; it must be at least 0."},
                      BadText{TextBox::txtTransTime, "-4", ErrorKind::Overflow,
                              "Transport time is -4 s; it must be at least 0."},
                      BadText{TextBox::txtPenalty, "-18", ErrorKind::Overflow,
                              "Penalty is -18 $/unit; it must be at least 0."}));

TEST(SaveGeneral, TakesTheEndsOfTheRanges) {
    LoadedModel model(kRow);
    model.Form.SetText(TextBox::txtDays, "366");
    for (const TextBox box :
         {TextBox::txtACF, TextBox::txtLaborCost, TextBox::txtTransTime, TextBox::txtPenalty}) {
        model.Form.SetText(box, "0");
    }
    SaveGeneral(model.Form, model.Current);
    EXPECT_EQ(GenRow(model), Lines{"3|4|366|0|0|0|0|Pump"});
}

TEST(SaveGeneral, IsNotHeldUpByAFigureThatCameWithTheFile) {
    LoadedModel model("UPDATE Gen SET Days = 0, ACF = NULL, Penalty = -5;");
    model.Form.SetText(TextBox::txtLaborCost, "30");
    SaveGeneral(model.Form, model.Current);
    EXPECT_EQ(GenRow(model), Lines{"0|0|0||30|5|-5|Untitled"});

    model.Form.SetText(TextBox::txtDays, "-0.5");
    ExpectRunTimeError(ErrorKind::Overflow, [&] { SaveGeneral(model.Form, model.Current); });
    model.Form.SetText(TextBox::txtDays, "240");
    SaveGeneral(model.Form, model.Current);
    EXPECT_EQ(GenRow(model), Lines{"0|0|240||30|5|-5|Untitled"});
}

TEST(SaveGeneral, KeepsEveryDigitOfAFigureThatIsNotTyped) {
    LoadedModel model("UPDATE Gen SET ACF = 0.12345678901234567;");
    model.Form.SetText(TextBox::txtDays, "240");
    SaveGeneral(model.Form, model.Current);
    const RecordSet gen = model.Form.OpenWorkingCopy().OpenRecordSet("SELECT ACF FROM Gen;");
    EXPECT_EQ(gen.Number("ACF"), 0.12345678901234567);
}

TEST(RefusedParameter, IsTheBoxAtFault) {
    LoadedModel model("UPDATE Gen SET Penalty = -5;");
    EXPECT_EQ(RefusedParameter(model.Copy.Open(), model.Form), std::nullopt);
    model.Form.SetText(TextBox::txtDays, "240");
    model.Form.SetText(TextBox::txtACF, "-1");
    EXPECT_EQ(RefusedParameter(model.Copy.Open(), model.Form), TextBox::txtACF);
    model.Form.SetText(TextBox::txtACF, "");
    EXPECT_EQ(RefusedParameter(model.Copy.Open(), model.Form), TextBox::txtACF);
    model.Form.SetText(TextBox::txtACF, "1");
    EXPECT_EQ(RefusedParameter(model.Copy.Open(), model.Form), std::nullopt);
}

TEST(SaveGeneral, NeedsTheRow) {
    LoadedModel model(kRow);
    RecordSet gen = model.Form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Gen;");
    gen.Delete();
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { SaveGeneral(model.Form, model.Current); });
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { SavePenalty(model.Form, model.Current); });
    EXPECT_FALSE(model.Current.Changed);
}

TEST(SavePenalty, WritesItsOwnFieldOnly) {
    LoadedModel model(kRow);
    model.Form.SetText(TextBox::txtDays, "not saved, not looked at");
    model.Form.SetText(TextBox::txtPenalty, "2,500");
    SavePenalty(model.Form, model.Current);
    EXPECT_EQ(GenRow(model), Lines{"3|4|240|0.28|24|4|2500|Pump"});
    EXPECT_TRUE(model.Current.Changed);
}

TEST(SavePenalty, RefusesATextThatIsNoNumber) {
    LoadedModel model(kRow);
    model.Form.SetText(TextBox::txtPenalty, "");
    const std::string message = ExpectRunTimeError(ErrorKind::TypeMismatch,
                                                   [&] { SavePenalty(model.Form, model.Current); });
    EXPECT_NE(message.find("Penalty"), std::string::npos) << message;
    EXPECT_EQ(GenRow(model), Lines{"3|4|240|0.28|24|4|18|Pump"});
    EXPECT_FALSE(model.Current.Changed);
}

TEST(SavePenalty, RefusesWhatCannotBeAndLooksAtNothingElse) {
    LoadedModel model("UPDATE Gen SET Penalty = -5, Days = 0;");
    model.Form.SetText(TextBox::txtDays, "-1");
    model.Form.SetText(TextBox::txtPenalty, "-6");
    ExpectRunTimeError(ErrorKind::Overflow, [&] { SavePenalty(model.Form, model.Current); });
    EXPECT_FALSE(model.Current.Changed);
    model.Form.SetText(TextBox::txtPenalty, "6");
    SavePenalty(model.Form, model.Current);
    EXPECT_EQ(GenRow(model), Lines{"0|0|0|0.25|20|5|6|Untitled"});
}

}  // namespace
}  // namespace quarnel02
