#include "app/ApplicationDirectory.h"

#include <QFileInfo>
#include <system_error>

#include "app/QtPaths.h"
#include "basic/RunTimeError.h"
#include "commands/Template.h"
#include "shell/WorkingCopy.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

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
        const fs::path installed = WorkingCopy(directory).Template();
        if (IsFile(installed)) {
            CopyWhole(installed, place);
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
    if (IsFile(WorkingCopy(programDirectory).Template()) && IsWritable(programDirectory)) {
        return programDirectory;
    }
    MakeDirectory(dataDirectory);
    const fs::path place = WorkingCopy(dataDirectory).Template();
    if (!IsFile(place)) {
        PutTemplate(programDirectory, place);
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
