#pragma once

#include <cstdint>

#include "shell/MainForm.h"

namespace quarnel02 {

/// Click of a shift button, "1 Shift" to "3 Shifts": asks for the annual demand and an optional
/// limit on parallel stations, keeps the answers in the form's fixed-demand state, regenerates
/// and costs the pathways and so designs and reports the line. A cancelled or empty answer ends
/// the command. After the questions the report of an earlier solve is removed, and the model is
/// checked before anything else is touched: one without tasks or resources gets a message.
/// Throws TypeMismatch for a demand or limit that is no number, Overflow for a limit beyond 16
/// bits or a negative demand, DivisionByZero for a demand of 0, NotAModel for a record that cannot
/// be (RequireUsableModel), and what the solve throws.
void cmdContinuous_Click(MainForm& form, std::int16_t index);

}  // namespace quarnel02
