#include "basic/FileMark.h"

#include <sys/stat.h>

namespace quarnel02 {

std::optional<FileMark> MarkOf(const std::filesystem::path& file) noexcept {
    constexpr std::int64_t nanoseconds_per_second = 1'000'000'000;
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0) {
        return {};
    }
    return FileMark{status.st_dev, status.st_ino, status.st_size,
                    status.st_mtim.tv_sec * nanoseconds_per_second + status.st_mtim.tv_nsec};
}

}  // namespace quarnel02
