#include "batch/PrintStudy.h"

#include "basic/Files.h"
#include "batch/Json.h"

namespace quarnel02 {

namespace {

const char* NameOf(StudyKind kind) {
    switch (kind) {
        case StudyKind::Volumes:
            return "volumes";
        case StudyKind::Alternatives:
            return "alternatives";
        case StudyKind::Sensitivity:
            return "sensitivity";
        case StudyKind::Scenarios:
            return "scenarios";
        case StudyKind::WhyNot:
            return "why-not";
    }
    return "";
}

Json JsonOf(const SolveRequest& request, const StudyFindings& findings) {
    Json json = JsonHead(request);
    json["study"] = NameOf(request.Study->Kind);
    json["design"] = request.Stochastic ? "stochastic" : "fixed";
    json.update(findings.Details);
    json["rows"] = RowsJson(findings.Table);
    return json;
}

/// Of several models each row says which one it is of.
StudyTable WithModel(StudyTable table, const std::string& model) {
    table.Columns.insert(table.Columns.begin(), "model");
    for (auto& row : table.Rows) {
        row.insert(row.begin(), model);
    }
    return table;
}

}  // namespace

std::string PrintStudy(const SolveRequest& request, const StudyFindings& findings) {
    switch (request.Format) {
        case PrintFormat::Json:
            return JsonLine(JsonOf(request, findings));
        case PrintFormat::Csv:
            return CsvText(request.OneOfSeveral ? WithModel(findings.Table, PathText(request.Model))
                                                : findings.Table);
        case PrintFormat::Text:
            break;
    }
    const bool sentences = request.Study->Kind == StudyKind::WhyNot;
    return (sentences ? "" : PlainText(findings.Table)) + findings.Notes;
}

}  // namespace quarnel02
