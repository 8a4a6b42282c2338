#pragma once

#include <gmock/gmock.h>

#include <QDialog>
#include <functional>
#include <string>
#include <vector>

#include "app/WindowTest.h"

namespace quarnel02::test {

/// The main window with an editor opened from its View menu. The steps of a test run inside the
/// modal window, whose controls are found by name; dialogs that it opens are answered by `Dialogs`
/// and `OnDialog`, given before the step that brings them up.
class EditorTest : public WindowTest {
  protected:
    using Steps = std::function<void()>;

    /// Chooses an item of the View menu and runs the steps in the window that comes up. A window
    /// that they leave open fails the test and is closed.
    void Edit(const std::string& item, const Steps& steps);
    void EditTasks(const Steps& steps) { Edit("mnuViewTasks", steps); }
    void EditResources(const Steps& steps) { Edit("mnuViewResources", steps); }
    void EditMatrix(const Steps& steps) { Edit("mnuViewMatrix", steps); }
    /// Presses the button with that caption in the next dialog.
    void Choose(const std::string& caption);
    /// Runs the steps in the next dialog instead.
    void OnDialog(const Steps& steps);

    /// A control of the window that the steps run in.
    template <class Widget>
    Widget& Part(const std::string& name) const {
        auto* widget = Form->findChild<Widget*>(QString::fromStdString(name));
        if (widget == nullptr) {
            throw std::runtime_error("no control " + name);
        }
        return *widget;
    }
    QPushButton& Command(const std::string& name) const { return Part<QPushButton>(name); }
    [[nodiscard]] std::string Shown(const std::string& box) const {
        return Part<QLineEdit>(box).text().toStdString();
    }
    [[nodiscard]] std::string Caption(const std::string& label) const {
        return Part<QLabel>(label).text().toStdString();
    }

    /// Moves the focus to a box of the window and types over its text.
    void Put(const std::string& box, const std::string& text) const;
    /// Clicks a button of the window; once closed, the steps must not touch it again.
    void Press(const std::string& button, int times = 1) const;
    /// Presses a key, types a text on what has the focus.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void Keys(const std::string& text) const;
    /// Presses a button by the underlined letter of its caption.
    void Mnemonic(const std::string& button) const;
    /// What a key that is still down sends: three presses more.
    void Repeat(Qt::Key key) const;
    /// What is selected in the box that has the focus.
    [[nodiscard]] std::string Selected() const;
    [[nodiscard]] std::string Focus() const;

    [[nodiscard]] std::vector<std::string> Tasks() const;
    [[nodiscard]] std::vector<std::string> Resources() const;
    /// "resource|task|time|tool|cost"
    [[nodiscard]] std::vector<std::string> Matrix() const;

    QDialog* Form = nullptr;
};

}  // namespace quarnel02::test
