#include "app/ApplicationDirectory.h"

#include <QFileInfo>
#include <system_error>

#include "app/QtPaths.h"
#include "basic/RunTimeError.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr const char* kTemplate = "blank.seq";

bool IsWritable(const fs::path& directory) {
    return QFileInfo(ToQString(directory)).isWritable();
}

fs::path InstalledTemplate(const fs::path& programDirectory) {
    const fs::path shared = programDirectory.parent_path() / "share" / "quarnel02";
    for (const fs::path& directory : {programDirectory, shared}) {
        if (fs::exists(directory / kTemplate)) {
            return directory / kTemplate;
        }
    }
    throw RunTimeError(ErrorKind::FileNotFound,
                       std::string(kTemplate) + " is neither in " + PathText(programDirectory) +
                           " nor in " + PathText(shared) + ". Install Quarnel02 again.");
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
    if (fs::exists(programDirectory / kTemplate) && IsWritable(programDirectory)) {
        return programDirectory;
    }
    MakeDirectory(dataDirectory);
    if (!fs::exists(dataDirectory / kTemplate)) {
        CopyWhole(InstalledTemplate(programDirectory), dataDirectory / kTemplate);
    }
    return dataDirectory;
}

}  // namespace quarnel02
