// The parameter boxes: what a focus, Enter and leaving do.
#include <gmock/gmock.h>

#include <new>

#include "app/WindowTest.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// Days 250, ACF 0.25, labour 20, transport 5, penalty 0 and product "Untitled" in the template.
class frmMainParameters : public test::WindowTest {};

TEST_F(frmMainParameters, ShowTheLoadedModel) {
    Start("UPDATE Gen SET Resources = 3, Tasks = 7, Penalty = 1.5;");
    const auto text = [&](const char* name) { return Box(name).text().toStdString(); };
    EXPECT_EQ(text("txtResources"), "3");
    EXPECT_EQ(text("txtTasks"), "7");
    EXPECT_EQ(text("txtDays"), "250");
    EXPECT_EQ(text("txtACF"), "0.25");
    EXPECT_EQ(text("txtLaborCost"), "20");
    EXPECT_EQ(text("txtTransTime"), "5");
    EXPECT_EQ(text("txtPenalty"), "1.5");
    EXPECT_EQ(text("txtProduct"), "Untitled");
    EXPECT_FALSE(Window->Current().Changed);
}

TEST_F(frmMainParameters, CountsCannotBeTyped) {
    Start();
    EXPECT_TRUE(Box("txtResources").isReadOnly());
    EXPECT_TRUE(Box("txtTasks").isReadOnly());
    Type("txtTasks", "9");
    EXPECT_EQ(Box("txtTasks").text().toStdString(), "0");
}

class EveryParameter : public frmMainParameters,
                       public ::testing::WithParamInterface<const char*> {};

TEST_P(EveryParameter, SelectsItsTextOnFocus) {
    Start();
    QLineEdit& box = Box(GetParam());
    box.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(box.selectedText(), box.text());
    EXPECT_FALSE(box.text().isEmpty());
}

TEST_P(EveryParameter, SelectsItsTextOnAMouseClick) {
    Start();
    Box("txtVolume").setFocus();
    QLineEdit& box = Box(GetParam());
    QTest::mouseClick(&box, Qt::LeftButton);
    EXPECT_EQ(box.selectedText(), box.text());
}

TEST_P(EveryParameter, SavesOnEnterAndAgainOnLeaving) {
    Start();
    Type(GetParam(), "7");
    const std::string before = Gen();
    EXPECT_FALSE(Window->Current().Changed);
    PressKey(Qt::Key_Return);
    const std::string after = Gen();
    EXPECT_NE(after, before);
    EXPECT_THAT("|" + after + "|", HasSubstr("|7|"));
    EXPECT_TRUE(Window->Current().Changed);
    EXPECT_EQ(FocusName(), GetParam());

    Window->Current().Changed = false;
    Box("txtVolume").setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(Window->Current().Changed);
    EXPECT_EQ(Gen(), after);
}

TEST_P(EveryParameter, SavesOnLeavingWithoutEnter) {
    Start();
    Type(GetParam(), "7");
    PressKey(Qt::Key_Tab);
    EXPECT_THAT("|" + Gen() + "|", HasSubstr("|7|"));
    EXPECT_TRUE(Window->Current().Changed);
}

INSTANTIATE_TEST_SUITE_P(Boxes, EveryParameter,
                         ::testing::Values("txtDays", "txtACF", "txtLaborCost", "txtTransTime",
                                           "txtPenalty", "txtProduct"),
                         [](const auto& each) { return std::string(each.param); });

TEST_F(frmMainParameters, EnterIsNotSwallowed) {
    Start();
    Type("txtDays", "240");
    int pressed = 0;
    QObject::connect(&Box("txtDays"), &QLineEdit::returnPressed, [&] { ++pressed; });
    PressKey(Qt::Key_Return);
    PressKey(Qt::Key_Enter);
    EXPECT_EQ(pressed, 2);
}

TEST_F(frmMainParameters, PenaltyIsSavedAlone) {
    Start();
    Box("txtDays").setText("99");
    Type("txtPenalty", "12.5");
    PressKey(Qt::Key_Return);
    EXPECT_EQ(Gen(), "0|0|250|0.25|20|5|12.5|Untitled");
}

TEST_F(frmMainParameters, OtherBoxesAreSavedTogether) {
    Start();
    Box("txtPenalty").setText("8");
    Box("txtACF").setText("0.3");
    Type("txtLaborCost", "1,240");
    PressKey(Qt::Key_Return);
    EXPECT_EQ(Gen(), "0|0|250|0.3|1240|5|8|Untitled");
}

