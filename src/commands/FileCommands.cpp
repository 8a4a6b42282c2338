#include "commands/FileCommands.h"

#include <filesystem>
#include <system_error>

#include "basic/FailureText.h"
#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "commands/ModelPath.h"
#include "commands/Template.h"
#include "files/ModelFile.h"
#include "files/ReadModel.h"
#include "model/InputDigest.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr const char* kConfiguration = "Marrowgate.cfg";
constexpr const char* kState = "session.state";
constexpr const char* kKeptWork = "Recovered";

constexpr const char* kSaveFirst = "Do you want to save your changes first?";
constexpr const char* kNewFailed =
    "Error creating working file.  Causes: 1) blank.seq file missing from app root directory, "
    "2) working.seq is currently open in Access";
constexpr const char* kDidNotEnd =
    "Quarnel02 did not end properly last time. Load the work that was kept?";

std::string TitleFor(const std::string& file) {
    return file + " - " + kApplicationTitle;
}

std::uint64_t DigestOf(const fs::path& model) {
    return InputDigest(Database::Open(model));
}

bool IsEmptyOrMissing(const fs::path& file) {
    std::error_code error;
    return fs::file_size(file, error) == 0 || error;
}

}  // namespace

FileCommands::FileCommands(MainForm& form, FileDialog& dialog)
    : m_form(form),
      m_dialog(dialog),
      m_recent(form.Copy().File(kConfiguration)),
      m_kept(form.Copy().File(kKeptWork)),
      m_inputs(form.Copy().Path()),
      m_history(form.Copy(), m_inputs) {}

fs::path FileCommands::Template() const {
    return m_form.Copy().Template();
}

void FileCommands::StartUp() {
    IncomingModel::CleanUp(m_form);
    RepairTemplate(Template());
    const auto last = ReadSessionState(m_form.Copy().File(kState));
    const bool kept = KeepLastSession(last);
    m_state.OfferKept = last && (last->OfferKept || (kept && !last->Orderly));
    ForgetFile();
    LoadTemplate();
    if (m_state.OfferKept) {
        OfferKeptWork();
    }
}

/// Whether the last session left work that no file held; it is kept now.
bool FileCommands::KeepLastSession(const std::optional<SessionState>& last) {
    if (IsEmptyOrMissing(m_form.Copy().Path())) {
        return false;
    }
    try {
        const bool known = last && last->Saved;
        if (m_inputs.Digest() == (known ? *last->Saved : DigestOf(Template()))) {
            return false;
        }
        static_cast<void>(m_kept.Keep(m_form.Copy().Path()));
        return true;
    } catch (const std::exception& error) {
        return SetWorkAside(error);
    }
}

/// Whatever stands in the way of copying the work, the program starts and the work stays on the
/// disk. Whether it is there as a kept model.
bool FileCommands::SetWorkAside(const std::exception& why) {
    std::string text = "The work of last time cannot be read: " + FailureText(why);
    try {
        const fs::path place = m_kept.SetAside(m_form.Copy().Path());
        if (place.extension() == ".mdb") {
            return true;
        }
        text += " Its file was moved to " + PathText(place) + ".";
    } catch (const std::exception& error) {
        text += " " + FailureText(error);
    }
    m_form.ShowMessage(text, MessageIcon::Information);
    return false;
}

void FileCommands::OfferKeptWork() {
    const std::vector<KeptModel> kept = KeptModels();
    const bool load =
        !kept.empty() && m_form.AskYesNo(kDidNotEnd, MessageIcon::Question, Answer::Yes);
    m_state.OfferKept = false;
    WriteState();
    if (load) {
        Recover(kept.front());
    }
}

bool FileCommands::HasUnsavedWork() noexcept {
    try {
        return !m_state.Saved || m_inputs.Digest() != *m_state.Saved;
    } catch (const std::exception&) {
        return true;
    }
}

std::vector<KeptModel> FileCommands::KeptModels() const {
    return m_kept.List();
}

/// Keeps what no file holds. False when that fails and the user rather stays.
bool FileCommands::Leave() {
    try {
        if (!IsEmptyOrMissing(m_form.Copy().Path()) && HasUnsavedWork()) {
            static_cast<void>(m_kept.Keep(m_form.Copy().Path()));
        }
        return true;
    } catch (const std::exception& error) {
        return m_form.AskYesNo("Work that is in no file cannot be kept: " + FailureText(error) +
                                   "\n\nGo on and lose it?",
                               MessageIcon::Critical, Answer::No);
    }
}

void FileCommands::LoadTemplate() {
    RepairTemplate(Template());
    IncomingModel incoming(m_form);
    CopyPrivate(Template(), incoming.Path());
    CompleteModelFile(incoming.Path());
    incoming.TakePlace();
    m_current.Changed = false;
    m_history.Restart();
    NoteBaseline(DigestOf(m_form.Copy().Path()));
}

