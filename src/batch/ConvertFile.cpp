#include "batch/ConvertFile.h"

#include <algorithm>
#include <cctype>
#include <system_error>

#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "batch/Interruption.h"
#include "files/ModelFile.h"
#include "files/ReadModel.h"
#include "files/SaveModel.h"
#include "files/SqlText.h"
#include "sheets/ModelSheets.h"
#include "sheets/UndoStack.h"
#include "sheets/WorkbookFile.h"
#include "shell/StoredScenarios.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

enum class Kind { Model, Xlsx, Ods, CsvFile, Directory, Sql, Unknown };

std::string ExtensionOf(const fs::path& path) {
    std::string extension = PathText(path.extension());
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return extension;
}

Kind KindOf(const fs::path& path) {
    const std::string extension = ExtensionOf(path);
    if (KindOfFile(path) == FileKind::Directory || extension.empty()) {
        return Kind::Directory;
    }
    constexpr std::pair<const char*, Kind> kinds[] = {
        {".mdb", Kind::Model}, {".xlsx", Kind::Xlsx},   {".ods", Kind::Ods},
        {".sql", Kind::Sql},   {".csv", Kind::CsvFile},
    };
    for (const auto& [known, kind] : kinds) {
        if (extension == known) {
            return kind;
        }
    }
    return Kind::Unknown;
}

[[noreturn]] void Refuse(const fs::path& path, const std::string& why) {
    throw RunTimeError(ErrorKind::FileAccess, PathText(path) + " " + why);
}

void RequireWritable(const ConvertRequest& request, Kind kind) {
    switch (kind) {
        case Kind::Ods:
            Refuse(request.To, "cannot be written: .ods files are only read. Name an .xlsx file.");
        case Kind::CsvFile:
            Refuse(request.To,
                   "cannot be written alone: a model is several .csv files. Name a directory.");
        case Kind::Unknown:
            Refuse(request.To,
                   "has an extension of no kind that is written. Name an .mdb, .xlsx or .sql file, "
                   "or a directory for .csv files.");
        default:
            break;
    }
    if (request.Format && kind != Kind::Model) {
        Refuse(request.To, "is no model file, so --format says nothing about it. Leave it out.");
    }
}

/// The directory of a .csv file stands for it.
fs::path PlaceOf(const fs::path& path) {
    return KindOf(path) == Kind::CsvFile ? fs::absolute(path).parent_path() : path;
}

void RequireOther(const ConvertRequest& request) {
    std::error_code ignored;
    if (fs::equivalent(PlaceOf(request.From), request.To, ignored)) {
        Refuse(request.To, "is what is read, which is never changed. Name another place.");
    }
}

/// In a program without questions nothing is destroyed that was not meant.
void RequireNoObstacle(const fs::path& target, ModelFormat format) {
    if (const auto obstacle = ObstacleTo(target, format)) {
        Refuse(target, obstacle->Why + " Name another file.");
    }
}

void ReadSheets(const fs::path& from, const fs::path& workingCopy) {
    const ModelOfSheets model = TablesOf(ReadWorkbook(from));
    if (!model.Refused.IsEmpty()) {
        throw RunTimeError(ErrorKind::NotAModel,
                           model.Refused.Message(PathText(from) + " was not converted."));
    }
    MakeEmptyModel(workingCopy);
    WriteInputTables(Database::Open(workingCopy), model.Tables);
}

void Read(const fs::path& from, const fs::path& workingCopy) {
    const bool is_there = KindOfFile(from) != FileKind::Missing;
    switch (is_there && !FormatOfFile(from) ? KindOf(from) : Kind::Model) {
        case Kind::Xlsx:
        case Kind::Ods:
        case Kind::CsvFile:
        case Kind::Directory:
            return ReadSheets(from, workingCopy);
        case Kind::Sql:
            return ReadSqlText(from, workingCopy, PathText(from));
        case Kind::Model:
        case Kind::Unknown:
            ReadModel(from, workingCopy, PathText(from));
    }
}

std::string WriteSheets(const fs::path& workingCopy, const fs::path& to, Kind kind) {
    const Workbook workbook = SheetsOf(ReadInputTables(Database::Open(workingCopy)));
    if (kind == Kind::Xlsx) {
        WriteXlsx(to, workbook);
    } else {
        WriteCsvDirectory(to, workbook);
    }
    const Misfits refused = TablesOf(workbook).Refused;
    return refused.IsEmpty() ? ""
                             : refused.Message(PathText(to) +
                                               " is written, but would be refused if it were read "
                                               "back.");
}

/// An Access database has no table of them.
std::string LostScenarios(const fs::path& workingCopy, const fs::path& to, ModelFormat format) {
    const std::size_t count =
        format == ModelFormat::Access ? ReadScenarios(Database::Open(workingCopy)).size() : 0;
    return count == 0 ? ""
                      : PathText(to) + " is written without the " + CountText(count, "scenario") +
                            " of the model, which an Access database cannot hold.";
}

std::string Write(const ConvertRequest& request, const fs::path& workingCopy, Kind kind) {
    if (kind == Kind::Model) {
        const ModelFormat format =
            request.Format.value_or(FormatOfFile(request.To).value_or(ModelFormat::Sqlite));
        RequireNoObstacle(request.To, format);
        SaveModel(workingCopy, request.To, format);
        return LostScenarios(workingCopy, request.To, format);
    }
    if (kind == Kind::Sql) {
        WriteWhole(request.To, SqlTextOf(workingCopy));
        return {};
    }
    return WriteSheets(workingCopy, request.To, kind);
}

}  // namespace

std::string ConvertFile(const ConvertRequest& request) {
    const Kind kind = KindOf(request.To);
    RequireWritable(request, kind);
    RequireOther(request);
    const ScratchDirectory scratch;
    const fs::path working_copy = scratch.Path() / "working.seq";
    Read(request.From, working_copy);
    return Write(request, working_copy, kind);
}

}  // namespace quarnel02
