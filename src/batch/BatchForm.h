#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "shell/HeadlessForm.h"

namespace quarnel02 {

/// The main form of a solve without windows: keeps what the system says.
class BatchForm : public HeadlessForm {
  public:
    /// With `progress`, status texts go to standard error.
    BatchForm(std::filesystem::path applicationDirectory, bool progress);

    void ShowMessage(const std::string& text, MessageIcon icon) override;
    /// Says the warning on standard error and goes on.
    bool SolveAnyway(const std::string& warning) override;
    void ShowStatus(const std::string& text) override { SetStatus(text); }
    void SetStatus(const std::string& text) override;
    void Notice(const std::string& text) override;

    [[nodiscard]] const std::vector<std::string>& Messages() const { return m_messages; }

  private:
    bool m_progress;
    std::vector<std::string> m_messages;
};

}  // namespace quarnel02
