#include "sheets/WorkbookFile.h"

#include <cctype>

#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "sheets/CsvDirectory.h"
#include "sheets/OdsReader.h"
#include "sheets/SheetFile.h"
#include "sheets/XlsxReader.h"
#include "sheets/ZipArchive.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

bool IsCsv(const fs::path& path) {
    std::string extension = PathText(path.extension());
    for (char& c : extension) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return extension == ".csv";
}

Workbook ReadArchive(const ZipArchive& archive) {
    if (archive.Has("content.xml")) {
        return ReadOds(archive);
    }
    if (archive.Has("[Content_Types].xml")) {
        return ReadXlsx(archive);
    }
    throw DamagedWorkbook("is neither an .xlsx nor an .ods file");
}

Workbook ReadFileOfSheets(const fs::path& path) {
    const std::string content = ReadSheetFile(path);
    try {
        return ReadArchive(ZipArchive(content));
    } catch (const DamagedWorkbook& damage) {
        throw RunTimeError(ErrorKind::NotAModel,
                           PathText(path) + " cannot be read as a workbook: it " + damage.what() +
                               ". Save it anew as .xlsx or .ods in your spreadsheet program.");
    }
}

}  // namespace

Workbook ReadWorkbook(const fs::path& path) {
    if (KindOfFile(path) == FileKind::Directory) {
        return ReadCsvDirectory(path);
    }
    return IsCsv(path) ? ReadCsvDirectory(path.parent_path()) : ReadFileOfSheets(path);
}

}  // namespace quarnel02
