// Undo and redo in the main window.
#include <gmock/gmock.h>

#include "app/WindowTest.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class frmMainUndo : public test::WindowTest {
  protected:
    void Undo() { PressKey(Qt::Key_Z, Qt::ControlModifier); }
    void Redo() { PressKey(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    [[nodiscard]] std::string Shown(const std::string& box) const {
        return Box(box).text().toStdString();
    }
};

TEST_F(frmMainUndo, HasNothingToUndoAtTheStart) {
    Start();
    EXPECT_FALSE(Item("mnuEditUndo").isEnabled());
    EXPECT_FALSE(Item("mnuEditRedo").isEnabled());
    EXPECT_EQ(Caption("mnuEditUndo"), "&Undo");
}

TEST_F(frmMainUndo, TakesBackAParameterAndMakesItAgain) {
    Start();
    const std::string before = Gen();
    Type("txtDays", "111");
    PressKey(Qt::Key_Tab);
    const std::string after = Gen();
    EXPECT_EQ(Caption("mnuEditUndo"), "&Undo Change working days per year");
    Undo();
    EXPECT_EQ(Gen(), before);
    EXPECT_EQ(Shown("txtDays"), "250");
    EXPECT_FALSE(IsStarred());
    EXPECT_EQ(Caption("mnuEditRedo"), "&Redo Change working days per year");
    Redo();
    EXPECT_EQ(Gen(), after);
    EXPECT_EQ(Shown("txtDays"), "111");
    EXPECT_TRUE(IsStarred());
}

TEST_F(frmMainUndo, OfABoxThatIsBeingTypedInIsItsOwn) {
    Start();
    Type("txtDays", "111");
    PressKey(Qt::Key_Tab);
    const std::string stored = Gen();
    Type("txtACF", "0.5");
    Undo();
    EXPECT_EQ(Gen(), stored);
    EXPECT_NE(Shown("txtACF"), "0.5");
}

TEST_F(frmMainUndo, AfterEnterTheBoxHasNothingOfItsOwnToUndo) {
    Start();
    const std::string before = Gen();
    Type("txtDays", "111");
    PressKey(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "txtDays");
    Undo();
    EXPECT_EQ(Gen(), before);
    EXPECT_EQ(Shown("txtDays"), "250");
}

TEST_F(frmMainUndo, FromTheMenuStoresWhatIsBeingTypedFirst) {
    Start();
    const std::string before = Gen();
    Type("txtDays", "111");
    Item("mnuEditUndo").setEnabled(true);
    Item("mnuEditUndo").trigger();
    EXPECT_EQ(Gen(), before);
    EXPECT_TRUE(Item("mnuEditRedo").isEnabled());
}

TEST_F(frmMainUndo, TakesBackDemandRowsOneByOne) {
    Start();
    for (const char* volume : {"1000", "2000"}) {
        Type("txtVolume", volume);
        Type("txtProb", "50");
        Click("cmdAdd");
    }
    ASSERT_THAT(DemandLines(), ElementsAre("1,000:  50%", "2,000:  50%"));
    Demand().setFocus();
    Undo();
    EXPECT_THAT(DemandLines(), ElementsAre("1,000:  50%"));
    Undo();
    EXPECT_THAT(DemandLines(), IsEmpty());
    EXPECT_THAT(DemandRows(), IsEmpty());
    Redo();
    Redo();
    EXPECT_THAT(DemandLines(), ElementsAre("1,000:  50%", "2,000:  50%"));
}

TEST_F(frmMainUndo, MarksResultsAsOutOfDateAndAgainAsCurrent) {
    Start();
    NoteDesignNow();
    Type("txtDays", "111");
    PressKey(Qt::Key_Tab);
    auto& mark = Find<QLabel>("lblOutOfDate");
    ASSERT_TRUE(mark.isVisible());
    Undo();
    EXPECT_FALSE(mark.isVisible());
    Redo();
    EXPECT_TRUE(mark.isVisible());
}

/// What was saved is no longer what is there.
TEST_F(frmMainUndo, AfterSavingIsAChangeToAskAbout) {
    Start();
    Type("txtDays", "111");
    PressKey(Qt::Key_Tab);
    Window->Current().Changed = false;
    Undo();
    EXPECT_TRUE(Window->Current().Changed);
}

TEST_F(frmMainUndo, NewForgetsTheSteps) {
    Start();
    Type("txtDays", "111");
    PressKey(Qt::Key_Tab);
    Dialogs.Press(QMessageBox::No);
    Item("mnuFileNew").trigger();
    EXPECT_FALSE(Item("mnuEditUndo").isEnabled());
}

TEST_F(frmMainUndo, TheEditorsHaveAShortCutEach) {
    Start();
    EXPECT_EQ(Item("mnuViewTasks").shortcut().toString(), "Ctrl+1");
    EXPECT_EQ(Item("mnuViewResources").shortcut().toString(), "Ctrl+2");
    EXPECT_EQ(Item("mnuViewMatrix").shortcut().toString(), "Ctrl+3");
}

}  // namespace
}  // namespace quarnel02
