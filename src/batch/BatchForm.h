#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "shell/HeadlessForm.h"

namespace quarnel02 {

/// What the command line says in place of the dialogs.
struct BatchAnswers {
    std::optional<std::string> Demand;        ///< units per year, as typed
    std::optional<std::string> StationLimit;  ///< parallel stations, as typed
    bool Progress = false;                    ///< status texts go to standard error
};

/// The main form of a solve without windows: answers every question from the command line and
/// keeps what the system says.
class BatchForm : public HeadlessForm {
  public:
    BatchForm(std::filesystem::path applicationDirectory, BatchAnswers answers);

    /// A demand given on the command line stands in place of the model's list, so that it is
    /// asked for, and answered, however many rows the model has.
    [[nodiscard]] int DemandCount() const override;

    void ShowMessage(const std::string& text, MessageIcon icon) override;
    bool AskYesNo(const std::string& question, MessageIcon icon, Answer proposed) override;
    /// Says the warning on standard error and goes on.
    bool SolveAnyway(const std::string& warning) override;
    std::string InputBox(const std::string& prompt, const std::string& title,
                         const std::string& proposal) override;
    void StartProgram(const std::string& /*commandLine*/) override {}
    void ShowStatus(const std::string& text) override { SetStatus(text); }
    void SetStatus(const std::string& text) override;
    void Notice(const std::string& text) override;

    [[nodiscard]] const std::vector<std::string>& Messages() const { return m_messages; }

  private:
    BatchAnswers m_answers;
    std::vector<std::string> m_messages;
};

}  // namespace quarnel02
