#include "model/SaveModel.h"

#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "model/Connection.h"
#include "model/FileHead.h"
#include "model/ForeignFile.h"
#include "model/ModelImage.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

/// The working copy's content, checked.
template <class Writer>
void WriteChecked(const fs::path& workingCopy, const Writer& write) {
    const std::string name = PathText(workingCopy);
    RequireOrdinaryFile(workingCopy, name);
    try {
        ModelImage image(workingCopy, name);
        image.Require(name);
        write(image.Content());
    } catch (const SQLite::Exception& error) {
        throw Connection::Translated(error, name);
    }
}

}  // namespace

void SaveModel(const fs::path& workingCopy, const fs::path& target) {
    WriteChecked(workingCopy, [&](std::string_view content) { WriteWhole(target, content); });
}

void KeepModel(const fs::path& workingCopy, const fs::path& target) {
    WriteChecked(workingCopy, [&](std::string_view content) { WritePrivate(target, content); });
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
