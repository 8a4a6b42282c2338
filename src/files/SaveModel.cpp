#include "files/SaveModel.h"

#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "files/ForeignFile.h"
#include "files/ModelChecks.h"
#include "files/ModelImage.h"
#include "model/Connection.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

/// A checked copy of the working copy.
ModelImage ImageOf(const fs::path& workingCopy) {
    const std::string name = PathText(workingCopy);
    RequireOrdinaryFile(workingCopy, name);
    return Translating(name, [&] { return ModelImage(workingCopy, name); });
}

}  // namespace

void SaveModel(const fs::path& workingCopy, const fs::path& target) {
    WriteWhole(target, ImageOf(workingCopy).Content(PathText(workingCopy)));
}

void KeepModel(const fs::path& workingCopy, const fs::path& target) {
    WritePrivate(target, ImageOf(workingCopy).Content(PathText(workingCopy)));
}

std::vector<std::string> ForeignObjects(const fs::path& target) {
    if (KindOfFile(target) != FileKind::Ordinary) {
        return {};
    }
    try {
        return ForeignFile(target, PathText(target)).ObjectsBeyondModel();
    } catch (const RunTimeError& error) {
        if (error.Kind() == ErrorKind::DatabaseLocked) {
            throw;
        }
        return {};
    }
}

}  // namespace quarnel02
