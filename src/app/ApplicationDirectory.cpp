#include "app/ApplicationDirectory.h"

#include <QFileInfo>
#include <system_error>

#include "app/QtPaths.h"
#include "basic/RunTimeError.h"
#include "commands/Template.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr const char* kTemplate = "blank.seq";

bool IsWritable(const fs::path& directory) {
    return QFileInfo(ToQString(directory)).isWritable();
}

fs::path SharedDirectory(const fs::path& programDirectory) {
    return programDirectory.parent_path() / "share" / "quarnel02";
}

bool IsFile(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

/// From the installed one, or, where none is left, from what the program carries.
void PutTemplate(const fs::path& programDirectory, const fs::path& place) {
    for (const fs::path& directory : {programDirectory, SharedDirectory(programDirectory)}) {
        if (IsFile(directory / kTemplate)) {
            CopyWhole(directory / kTemplate, place);
            return;
        }
    }
    MakeTemplate(place);
}

void MakeDirectory(const fs::path& directory) {
    std::error_code failure;
    fs::create_directories(directory, failure);
    if (failure) {
        throw RunTimeError(ErrorKind::FileAccess,
                           PathText(directory) + " cannot be made: " + failure.message() +
                               ". Make this directory, or allow writing to the one above it.");
    }
}

}  // namespace

fs::path PrepareApplicationDirectory(const fs::path& programDirectory,
                                     const fs::path& dataDirectory) {
    if (IsFile(programDirectory / kTemplate) && IsWritable(programDirectory)) {
        return programDirectory;
    }
    MakeDirectory(dataDirectory);
    if (!IsFile(dataDirectory / kTemplate)) {
        PutTemplate(programDirectory, dataDirectory / kTemplate);
    }
    return dataDirectory;
}

fs::path ExamplesDirectory(const fs::path& programDirectory) {
    std::error_code ignored;
    for (const fs::path& directory : {programDirectory, SharedDirectory(programDirectory)}) {
        if (fs::is_directory(directory / "examples", ignored)) {
            return directory / "examples";
        }
    }
    return {};
}

}  // namespace quarnel02
