#include "sheets/SheetFile.h"

#include "basic/Files.h"
#include "basic/Limits.h"
#include "basic/RunTimeError.h"

namespace fs = std::filesystem;

namespace quarnel02 {

std::string ReadSheetFile(const fs::path& path) {
    std::error_code unknown;
    const std::uintmax_t bytes = fs::file_size(path, unknown);
    if (!unknown && bytes > limits::kSheetFile) {
        RefuseLargeSheet(path);
    }
    return ReadFile(path);
}

void RefuseLargeSheet(const fs::path& path) {
    throw RunTimeError(ErrorKind::NotAModel,
                       PathText(path) + " is too large for a workbook of a model.");
}

}  // namespace quarnel02
