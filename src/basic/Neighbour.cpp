#include "basic/Neighbour.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <exception>
#include <random>
#include <utility>

#include "basic/ScopeGuard.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr std::string_view kStem = ".quarnel02-";
constexpr std::size_t kRandomLetters = 6;
constexpr int kMostTries = 100;

fs::path DirectoryOf(const fs::path& target) {
    return target.parent_path().empty() ? fs::path(".") : target.parent_path();
}

std::string Template(const fs::path& target) {
    return (target.parent_path() / (std::string(kStem) + std::string(kRandomLetters, 'X')))
        .string();
}

std::string UnusedName(const fs::path& target) {
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    static std::random_device source;
    std::uniform_int_distribution<std::size_t> any(0, letters.size() - 1);
    std::string name = Template(target);
    std::generate(name.end() - kRandomLetters, name.end(), [&] { return letters[any(source)]; });
    return name;
}

bool IsNeighbourName(const std::string& name) {
    return name.size() == kStem.size() + kRandomLetters && name.starts_with(kStem) &&
           std::all_of(name.end() - kRandomLetters, name.end(),
                       [](unsigned char c) { return std::isalnum(c) != 0; });
}

/// Gives a nameless file the first name that is free. False where the system cannot.
bool GiveName(const Descriptor& file, const fs::path& target, std::string& name) {
    const std::string self = "/proc/self/fd/" + std::to_string(file.Number());
    for (int attempt = 0; attempt < kMostTries; ++attempt) {
        const std::string chosen = UnusedName(target);
        if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, chosen.c_str(), AT_SYMLINK_FOLLOW) == 0) {
            name = chosen;
            return true;
        }
        if (errno != EEXIST) {
            return false;
        }
    }
    return false;
}

/// Whether the file is a left one: an ordinary file of this user that no program holds.
bool IsLeft(const Descriptor& file) {
    struct stat status {};
    return file.Number() >= 0 && ::fstat(file.Number(), &status) == 0 && S_ISREG(status.st_mode) &&
           status.st_uid == ::geteuid() && ::flock(file.Number(), LOCK_EX | LOCK_NB) == 0;
}

}  // namespace

Neighbour::Neighbour(fs::path target, std::string_view content, const Ownership& ownership)
    : m_target(std::move(target)), m_ownership(ownership) {
    const FailureGuard remove([this] { Remove(); });
    if (!MakeNameless(content)) {
        MakeNamed(content);
    }
}

void Neighbour::Remove() {
    if (!m_name.empty()) {
        ::unlink(m_name.c_str());
    }
}

bool Neighbour::MakeNameless(std::string_view content) {
#ifdef O_TMPFILE
    m_file =
        Descriptor(::open(DirectoryOf(m_target).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
    if (m_file.Number() < 0) {
        return false;
    }
    ::flock(m_file.Number(), LOCK_EX | LOCK_NB);
    Fill(content);
    return GiveName(m_file, m_target, m_name);
#else
    return false;
#endif
}

void Neighbour::MakeNamed(std::string_view content) {
    for (int attempt = 0; attempt < kMostTries; ++attempt) {
        m_name = Template(m_target);
        m_file = Descriptor(::mkostemp(m_name.data(), O_CLOEXEC));
        if (m_file.Number() < 0) {
            m_name.clear();
            ThrowFileError("write", m_target, errno);
        }
        ::flock(m_file.Number(), LOCK_EX);
        struct stat status {};
        if (::fstat(m_file.Number(), &status) == 0 && status.st_nlink > 0) {
            Fill(content);
            return;
        }
        // Another program took it for a left one before it was locked.
    }
    ThrowFileError("write", m_target, EBUSY);
}

/// Owner, group and mode are tried: some file systems know only one of each.
void Neighbour::Fill(std::string_view content) {
    WriteAll(m_file.Number(), content, m_target);
    if (m_ownership.SameOwner) {
        [[maybe_unused]] const int tried =
            ::fchown(m_file.Number(), m_ownership.Owner, m_ownership.Group);
    }
    ::fchmod(m_file.Number(), m_ownership.Mode);
    if (::fsync(m_file.Number()) != 0) {
        ThrowFileError("write", m_target, errno);
    }
}

bool Neighbour::IsAsAsked() const {
    struct stat status {};
    return ::fstat(m_file.Number(), &status) == 0 &&
           (status.st_mode & 07777U) == m_ownership.Mode &&
           (!m_ownership.SameOwner ||
            (status.st_uid == m_ownership.Owner && status.st_gid == m_ownership.Group));
}

void Neighbour::TakePlaceOf(const fs::path& target) {
    if (::rename(m_name.c_str(), target.c_str()) != 0) {
        ThrowFileError("replace", m_target, errno);
    }
    m_name.clear();
}

fs::path Neighbour::Keep() {
    return std::exchange(m_name, {});
}

fs::path PutAside(const fs::path& file) {
    std::string name = Template(file);
    const Descriptor place(::mkostemp(name.data(), O_CLOEXEC));
    if (place.Number() < 0 || ::rename(file.c_str(), name.c_str()) != 0) {
        const int code = errno;
        if (place.Number() >= 0) {
            ::unlink(name.c_str());
        }
        ThrowFileError("replace", file, code);
    }
    return name;
}

void RemoveLeftNeighbours(const fs::path& target) noexcept {
    try {
        for (const auto& entry : fs::directory_iterator(DirectoryOf(target))) {
            if (!IsNeighbourName(entry.path().filename().string())) {
                continue;
            }
            const Descriptor file(
                ::open(entry.path().c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
            if (IsLeft(file)) {
                ::unlink(entry.path().c_str());
            }
        }
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
        // Meant: they are removed another time.
    }
}

}  // namespace quarnel02
