#include "study/HowComputed.h"

#include <algorithm>

#include "basic/Numbers.h"
#include "line/Demand.h"
#include "line/WorkContent.h"
#include "study/FigureText.h"
#include "study/LineText.h"
#include "study/StationTime.h"

namespace quarnel02 {

namespace {

std::string Dollars(double amount) {
    return FigureText(amount) + " $";
}

/// "240 days x 2 shifts x 8 h x 3,600 s / 60,000 units".
std::string CycleTimeText(const Production& production, const CostBasis& basis) {
    return CountText(production.Days, "day", "days") + " x " +
           CountText(basis.CapacityShifts, "shift", "shifts") + " x 8 h x 3,600 s / " +
           CountText(basis.Capacity, "unit", "units") + " = " +
           FigureText(basis.AvailableCycleTime) + " s";
}

std::string UnitsText(const CostBasis& basis) {
    return CountText(basis.Units, "unit", "units") + (basis.Expected ? " expected" : "");
}

/// The lines for one group of stations.
class StationSteps {
  public:
    StationSteps(const LineModel& model, const StationRow& row, const CostBasis& basis)
        : m_model(model),
          m_row(row),
          m_basis(basis),
          m_resource(model.ResourceOf(row.Group.Resource)),
          m_content(
              ContentOf(model.Entries(row.Group.Resource, row.Group.FirstTask, row.Group.LastTask),
                        m_resource, model.Parameters().TransportTime)) {}

    [[nodiscard]] std::string Text(int number) && {
        Add("Station " + NumberText(number) + ": " + GroupText(m_model, m_row.Group));
        AddTasks();
        AddCycleEnd();
        AddStations();
        AddInvestment();
        AddRunning();
        return std::move(m_text);
    }

  private:
    void Add(const std::string& line) { m_text += line + "\n"; }

    [[nodiscard]] std::string OverUptime(double seconds) const {
        return FigureText(seconds) + " s / " + FigureText(m_resource.UpTime) +
               " % uptime = " + FigureText(seconds / (m_resource.UpTime / 100)) + " s";
    }

    void AddTasks() {
        const StationGroup& group = m_row.Group;
        int tool = m_model.Entry(group.Resource, group.FirstTask).ToolNum;
        for (int task = group.FirstTask; task <= group.LastTask; ++task) {
            const MatrixEntry& entry = m_model.Entry(group.Resource, task);
            Add("Task " + NumberText(task) + ": " + OverUptime(entry.TaskTime));
            if (entry.ToolNum != tool) {
                Add("Tool " + NumberText(entry.ToolNum) + " after tool " + NumberText(tool) +
                    ": tool change " + FigureText(m_resource.ToolChange) + " s");
            }
            tool = entry.ToolNum;
        }
    }

    void AddCycleEnd() {
        const CycleEnd end = CycleEndOf(m_model, m_row.Group);
        const std::string transport =
            "transport " + FigureText(m_model.Parameters().TransportTime) + " s";
        std::string what = transport;
        if (end.OtherTool) {
            what = "the longer one of " + transport + " and tool change to the first tool " +
                   FigureText(m_resource.ToolChange) + " s";
        }
        Add("End of the cycle: " + what + "; " + OverUptime(end.Seconds));
        Add("Work time, the sum: " + FigureText(static_cast<double>(m_content.WorkTime)) +
            " s per unit");
    }

    void AddStations() {
        const auto work = static_cast<double>(m_content.WorkTime);
        const double needed = work / m_basis.AvailableCycleTime;
        Add("Available cycle time: " + CycleTimeText(m_model.Parameters(), m_basis));
        Add("Stations: " + FigureText(work) + " s / " + FigureText(m_basis.AvailableCycleTime) +
            " s = " + FigureText(needed) + ", rounded up: " + NumberText(m_row.Group.Stations) +
            (needed > m_row.Group.Stations ? " (over by no more than one part in a million)" : ""));
        Add("Time of one station: " + FigureText(work) + " s / " +
            NumberText(m_row.Group.Stations) + " = " + FigureText(m_row.Time) + " s; load " +
            FigureText(m_row.Time) + " / " + FigureText(m_basis.AvailableCycleTime) + " = " +
            FigureText(m_row.Load * 100) + " %, idle " + FigureText(m_row.Idle) + " s");
    }

