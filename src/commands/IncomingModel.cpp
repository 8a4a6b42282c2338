#include "commands/IncomingModel.h"

#include <array>
#include <exception>
#include <system_error>

#include "basic/Files.h"
#include "basic/RunTimeError.h"
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

void RemoveDatabase(const fs::path& database) {
    std::error_code ignored;
    fs::remove(database, ignored);
    for (const char* suffix : kCompanions) {
        fs::remove(Companion(database, suffix), ignored);
    }
}

bool IsThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
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
    std::error_code ignored;
    fs::remove_all(m_directory, ignored);
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
    if (had_old) {
        RemoveDatabase(old);
        MoveDatabase(place, old);
    }
    try {
        Rename(Path(), place, place);
        ShowLoadedModel(m_form);
    } catch (const std::exception&) {
        if (had_old) {
            RemoveDatabase(place);
            MoveDatabase(old, place);
            ShowLoadedModel(m_form);
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
