#include "sheets/SheetFile.h"

#include "basic/Files.h"
#include "basic/RunTimeError.h"

namespace fs = std::filesystem;

namespace quarnel02 {

std::string ReadSheetFile(const fs::path& path) {
    constexpr std::uintmax_t most_bytes = 64'000'000;
    std::error_code unknown;
    const std::uintmax_t bytes = fs::file_size(path, unknown);
    if (!unknown && bytes > most_bytes) {
        throw RunTimeError(ErrorKind::NotAModel,
                           PathText(path) + " is too large for a workbook of a model.");
    }
    return ReadFile(path);
}

}  // namespace quarnel02
