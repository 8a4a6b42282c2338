#pragma once

#include <gmock/gmock.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>

#include "editors/EditorTest.h"
#include "widgets/SheetView.h"

namespace quarnel02::test {

/// Four tasks; two resources that can do all of them, told apart by their times.
constexpr const char* kFourTasks =
    "UPDATE Gen SET Tasks = 4, Resources = 2;"
    "INSERT INTO Tasks VALUES (1, 'Alpha'), (2, 'Beta'), (3, 'Gamma'), (4, 'Delta');"
    "INSERT INTO Resources VALUES (1, 'R1', 'One', 0, 0, 0, 100, 1, 1, 1),"
    " (2, 'R2', 'Two', 3, 0, 0, 100, 1, 1, 1);"
    "INSERT INTO Matrix VALUES (1, 1, 11, 1, 0), (1, 2, 12, 1, 0), (1, 3, 13, 1, 0),"
    " (1, 4, 14, 1, 0), (2, 4, 24, 1, 0), (2, 2, 22, 1, 0);";

/// A record editor driven through its sheet.
class SheetTest : public EditorTest {
  protected:
    [[nodiscard]] SheetView& Sheet() const { return Part<SheetView>("shtRecords"); }
    /// Clicks a cell, counted from 0.
    void At(int row, int column) const {
        QTest::mouseClick(Sheet().viewport(), Qt::LeftButton, {},
                          Sheet().visualRect(Sheet().model()->index(row, column)).center());
    }
    /// The text of a cell, as it would be edited.
    [[nodiscard]] std::string Cell(int row, int column) const {
        return Sheet().model()->index(row, column).data(Qt::EditRole).toString().toStdString();
    }
    [[nodiscard]] int Row() const { return Sheet().currentIndex().row(); }
    static void Clip(const std::string& text) {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    }
    /// Brings the editor to the front, as the desktop does when a dialog closes.
    void Front() const {
        Form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(Form));
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        Front();
        EditorTest::Key(key, modifiers);
    }
    /// Types letter by letter on what then has the focus.
    void Keys(const std::string& text) const {
        for (const char letter : text) {
            QTest::keyClick(Form->focusWidget(), letter);
        }
    }
    void Paste() const { Key(Qt::Key_V, Qt::ControlModifier); }
    void Undo() const { Key(Qt::Key_Z, Qt::ControlModifier); }
    [[nodiscard]] std::string LastStep() const { return Window->History().UndoText(); }
};

}  // namespace quarnel02::test
