#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "commands/FileCommands.h"
#include "commands/ModelPath.h"
#include "files/ModelFile.h"
#include "model/InputDigest.h"
#include "support/ScriptedForm.h"
#include "support/TestModel.h"

namespace quarnel02::test {

/// A file dialog that is answered beforehand. What it is shown with goes to the form's events:
/// "dialog[open|path|name]" or "dialog[save|path|name]", for Access
/// "dialog[save|path|name|access]".
class ScriptedDialog : public FileDialog {
  public:
    struct Answer {
        std::string Path;  ///< both "" for Cancel
        std::string Name;
        std::optional<ModelFormat> Format = {};  ///< nothing leaves it as it is
    };

    explicit ScriptedDialog(ScriptedForm& form) : m_form(form) {}

    std::deque<Answer> Answers;

    void SetForm(bool isOpen) override { OpenMode = isOpen; }
    void ShowModal() override {
        m_form.Events.push_back(std::string("dialog[") + (OpenMode ? "open" : "save") + "|" +
                                FilePath + "|" + FileName +
                                (Format == ModelFormat::Access ? "|access]" : "]"));
        FilePath = Answers.at(0).Path;
        FileName = Answers.at(0).Name;
        Format = Answers.at(0).Format.value_or(Format);
        Answers.pop_front();
    }

  private:
    ScriptedForm& m_form;
};

/// The commands of the File menu over an application directory, and a directory of the user's.
struct CommandDesk {
    explicit CommandDesk(const std::string& script = "")
        : Application(script), Form(Application.Directory()) {
        ShowLoadedModel(Form);
        Form.Events.clear();
    }

    /// A model file of the user's; `script` runs after the schema. Gives its full path.
    std::string MakeUserModel(const std::string& name, const std::string& script = "") const {
        std::filesystem::create_directories(UserFile(name).parent_path());
        MakeModelFile(UserFile(name), ReadFile(QUARNEL02_SCHEMA_FILE) + script);
        return PathText(UserFile(name));
    }

    [[nodiscard]] std::filesystem::path UserFile(const std::string& name) const {
        return User.Path() / name;
    }
    [[nodiscard]] std::string UserDirectory() const { return PathText(User.Path()); }
    [[nodiscard]] std::string ApplicationDirectory() const {
        return PathText(Application.Directory());
    }

    /// Makes the model one that was opened from, or saved to, a file of the user's.
    void UseFile(const std::string& name) {
        Commands.Current().Dir = UserDirectory();
        Commands.Current().File = name;
    }

    [[nodiscard]] std::filesystem::path Configuration() const {
        return Application.File("Marrowgate.cfg");
    }
    [[nodiscard]] std::string RecentText() const {
        return std::filesystem::exists(Configuration()) ? ReadFile(Configuration()) : "";
    }
    void SetRecent(const std::vector<std::string>& entries) const {
        std::string text;
        for (const std::string& entry : entries) {
            text += entry + "\n";
        }
        WriteFile(Configuration(), text);
    }

    [[nodiscard]] std::string WorkingDays() const {
        return Application.RowsOf("SELECT Days FROM Gen;", 1).at(0);
    }

    /// What stands for the inputs of the working copy, or of a model file.
    [[nodiscard]] std::uint64_t WorkingInputs() const { return InputDigest(Application.Open()); }
    [[nodiscard]] static std::uint64_t InputsOf(const std::filesystem::path& model) {
        return InputDigest(Database::Open(model));
    }

    TestModel Application;
    TemporaryDirectory User;
    ScriptedForm Form;
    ScriptedDialog Dialog{Form};
    FileCommands Commands{Form, Dialog};
};

}  // namespace quarnel02::test
