#include "commands/Template.h"

#include <system_error>

#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "files/ModelFile.h"

namespace fs = std::filesystem;

namespace quarnel02 {

void MakeTemplate(const fs::path& file) {
    fs::path neighbour = file;
    neighbour += ".new";
    MakeEmptyModel(neighbour);
    std::error_code failure;
    fs::rename(neighbour, file, failure);
    if (failure) {
        throw RunTimeError(ErrorKind::FileAccess, "The template " + PathText(file) +
                                                      " cannot be replaced: " + failure.message() +
                                                      ". Remove what stands in its place.");
    }
}

void RepairTemplate(const fs::path& file) {
    try {
        CheckModelFile(file, PathText(file));
    } catch (const RunTimeError& error) {
        if (error.Kind() == ErrorKind::NotAModel) {
            MakeTemplate(file);
        }
    }
}

}  // namespace quarnel02
