#include "batch/Answers.h"

#include "basic/Files.h"
#include "basic/NumberFormat.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

std::string VolumesOf(const Database& database) {
    RecordSet demand = database.OpenRecordSet("SELECT * FROM Demand ORDER BY Volume;");
    std::string volumes;
    for (; !demand.Eof(); demand.MoveNext()) {
        volumes += (volumes.empty() ? "" : "; ") + Format(demand.Number("Volume"), "#,##0");
    }
    return volumes;
}

/// The demand that is given, or the only row's volume as the demand list shows it; "" for none.
std::string DemandOf(BatchForm& form, const SolveRequest& request) {
    if (request.Demand) {
        return *request.Demand;
    }
    if (form.DemandCount() != 1) {
        return {};
    }
    form.SelectDemand(0);
    return form.Text(TextBox::txtVolume);
}

}  // namespace

void RequireStationLimit(const SolveRequest& request) {
    if (request.StationLimit && request.StationLimit->empty()) {
        throw RunTimeError(ErrorKind::TypeMismatch,
                           "--station-limit is empty. Give a number of stations, or leave the "
                           "option out for no limit.");
    }
}

FixedDemandAnswers AnswersOf(BatchForm& form, const SolveRequest& request) {
    const std::string demand = DemandOf(form, request);
    if (demand.empty()) {
        const std::string volumes = VolumesOf(form.OpenWorkingCopy());
        throw RunTimeError(ErrorKind::TypeMismatch,
                           PathText(request.Model) +
                               (volumes.empty() ? " has no demand row."
                                                : " has these demand volumes: " + volumes + ".") +
                               " Say which annual demand to design for with --demand.");
    }
    return {request.Shifts, demand, request.StationLimit.value_or("")};
}

std::optional<std::int16_t> StationLimitOf(const SolveRequest& request) {
    FixedDemandOrder order;
    TakeStationLimit(request.StationLimit.value_or(""), order);
    return order.Request.StationLimit;
}

}  // namespace quarnel02
