// Save and Save As of the File menu.
#include <exception>
#include <utility>

#include "basic/FailureText.h"
#include "basic/Files.h"
#include "commands/FileCommands.h"
#include "commands/ModelPath.h"
#include "model/InputDigest.h"
#include "sheets/UndoStack.h"
#include "shell/StoredScenarios.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr const char* kSaveFailed =
    "Could not save this file.  Possible cause: working.seq is open in Access, or is missing / "
    "invalid";
constexpr const char* kOverwrite = "File already exists.  Overwrite?";
constexpr const char* kWithoutScenarios =
    "Save the Access database without the scenarios? They stay in this program until another model "
    "is opened, and are then kept under File > Recover.";

constexpr const char* kChangedByOthers =
    " has been changed by another program since it was last opened or saved here. Replace the "
    "file, "
    "and lose those changes? With No, it stays; Save As saves this model as another file.";

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
        m_form.RequireShown();
        const auto obstacle = ObstacleTo(target, m_current.Format);
        if (obstacle && obstacle->IsFinal) {
            return SaveElsewhere(PathText(target), *obstacle);
        }
        if (obstacle && !MayReplace(PathText(target), *obstacle)) {
            return false;
        }
        if (!reload && WasChangedByOthers(target) &&
            !m_form.AskYesNo(PathText(target) + kChangedByOthers, MessageIcon::Question,
                             Answer::No)) {
            return false;
        }
        if (LosesScenarios(target)) {
            if (ProposeOwnFormat(PathText(target))) {
                return SaveInOwnFormat();
            }
            if (!m_form.AskYesNo(kWithoutScenarios, MessageIcon::Question, Answer::No)) {
                return false;
            }
            m_withoutScenarios = target;
        }
        SaveModel(m_form.Copy().Path(), target, m_current.Format);
        m_seen = {target, MarkOf(target)};
        NoteSaved();
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

/// Scenarios have no place in an Access database; who has agreed once is not asked at every save.
bool FileCommands::LosesScenarios(const fs::path& target) const {
    return m_current.Format == ModelFormat::Access && m_withoutScenarios != target &&
           !ReadScenarios(m_form.OpenWorkingCopy()).empty();
}

bool FileCommands::ProposeOwnFormat(const std::string& target) {
    const std::size_t count = ReadScenarios(m_form.OpenWorkingCopy()).size();
    return m_form.AskYesNo(target + " is to be an Access database, which cannot hold the " +
                               CountText(count, "scenario") +
                               " of this model. Save the model as a file of this program, which "
                               "holds all of it?",
                           MessageIcon::Question, Answer::Yes);
}

/// False when the model is in no file then.
bool FileCommands::SaveInOwnFormat() {
    const ModelFormat before = std::exchange(m_current.Format, ModelFormat::Sqlite);
    if (AskForFile()) {
        return SaveToFile(true);
    }
    m_current.Format = before;
    return false;
}

/// A file that is gone is simply written again.
bool FileCommands::WasChangedByOthers(const fs::path& target) const {
    const auto mark = MarkOf(target);
    return mark && m_seen.Path == target && m_seen.Mark != mark;
}

/// Of what the file holds: scenarios that it lacks are kept when the model is left.
void FileCommands::NoteSaved() {
    const Database database = m_form.OpenWorkingCopy();
    NoteBaseline(m_current.Format == ModelFormat::Access ? DesignDigest(database)
                                                         : InputDigest(database));
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
