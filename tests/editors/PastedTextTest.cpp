// Texts that come into a box otherwise than key by key.
#include <gmock/gmock.h>

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>

#include "editors/EditorTest.h"
#include "widgets/FieldBox.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;

void Paste(QLineEdit& box, const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
}

TEST(FieldBox, PastesOneLineWithoutBreaksAtItsEnds) {
    FieldBox box;
    Paste(box, QStringLiteral("\t Fit\r\nthe\tseal\u00A0\n"));
    EXPECT_EQ(box.text(), "Fit the seal");
    EXPECT_EQ(box.cursorPosition(), 12);
}

TEST(FieldBox, AddsNoBlankWhereAPasteEnds) {
    FieldBox box;
    box.setText(QStringLiteral("Fit seal"));
    box.setCursorPosition(4);
    Paste(box, QStringLiteral("\nthe\r\n"));
    EXPECT_EQ(box.text(), "Fit theseal");
    EXPECT_EQ(box.cursorPosition(), 7);
}

TEST(FieldBox, ReplacesTheSelectionByTheWholePaste) {
    FieldBox box;
    box.setText(QStringLiteral("Fit"));
    box.selectAll();
    Paste(box, QStringLiteral("Fit\nseal\n"));
    EXPECT_EQ(box.text(), "Fit seal");
    box.setSelection(4, 2);
    Paste(box, QStringLiteral("wh\te\n"));
    EXPECT_EQ(box.text(), "Fit wh eal");
}

TEST(FieldBox, CountsAPasteAsTyped) {
    FieldBox box;
    box.setText(QStringLiteral("Fit"));
    EXPECT_FALSE(box.isModified());
    Paste(box, QStringLiteral(" seal\n"));
    EXPECT_TRUE(box.isModified());
}

TEST(FieldBox, TakesNoControlCharacterByAnyWay) {
    FieldBox box;
    box.insert(QStringLiteral("a\tb\n"));
    EXPECT_EQ(box.text(), "a b");
    box.setText(QStringLiteral("c\nd\u0085"));
    EXPECT_EQ(box.text(), "c d");
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("\u001Be\u2028f"));
    QCoreApplication::sendEvent(&box, &composed);
    EXPECT_EQ(box.text(), "c de f");
    QMimeData dragged;
    dragged.setText(QStringLiteral("g\r\nh\r\n"));
    box.clear();
    QDragEnterEvent enter(QPoint(3, 3), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&box, &enter);
    QDropEvent drop(QPointF(3, 3), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&box, &drop);
    EXPECT_EQ(box.text(), "g h");
}

TEST(FieldBox, TakesATypedNoBreakBlankForABlank) {
    FieldBox box;
    QTest::keyClicks(&box, QStringLiteral("Fit\u00A0the  seal "));
    EXPECT_EQ(box.text(), "Fit the  seal ");
}

class PastedText : public test::EditorTest {};

TEST_F(PastedText, IsStoredAsOneLine) {
    Start("INSERT INTO Resources VALUES (1, 'Ben', 'Bench', 0, 10, 20, 90, 1, 1, 1);");
    EditResources([&] {
        for (const char* box : {"txtDescription", "txtShortName"}) {
            Part<QLineEdit>(box).setFocus();
            Paste(Part<QLineEdit>(box), QStringLiteral("New\tbench\r\n"));
        }
        Part<QLineEdit>("txtFixedCost").setFocus();
        Paste(Part<QLineEdit>("txtFixedCost"), QStringLiteral("\u00A012,500\n"));
        Press("cmdSave");
        EXPECT_EQ(Command("cmdSave").text(), "&Save");
        Press("cmdOK");
    });
    EXPECT_THAT(Resources(), ElementsAre("1|New bench|New bench|0|12500|20|90|1|1|1"));
}

TEST_F(PastedText, OfAForeignFileIsShownAsOneLineAndStoredSo) {
    Start("INSERT INTO Tasks VALUES (1, 'Fit' || char(9) || 'seal' || char(10));");
    EditTasks([&] {
        EXPECT_EQ(Shown("txtDescription"), "Fit seal");
        EXPECT_EQ(Command("cmdSave").text(), "&Save");
        Press("cmdSave");
        Press("cmdOK");
    });
    EXPECT_THAT(Tasks(), ElementsAre("1|Fit seal"));
}

}  // namespace
}  // namespace quarnel02
