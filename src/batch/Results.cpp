#include "batch/Results.h"

#include <chrono>
#include <cstdlib>
#include <system_error>
#include <utility>
#include <vector>

#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "files/SaveModel.h"
#include "picture/SvgWriter.h"
#include "report/ComposeReport.h"
#include "shell/Reports.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr const char* kOut = "--out";
constexpr const char* kKeep = "--keep-run-files";
constexpr const char* kPdf = "--pdf";
constexpr const char* kSave = "--save";

using Pictures = std::vector<std::pair<const char*, const Picture*>>;

Pictures PicturesOf(const BatchForm& form, bool stochastic) {
    Pictures pictures = {{"network.svg", &form.picArc},
                         {"summary.svg", form.picGraph.data()},
                         {"line.svg", &form.picGraph[2]}};
    if (stochastic) {
        pictures.emplace_back("demand.svg", &form.picGraph[1]);
        pictures.emplace_back("costs.svg", &form.picGraph[3]);
    }
    return pictures;
}

/// Links and further names of a file are the file.
void RequireOtherFile(const char* option, const fs::path& file, const SolveRequest& request) {
    std::error_code ignored;
    if (fs::equivalent(file, request.Model, ignored)) {
        throw RunTimeError(ErrorKind::FileAccess,
                           std::string(option) + " would write over " + PathText(file) +
                               ", which is the model itself; a model is never changed. Name "
                               "another place.");
    }
}

void RequireDirectoryOrNothing(const char* option, const fs::path& directory) {
    const FileKind kind = KindOfFile(directory);
    if (kind != FileKind::Directory && kind != FileKind::Missing) {
        throw RunTimeError(ErrorKind::FileAccess, std::string(option) + " " + PathText(directory) +
                                                      " cannot be made a directory. Name another.");
    }
}

/// Makes a directory where there is none. `option` names it in the error.
void MakeDirectory(const char* option, const fs::path& directory) {
    std::error_code error;
    fs::create_directories(directory, error);
    RequireDirectoryOrNothing(option, directory);
    if (KindOfFile(directory) != FileKind::Directory) {
        throw RunTimeError(ErrorKind::FileAccess,
                           std::string(option) + " " + PathText(directory) +
                               " cannot be made a directory: " + error.message() + ".");
    }
}

void SpareModelFromReports(const SolveRequest& request) {
    if (!request.OutDirectory) {
        return;
    }
    RequireDirectoryOrNothing(kOut, *request.OutDirectory);
    RequireOtherFile(kOut,
                     *request.OutDirectory / (request.Stochastic ? kProductionReport : kRunReport),
                     request);
    for (const char* picture :
         {"network.svg", "summary.svg", "line.svg", "demand.svg", "costs.svg"}) {
        if (request.Pictures) {
            RequireOtherFile(kOut, *request.OutDirectory / picture, request);
        }
    }
}

/// Run files of another solve, or anything else, would pass for some of this one's.
void RequireEmptyForRunFiles(const SolveRequest& request) {
    if (!request.KeepRunFiles) {
        return;
    }
    const fs::path& directory = *request.KeepRunFiles;
    RequireDirectoryOrNothing(kKeep, directory);
    std::error_code error;
    if (KindOfFile(directory) == FileKind::Directory && !fs::is_empty(directory, error)) {
        throw RunTimeError(ErrorKind::FileAccess, std::string(kKeep) + " " + PathText(directory) +
                                                      (error ? " cannot be read: " + error.message()
                                                             : std::string(" is not empty")) +
                                                      ". Name an empty directory, or a new one.");
    }
}

/// Replacing a file also removes journals, and what killed programs have left, beside it.
void SpareModelFromReplacing(const char* option, const fs::path& file,
                             const SolveRequest& request) {
    for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
        RequireOtherFile(option, file.string() + suffix, request);
    }
    std::error_code ignored;
    const fs::path real = fs::canonical(request.Model, ignored);
    if (real.filename().string().starts_with(".quarnel02-")) {
        throw RunTimeError(ErrorKind::FileAccess, PathText(request.Model) +
                                                      " has the name of a temporary file, which " +
                                                      option + " may remove. Rename it first.");
    }
}

void SpareModelFromSaving(const SolveRequest& request) {
    if (request.SaveAs) {
        SpareModelFromReplacing(kSave, *request.SaveAs, request);
    }
}

/// A document that cannot be written is known before the solve, as far as that can be.
void SpareModelFromPdf(const SolveRequest& request) {
    if (!request.Pdf) {
        return;
    }
    const fs::path& file = request.Pdf->File;
    SpareModelFromReplacing(kPdf, file, request);
    const fs::path directory = fs::absolute(file).parent_path();
    if (KindOfFile(directory) != FileKind::Directory) {
        throw RunTimeError(ErrorKind::FileNotFound,
                           std::string(kPdf) + " " + PathText(file) +
                               " cannot be written: there is no directory " + PathText(directory) +
                               ". Make it first, or name another file.");
    }
    if (request.SaveAs && fs::weakly_canonical(file) == fs::weakly_canonical(*request.SaveAs)) {
        throw RunTimeError(ErrorKind::FileAccess, std::string(kPdf) + " and " + kSave +
                                                      " name the same file, " + PathText(file) +
                                                      ". Name two.");
    }
}

void WriteResults(const BatchForm& form, const SolveRequest& request, const std::string& name,
                  const std::string& report) {
    if (!request.OutDirectory) {
        return;
    }
    MakeDirectory(kOut, *request.OutDirectory);
    WriteFile(*request.OutDirectory / name, report);
    if (request.Pictures) {
        for (const auto& [file, picture] : PicturesOf(form, request.Stochastic)) {
            WriteFile(*request.OutDirectory / file, ToSvg(*picture));
        }
    }
}

/// The time that SOURCE_DATE_EPOCH asks for, so that what is built again is the same; else now.
std::chrono::system_clock::time_point ReportTime() {
    const char* asked = std::getenv("SOURCE_DATE_EPOCH");
    return asked == nullptr ? std::chrono::system_clock::now()
                            : std::chrono::system_clock::from_time_t(std::atoll(asked));
}

void WritePdf(BatchForm& form, const SolveRequest& request) {
    if (!request.Pdf) {
        return;
    }
    const auto now = ReportTime();
    form.LastDesign->When = now;
    const Document document = ComposeReport(form, {PathText(request.Model.filename()), false, now});
    WriteWhole(request.Pdf->File, request.Pdf->Make(document));
}

}  // namespace

void RequireModelSpared(const SolveRequest& request) {
    SpareModelFromSaving(request);
    SpareModelFromPdf(request);
    SpareModelFromReports(request);
    RequireEmptyForRunFiles(request);
}

void MakeRunFileDirectory(const SolveRequest& request) {
    if (request.KeepRunFiles) {
        MakeDirectory(kKeep, *request.KeepRunFiles);
    }
}

SolveOutcome TakeOutcome(BatchForm& form, const SolveRequest& request, const std::string& report,
                         ModelFormat format) {
    const fs::path file = form.Copy().File(report);
    if (KindOfFile(file) == FileKind::Missing) {
        return {"", form.Messages(), ""};
    }
    SolveOutcome outcome{ReadFile(file), form.Messages(), ""};
    WriteResults(form, request, report, outcome.Report);
    WritePdf(form, request);
    if (request.SaveAs && outcome.Messages.empty()) {
        SaveModel(form.Copy().Path(), *request.SaveAs, request.SaveFormat.value_or(format));
    }
    return outcome;
}

}  // namespace quarnel02
