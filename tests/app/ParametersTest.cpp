#include "app/Parameters.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/LoadedModel.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::LoadedModel;

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
    SaveGeneral(model.Form);
    EXPECT_EQ(GenRow(model), Lines{"5|6|231.5|0.3|1234.5|0|100|Pumpe 'groß', 2"});
    EXPECT_TRUE(model.Form.Changed);
    EXPECT_EQ(model.Form.Events, Lines{});
}

TEST(SaveGeneral, LeavesTheBoxesAndMayBeRepeated) {
    LoadedModel model(kRow);
    model.Form.SetText(TextBox::txtLaborCost, "1,234.50");
    SaveGeneral(model.Form);
    SaveGeneral(model.Form);
    EXPECT_EQ(model.Form.Text(TextBox::txtLaborCost), "1,234.50");
    EXPECT_EQ(GenRow(model), Lines{"3|4|240|0.28|1234.5|4|18|Pump"});
}

TEST(SaveGeneral, TakesAnEmptyProductAndRoundsCountsToEven) {
    LoadedModel model(kRow);
    model.Form.SetText(TextBox::txtProduct, "");
    model.Form.SetText(TextBox::txtResources, "2.5");
    SaveGeneral(model.Form);
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
        ExpectRunTimeError(GetParam().Kind, [&] { SaveGeneral(model.Form); });
    EXPECT_NE(message.find(GetParam().Field), std::string::npos) << message;
    EXPECT_EQ(GenRow(model), Lines{"3|4|240|0.28|24|4|18|Pump"});
    EXPECT_FALSE(model.Form.Changed);
}

INSTANTIATE_TEST_SUITE_P(
    Boxes, SaveGeneralRefuses,
    ::testing::Values(BadText{TextBox::txtResources, "40000", ErrorKind::Overflow, "Resources"},
                      BadText{TextBox::txtTasks, "four", ErrorKind::TypeMismatch, "Tasks"},
                      BadText{TextBox::txtDays, "", ErrorKind::TypeMismatch, "Days"},
                      BadText{TextBox::txtDays, "5 days", ErrorKind::TypeMismatch, "Days"},
                      BadText{TextBox::txtACF, "0,3", ErrorKind::TypeMismatch, "ACF"},
                      BadText{TextBox::txtLaborCost, "$20", ErrorKind::TypeMismatch, "LaborCost"},
                      BadText{TextBox::txtTransTime, "1e999", ErrorKind::Overflow, "TransportTime"},
                      BadText{TextBox::txtPenalty, "none", ErrorKind::TypeMismatch, "Penalty"}));

TEST(SaveGeneral, NeedsTheRow) {
    LoadedModel model(kRow);
    RecordSet gen = model.Form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Gen;");
    gen.Delete();
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { SaveGeneral(model.Form); });
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { SavePenalty(model.Form); });
    EXPECT_FALSE(model.Form.Changed);
}

TEST(SavePenalty, WritesItsOwnFieldOnly) {
    LoadedModel model(kRow);
    model.Form.SetText(TextBox::txtDays, "not saved, not looked at");
    model.Form.SetText(TextBox::txtPenalty, "2,500");
    SavePenalty(model.Form);
    EXPECT_EQ(GenRow(model), Lines{"3|4|240|0.28|24|4|2500|Pump"});
    EXPECT_TRUE(model.Form.Changed);
}

TEST(SavePenalty, RefusesATextThatIsNoNumber) {
    LoadedModel model(kRow);
    model.Form.SetText(TextBox::txtPenalty, "");
    const std::string message =
        ExpectRunTimeError(ErrorKind::TypeMismatch, [&] { SavePenalty(model.Form); });
    EXPECT_NE(message.find("Penalty"), std::string::npos) << message;
    EXPECT_EQ(GenRow(model), Lines{"3|4|240|0.28|24|4|18|Pump"});
    EXPECT_FALSE(model.Form.Changed);
}

}  // namespace
}  // namespace quarnel02
