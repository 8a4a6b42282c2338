#pragma once

#include <QClipboard>
#include <QGuiApplication>
#include <QTabBar>

#include "commands/MatrixValues.h"
#include "editors/MatrixTest.h"
#include "editors/MatrixValuesModel.h"

namespace quarnel02::test {

/// The tab Values of the matrix editor, with the cells found by task and resource.
class MatrixValuesTest : public MatrixTest {
  protected:
    enum Tab { kMarks, kValues };

    void ClickTab(Tab tab) const {
        auto& bar = Part<QTabBar>("tabMatrix");
        QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, bar.tabRect(tab).center());
    }
    /// Runs the steps on the tab Values of the matrix editor.
    void EditValues(const Steps& steps) {
        EditMatrix([this, &steps] {
            ClickTab(kValues);
            steps();
        });
    }
    QTableView& Sheet() const { return Part<QTableView>("grdValues"); }
    QModelIndex At(int task, int resource) const {
        return Sheet().model()->index(task - 1, resource - 1);
    }
    std::string Text(int task, int resource) const {
        return At(task, resource).data().toString().toStdString();
    }
    PairLook Look(int task, int resource) const {
        return static_cast<PairLook>(At(task, resource).data(MatrixValuesModel::kLookRole).toInt());
    }
    void Go(int task, int resource) const { Sheet().setCurrentIndex(At(task, resource)); }
    /// Selects with Shift and arrows from the current cell on.
    void Extend(int down, int right) const {
        for (; down > 0; --down) {
            Key(Qt::Key_Down, Qt::ShiftModifier);
        }
        for (; right > 0; --right) {
            Key(Qt::Key_Right, Qt::ShiftModifier);
        }
    }
    std::string CurrentValue() const {
        return std::to_string(Sheet().currentIndex().row() + 1) + "," +
               std::to_string(Sheet().currentIndex().column() + 1);
    }
    static void SetClipboard(const std::string& text) {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    }
    static std::string Clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }
    /// The keys of menus work in the window in front only, which the offscreen platform does not
    /// bring back behind a message.
    void BringToFront() const {
        Form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Form));
    }
    void Ctrl(Qt::Key key) const {
        BringToFront();
        Key(key, Qt::ControlModifier);
    }
    /// Types key by key: the first one brings up the editor of the cell, which takes the others.
    void TypeCell(const std::string& text) const {
        for (const char letter : text) {
            Keys(std::string(1, letter));
        }
    }
    void Choose(const std::string& button) const {
        QTest::mouseClick(&Part<QAbstractButton>(button), Qt::LeftButton, Qt::NoModifier,
                          QPoint(8, Part<QAbstractButton>(button).height() / 2));
    }
};

}  // namespace quarnel02::test
