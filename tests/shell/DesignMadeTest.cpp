#include "shell/DesignMade.h"

#include <gtest/gtest.h>

#include "support/ScriptedForm.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ScriptedForm;
using test::TestModel;

void SetDays(const TestModel& model, const char* days) {
    RecordSet gen = model.Open().OpenRecordSet("SELECT * FROM Gen;");
    gen.Edit();
    gen.Set("Days", days);
    gen.Update();
}

TEST(DesignMade, IsOutOfDateWhileTheFiguresDifferFromThoseItWasMadeFrom) {
    const TestModel model;
    ScriptedForm form(model.Directory());
    form.SetText(TextBox::txtProduct, "Pump");
    NoteDesign(form, "2 shifts, 60,000 units a year");
    ASSERT_TRUE(form.LastDesign);
    EXPECT_EQ(form.LastDesign->Caption, "2 shifts, 60,000 units a year");
    EXPECT_EQ(form.LastDesign->Product, "Pump");
    EXPECT_FALSE(ResultsAreOutOfDate(form));
    SetDays(model, "200");
    EXPECT_TRUE(ResultsAreOutOfDate(form));
    SetDays(model, "250");
    EXPECT_FALSE(ResultsAreOutOfDate(form));
}

TEST(DesignMade, IsNotOutOfDateWhereThereIsNone) {
    const TestModel model;
    ScriptedForm form(model.Directory());
    EXPECT_FALSE(ResultsAreOutOfDate(form));
}

}  // namespace
}  // namespace quarnel02
