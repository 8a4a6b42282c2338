#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "app/Answers.h"
#include "app/frmMain.h"
#include "support/TestModel.h"

namespace quarnel02::test {

/// The main window on an application directory of its own, started up and shown. Reports are not
/// opened but recorded.
class WindowTest : public ::testing::Test {
  protected:
    /// Starts with a template in which `script` was run.
    void Start(const std::string& script = "");

    template <class Widget>
    Widget& Find(const std::string& name) const {
        auto* widget = Window->findChild<Widget*>(QString::fromStdString(name));
        if (widget == nullptr) {
            throw std::runtime_error("no control " + name);
        }
        return *widget;
    }
    QLineEdit& Box(const std::string& name) const { return Find<QLineEdit>(name); }
    QPushButton& Button(const std::string& name) const { return Find<QPushButton>(name); }
    QAction& Item(const std::string& name) const { return Find<QAction>(name); }
    QListWidget& Demand() const { return Find<QListWidget>("lstDemand"); }

    /// Moves the focus to a box, replaces its text and leaves the focus there.
    void Type(const std::string& box, const std::string& text);
    void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Click(const std::string& button);
    /// Brings the window to the front, as the desktop does when a dialog closes; the offscreen
    /// platform does not.
    void Activate();
    /// What the menu's items show once it has been opened.
    void OpenMenu(const std::string& menu);
    [[nodiscard]] std::vector<std::string> DemandLines() const;
    /// Row of Gen, fields 0 to 7 joined by "|".
    [[nodiscard]] std::string Gen() const;
    [[nodiscard]] std::vector<std::string> DemandRows() const;
    [[nodiscard]] std::string FocusName() const;
    /// Title without the mark of unsaved work, and whether the window carries the mark.
    [[nodiscard]] std::string Title() const;
    [[nodiscard]] bool IsStarred() const { return Window->isWindowModified(); }
    [[nodiscard]] std::string Caption(const std::string& item) const {
        return Item(item).text().toStdString();
    }
    /// Counts the results that are shown as made from the working copy as it is.
    void NoteDesignNow(const std::string& caption = "2 shifts, 60,000 units a year");

    std::unique_ptr<TestModel> Copy;
    std::unique_ptr<frmMain> Window;
    std::vector<std::string> Started;  ///< "program|file"
    Answers Dialogs;
};

}  // namespace quarnel02::test
