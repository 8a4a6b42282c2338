#pragma once

#include "commands/CurrentModel.h"
#include "shell/MainForm.h"

namespace quarnel02 {

/// What txtProb holds when it has lost the focus: its text with "%" behind it, unless it ends so
/// already or is empty.
std::string WithPercentSign(const std::string& probability);

/// The buttons under the demand list. They act on the boxes txtVolume and txtProb and on the row
/// behind the selected line, write the table Demand at once, refill the list and mark the model as
/// changed. Add and Update do nothing while a box is empty, Update and Delete without a selected
/// line. Add and Update throw TypeMismatch for a text that is no number and Overflow for one that
/// cannot be (nothing is then written, and the boxes stay as they are); Delete ends without a
/// message when it fails.
void cmdAdd_Click(MainForm& form, CurrentModel& current);
void cmdUpdate_Click(MainForm& form, CurrentModel& current);
void cmdDelete_Click(MainForm& form, CurrentModel& current);

}  // namespace quarnel02