/// Reads a model into the working copy and returns its format; nothing when it cannot be read,
/// which is said, or when the user does not want to leave the present one. Everything is then as it
/// was.
std::optional<ModelFormat> FileCommands::Read(const fs::path& source) {
    try {
        RepairTemplate(Template());
        IncomingModel incoming(m_form);
        const ModelFormat format = ReadModel(source, incoming.Path(), PathText(source));
        incoming.Try(PathText(source));
        if (!Leave()) {
            return {};
        }
        incoming.TakePlace();
        m_current.Changed = false;
        m_withoutScenarios.reset();
        m_history.Restart();
        return format;
    } catch (const RunTimeError& error) {
        if (!m_form.ShowsWorkingCopy()) {
            BecomeUntitled();
        }
        m_form.ShowMessage(error.what(), MessageIcon::Critical);
        return {};
    }
}

/// The working copy is whatever a failure has left there, and no file's.
void FileCommands::BecomeUntitled() {
    ForgetFile();
    m_form.SetTitle(kApplicationTitle);
    NoteBaseline(std::nullopt);
}

/// What the inputs were when a file or the template held them; on the disk for the next start.
void FileCommands::NoteBaseline(std::optional<std::uint64_t> saved) noexcept {
    m_state.Saved = saved;
    m_state.Orderly = false;
    WriteState();
}

/// A state that cannot be written leaves an older one, by which the next start keeps too much
/// rather than too little.
void FileCommands::WriteState() noexcept {
    try {
        WriteSessionState(m_form.Copy().File(kState), m_state);
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
    }
}

bool FileCommands::AskToSave() {
    return !m_current.Changed ||
           !m_form.AskYesNo(kSaveFirst, MessageIcon::Information, Answer::Yes) || TrySave();
}

bool FileCommands::Exit() {
    if (!AskToSave() || !Leave()) {
        return false;
    }
    m_state.Orderly = true;
    WriteState();
    return true;
}

void FileCommands::ForgetFile() {
    m_current.Dir.clear();
    m_current.File.clear();
    m_current.Format = ModelFormat::Sqlite;
    m_proposed = false;
}

void FileCommands::New() {
    if (!AskToSave() || !Leave()) {
        return;
    }
    try {
        ForgetFile();
        m_form.SetTitle(kApplicationTitle);
        LoadTemplate();
    } catch (const std::exception&) {
        NoteBaseline(std::nullopt);
        m_form.ShowMessage(kNewFailed, MessageIcon::Critical);
    }
}

void FileCommands::Open() {
    if (!AskToSave()) {
        return;
    }
    m_dialog.SetForm(true);
    m_dialog.ShowModal();
    if (!m_dialog.FileName.empty()) {
        OpenFile({ModelPath(m_dialog.FilePath, m_dialog.FileName), m_dialog.FilePath,
                  m_dialog.FileName});
    }
}

void FileCommands::OpenRecent(const std::string& caption) {
    if (!AskToSave()) {
        return;
    }
    const std::string entry = m_recent.EntryFor(caption);
    if (!entry.empty()) {
        OpenPath(entry);
    }
}

void FileCommands::OpenGiven(const fs::path& file) {
    const std::string path = PathText(file);
    if (HasUnsavedWork()) {
        m_form.ShowMessage(
            path +
                " has not been opened, because the recovered work is in no file yet. "
                "Save it, then open the file with File, Open.",
            MessageIcon::Information);
        return;
    }
    OpenPath(path);
}

void FileCommands::OpenAnother(const fs::path& file) {
    if (AskToSave()) {
        OpenPath(PathText(file));
    }
}

void FileCommands::OpenExample(const fs::path& file) {
    if (!AskToSave() || !Read(file)) {
        return;
    }
    ForgetFile();
    m_form.SetTitle(kApplicationTitle);
    NoteBaseline(DigestOf(m_form.Copy().Path()));
}

void FileCommands::OpenFile(const ChosenFile& chosen) {
    if (m_kept.Holds(chosen.Path)) {
        LoadKept(chosen.Path);
        return;
    }
    const auto mark = MarkOf(chosen.Path);  // before it is read: a change meanwhile is one, too
    const auto format = Read(chosen.Path);
    if (!format) {
        return;
    }
    m_seen = {ModelPath(chosen.Directory, chosen.Name), mark};
    m_current.Format = *format;
    m_current.Dir = chosen.Directory;
    m_current.File = chosen.Name;
    m_proposed = false;
    m_form.SetTitle(TitleFor(m_current.File));
    NoteBaseline(DigestOf(m_form.Copy().Path()));
    AddToRecent();
}

void FileCommands::OpenPath(const std::string& path) {
    OpenFile({path, DirectoryPart(path), FileNamePart(path)});
}

void FileCommands::Recover(const KeptModel& kept) {
    if (AskToSave()) {
        LoadKept(kept.Path);
    }
}

/// Untitled, because kept files go when newer ones come.
void FileCommands::LoadKept(const fs::path& file) {
    if (!Read(file)) {
        return;
    }
    ForgetFile();
    m_form.SetTitle(kApplicationTitle);
    NoteBaseline(DigestOf(Template()));
}

/// The list is a convenience: the command that wanted it is done by now.
void FileCommands::AddToRecent() {
    try {
        m_recent.Add(m_current.Dir, m_current.File);
    } catch (const std::exception& error) {
        m_form.ShowMessage("The list of recent files cannot be kept. " + FailureText(error),
                           MessageIcon::Information);
    }
}

}  // namespace quarnel02
