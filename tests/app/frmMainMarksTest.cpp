// The marks over results and file: what is out of date, and what is not saved.
#include <gmock/gmock.h>

#include <QLabel>
#include <QStatusBar>

#include "app/WindowTest.h"
#include "basic/Files.h"
#include "support/ModelScript.h"

namespace quarnel02 {
namespace {

using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::Not;

class frmMainMarks : public test::WindowTest {
  protected:
    QLabel& Mark() const { return Find<QLabel>("lblOutOfDate"); }
    [[nodiscard]] bool IsMarked() const { return Mark().isVisible(); }
    [[nodiscard]] std::string Network() const {
        return Find<QLabel>("label_picArc").text().toStdString();
    }
    [[nodiscard]] std::string Design() const {
        return Find<QLabel>("lblDesign").text().toStdString();
    }
    void StartWithADesign() {
        Start("INSERT INTO Demand VALUES (5000, 60);");
        NoteDesignNow();
        ASSERT_FALSE(IsMarked());
    }
    /// Does to an editor what `act` does, and closes it.
    void Edit(const char* item, const std::function<void(QDialog&)>& act) {
        Dialogs.Add([act](QDialog& dialog) {
            act(dialog);
            dialog.reject();
        });
        Item(item).trigger();
    }
};

TEST_F(frmMainMarks, WithoutResultsThereIsNoMark) {
    Start();
    Type("txtDays", "200");
    PressKey(Qt::Key_Return);
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(Design(), "");
}

TEST_F(frmMainMarks, StandAfterAChangeOfParametersUntilTheNextDesign) {
    StartWithADesign();
    Type("txtDays", "200");
    EXPECT_FALSE(IsMarked());
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(IsMarked());
    EXPECT_EQ(Mark().text(), "Results are out of date");
    EXPECT_EQ(Mark().accessibleName(), "Results are out of date");
    EXPECT_EQ(Network(), "Arc network (out of date)");
    NoteDesignNow();
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(Network(), "Arc network");
}

TEST_F(frmMainMarks, GoWhenTheFigureIsAsItWas) {
    StartWithADesign();
    Type("txtDays", "200");
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(IsMarked());
    Type("txtDays", "250");
    PressKey(Qt::Key_Return);
    EXPECT_FALSE(IsMarked());
}

TEST_F(frmMainMarks, StandAfterAChangeOfDemand) {
    StartWithADesign();
    Window->SelectDemand(0);
    EXPECT_FALSE(IsMarked());
    Window->RunEvent([] {});
    Click("cmdDelete");
    EXPECT_TRUE(IsMarked());
}

TEST_F(frmMainMarks, StandAfterAnEditorThatChangedTheModel) {
    StartWithADesign();
    Edit("mnuViewTasks", [this](QDialog&) {
        RecordSet tasks = Copy->Open().OpenRecordSet("SELECT * FROM Tasks;");
        tasks.AddNew();
        tasks.Set("TaskId", 1);
        tasks.Set("Description", "Press");
        tasks.Update();
    });
    EXPECT_TRUE(IsMarked());
}

TEST_F(frmMainMarks, StayAwayAfterAnEditorThatChangedNothing) {
    StartWithADesign();
    for (const char* editor : {"mnuViewTasks", "mnuViewResources", "mnuViewMatrix"}) {
        Edit(editor, [](QDialog&) {});
        EXPECT_FALSE(IsMarked()) << editor;
    }
}

TEST_F(frmMainMarks, MoveNothing) {
    StartWithADesign();
    QCoreApplication::processEvents();
    const auto places = [&] {
        std::vector<QRect> all;
        for (const QWidget* widget : Window->centralWidget()->findChildren<QWidget*>()) {
            if (widget != &Mark() && widget->objectName() != "label_picArc") {
                all.push_back(widget->geometry());
            }
        }
        return all;
    };
    const auto before = places();
    Type("txtDays", "200");
    PressKey(Qt::Key_Return);
    QCoreApplication::processEvents();
    ASSERT_TRUE(IsMarked());
    EXPECT_EQ(places(), before);
}

TEST_F(frmMainMarks, AReportThatWasThereBeforeIsOfAnEarlierSession) {
    Start();
    WriteFile(Copy->File("RunRpt.txt"), "x");
    OpenMenu("mnuView");
    EXPECT_EQ(Caption("mnuViewLastCont"), "&Solution summary (of an earlier session)");
    EXPECT_EQ(Caption("mnuViewLast"), "&Production report");
    EXPECT_EQ(Item("mnuViewLastCont").statusTip(),
              "Opens the report of the last fixed-demand design (of an earlier session)");
}

TEST_F(frmMainMarks, TheStatusLineNamesTheDesign) {
    Start("UPDATE Gen SET Product = 'Pump <A> & B';");
    NoteDesignNow();
    EXPECT_EQ(Design(), "2 shifts, 60,000 units a year");
    EXPECT_THAT(Find<QLabel>("lblDesign").toolTip().toStdString(), HasSubstr("&lt;A&gt;"));
    Find<QStatusBar>("statusBar").showMessage("Designing the line...");
    EXPECT_TRUE(Find<QLabel>("lblDesign").isVisible());
    EXPECT_EQ(Design(), "2 shifts, 60,000 units a year");
}

TEST_F(frmMainMarks, ALongProductDoesNotWidenTheWindow) {
    const std::string name(255, 'W');
    Start("UPDATE Gen SET Product = '" + name + "';");
    const int width = Window->width();
    NoteDesignNow();
    QCoreApplication::processEvents();
    EXPECT_EQ(Window->width(), width);
    const auto& file = Find<QLabel>("lblFile");
    EXPECT_LT(file.width(), file.fontMetrics().horizontalAdvance(file.text()));
    EXPECT_THAT(file.toolTip().toStdString(), HasSubstr(name));
    EXPECT_GT(file.width(), 0);
}

TEST_F(frmMainMarks, AStarStandsWhileTheModelDiffersFromItsFile) {
    Start();
    EXPECT_FALSE(IsStarred());
    EXPECT_EQ(Window->windowTitle(), "Quarnel02[*]");
    Type("txtDays", "200");
    EXPECT_FALSE(IsStarred());
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(IsStarred());
    Dialogs.Accept();
    Item("mnuFileSaveAs").trigger();
    EXPECT_FALSE(IsStarred());
}

TEST_F(frmMainMarks, TheStarStandsBehindTheFilesName) {
    Start();
    Window->SetTitle("line.mdb - Quarnel02");
    EXPECT_EQ(Window->windowTitle(), "line.mdb[*] - Quarnel02");
    Window->SetTitle("a[*]b.mdb - Quarnel02");
    EXPECT_EQ(Window->windowTitle(), "a[*][*]b.mdb[*] - Quarnel02");
}

TEST_F(frmMainMarks, RecoverSaysThatNothingIsKept) {
    Start();
    OpenMenu("mnuFileRecover");
    const auto items = Find<QMenu>("mnuFileRecover").actions();
    ASSERT_EQ(items.size(), 1);
    EXPECT_EQ(items[0]->text(), "No work has been kept");
    EXPECT_FALSE(items[0]->isEnabled());
}

class frmMainDesigns : public frmMainMarks {
  protected:
    void StartSolved() {
        test::ModelScript model = test::WorkedExample();
        model.Demand = {{100000, 100}};
        Start(model.Sql() + "INSERT INTO Tasks VALUES (1, 'Press'), (2, 'Screw');");
        Dialogs.Press(QMessageBox::No);
        Click("cmdContinuous_1");
        Activate();
    }
};

TEST_F(frmMainDesigns, ASolveIsNamedInTheStatusLineAndIsCurrent) {
    StartSolved();
    EXPECT_THAT(Design(), MatchesRegex("1 shift, 100,000 units a year: .64,336 in [0-9.]+ m?s"));
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(Caption("mnuViewLastCont"), "&Solution summary");
}

TEST_F(frmMainDesigns, AChangeMarksPicturesAndReportUntilTheNextSolve) {
    StartSolved();
    Type("txtDays", "200");
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(IsMarked());
    EXPECT_EQ(Caption("mnuViewLastCont"), "&Solution summary (out of date)");
    Dialogs.Press(QMessageBox::No);
    Click("cmdContinuous_1");
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(Caption("mnuViewLastCont"), "&Solution summary");
}

TEST_F(frmMainDesigns, AnotherModelHasNoResultsAndEmptyBoxes) {
    StartSolved();
    EXPECT_NE(Box("txtVolume").text(), "");
    Item("mnuFileNew").trigger();
    EXPECT_EQ(Box("txtVolume").text(), "");
    EXPECT_EQ(Box("txtProb").text(), "");
    EXPECT_EQ(Design(), "");
    EXPECT_FALSE(IsMarked());
}

TEST_F(frmMainDesigns, LookingIntoTheEditorsKeepsTheChosenLine) {
    StartSolved();
    const auto figures = Window->picArc.Figures();
    for (const char* editor : {"mnuViewTasks", "mnuViewResources", "mnuViewMatrix"}) {
        Edit(editor, [](QDialog&) {});
        EXPECT_EQ(Window->picArc.Figures(), figures) << editor;
        EXPECT_FALSE(IsMarked()) << editor;
    }
}

TEST_F(frmMainMarks, TheSaveQuestionProposesYesAndOnlyItsButtonsAnswer) {
    Start();
    Type("txtDays", "200");
    PressKey(Qt::Key_Return);
    Dialogs.Add([](QDialog& dialog) {
        const auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Yes));
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_TRUE(dialog.isVisible());
        dialog.close();
        EXPECT_TRUE(dialog.isVisible());
        QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
    });
    Item("mnuFileNew").trigger();
    EXPECT_EQ(Box("txtDays").text(), "250");
}

TEST_F(frmMainMarks, RecoverBringsBackWorkThatWasNotSaved) {
    Start();
    Type("txtDays", "200");
    PressKey(Qt::Key_Return);
    Dialogs.Press(QMessageBox::No);
    Item("mnuFileNew").trigger();
    EXPECT_EQ(Box("txtDays").text(), "250");
    OpenMenu("mnuFileRecover");
    const auto items = Find<QMenu>("mnuFileRecover").actions();
    ASSERT_EQ(items.size(), 1);
    EXPECT_THAT(items[0]->text().toStdString(), HasSubstr("Untitled"));
    items[0]->trigger();
    EXPECT_EQ(Box("txtDays").text(), "200");
    EXPECT_EQ(Title(), "Quarnel02");
}

}  // namespace
}  // namespace quarnel02
