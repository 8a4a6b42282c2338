// A whole model entered with the keyboard alone, designed, and compared with the batch program.
#include <gmock/gmock.h>

#include <QApplication>

#include "basic/Files.h"
#include "editors/EditorTest.h"
#include "support/ProgramRun.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class FirstModel : public test::EditorTest {
  protected:
    /// Chooses the item of the View menu by its key.
    void ChooseItem(Qt::Key key, const Steps& steps) {
        OnDialog(steps);
        auto& menu = Find<QMenu>("mnuView");
        menu.popup(Window->mapToGlobal(QPoint(10, 10)));
        QTest::keyClick(&menu, key);
        Activate();
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == Window.get(); }));
    }

    void ChooseSaveAs() {
        auto& menu = Find<QMenu>("mnuFile");
        menu.popup(Window->mapToGlobal(QPoint(10, 10)));
        QTest::keyClick(&menu, Qt::Key_A);
    }

    void PressAddNew() const {
        Mnemonic("cmdAddNew");
        EXPECT_EQ(Focus(), "txtDescription");
    }

    void EnterTasks() {
        ChooseItem(Qt::Key_T, [&] {
            for (const char* task : {"Fit bearing", "Mount cover", "Test"}) {
                PressAddNew();
                Keys(task);
                Key(Qt::Key_Return);
                Key(Qt::Key_Return);
            }
            Key(Qt::Key_O, Qt::AltModifier);
        });
    }

    void EnterResources() {
        ChooseItem(Qt::Key_R, [&] {
            EnterResource({"Hand bench", "Bench", "2000", "1", "95", "1", "4", "1"});
            EnterResource({"Robot cell", "Robot", "60000", "6", "90", "1.5", "2", "6"});
            Key(Qt::Key_O, Qt::AltModifier);
        });
    }

    void EnterResource(const std::vector<std::string>& texts) {
        PressAddNew();
        for (const std::string& text : texts) {
            Keys(text);
            Key(Qt::Key_Return);
        }
        EXPECT_EQ(Focus(), "picRes");
        Key(Qt::Key_Return);
        EXPECT_EQ(Focus(), "cmdSave");
        Key(Qt::Key_Return);
    }

    void EnterMatrix() {
        ChooseItem(Qt::Key_M, [&] {
            for (const char* time : {"20", "30", "15"}) {
                EnterPair(time, "100");
                Key(Qt::Key_Right);
                EnterPair("8", "1500");
                Key(Qt::Key_Left);
                Key(Qt::Key_Down);
            }
            Key(Qt::Key_O, Qt::AltModifier);
        });
    }

    void EnterPair(const std::string& time, const std::string& cost) {
        OnDialog([=, this] {
            for (const std::string& text : {time, std::string("1"), cost}) {
                Keys(text);
                Key(Qt::Key_Return);
            }
            Key(Qt::Key_Return);
        });
        Key(Qt::Key_Return);
    }

    void EnterDemand() {
        Box("txtVolume").setFocus(Qt::TabFocusReason);
        for (const char* text : {"100000", "100"}) {
            QTest::keyClicks(Window->focusWidget(), QString::fromLatin1(text));
            QTest::keyClick(Window->focusWidget(), Qt::Key_Return);
        }
        QTest::keyClick(Window->focusWidget(), Qt::Key_Space);
    }
};

TEST_F(FirstModel, EnteredByKeyboardGivesTheReportOfTheBatchProgram) {
    Start();
    QTest::keyClick(Window.get(), Qt::Key_N, Qt::ControlModifier);
    EnterTasks();
    EXPECT_THAT(Tasks(), ElementsAre("1|Fit bearing", "2|Mount cover", "3|Test"));
    EnterResources();
    EXPECT_THAT(Resources(), ElementsAre("1|Bench|Hand bench|0|2000|1|95|1|4|1",
                                         "2|Robot|Robot cell|0|60000|6|90|1.5|2|6"));
    EnterMatrix();
    EXPECT_THAT(Matrix(), ElementsAre("1|1|20|1|100", "2|1|8|1|1500", "1|2|30|1|100",
                                      "2|2|8|1|1500", "1|3|15|1|100", "2|3|8|1|1500"));
    EXPECT_EQ(Gen(), "2|3|250|0.25|20|5|0|Untitled");
    EnterDemand();
    EXPECT_THAT(DemandRows(), ElementsAre("100000|100"));

    Dialogs.Press(QMessageBox::No);
    Button("cmdContinuous_2").setFocus(Qt::TabFocusReason);
    PressKey(Qt::Key_Space);
    const std::string report = ReadFile(Copy->File("RunRpt.txt"));
    EXPECT_THAT(report, HasSubstr("Annual Volume: 100,000"));

    const std::string model = Copy->File("first.mdb").string();
    Dialogs.Type(model);
    ChooseSaveAs();
    const auto batch = test::RunProgram({std::string(QUARNEL02_PROGRAMS) + "/quarnel02-solve",
                                         model, "--shifts", "2", "--demand", "100000"});
    EXPECT_EQ(batch.Status, 0) << batch.Err;
    EXPECT_EQ(batch.Out, report);
    EXPECT_TRUE(Dialogs.AllGiven());
}

}  // namespace
}  // namespace quarnel02