    void AddInvestment() {
        std::string tools;
        for (const auto& [tool, cost] : ToolsOf(m_model, m_row.Group)) {
            tools += (tools.empty() ? "Tools: " : " + ") + Dollars(cost) + " (tool " +
                     NumberText(tool) + ")";
        }
        const auto tool_cost = static_cast<double>(m_content.ToolCostSum);
        Add(tools + " = " + Dollars(tool_cost) + " per station");
        Add("Investment: " + CountText(m_row.Group.Stations, "station", "stations") + " x (" +
            Dollars(tool_cost) + " tools + " + Dollars(m_resource.FixedCost) + ") x " +
            FigureText(m_resource.ICF) +
            " investment factor (ICF) = " + Dollars(m_row.Figures.Investment));
        Add("Capital: " + Dollars(m_row.Figures.Investment) + " x " +
            FigureText(m_model.Parameters().ACF) +
            " annual capital factor (ACF) = " + Dollars(m_row.Figures.Capital) + " per year");
    }

    void AddRunning() {
        const CostFigures& figures = m_row.Figures;
        Add("Machine: " + FigureText(m_resource.VarCost) + " $/h / 3,600 s x " +
            UnitsText(m_basis) + " x " + FigureText(m_row.Time) + " s x " +
            FigureText(m_resource.UpTime) + " % uptime = " + Dollars(figures.Machine) +
            " per year");
        Add("Labour: " + CountText(m_row.Group.Stations, "station", "stations") + " x " +
            CountText(m_basis.Shifts, "shift", "shifts") + (m_basis.Expected ? " expected" : "") +
            " x 8 h x " + CountText(m_model.Parameters().Days, "day", "days") + " x " +
            FigureText(m_model.Parameters().LaborCost) + " $/h / " +
            CountText(m_resource.StatPerWrk, "station", "stations") +
            " per worker = " + Dollars(figures.Labour) + " per year");
        Add("Total: " + Dollars(figures.Capital) + " + " + Dollars(figures.Machine) + " + " +
            Dollars(figures.Labour) + " = " + Dollars(figures.Total) + " per year");
    }

    const LineModel& m_model;
    const StationRow& m_row;
    const CostBasis& m_basis;
    const Resource& m_resource;
    WorkContent m_content;
    std::string m_text;
};

/// "Labour: 100 $ + 200 $ = 300 $".
std::string SumText(const std::string& name, const LineTable& table, double CostFigures::*figure) {
    std::string sum;
    for (const StationRow& row : table.Rows) {
        sum += (sum.empty() ? "" : " + ") + Dollars(row.Figures.*figure);
    }
    return name + ": " + sum + " = " + Dollars(table.Totals.*figure) + "\n";
}

/// What a demand point adds to an expectation.
std::string ShareText(const DemandPoint& point, const std::string& figure) {
    return FigureText(static_cast<double>(point.Probability)) + " % x " + figure;
}

/// Expected production and shifts, and the penalty of what is not made.
std::string ExpectationText(const LineModel& model, const CostBasis& basis) {
    const DemandDistribution demand(model.Demand());
    const auto capacity = static_cast<float>(basis.Capacity);
    std::string production;
    std::string shifts;
    for (const DemandPoint& point : demand.Points()) {
        const std::string plus = production.empty() ? "" : " + ";
        production +=
            plus +
            ShareText(point, FigureText(static_cast<double>(std::min(point.Volume, capacity))));
        shifts += plus + ShareText(point, NumberText(ShiftsAt(point.Volume, capacity)));
    }
    const double shortfall = demand.Production().ShortfallAt(capacity);
    const double penalty = model.Parameters().Penalty;
    return "Capacity: " + FigureText(basis.Capacity) + " units per year with 3 shifts\n" +
           "Expected production: " + production + " = " + FigureText(basis.Units) +
           " units per year\n" + "Expected shifts: " + shifts + " = " + FigureText(basis.Shifts) +
           " per day\n" + "Expected penalty: " + FigureText(shortfall) + " units not made x " +
           FigureText(penalty) + " $ = " + Dollars(shortfall * penalty) + " per year\n";
}

}  // namespace

std::string HowComputed(const LineModel& model, const StationRow& row, int number,
                        const CostBasis& basis) {
    return StationSteps(model, row, basis).Text(number);
}

std::string HowComputed(const LineModel& model, const LineTable& table) {
    return (table.Basis.Expected ? ExpectationText(model, table.Basis) : "") +
           "Available cycle time: " + CycleTimeText(model.Parameters(), table.Basis) + "\n" +
           "Cycle time: " + FigureText(table.CycleTime) + " s, of the slowest station\n" +
           SumText("Investment", table, &CostFigures::Investment) +
           SumText("Capital per year", table, &CostFigures::Capital) +
           SumText("Machine per year", table, &CostFigures::Machine) +
           SumText("Labour per year", table, &CostFigures::Labour) +
           SumText("Total per year", table, &CostFigures::Total);
}

}  // namespace quarnel02
