#include "batch/SolveFile.h"

#include <functional>
#include <system_error>

#include "basic/Files.h"
#include "basic/NumberFormat.h"
#include "basic/RunTimeError.h"
#include "fixed/LoadModel.h"
#include "fixed/cmdContinuous.h"
#include "model/ModelFile.h"
#include "shell/Demand.h"
#include "shell/Reports.h"
#include "shell/SvgWriter.h"
#include "stoch/cmdStoch.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

void RefuseToOverwriteModel(const SolveRequest& request) {
    std::error_code ignored;
    if (request.SaveAs && fs::equivalent(*request.SaveAs, request.Model, ignored)) {
        throw RunTimeError(ErrorKind::FileAccess,
                           "--save " + PathText(*request.SaveAs) +
                               " is the model itself, which is never changed. Name another file.");
    }
}

std::string VolumesOf(const Database& database) {
    RecordSet demand = database.OpenRecordSet("SELECT * FROM Demand ORDER BY Volume;");
    std::string volumes;
    for (; !demand.Eof(); demand.MoveNext()) {
        volumes += (volumes.empty() ? "" : "; ") + Format(demand.Number("Volume"), "#,##0");
    }
    return volumes;
}

/// An empty answer would cancel the solve without a word.
void RequireStationLimit(const SolveRequest& request) {
    if (request.Answers.StationLimit && request.Answers.StationLimit->empty()) {
        throw RunTimeError(ErrorKind::TypeMismatch,
                           "--station-limit is empty. Give a number of stations, or leave the "
                           "option out for no limit.");
    }
}

/// Whether the solve will find a demand: the one that is given, or the only row's volume.
bool HasDemand(BatchForm& form, const SolveRequest& request) {
    if (request.Answers.Demand) {
        return !request.Answers.Demand->empty();
    }
    if (form.DemandCount() != 1) {
        return false;
    }
    form.SelectDemand(0);
    return !form.Text(TextBox::txtVolume).empty();
}

void RequireDemand(BatchForm& form, const SolveRequest& request) {
    if (HasDemand(form, request)) {
        return;
    }
    const std::string volumes = VolumesOf(form.Model);
    throw RunTimeError(ErrorKind::TypeMismatch,
                       PathText(request.Model) +
                           (volumes.empty() ? " has no demand row."
                                            : " has these demand volumes: " + volumes + ".") +
                           " Say which annual demand to design for with --demand.");
}

/// Makes a directory where there is none. `option` names it in the error.
void MakeDirectory(const char* option, const fs::path& directory) {
    std::error_code error;
    fs::create_directories(directory, error);
    if (KindOfFile(directory) != FileKind::Directory) {
        throw RunTimeError(ErrorKind::FileAccess, std::string(option) + " " + PathText(directory) +
                                                      " cannot be made a directory. Name another.");
    }
}

/// What a solve has printed, and the report file that it has left.
struct Printed {
    std::string Text;
    const char* ReportFile;
};

Printed SolveFixedDemand(BatchForm& form, const SolveRequest& request) {
    RequireDemand(form, request);
    cmdContinuous_Click(form, request.Shifts);
    return {"", kRunReport};
}

/// Run files by their names in the directory to keep them in; none without such a directory.
std::function<void(const fs::path&)> RunFileKeeper(const SolveRequest& request) {
    if (!request.KeepRunFiles) {
        return {};
    }
    MakeDirectory("--keep-run-files", *request.KeepRunFiles);
    return [&request](const fs::path& file) {
        WriteFile(*request.KeepRunFiles / file.filename(), ReadFile(file));
    };
}

Printed SolveStochastic(BatchForm& form, const SolveRequest& request) {
    Printed printed{"", kProductionReport};
    const RunListener listener{RunFileKeeper(request),
                               [&](const std::string& summary) { printed.Text = summary + "\n"; }};
    try {
        cmdStoch_Click(form, listener);
    } catch (const ProgramEnded&) {
        // What the system said before it ended the program is in the form's messages.
    }
    return printed;
}

void WritePicture(const fs::path& directory, const char* name, const Picture& picture) {
    WriteFile(directory / name, ToSvg(picture));
}

void WriteResults(const BatchForm& form, const SolveRequest& request, const std::string& name,
                  const std::string& report) {
    if (!request.OutDirectory) {
        return;
    }
    const fs::path& directory = *request.OutDirectory;
    MakeDirectory("--out", directory);
    WriteFile(directory / name, report);
    if (!request.Pictures) {
        return;
    }
    WritePicture(directory, "network.svg", form.picArc);
    WritePicture(directory, "summary.svg", form.picGraph[0]);
    WritePicture(directory, "line.svg", form.picGraph[2]);
    if (request.Stochastic) {
        WritePicture(directory, "demand.svg", form.picGraph[1]);
        WritePicture(directory, "costs.svg", form.picGraph[3]);
    }
}

}  // namespace

SolveOutcome SolveFile(const SolveRequest& request) {
    CheckModelFile(request.Model, PathText(request.Model));
    RefuseToOverwriteModel(request);
    RequireStationLimit(request);
    const TemporaryDirectory application;
    BatchForm form(application.Path(), request.Answers);
    const fs::path working_copy = form.InApplicationDirectory("working.seq");
    CopyWhole(request.Model, working_copy);
    fs::permissions(working_copy, fs::perms::owner_read | fs::perms::owner_write);

    LoadModel(form);
    ListDemand(form);
    const Printed printed =
        request.Stochastic ? SolveStochastic(form, request) : SolveFixedDemand(form, request);
    form.CloseModel();
    const fs::path report_file = form.InApplicationDirectory(printed.ReportFile);
    if (!form.Messages().empty() || KindOfFile(report_file) == FileKind::Missing) {
        return {"", form.Messages()};
    }
    const std::string report = ReadFile(report_file);
    WriteResults(form, request, printed.ReportFile, report);
    if (request.SaveAs) {
        CopyWhole(working_copy, *request.SaveAs);
    }
    return {printed.Text + report, {}};
}

}  // namespace quarnel02
