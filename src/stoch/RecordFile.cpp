#include "stoch/RecordFile.h"

#include <cerrno>
#include <system_error>

#include "basic/Files.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

FileHandle OpenRunFile(const std::filesystem::path& path, const char* mode) {
    FileHandle file(std::fopen(path.c_str(), mode));
    if (!file) {
        ThrowRunFileError(path, *mode == 'w' ? "made" : "read");
    }
    return file;
}

FileHandle MakeRunFile(const std::filesystem::path& path) {
    RequireFree(path);
    return OpenRunFile(path, "wb");
}

void ThrowRunFileError(const std::filesystem::path& path, const char* doing) {
    throw RunTimeError(ErrorKind::FileAccess,
                       "The run file " + PathText(path) + " cannot be " + doing + ": " +
                           std::generic_category().message(errno) +
                           ". Check the space and the rights of the application directory.");
}

}  // namespace quarnel02
