#pragma once

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "basic/Files.h"

namespace quarnel02::test {

/// Names in a directory, in order, to see that nothing strays there.
inline std::vector<std::string> NamesIn(const std::filesystem::path& directory) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(directory)) {
        names.push_back(PathText(entry.path().filename()));
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// Permission bits of a file, links followed.
inline unsigned PermissionsOf(const std::filesystem::path& file) {
    return static_cast<unsigned>(std::filesystem::status(file).permissions());
}

inline void SetPermissions(const std::filesystem::path& file, unsigned bits) {
    std::filesystem::permissions(file, static_cast<std::filesystem::perms>(bits));
}

/// The rights of an ordinary user while the object lives, also when the tests run as root.
class OrdinaryUser {
  public:
    OrdinaryUser() {
        if (m_wasRoot) {
            m_done = ::setresuid(kNobody, kNobody, 0) == 0;
        }
    }
    ~OrdinaryUser() {
        if (m_wasRoot && m_done) {
            m_done = ::setresuid(0, 0, 0) != 0;
        }
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    OrdinaryUser(OrdinaryUser&&) = delete;
    OrdinaryUser& operator=(OrdinaryUser&&) = delete;

  private:
    static constexpr uid_t kNobody = 65534;
    bool m_wasRoot = ::geteuid() == 0;
    bool m_done = false;
};

/// Files cannot grow beyond a size while the object lives: as on a full disk, writing fails.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    FileSizeLimit(FileSizeLimit&&) = delete;
    FileSizeLimit& operator=(FileSizeLimit&&) = delete;

  private:
    rlimit m_before{};
    void (*m_handler)(int);
};

/// The mask for the permissions of new files while the object lives.
class FileMask {
  public:
    explicit FileMask(mode_t mask) : m_before(::umask(mask)) {}
    ~FileMask() { ::umask(m_before); }
    FileMask(const FileMask&) = delete;
    FileMask& operator=(const FileMask&) = delete;
    FileMask(FileMask&&) = delete;
    FileMask& operator=(FileMask&&) = delete;

  private:
    mode_t m_before;
};

}  // namespace quarnel02::test
