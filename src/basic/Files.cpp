#include "basic/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <system_error>

#include "basic/Descriptor.h"
#include "basic/RunTimeError.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

/// Opens without waiting for the other end of a pipe.
int OpenAtOnce(const fs::path& path, int how) {
    return ::open(path.c_str(), how | O_NONBLOCK | O_CLOEXEC, 0666);
}

/// Nothing for what is no ordinary file.
std::optional<std::size_t> SizeOf(const Descriptor& file) {
    struct stat status {};
    const bool ordinary = ::fstat(file.Number(), &status) == 0 && S_ISREG(status.st_mode);
    return ordinary ? std::optional(static_cast<std::size_t>(status.st_size)) : std::nullopt;
}

bool IsPipe(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return fs::is_fifo(status) || fs::is_socket(status);
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
    constexpr std::size_t piece = 65536;
    if (KindOfFile(path) == FileKind::Directory) {
        ThrowFileError("read", path, EISDIR);
    }
    const Descriptor file(OpenAtOnce(path, O_RDONLY));
    if (file.Number() < 0) {
        ThrowFileError("read", path, errno);
    }
    const auto size = SizeOf(file);
    if (!size) {
        ThrowNotOrdinary("read", path);
    }
    std::string content;
    content.reserve(*size + 2 * piece);  // growing would take it twice
    std::size_t length = 0;
    for (;;) {
        content.resize(length + piece);
        const auto got = ::read(file.Number(), content.data() + length, piece);
        if (got < 0 && errno != EINTR) {
            ThrowFileError("read", path, errno);
        }
        if (got == 0) {
            break;
        }
        length += got < 0 ? 0 : static_cast<std::size_t>(got);
    }
    content.resize(length);
    return content;
}

void WriteFile(const fs::path& path, std::string_view content) {
    if (IsPipe(path)) {
        ThrowNotOrdinary("write", path);
    }
    Descriptor file(OpenAtOnce(path, O_WRONLY | O_CREAT | O_TRUNC));
    if (file.Number() < 0) {
        ThrowFileError("write", path, errno);
    }
    WriteAll(file.Number(), content, path);
    if (file.Close() != 0) {
        ThrowFileError("write", path, errno);
    }
}

void CopyWhole(const fs::path& source, const fs::path& target) {
    WriteWhole(target, ReadFile(source));
}

void CopyPrivate(const fs::path& source, const fs::path& target) {
    WritePrivate(target, ReadFile(source));
}

}  // namespace quarnel02
