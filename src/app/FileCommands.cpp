#include "app/FileCommands.h"

#include <exception>
#include <filesystem>
#include <system_error>

#include "app/ModelPath.h"
#include "basic/Files.h"
#include "fixed/LoadModel.h"
#include "model/ModelFile.h"
#include "shell/Demand.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr const char* kConfiguration = "Marrowgate.cfg";
constexpr const char* kTemplate = "blank.seq";
constexpr const char* kWorkingCopy = "working.seq";

constexpr const char* kSaveFirst = "Do you want to save your changes first?";
constexpr const char* kNewFailed =
    "Error creating working file.  Causes: 1) blank.seq file missing from app root directory, "
    "2) working.seq is currently open in Access";
constexpr const char* kSaveFailed =
    "Could not save this file.  Possible cause: working.seq is open in Access, or is missing / "
    "invalid";

std::string TitleFor(const std::string& file) {
    return file + " - " + kApplicationTitle;
}

/// A journal left by a killed program would be played back into the new working copy.
void RemoveJournals(const fs::path& workingCopy) {
    std::error_code ignored;
    for (const char* suffix : {"-journal", "-wal", "-shm"}) {
        fs::remove(workingCopy.string() + suffix, ignored);
    }
}

void ReplaceWorkingCopy(const MainForm& form, const fs::path& source) {
    const fs::path working_copy = form.InApplicationDirectory(kWorkingCopy);
    CopyWhole(source, working_copy);
    RemoveJournals(working_copy);
    std::error_code ignored;
    fs::permissions(working_copy, fs::perms::owner_read | fs::perms::owner_write,
                    fs::perm_options::add, ignored);
}

void ForgetFile(MainForm& form) {
    form.CurrentDir.clear();
    form.CurrentFile.clear();
}

void CopyToCurrentFile(MainForm& form) {
    form.CloseModel();
    CopyWhole(form.InApplicationDirectory(kWorkingCopy),
              ModelPath(form.CurrentDir, form.CurrentFile));
}

/// Whether the file is a model; says what is wrong when it is not.
bool IsModel(MainForm& form, const std::string& path) {
    try {
        CheckModelFile(path, path);
        return true;
    } catch (const std::exception& error) {
        form.ShowMessage(error.what(), MessageIcon::Critical);
        return false;
    }
}

}  // namespace

void ShowLoadedModel(MainForm& form) {
    LoadModel(form);
    form.ClearDemand();
    form.ShowDemandSum("", {});
    ListDemand(form);
}

FileCommands::FileCommands(MainForm& form, FileDialog& dialog)
    : m_form(form), m_dialog(dialog), m_recent(form.InApplicationDirectory(kConfiguration)) {}

void FileCommands::StartUp() {
    ForgetFile(m_form);
    LoadWorkingCopyFrom(m_form.InApplicationDirectory(kTemplate));
}

void FileCommands::LoadWorkingCopyFrom(const fs::path& source) {
    m_form.CloseModel();
    ReplaceWorkingCopy(m_form, source);
    ShowLoadedModel(m_form);
    m_form.Changed = false;
}

bool FileCommands::AskToSave() {
    if (m_form.Changed && m_form.AskYesNo(kSaveFirst, MessageIcon::Information, Answer::Yes)) {
        Save();
    }
    return true;
}

bool FileCommands::Exit() {
    return AskToSave();
}

bool FileCommands::HasUnsavedWork() noexcept {
    return m_form.Changed;
}

std::vector<KeptModel> FileCommands::KeptModels() const {
    return {};
}

void FileCommands::Recover(const KeptModel& kept) {
    AskToSave();
    ForgetFile(m_form);
    m_form.SetTitle(kApplicationTitle);
    LoadWorkingCopyFrom(kept.Path);
}

void FileCommands::New() {
    AskToSave();
    try {
        ForgetFile(m_form);
        m_form.SetTitle(kApplicationTitle);
        LoadWorkingCopyFrom(m_form.InApplicationDirectory(kTemplate));
    } catch (const std::exception&) {
        m_form.ShowMessage(kNewFailed, MessageIcon::Critical);
    }
}

void FileCommands::Open() {
    AskToSave();
    m_dialog.SetForm(true);
    m_dialog.ShowModal();
    if (!m_dialog.FileName.empty()) {
        OpenFile({ModelPath(m_dialog.FilePath, m_dialog.FileName), m_dialog.FilePath,
                  m_dialog.FileName});
    }
}

void FileCommands::OpenRecent(const std::string& caption) {
    AskToSave();
    const std::string entry = m_recent.EntryFor(caption);
    if (!entry.empty()) {
        OpenFile({entry, DirectoryPart(entry), FileNamePart(entry)});
    }
}

void FileCommands::OpenFile(const ChosenFile& chosen) {
    if (!IsModel(m_form, chosen.Path)) {
        return;
    }
    m_form.CurrentDir = chosen.Directory;
    m_form.CurrentFile = chosen.Name;
    m_form.SetTitle(TitleFor(m_form.CurrentFile));
    m_recent.Add(m_form.CurrentDir, m_form.CurrentFile);
    LoadWorkingCopyFrom(chosen.Path);
}

void FileCommands::Save() {
    if (m_form.CurrentFile.empty() || m_form.CurrentDir.empty()) {
        SaveAs();
        m_form.Changed = false;
        return;
    }
    try {
        CopyToCurrentFile(m_form);
        m_recent.Add(m_form.CurrentDir, m_form.CurrentFile);
        m_form.Changed = false;
    } catch (const std::exception&) {
        m_form.ShowMessage(kSaveFailed, MessageIcon::Critical);
    }
}

void FileCommands::SaveAs() {
    ProposeFile();
    m_dialog.SetForm(false);
    m_dialog.ShowModal();
    if (m_dialog.FileName.empty()) {
        return;
    }
    try {
        m_form.CurrentDir = m_dialog.FilePath;
        m_form.CurrentFile = m_dialog.FileName;
        CopyToCurrentFile(m_form);
        ShowLoadedModel(m_form);
        m_recent.Add(m_form.CurrentDir, m_form.CurrentFile);
        m_form.Changed = false;
    } catch (const std::exception&) {
        m_form.ShowMessage(kSaveFailed, MessageIcon::Critical);
    }
}

void FileCommands::ProposeFile() {
    if (m_form.CurrentDir.empty()) {
        m_form.CurrentDir = PathText(m_form.ApplicationDirectory());
    }
    if (m_form.CurrentFile.empty()) {
        m_form.CurrentFile = m_form.Text(TextBox::txtProduct);
    }
    m_dialog.FilePath = m_form.CurrentDir;
    m_dialog.FileName = m_form.CurrentFile;
}

}  // namespace quarnel02
