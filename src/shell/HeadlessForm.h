#pragma once

#include <array>
#include <string>

#include "shell/MainForm.h"

namespace quarnel02 {

/// A main form without windows: boxes are plain texts, the demand list is the table of the
/// working copy. What it is asked and told is for the forms derived from it.
class HeadlessForm : public MainForm {
  public:
    using MainForm::MainForm;

    [[nodiscard]] std::string Text(TextBox box) const override;
    void SetText(TextBox box, const std::string& text) override;

    /// Takes the number of demand rows from the working copy; no line is selected afterwards.
    void ListDemand();
    [[nodiscard]] int DemandCount() const override { return m_demandCount; }
    [[nodiscard]] int SelectedDemand() const override { return m_selectedDemand; }
    void SelectDemand(int line) override;

    void DoEvents() override {}
    void SetBusy(bool /*busy*/) override {}

  private:
    std::array<std::string, kTextBoxes> m_texts;
    int m_demandCount = 0;
    int m_selectedDemand = -1;
};

}  // namespace quarnel02
