#include "basic/Descriptor.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "basic/Files.h"
#include "basic/RunTimeError.h"

namespace fs = std::filesystem;

namespace quarnel02 {

Descriptor::Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    if (this != &other) {
        Close();
        m_number = std::exchange(other.m_number, -1);
    }
    return *this;
}

int Descriptor::Close() {
    return m_number < 0 ? 0 : ::close(std::exchange(m_number, -1));
}

void ThrowFileError(const std::string& doing, const fs::path& path, int code) {
    const std::string cannot = "Cannot " + doing + " " + PathText(path);
    if (code == ENOSPC || code == EDQUOT) {
        throw RunTimeError(ErrorKind::FileAccess,
                           cannot + ". The disk is full: free some space, or choose another disk.");
    }
    const auto kind = code == ENOENT ? ErrorKind::FileNotFound : ErrorKind::FileAccess;
    throw RunTimeError(kind, cannot + ": " + std::generic_category().message(code) + ".");
}

void ThrowNotOrdinary(const std::string& doing, const fs::path& path) {
    throw RunTimeError(ErrorKind::FileAccess, "Cannot " + doing + " " + PathText(path) +
                                                  ": it is not an ordinary file. Remove it, or "
                                                  "choose another name.");
}

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

}  // namespace quarnel02
