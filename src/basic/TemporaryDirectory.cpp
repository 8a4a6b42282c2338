#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <exception>
#include <map>
#include <mutex>
#include <system_error>
#include <utility>

#include "basic/Descriptor.h"
#include "basic/Files.h"
#include "basic/RunTimeError.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr std::string_view kDirectoryStem = "quarnel02.";
constexpr std::string_view kRandomPart = "XXXXXX";

/// The directories of this process, each locked: one that nobody holds was left by a program that
/// was killed.
struct Held {
    std::mutex Mutex;
    std::map<fs::path, Descriptor> Locks;
};

Held& TheHeld() {
    static Held held;
    return held;
}

Descriptor OpenDirectory(const fs::path& path) {
    return Descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// Whether it is this user's, and still there once it is locked.
bool IsOurs(const Descriptor& directory) {
    struct stat status {};
    return ::fstat(directory.Number(), &status) == 0 && status.st_uid == ::geteuid() &&
           status.st_nlink > 0;
}

bool IsTemporaryName(const std::string& name) {
    return name.size() == kDirectoryStem.size() + kRandomPart.size() &&
           name.starts_with(kDirectoryStem);
}

void RemoveIfLeft(const fs::path& path) {
    const Descriptor directory = OpenDirectory(path);
    if (directory.Number() >= 0 && IsOurs(directory) &&
        ::flock(directory.Number(), LOCK_EX | LOCK_NB) == 0) {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
}

/// Removes what killed programs of this user have left. Never fails.
void RemoveLeft(const fs::path& place) {
    try {
        for (const auto& entry : fs::directory_iterator(place)) {
            if (IsTemporaryName(entry.path().filename().string())) {
                RemoveIfLeft(entry.path());
            }
        }
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
        // Meant: they are removed another time.
    }
}

/// Nothing where another program took the new directory for a left one before it was locked.
bool Hold(const fs::path& path) {
    Descriptor directory = OpenDirectory(path);
    if (directory.Number() < 0) {
        return false;
    }
    ::flock(directory.Number(), LOCK_EX);
    if (!IsOurs(directory)) {
        return false;
    }
    const std::lock_guard lock(TheHeld().Mutex);
    TheHeld().Locks.insert_or_assign(path, std::move(directory));
    return true;
}

fs::path MakeDirectory(const fs::path& place) {
    constexpr int most_tries = 100;
    std::string name;
    for (int attempt = 0; attempt < most_tries; ++attempt) {
        name = (place / (std::string(kDirectoryStem) + std::string(kRandomPart))).string();
        if (::mkdtemp(name.data()) == nullptr) {
            ThrowFileError("make the temporary directory", name, errno);
        }
        if (Hold(name)) {
            return name;
        }
    }
    ThrowFileError("make the temporary directory", name, EBUSY);
}

}  // namespace

TemporaryDirectory::TemporaryDirectory() {
    std::error_code error;
    const fs::path place = fs::temp_directory_path(error);
    if (error) {
        throw RunTimeError(ErrorKind::FileAccess, "There is no directory for temporary files: " +
                                                      error.message() + ". Set TMPDIR to one.");
    }
    RemoveLeft(place);
    m_path = MakeDirectory(place);
}

TemporaryDirectory::~TemporaryDirectory() {
    try {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
        // Meant: without memory it is left to the next program.
    }
    const std::lock_guard lock(TheHeld().Mutex);
    TheHeld().Locks.erase(m_path);
}

}  // namespace quarnel02
