#pragma once

#include <array>
#include <string>
#include <vector>

#include "shell/MainForm.h"

namespace quarnel02 {

/// A main form without windows: boxes and the demand list are plain texts; what it is told goes
/// nowhere, and nobody answers what it asks.
class HeadlessForm : public MainForm {
  public:
    using MainForm::MainForm;

    [[nodiscard]] std::string Text(TextBox box) const override;
    void SetText(TextBox box, const std::string& text) override;

    void SetTitle(const std::string& /*title*/) override {}

    [[nodiscard]] int DemandCount() const override {
        return static_cast<int>(m_demandLines.size());
    }
    [[nodiscard]] int SelectedDemand() const override { return m_selectedDemand; }
    void SelectDemand(int line) override;
    /// Throws std::out_of_range for a line that the list does not have.
    [[nodiscard]] std::string DemandLine(int line) const override;
    void ClearDemand() override;
    void AddDemandLine(const std::string& text) override;
    /// The selection goes with its line.
    void RemoveDemandLine(int line) override;
    void ShowDemandSum(const std::string& /*text*/, Colour /*colour*/) override {}

    void ShowMessage(const std::string& /*text*/, MessageIcon /*icon*/) override {}
    /// No.
    bool AskYesNo(const std::string& /*question*/, MessageIcon /*icon*/,
                  Answer /*proposed*/) override {
        return false;
    }
    /// As cancelled.
    std::string InputBox(const std::string& /*prompt*/, const std::string& /*title*/,
                         const std::string& /*proposal*/) override {
        return {};
    }

    void ShowStatus(const std::string& /*text*/) override {}
    void SetStatus(const std::string& /*text*/) override {}
    void SetProgress(int /*done*/, int /*total*/) override {}
    void Look() override {}
    void HideStatus() override {}
    void Notice(const std::string& /*text*/) override {}
    /// Only records it, for the caller to let the program end.
    void EndProgram() override { m_ended = true; }
    [[nodiscard]] bool ProgramHasEnded() const { return m_ended; }

    void DoEvents() override {}
    void SetBusy(bool /*busy*/) override {}
    void StartProgram(const std::string& /*commandLine*/) override {}

  private:
    std::array<std::string, kTextBoxes> m_texts;
    std::vector<std::string> m_demandLines;
    int m_selectedDemand = -1;
    bool m_ended = false;
};

}  // namespace quarnel02