TEST_F(frmMainParameters, ARefusedTextBringsOneMessageAndChangesNothing) {
    Start();
    Type("txtDays", "abc");
    Dialogs.Press(QMessageBox::Ok);
    PressKey(Qt::Key_Return);
    ASSERT_EQ(Dialogs.Seen.size(), 1U);
    EXPECT_THAT(Dialogs.Seen[0], HasSubstr("critical: "));
    EXPECT_THAT(Dialogs.Seen[0], HasSubstr("Working days per year"));
    EXPECT_EQ(Gen(), "0|0|250|0.25|20|5|0|Untitled");
    EXPECT_FALSE(Window->Current().Changed);
}

TEST_F(frmMainParameters, ARefusedTextGetsTheFocusBackWithoutAStormOfMessages) {
    Start();
    Type("txtDays", "abc");
    Dialogs.Press(QMessageBox::Ok);
    PressKey(Qt::Key_Tab);
    QTest::qWait(0);
    Activate();
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
    EXPECT_EQ(FocusName(), "txtDays");
    EXPECT_EQ(Box("txtDays").selectedText().toStdString(), "abc");

    Type("txtDays", "200");
    PressKey(Qt::Key_Tab);
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
    EXPECT_EQ(Gen(), "0|0|200|0.25|20|5|0|Untitled");
}

TEST_F(frmMainParameters, AFigureThatCannotBeIsRefusedByItsCaption) {
    Start();
    Type("txtDays", "367");
    Dialogs.Press(QMessageBox::Ok);
    PressKey(Qt::Key_Tab);
    EXPECT_THAT(Dialogs.Seen,
                ElementsAre("critical: Working days per year is 367; it must be above 0 and at "
                            "most 366."));
    EXPECT_EQ(Gen(), "0|0|250|0.25|20|5|0|Untitled");
    EXPECT_FALSE(Window->Current().Changed);
    QTest::qWait(0);
    Activate();
    EXPECT_EQ(FocusName(), "txtDays");
}

TEST_F(frmMainParameters, TheBoxAtFaultGetsTheFocusEvenIfAnotherWasLeft) {
    Start();
    Box("txtACF").setText("-1");
    Type("txtLaborCost", "30");
    Dialogs.Press(QMessageBox::Ok);
    PressKey(Qt::Key_Tab);
    EXPECT_THAT(Dialogs.Seen, ElementsAre("critical: Annual capital factor (ACF) is -1; it must be "
                                          "at least 0."));
    EXPECT_EQ(Gen(), "0|0|250|0.25|20|5|0|Untitled");
    QTest::qWait(0);
    Activate();
    EXPECT_EQ(FocusName(), "txtACF");
    Type("txtACF", "0.3");
    PressKey(Qt::Key_Tab);
    EXPECT_EQ(Gen(), "0|0|250|0.3|30|5|0|Untitled");
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
}

TEST_F(frmMainParameters, LowMemoryIsSaidInWords) {
    Start();
    Dialogs.Press(QMessageBox::Ok);
    EXPECT_FALSE(Window->RunEvent([] { throw std::bad_alloc(); }));
    ASSERT_EQ(Dialogs.Seen.size(), 1U);
    EXPECT_THAT(Dialogs.Seen[0], HasSubstr("critical: There is not enough memory"));
}

TEST_F(frmMainParameters, AMenuDoesNotTakeTheFocusFromABox) {
    Start();
    Box("txtDays").setFocus(Qt::TabFocusReason);
    OpenMenu("mnuView");
    EXPECT_FALSE(Window->Current().Changed);
    EXPECT_EQ(FocusName(), "txtDays");
}

TEST_F(frmMainParameters, TabGoesThroughTheFieldsInTheOrderOfTheWindow) {
    Start("INSERT INTO Demand VALUES (5000, 100);");
    Window->SelectDemand(0);
    Box("txtProduct").setFocus(Qt::TabFocusReason);
    std::vector<std::string> order;
    for (int i = 0; i < 13; ++i) {
        PressKey(Qt::Key_Tab);
        order.push_back(FocusName());
    }
    EXPECT_THAT(order, ElementsAre("txtResources", "txtTasks", "txtDays", "txtACF", "txtLaborCost",
                                   "txtTransTime", "txtPenalty", "txtVolume", "txtProb", "cmdAdd",
                                   "cmdUpdate", "cmdDelete", "lstDemand"));
}

}  // namespace
}  // namespace quarnel02
