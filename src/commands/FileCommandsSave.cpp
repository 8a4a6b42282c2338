// Save and Save As of the File menu.
#include <exception>

#include "basic/FailureText.h"
#include "basic/Files.h"
#include "commands/FileCommands.h"
#include "commands/ModelPath.h"
#include "model/InputDigest.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr const char* kSaveFailed =
    "Could not save this file.  Possible cause: working.seq is open in Access, or is missing / "
    "invalid";
constexpr const char* kOverwrite = "File already exists.  Overwrite?";

}  // namespace

void FileCommands::Save() {
    static_cast<void>(TrySave());
}

void FileCommands::SaveAs() {
    static_cast<void>(TrySaveAs());
}

/// False when the model was to be saved and was not; a cancelled dialog is no failure.
bool FileCommands::TrySave() {
    if (m_current.File.empty() || m_current.Dir.empty()) {
        const bool done = TrySaveAs();
        m_current.Changed = false;
        return done;
    }
    return TakeProposal() && SaveToFile(false);
}

bool FileCommands::TrySaveAs() {
    return !AskForFile() || SaveToFile(true);
}

/// False after Cancel.
bool FileCommands::AskForFile() {
    ProposeFile();
    m_dialog.SetForm(false);
    m_dialog.ShowModal();
    if (m_dialog.FileName.empty()) {
        return false;
    }
    m_current.Dir = m_dialog.FilePath;
    m_current.File = m_dialog.FileName;
    m_current.Format = m_dialog.Format;
    m_proposed = false;
    return true;
}

void FileCommands::ProposeFile() {
    if (m_current.Dir.empty()) {
        m_current.Dir = PathText(m_form.Copy().Directory());
    }
    if (m_current.File.empty()) {
        m_current.File = m_form.Text(TextBox::txtProduct);
        m_proposed = true;
    }
    m_dialog.FilePath = m_current.Dir;
    m_dialog.FileName = WithSavedExtension(m_current.File);
    m_dialog.Format = m_current.Format;
}

/// A proposed name stands for a model file, like one typed into the dialog. Nobody has agreed yet
/// to replace a file of that name.
bool FileCommands::TakeProposal() {
    if (!m_proposed) {
        return true;
    }
    const std::string name = WithModelExtension(m_current.File);
    if (FileExists(ModelPath(m_current.Dir, name)) &&
        !m_form.AskYesNo(kOverwrite, MessageIcon::Information, Answer::No)) {
        return false;
    }
    m_current.File = name;
    m_proposed = false;
    return true;
}

bool FileCommands::SaveToFile(bool reload) {
    const fs::path target = ModelPath(m_current.Dir, m_current.File);
    try {
        const auto obstacle = ObstacleTo(target, m_current.Format);
        if (obstacle && obstacle->IsFinal) {
            return SaveElsewhere(PathText(target), *obstacle);
        }
        if (obstacle && !MayReplace(PathText(target), *obstacle)) {
            return false;
        }
        SaveModel(m_form.Copy().Path(), target, m_current.Format);
        NoteBaseline(InputDigest(m_form.OpenWorkingCopy()));
        if (reload) {
            ShowLoadedModel(m_form);
        }
    } catch (const std::exception& error) {
        m_form.ShowMessage(std::string(kSaveFailed) + "\n\n" + FailureText(error),
                           MessageIcon::Critical);
        return false;
    }
    m_current.Changed = false;
    m_savedName = m_current.File;
    AddToRecent();
    return true;
}

bool FileCommands::MayReplace(const std::string& target, const Obstacle& obstacle) {
    return m_form.AskYesNo(target + " " + obstacle.Why + " Replace the file?",
                           MessageIcon::Question, Answer::No);
}

/// False when the model is in no file then.
bool FileCommands::SaveElsewhere(const std::string& target, const Obstacle& obstacle) {
    return m_form.AskYesNo(target + " " + obstacle.Why + " Save the model as another file?",
                           MessageIcon::Question, Answer::Yes) &&
           AskForFile() && SaveToFile(true);
}

}  // namespace quarnel02
