#include "study/FigureShares.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "line/WorkTime.h"

namespace quarnel02 {

namespace {

constexpr double kOnePercent = 0.01;
constexpr int kMostTimes = 10;

}  // namespace

StepSpan StepsOf(const LineModel& model, const ModelFigure& figure) {
    StepSpan span{1, kMostTimes * kStepsOfToday};
    if (figure.Kind == FigureKind::Days || figure.Kind == FigureKind::UpTime ||
        figure.Kind == FigureKind::StatPerWrk) {
        span.From = kStepsOfToday / kMostTimes;
    }
    if (figure.Kind == FigureKind::UpTime) {
        const double most = kStepsOfToday / (ValueOf(model, figure) * kOnePercent);
        span.To = static_cast<int>(std::clamp(most, double{kStepsOfToday}, double(span.To)));
    }
    return span;
}

double ShareAt(FigureKind kind, int step) {
    const double share = static_cast<double>(step) / kStepsOfToday;
    return kind == FigureKind::StatPerWrk ? 1 / share : share;
}

SharedCost::SharedCost(const Production& production, const Resource& resource, double units,
                       double shifts, std::optional<FigureKind> figure, double share) {
    const auto shared = [&](FigureKind kind, double value) {
        return figure == kind ? value * share : value;
    };
    const double days = shared(FigureKind::Days, production.Days);
    const double hours = days * shifts * kHoursPerShift;
    m_available = hours * kSecondsPerHour / units;
    m_transport = shared(FigureKind::TransportTime, production.TransportTime);
    m_toolChange = shared(FigureKind::ToolChange, resource.ToolChange);
    m_upTime = shared(FigureKind::UpTime, resource.UpTime) * kOnePercent;
    m_times = figure == FigureKind::TaskTimes ? share : 1;
    m_fixedCost = shared(FigureKind::FixedCost, resource.FixedCost);
    m_capital = shared(FigureKind::ICF, resource.ICF) * shared(FigureKind::ACF, production.ACF);
    m_labour = hours * shared(FigureKind::LaborCost, production.LaborCost) /
               shared(FigureKind::StatPerWrk, resource.StatPerWrk);
    m_machine = shared(FigureKind::VarCost, resource.VarCost) / kSecondsPerHour * units * m_upTime;
}

double SharedCost::WorkTime(const PathwayParts& parts) const {
    const double end = parts.OtherTool ? std::max(m_transport, m_toolChange) : m_transport;
    return (parts.TaskTime * m_times + end) / m_upTime + parts.ToolChanges * m_toolChange;
}

double SharedCost::Stations(const PathwayParts& parts) const {
    constexpr double tolerance = 1e-6;  // a station that is exactly full is full
    if (!(m_available > 0)) {
        return std::numeric_limits<double>::infinity();
    }
    return std::max(1.0, std::ceil(WorkTime(parts) / (m_available * (1 + tolerance))));
}

double SharedCost::Cost(const PathwayParts& parts, double stations) const {
    return stations * CostOfStation(parts) + m_machine * WorkTime(parts) / stations;
}

}  // namespace quarnel02
