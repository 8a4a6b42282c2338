#include "basic/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "basic/RunTimeError.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

[[noreturn]] void ThrowFileError(const std::string& doing, const fs::path& path, int code) {
    const auto kind = code == ENOENT ? ErrorKind::FileNotFound : ErrorKind::FileAccess;
    throw RunTimeError(kind, "Cannot " + doing + " " + PathText(path) + ": " +
                                 std::generic_category().message(code) + ".");
}

/// An open file that is closed again whatever happens.
class Descriptor {
  public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;

    [[nodiscard]] int Number() const { return m_number; }

    int Close() { return m_number < 0 ? 0 : ::close(std::exchange(m_number, -1)); }

  private:
    int m_number;
};

/// A file beside the target that is removed unless it has taken the target's place.
class Beside {
  public:
    explicit Beside(const fs::path& target)
        : m_name((target.parent_path() / ".quarnel02-XXXXXX").string()),
          m_descriptor(::mkstemp(m_name.data())) {
        if (m_descriptor < 0) {
            ThrowFileError("write", target, errno);
        }
    }
    ~Beside() {
        if (!m_name.empty()) {
            ::unlink(m_name.c_str());
        }
    }
    Beside(const Beside&) = delete;
    Beside& operator=(const Beside&) = delete;
    Beside(Beside&&) = delete;
    Beside& operator=(Beside&&) = delete;

    [[nodiscard]] int Release() { return std::exchange(m_descriptor, -1); }

    void TakePlaceOf(const fs::path& target) {
        if (::rename(m_name.c_str(), target.c_str()) != 0) {
            ThrowFileError("replace", target, errno);
        }
        m_name.clear();
    }

  private:
    std::string m_name;
    int m_descriptor;
};

void WriteAll(int descriptor, std::string_view content, const fs::path& target) {
    while (!content.empty()) {
        const auto written = ::write(descriptor, content.data(), content.size());
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            ThrowFileError("write", target, errno);
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
}

/// Permissions for a file that is to stand at `target`: those of the file there now, else the
/// ordinary ones of a new file.
mode_t PermissionsFor(const fs::path& target) {
    struct stat status {};
    if (::stat(target.c_str(), &status) == 0) {
        return status.st_mode & 07777U;
    }
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666U & ~mask;
}

void FlushDirectory(const fs::path& directory) {
    const Descriptor folder(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.Number() >= 0) {
        ::fsync(folder.Number());
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
    if (kind == FileKind::Directory || kind == FileKind::Special) {
        ThrowFileError("write", target, kind == FileKind::Directory ? EISDIR : EINVAL);
    }
}

}  // namespace

std::string PathText(const fs::path& path) {
    const auto text = path.u8string();
    return {text.begin(), text.end()};
}

FileKind KindOfFile(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    switch (status.type()) {
        case fs::file_type::not_found:
            return FileKind::Missing;
        case fs::file_type::regular:
            return FileKind::Ordinary;
        case fs::file_type::directory:
            return FileKind::Directory;
        case fs::file_type::none:
            ThrowFileError("reach", path, error.value());
        default:
            return FileKind::Special;
    }
}

std::string ReadFile(const fs::path& path) {
    if (KindOfFile(path) == FileKind::Directory) {
        ThrowFileError("read", path, EISDIR);
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        ThrowFileError("read", path, errno);
    }
    std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (file.bad()) {
        ThrowFileError("read", path, EIO);
    }
    return content;
}

void WriteFile(const fs::path& path, std::string_view content) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file) {
        ThrowFileError("write", path, errno == 0 ? EIO : errno);
    }
}

void CopyWhole(const fs::path& source, const fs::path& target) {
    const std::string content = ReadFile(source);
    const fs::path real = FinalTarget(target);
    RequireFileName(real, target);
    Beside copy(real);
    Descriptor file(copy.Release());
    WriteAll(file.Number(), content, target);
    if (::fchmod(file.Number(), PermissionsFor(real)) != 0 || ::fsync(file.Number()) != 0 ||
        file.Close() != 0) {
        ThrowFileError("write", target, errno);
    }
    copy.TakePlaceOf(real);
    FlushDirectory(real.parent_path().empty() ? fs::path(".") : real.parent_path());
}

TemporaryDirectory::TemporaryDirectory() {
    std::error_code error;
    const fs::path place = fs::temp_directory_path(error);
    if (error) {
        throw RunTimeError(ErrorKind::FileAccess, "There is no directory for temporary files: " +
                                                      error.message() + ". Set TMPDIR to one.");
    }
    std::string name = (place / "quarnel02-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        ThrowFileError("make the temporary directory", name, errno);
    }
    m_path = name;
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

}  // namespace quarnel02
