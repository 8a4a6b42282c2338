#pragma once

#include <cstdint>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "basic/FileMark.h"
#include "commands/CurrentModel.h"
#include "commands/EditHistory.h"
#include "commands/FileDialog.h"
#include "commands/IncomingModel.h"
#include "commands/InputWatch.h"
#include "commands/KeptWork.h"
#include "commands/RecentFiles.h"
#include "commands/SessionState.h"
#include "files/SaveModel.h"
#include "shell/MainForm.h"

namespace quarnel02 {

/// The commands of the File menu. Each runs to its end inside the event that calls it; what a
/// command does not report itself comes out as a RunTimeError.
///
/// Work that no file holds is never dropped: before a command replaces or leaves it, it is kept in
/// the directory "Recovered" of the application directory.
class FileCommands {
  public:
    FileCommands(MainForm& form, FileDialog& dialog);

    /// Keeps what the last session left, makes the working copy anew from the template, loads it,
    /// and offers the kept work when the last session did not end in order. Throws when the
    /// template is missing or the working copy cannot be written.
    void StartUp();

    void New();
    void Open();
    /// An untitled model is saved as by SaveAs, and then counts as saved even if that was
    /// cancelled; that is meant.
    void Save();
    void SaveAs();
    /// `caption` is that of the chosen recent-file item.
    void OpenRecent(const std::string& caption);
    /// Opens the model that the program was started with, after StartUp: `file` is a full path.
    /// Work that StartUp has just recovered stays instead, which is said.
    void OpenGiven(const std::filesystem::path& file);
    /// Opens a file that a further start of the program was given; asks to save first, as Open
    /// does.
    void OpenAnother(const std::filesystem::path& file);

    /// Opens a file as an untitled model, which no Save writes back to it.
    void OpenExample(const std::filesystem::path& file);

    /// Asks to save where there are changes; part of New, Open, OpenRecent, Recover and Exit.
    /// False when saving failed, or was refused: the command that asked must not go on.
    bool AskToSave();

    /// Ends the session in order: asks to save, keeps work that no file holds and notes on the disk
    /// that nothing was left behind. False when the program must stay open.
    [[nodiscard]] bool Exit();

    /// Whether the working copy differs from the file, or template, that it came from or was last
    /// saved to. Cheap while nothing is written; not to be called inside a transaction. Never
    /// throws.
    [[nodiscard]] bool HasUnsavedWork() noexcept;

    /// Work that was kept because it was about to be replaced or left, newest first.
    [[nodiscard]] std::vector<KeptModel> KeptModels() const;
    /// Loads kept work as an untitled model; asks to save first, as Open does.
    void Recover(const KeptModel& kept);

    /// Whether the model has no file of its own yet; a proposed name is none.
    [[nodiscard]] bool IsUntitled() const { return m_current.File.empty() || m_proposed; }
    /// Name of the model's file, also a proposed one.
    [[nodiscard]] const std::string& File() const { return m_current.File; }
    /// Name of the file that was written since it was last asked for; "" when none was.
    [[nodiscard]] std::string TakeSavedName() { return std::exchange(m_savedName, {}); }

    [[nodiscard]] RecentFiles& Recent() { return m_recent; }
    [[nodiscard]] CurrentModel& Current() { return m_current; }
    /// Undo steps of the working copy; every command that loads another model begins it anew.
    [[nodiscard]] EditHistory& History() { return m_history; }

  private:
    struct ChosenFile {
        std::string Path;
        std::string Directory;
        std::string Name;
    };
    struct SeenFile {
        std::filesystem::path Path;
        std::optional<FileMark> Mark;
    };

    [[nodiscard]] std::filesystem::path Template() const;
    bool KeepLastSession(const std::optional<SessionState>& last);
    bool SetWorkAside(const std::exception& why);
    void OfferKeptWork();
    [[nodiscard]] bool Leave();
    void LoadTemplate();
    [[nodiscard]] std::optional<ModelFormat> Read(const std::filesystem::path& source);
    void LoadKept(const std::filesystem::path& file);
    void OpenFile(const ChosenFile& chosen);
    void OpenPath(const std::string& path);
    void NoteBaseline(std::optional<std::uint64_t> saved) noexcept;
    void WriteState() noexcept;
    [[nodiscard]] bool TrySave();
    [[nodiscard]] bool TrySaveAs();
    [[nodiscard]] bool AskForFile();
    [[nodiscard]] bool SaveToFile(bool reload);
    [[nodiscard]] bool MayReplace(const std::string& target, const Obstacle& obstacle);
    [[nodiscard]] bool SaveElsewhere(const std::string& target, const Obstacle& obstacle);
    [[nodiscard]] bool LosesScenarios(const std::filesystem::path& target) const;
    [[nodiscard]] bool ProposeOwnFormat(const std::string& target);
    [[nodiscard]] bool SaveInOwnFormat();
    void NoteSaved();
    [[nodiscard]] bool WasChangedByOthers(const std::filesystem::path& target) const;
    [[nodiscard]] bool TakeProposal();
    void AddToRecent();
    void ForgetFile();
    void BecomeUntitled();
    /// What the Save As dialog begins with; it is kept even if the dialog is cancelled.
    void ProposeFile();

    MainForm& m_form;
    FileDialog& m_dialog;
    CurrentModel m_current;
    RecentFiles m_recent;
    KeptWork m_kept;
    InputWatch m_inputs;
    EditHistory m_history;
    SessionState m_state;
    SeenFile m_seen;          ///< the model's file as it was read or written last
    std::string m_savedName;  ///< of the file written last, until somebody asks
    /// The Access database that the user saves although it holds no scenarios.
    std::optional<std::filesystem::path> m_withoutScenarios;
    bool m_proposed = false;  ///< the current file was proposed and never confirmed
};

}  // namespace quarnel02
