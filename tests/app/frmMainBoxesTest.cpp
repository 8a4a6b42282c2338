// The boxes of the results: where the focus is seen, what is meant while one is enlarged, the true
// size of the network, and fields that come into view.
#include <gmock/gmock.h>

#include <QCheckBox>
#include <QScrollArea>
#include <QSplitter>

#include "app/WindowTest.h"
#include "support/ModelScript.h"
#include "widgets/PictureBox.h"

namespace quarnel02 {
namespace {

class frmMainBoxes : public test::WindowTest {
  protected:
    void StartWithADesign() {
        test::ModelScript model = test::WorkedExample();
        model.Demand = {{100000, 50}, {200000, 50}};
        Start(model.Sql());
        Window->resize(1300, 900);
        QCoreApplication::processEvents();
        Design();
    }
    void Design() {
        Dialogs.Accept();
        Dialogs.Press(QMessageBox::No);
        Click("cmdContinuous_1");
        Activate();
        QCoreApplication::processEvents();
        ASSERT_TRUE(IsSeen("frameGraph_2"));
    }
    void FocusOn(const char* name) {
        Find<QWidget>(name).setFocus(Qt::OtherFocusReason);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] bool IsSeen(const char* name) const { return Find<QWidget>(name).isVisible(); }
};

TEST_F(frmMainBoxes, SizesOutliveAProgramThatEndsWithABoxEnlarged) {
    StartWithADesign();
    auto& row = Find<QSplitter>("splUpper");
    QSplitterHandle& edge = *row.handle(1);
    const QPoint grip = edge.rect().center();
    QTest::mousePress(&edge, Qt::LeftButton, {}, grip);
    QTest::mouseMove(&edge, grip - QPoint(150, 0));
    QTest::mouseRelease(&edge, Qt::LeftButton, {}, grip - QPoint(150, 0));
    const int summary = Find<QWidget>("frameGraph_0").width();
    FocusOn("picGraph_2");
    PressKey(Qt::Key_F11);
    ASSERT_FALSE(IsSeen("frameGraph_0"));
    Window->close();
    Window = std::make_unique<frmMain>(Copy->Directory());
    ASSERT_TRUE(Window->StartUp());
    Window->show();
    Activate();
    Design();
    EXPECT_NEAR(Find<QWidget>("frameGraph_0").width(), summary, 2);
}

TEST_F(frmMainBoxes, ThePictureMenuMeansNoBoxThatIsHiddenBehindAnotherOne) {
    StartWithADesign();
    FocusOn("picGraph_2");
    OpenMenu("mnuFile");
    EXPECT_EQ(Find<QMenu>("mnuFilePicture").title(), QStringLiteral("Pi&cture: Line"));
    FocusOn("txtDays");
    Item("mnuViewEnlarge").trigger();
    ASSERT_FALSE(IsSeen("frameGraph_2"));
    OpenMenu("mnuFile");
    EXPECT_EQ(Find<QMenu>("mnuFilePicture").title(), QStringLiteral("Pi&cture: Arc network"));
}

TEST_F(frmMainBoxes, TheBoxWithTheFocusHasAFrameOfItsOwn) {
    StartWithADesign();
    const auto frame = [&](const char* name) {
        return Find<QWidget>(name).grab().toImage().pixelColor(0, 5);
    };
    const QColor lit = Window->palette().color(QPalette::Highlight);
    FocusOn("picGraph_2");
    EXPECT_EQ(frame("frameGraph_2"), lit);
    EXPECT_NE(frame("frameGraph_0"), lit);
    FocusOn("txtDays");
    EXPECT_NE(frame("frameGraph_2"), lit);
}

TEST_F(frmMainBoxes, TheNetworkIsShownInItsTrueSizeAndFittedAgain) {
    test::ModelScript model = test::WorkedExample();
    model.Tasks = 60;
    Start(model.Sql());
    auto& network = Find<PictureBox>("picArc");
    auto& fit = Find<QCheckBox>("chkFitWidth");
    EXPECT_TRUE(fit.isChecked());
    EXPECT_EQ(network.Zoom(), 1);
    ASSERT_LT(Window->picArc.Sheet.Scale, 0.9);
    QTest::keyClick(&fit, Qt::Key_Space);
    EXPECT_NEAR(Window->picArc.Sheet.Scale, 1, 1e-6);
    EXPECT_FALSE(fit.isChecked());
    QTest::keyClick(&fit, Qt::Key_Space);
    EXPECT_EQ(network.Zoom(), 1);
}

TEST_F(frmMainBoxes, WithoutTasksThereIsNothingToFit) {
    Start();
    EXPECT_FALSE(IsSeen("chkFitWidth"));
}

TEST_F(frmMainBoxes, AFieldThatTheFocusJumpsToComesIntoView) {
    Start();
    Window->resize(Window->minimumSize().width(), Window->minimumSize().height());
    QCoreApplication::processEvents();
    const auto& pane = Find<QScrollArea>("scrLeft");
    const auto is_whole = [&](const char* name) {
        const auto& field = Find<QWidget>(name);
        return field.visibleRegion().boundingRect() == field.rect();
    };
    ASSERT_GT(pane.widget()->height(), pane.viewport()->height());
    for (const char* name : {"txtProduct", "cmdStoch", "txtProduct", "cmdContinuous_1"}) {
        FocusOn(name);
        EXPECT_TRUE(is_whole(name)) << name;
    }
}

}  // namespace
}  // namespace quarnel02
