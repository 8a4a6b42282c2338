#include "batch/Requests.h"

#include <map>

#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

PrintFormat PrintFormatOf(const Options& options) {
    static const std::map<std::string, PrintFormat> formats = {
        {"text", PrintFormat::Text}, {"csv", PrintFormat::Csv}, {"json", PrintFormat::Json}};
    return formats.at(FormatFor(options, FormatUse::Print).value_or("text"));
}

std::optional<ModelFormat> SaveFormatOf(const Options& options) {
    const auto format = FormatFor(options, FormatUse::Save);
    if (!format) {
        return std::nullopt;
    }
    if (!options.SaveAs) {
        throw RunTimeError(ErrorKind::TypeMismatch,
                           "--format sqlite and --format access say how --save writes the model. "
                           "Give --save FILE too.");
    }
    return *format == "access" ? ModelFormat::Access : ModelFormat::Sqlite;
}

std::optional<StudyOrder> StudyOf(const Options& options) {
    static const std::map<std::string, StudyKind> kinds = {
        {"volumes", StudyKind::Volumes},
        {"alternatives", StudyKind::Alternatives},
        {"sensitivity", StudyKind::Sensitivity},
        {"scenarios", StudyKind::Scenarios},
        {"why-not", StudyKind::WhyNot}};
    if (!options.Study) {
        return std::nullopt;
    }
    return StudyOrder{kinds.at(*options.Study), options.From, options.To, options.Share};
}

}  // namespace

std::vector<SolveRequest> RequestsOf(const Options& options) {
    SolveRequest request;
    request.Shifts = static_cast<std::int16_t>(options.Shifts);
    request.Stochastic = options.Stochastic;
    request.Demand = options.Demand;
    request.StationLimit = options.StationLimit;
    request.Study = StudyOf(options);
    request.Format = PrintFormatOf(options);
    request.OneOfSeveral = options.Models.size() > 1;
    request.Progress = options.Progress;
    request.OutDirectory = options.OutDirectory;
    request.Pictures = options.Pictures;
    request.KeepRunFiles = options.KeepRunFiles;
    if (options.Pdf) {
        request.Pdf = PdfOrder{*options.Pdf, {}};
    }
    request.SaveAs = options.SaveAs;
    request.SaveFormat = SaveFormatOf(options);
    std::vector<SolveRequest> requests;
    for (const std::string& model : options.Models) {
        request.Model = model;
        requests.push_back(request);
    }
    return requests;
}

}  // namespace quarnel02
