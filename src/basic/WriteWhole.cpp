#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "basic/Files.h"
#include "basic/Immovable.h"
#include "basic/Neighbour.h"
#include "basic/RunTimeError.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

using FileStatus = struct stat;

std::optional<FileStatus> StatusOf(const fs::path& path) {
    FileStatus status{};
    return ::stat(path.c_str(), &status) == 0 ? std::optional(status) : std::nullopt;
}

mode_t ModeOfNewFiles() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666U & ~mask;
}

void FlushDirectory(const fs::path& file) {
    const fs::path name = file.parent_path().empty() ? fs::path(".") : file.parent_path();
    const Descriptor directory(::open(name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.Number() >= 0) {
        ::fsync(directory.Number());
    }
}

/// A symbolic link is followed, so that the file it names is replaced, or made, and not the link.
fs::path FinalTarget(const fs::path& target) {
    constexpr int most_links = 40;
    fs::path real = target;
    std::error_code error;
    for (int link = 0; link < most_links && fs::is_symlink(real, error); ++link) {
        real = real.parent_path() / fs::read_symlink(real, error);
    }
    return real;
}

/// Only an ordinary file may be replaced: no directory, no device, no nameless path.
void RequireFileName(const fs::path& real, const fs::path& target) {
    if (target.empty() || !target.has_filename()) {
        throw RunTimeError(ErrorKind::FileAccess, "Cannot write the file: \"" + PathText(target) +
                                                      "\" is not a file name.");
    }
    const FileKind kind = KindOfFile(real);
    if (kind == FileKind::Directory) {
        ThrowFileError("write", target, EISDIR);
    }
    if (kind == FileKind::Special) {
        ThrowNotOrdinary("write", target);
    }
}

/// Root may write to everything, but means a file without any right to write to stay.
void RequireUnprotected(const fs::path& real, const FileStatus& status, const fs::path& target) {
    if ((status.st_mode & 0222U) != 0 &&
        ::faccessat(AT_FDCWD, real.c_str(), W_OK, AT_EACCESS) == 0) {
        return;
    }
    throw RunTimeError(ErrorKind::FileAccess,
                       PathText(target) +
                           " is write-protected. Allow writing to it first, or "
                           "choose another name.");
}

/// The journals of a database, out of the way while its file is replaced: beside other content
/// they would be played back into it. They come back unless Drop is called.
class Journals : Immovable {
  public:
    explicit Journals(const fs::path& database) : Journals() {
        for (const char* suffix : {"-journal", "-wal", "-shm"}) {
            const fs::path journal = database.string() + suffix;
            std::error_code error;
            if (fs::is_regular_file(fs::symlink_status(journal, error))) {
                m_aside.emplace_back(journal, PutAside(journal));
            }
        }
    }
    ~Journals() {
        for (const auto& [journal, aside] : m_aside) {
            ::rename(aside.c_str(), journal.c_str());
        }
    }

    void Drop() {
        for (const auto& each : m_aside) {
            ::unlink(each.second.c_str());
        }
        m_aside.clear();
    }

  private:
    Journals() = default;  ///< delegated to, so that a failing construction brings them back too

    std::vector<std::pair<fs::path, fs::path>> m_aside;
};

/// Room is taken first, so that a full disk leaves the file as it was.
void TakeRoom(const Descriptor& file, off_t size, const FileStatus& before,
              const fs::path& target) {
    if (size <= before.st_size) {
        return;
    }
    const int failure = ::posix_fallocate(file.Number(), 0, size);
    if (failure != 0) {
        [[maybe_unused]] const int tried = ::ftruncate(file.Number(), before.st_size);
        ThrowFileError("write", target, failure);
    }
}

void Overwrite(Descriptor& file, std::string_view content, const fs::path& target) {
    WriteAll(file.Number(), content, target);
    if (::ftruncate(file.Number(), static_cast<off_t>(content.size())) != 0 ||
        ::fsync(file.Number()) != 0 || file.Close() != 0) {
        ThrowFileError("write", target, errno);
    }
}

void WriteInto(const fs::path& real, std::string_view content, const FileStatus& before,
               Neighbour& neighbour, const fs::path& target) {
    Descriptor file(::open(real.c_str(), O_WRONLY | O_CLOEXEC));
    if (file.Number() < 0) {
        ThrowFileError("write", target, errno);
    }
    TakeRoom(file, static_cast<off_t>(content.size()), before, target);
    Journals journals(real);
    try {
        Overwrite(file, content, target);
    } catch (const RunTimeError& error) {
        throw RunTimeError(error.Kind(), std::string(error.what()) +
                                             " The file is damaged now; a whole copy is " +
                                             PathText(neighbour.Keep()) + ".");
    }
    journals.Drop();
}

void Rename(Neighbour& neighbour, const fs::path& real) {
    Journals journals(real);
    neighbour.TakePlaceOf(real);
    journals.Drop();
    FlushDirectory(real);
}

void ReplaceUsersFile(const fs::path& real, std::string_view content, const FileStatus& before,
                      const fs::path& target) {
    RequireUnprotected(real, before, target);
    Neighbour neighbour(
        real, content,
        {static_cast<mode_t>(before.st_mode & 07777U), true, before.st_uid, before.st_gid});
    if (before.st_nlink == 1 && neighbour.IsAsAsked()) {
        Rename(neighbour, real);
        return;
    }
    FlushDirectory(real);
    WriteInto(real, content, before, neighbour, target);
}

}  // namespace

void WriteWhole(const fs::path& target, std::string_view content) {
    const fs::path real = FinalTarget(target);
    RequireFileName(real, target);
    if (const auto before = StatusOf(real)) {
        ReplaceUsersFile(real, content, *before, target);
    } else {
        Neighbour neighbour(real, content, {ModeOfNewFiles()});
        Rename(neighbour, real);
    }
    RemoveLeftNeighbours(real);
}

void WritePrivate(const fs::path& target, std::string_view content) {
    const fs::path real = FinalTarget(target);
    RequireFileName(real, target);
    Neighbour neighbour(real, content, {0600});
    Rename(neighbour, real);
    RemoveLeftNeighbours(real);
}

}  // namespace quarnel02
