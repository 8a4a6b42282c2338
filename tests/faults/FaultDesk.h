#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "commands/FileCommands.h"
#include "shell/HeadlessForm.h"

namespace quarnel02::test {

/// A form that answers every question so that its command goes on, but for those that would lose
/// something, and keeps what it is told.
class AnsweringForm : public HeadlessForm {
  public:
    using HeadlessForm::HeadlessForm;

    std::vector<std::string> Messages;

    void ShowMessage(const std::string& text, MessageIcon /*icon*/) override {
        Messages.push_back(text);
    }
    bool AskYesNo(const std::string& question, MessageIcon icon, Answer proposed) override;
    std::string InputBox(const std::string& prompt, const std::string& title,
                         const std::string& proposal) override;
};

class AnsweringDialog : public FileDialog {
  public:
    std::filesystem::path Chosen;

    void SetForm(bool isOpen) override { OpenMode = isOpen; }
    void ShowModal() override;
};

/// The program without windows, on an application directory and a directory of the user's that
/// outlive it.
class FaultDesk {
  public:
    /// Both stand in `root`, and are made where they are missing, with the user's files and a
    /// working copy that no file holds.
    explicit FaultDesk(const std::filesystem::path& root);

    [[nodiscard]] static std::filesystem::path ApplicationIn(const std::filesystem::path& root) {
        return root / "application";
    }
    [[nodiscard]] static std::filesystem::path UserIn(const std::filesystem::path& root) {
        return root / "user";
    }
    [[nodiscard]] std::filesystem::path UserFile(const std::string& name) const {
        return UserIn(m_root) / name;
    }

    /// Makes the working copy one that was opened from that file of the user's.
    void UseFile(const std::string& name, ModelFormat format = ModelFormat::Sqlite);
    /// Opens a file of the user's.
    void Open(const std::string& name);
    /// Changes a figure, to a value that the number tells, as the box of the main window does.
    void EnterDays(int number);
    /// The inputs of the working copy.
    [[nodiscard]] std::uint64_t Inputs() const;
    /// Runs a part of a command that stores a whole state, and then says so.
    void Step(const std::function<void()>& part);

    std::function<void()> OnState = [] {};
    AnsweringForm Form;
    AnsweringDialog Dialog;
    FileCommands Commands;

  private:
    std::filesystem::path m_root;
};

/// A command that writes; run with 0, 1, 2... it comes back to the same states every second time.
struct WritingCommand {
    const char* Name;
    std::function<void(FaultDesk& desk, int turn)> Run;
};

const std::vector<WritingCommand>& WritingCommands();

/// What an event of the program says when its command fails; "" when it does not.
std::string FailureOf(const std::function<void()>& command);

/// Whether a file of the user's is whole: a model of either format, a workbook or sheets.
bool IsWhole(const std::filesystem::path& file);

/// The inputs of a model file of either format.
std::uint64_t InputsIn(const std::filesystem::path& model);

}  // namespace quarnel02::test
