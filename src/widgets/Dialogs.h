#pragma once

#include <QWidget>
#include <string>

#include "basic/Immovable.h"
#include "shell/MainForm.h"

namespace quarnel02 {

/// The modal boxes, titled with the application's name. Enter presses the button that has the
/// focus; held down it answers nothing.
void ShowMessageBox(QWidget* parent, const std::string& text, MessageIcon icon);
/// The proposed answer has the focus; Escape and the close box answer nothing.
bool AskYesNoBox(QWidget* parent, const std::string& question, MessageIcon icon, Answer proposed);
/// The answer as one line (OneLine); "" when cancelled.
std::string AskTextBox(QWidget* parent, const std::string& prompt, const std::string& title,
                       const std::string& proposal);

/// Takes the hourglass away while it lives, for a dialog in the middle of a longer operation.
class PlainPointer : Immovable {
  public:
    PlainPointer();
    ~PlainPointer();

  private:
    int m_hourglasses = 0;
};

}  // namespace quarnel02
