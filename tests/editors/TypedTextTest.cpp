// What has been typed into a record or a cell is stored or stays with a message.
#include "editors/SheetTest.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class TypedText : public test::SheetTest {
  protected:
    void Leave(const std::string& way) {
        if (way == "close box") {
            Form->close();
        } else if (way == "click") {
            At(2, 1);
        } else if (way == "heading") {
            QTest::mouseClick(Sheet().verticalHeader()->viewport(), Qt::LeftButton, {},
                              QPoint(5, Sheet().rowViewportPosition(2) + 3));
        } else if (way == "sheet key") {
            Sheet().setFocus();
            Key(Qt::Key_Down);
        } else if (way == "go to") {
            Put("txtGoTo", "3");
            Key(Qt::Key_Return);
        } else {
            Press(way);
        }
    }
};

class LeavingARecord : public TypedText, public ::testing::WithParamInterface<const char*> {};

TEST_P(LeavingARecord, StaysWithAMessageWhileTheTextDoesNotFit) {
    Start(test::kFourTasks);
    EditTasks([&] {
        Put("txtDescription", "Typed");
        Put("txtTask", "none");
        Dialogs.Press(QMessageBox::Ok);
        Leave(GetParam());
        EXPECT_THAT(Dialogs.Seen.back(), HasSubstr("critical: Task number"));
        EXPECT_TRUE(Form->isVisible());
        EXPECT_EQ(Shown("txtTask") + Shown("txtDescription"), "noneTyped");
        EXPECT_EQ(Focus(), "txtTask");
        EXPECT_EQ(Selected(), "none");
        EXPECT_EQ(Row(), 0);
        EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Beta", "3|Gamma", "4|Delta"));
        EXPECT_EQ(Dialogs.Seen.size(), 2U);
        Key(Qt::Key_Escape);
        EXPECT_EQ(Shown("txtTask") + Shown("txtDescription"), "1Alpha");
        EXPECT_TRUE(Form->isVisible());
        Key(Qt::Key_Escape);
    });
    EXPECT_EQ(Dialogs.Seen.size(), 2U);
}

TEST_P(LeavingARecord, StoresATextThatFits) {
    Start(test::kFourTasks);
    EditTasks([&] {
        Put("txtDescription", "Typed");
        EXPECT_EQ(Tasks()[0], "1|Alpha");
        Leave(GetParam());
        const bool moved = GetParam() == std::string("cmdDown");
        EXPECT_EQ(Tasks()[moved ? 1 : 0], moved ? "2|Typed" : "1|Typed");
        if (Form->isVisible()) {
            Press("cmdOK");
        }
    });
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(By, LeavingARecord,
                         ::testing::Values("cmdOK", "close box", "cmdTask_1", "cmdLast",
                                           "cmdAddNew", "go to", "cmdDown", "click", "heading",
                                           "sheet key"),
                         [](const auto& each) {
                             std::string name = each.param;
                             std::replace(name.begin(), name.end(), ' ', '_');
                             return name;
                         });

class LeavingACell : public TypedText, public ::testing::WithParamInterface<const char*> {};

TEST_P(LeavingACell, StaysWithAMessageWhileTheTextDoesNotFit) {
    Start(test::kFourTasks);
    EditTasks([&] {
        At(0, 0);
        Keys("none");
        Dialogs.Press(QMessageBox::Ok);
        Leave(GetParam());
        EXPECT_THAT(Dialogs.Seen.back(), HasSubstr("critical: Row 1 (Alpha), Number"));
        EXPECT_TRUE(Form->isVisible());
        EXPECT_TRUE(Sheet().IsEditing());
        EXPECT_EQ(Selected(), "none");
        EXPECT_EQ(Row(), 0);
        EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Beta", "3|Gamma", "4|Delta"));
        EXPECT_EQ(Dialogs.Seen.size(), 2U);
        Key(Qt::Key_Escape);
        EXPECT_FALSE(Sheet().IsEditing());
        EXPECT_TRUE(Form->isVisible());
        Key(Qt::Key_Escape);
    });
    EXPECT_EQ(Dialogs.Seen.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(By, LeavingACell,
                         ::testing::Values("cmdOK", "close box", "cmdTask_1", "cmdAddNew", "click",
                                           "heading"),
                         [](const auto& each) {
                             std::string name = each.param;
                             std::replace(name.begin(), name.end(), ' ', '_');
                             return name;
                         });

TEST_F(TypedText, SurvivesAnUndoOfSomethingElse) {
    Start(test::kFourTasks);
    EditTasks([&] {
        Press("cmdTask_1");
        Put("txtDescription", "Other");
        Press("cmdSave");
        Put("txtTask", "9");
        Command("cmdSave").setFocus();
        Undo();
        EXPECT_EQ(Tasks()[1], "2|Beta");
        EXPECT_EQ(Shown("txtTask") + Shown("txtDescription"), "9Beta");
        Press("cmdOK");
    });
    EXPECT_EQ(Tasks()[1], "9|Beta");
}

TEST_F(TypedText, GetsRoomForWhatIsSaidOfIt) {
    Start(test::kFourTasks);
    EditTasks([&] {
        const int before = Part<QLineEdit>("txtDescription").height();
        Form->resize(Form->minimumSizeHint());
        Put("txtDescription", "Typed");
        QCoreApplication::processEvents();
        const auto& info = Part<QLabel>("lblInfo");
        EXPECT_GE(info.height(), info.heightForWidth(info.width()));
        EXPECT_GE(Part<QLineEdit>("txtDescription").height(), before);
        Press("cmdOK");
    });
}

}  // namespace
}  // namespace quarnel02
