#include "commands/IncomingModel.h"

#include <algorithm>
#include <array>
#include <exception>
#include <system_error>

#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "basic/ScopeGuard.h"
#include "commands/LoadModel.h"
#include "shell/HeadlessForm.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr const char* kDirectory = "Incoming";

/// What a store may keep beside a database.
constexpr std::array kCompanions = {"-journal", "-wal", "-shm"};

fs::path Companion(const fs::path& database, const char* suffix) {
    fs::path companion = database;
    return companion += suffix;
}

void Rename(const fs::path& from, const fs::path& to, const fs::path& meant) {
    std::error_code failure;
    fs::rename(from, to, failure);
    if (failure) {
        throw RunTimeError(ErrorKind::FileAccess, "The working copy " + PathText(meant) +
                                                      " cannot be replaced: " + failure.message() +
                                                      ". Check the rights of its directory.");
    }
}

/// A journal is found by its database's name, so it moves along; first the database, so that a
/// program killed between them leaves a database without a name rather than a journal that would
/// be played back into another one.
void MoveDatabase(const fs::path& from, const fs::path& to) {
    Rename(from, to, from);
    for (const char* suffix : kCompanions) {
        std::error_code ignored;
        fs::rename(Companion(from, suffix), Companion(to, suffix), ignored);
    }
}

void RemoveCompanions(const fs::path& database) {
    std::error_code ignored;
    for (const char* suffix : kCompanions) {
        fs::remove(Companion(database, suffix), ignored);
    }
}

bool IsThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

bool HasCompanion(const fs::path& database) {
    return std::any_of(kCompanions.begin(), kCompanions.end(),
                       [&](const char* suffix) { return IsThere(Companion(database, suffix)); });
}

/// The database gets a second name and keeps its first one until another takes that, so that there
/// is one under it whatever fails. Where the file system knows no second names, and for one with a
/// journal, it moves. Whether it is still in its place.
bool PutAside(const fs::path& database, const fs::path& old) {
    std::error_code failure;
    if (!HasCompanion(database)) {
        fs::create_hard_link(database, old, failure);
        if (!failure) {
            return true;
        }
    }
    MoveDatabase(database, old);
    return false;
}

/// `old` is in place again, whatever has come there.
void BringBack(const fs::path& old, const fs::path& place) {
    RemoveCompanions(place);
    MoveDatabase(old, place);
}

void RemoveDatabase(const fs::path& database) {
    std::error_code ignored;
    fs::remove(database, ignored);
    RemoveCompanions(database);
}

/// No network can be made of what has been entered; parameters and demand are there to be seen.
bool IsFaultOfModel(const RunTimeError& error) {
    return error.Kind() == ErrorKind::NoCurrentRecord || error.Kind() == ErrorKind::Overflow;
}

/// Another model is in place now: until it is shown, what the form shows is not to reach it.
void ShowOther(MainForm& form) {
    form.ShowBeforeUse({});
    bool seen = false;
    const FailureGuard not_shown([&] {
        if (!seen) {
            form.ShowBeforeUse([&form] { ShowOther(form); });
        }
    });
    try {
        ShowLoadedModel(form);
    } catch (const RunTimeError& error) {
        if (IsFaultOfModel(error)) {
            ShowDemand(form);
            seen = true;
        }
        throw;
    }
}

std::string Replaced(std::string text, const std::string& what, const std::string& with) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at)) {
        text.replace(at, what.size(), with);
        at += with.size();
    }
    return text;
}

}  // namespace

void ShowLoadedModel(MainForm& form) {
    LoadModel(form);
    ShowDemand(form);
}

IncomingModel::IncomingModel(MainForm& form)
    : m_form(form), m_directory(form.Copy().File(kDirectory)) {
    std::error_code failure;
    fs::remove_all(m_directory, failure);
    if (!fs::create_directory(m_directory, failure) || failure) {
        throw RunTimeError(ErrorKind::FileAccess, PathText(m_directory) +
                                                      " cannot be made: " + failure.message() +
                                                      ". Allow writing to the directory it is in.");
    }
    fs::permissions(m_directory, fs::perms::owner_all, failure);
}

IncomingModel::~IncomingModel() {
    try {
        std::error_code ignored;
        fs::remove_all(m_directory, ignored);
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
        // Meant: without memory it is left to the next model, or the next start.
    }
}

fs::path IncomingModel::Path() const {
    return m_directory / m_form.Copy().Path().filename();
}

void IncomingModel::Try(const std::string& name) const {
    HeadlessForm trial(m_directory);
    try {
        ShowLoadedModel(trial);
    } catch (const RunTimeError& error) {
        const std::string text = Replaced(error.what(), PathText(Path()), name);
        throw RunTimeError(error.Kind(),
                           text.find(name) == std::string::npos ? name + ": " + text : text);
    }
}

void IncomingModel::TakePlace() {
    const fs::path place = m_form.Copy().Path();
    const fs::path old = m_form.Copy().OldPath();
    const bool had_old = IsThere(place);
    bool in_place = false;
    if (had_old) {
        RemoveDatabase(old);
        in_place = PutAside(place, old);
    }
    try {
        Rename(Path(), place, place);
        in_place = false;
        ShowOther(m_form);
    } catch (const std::exception&) {
        if (in_place) {
            RemoveDatabase(old);
        } else if (had_old) {
            BringBack(old, place);
        }
        if (had_old) {
            ShowOther(m_form);
        }
        throw;
    }
    RemoveDatabase(old);
}

void IncomingModel::CleanUp(const MainForm& form) {
    std::error_code ignored;
    fs::remove_all(form.Copy().File(kDirectory), ignored);
    const fs::path old = form.Copy().OldPath();
    if (IsThere(old) && !IsThere(form.Copy().Path())) {
        MoveDatabase(old, form.Copy().Path());
    }
    RemoveDatabase(old);
}

}  // namespace quarnel02
