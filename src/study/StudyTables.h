#pragma once

#include <span>

#include "study/Alternatives.h"
#include "study/Capacities.h"
#include "study/Scenarios.h"
#include "study/Sensitivity.h"
#include "study/StudyTable.h"
#include "study/VolumeRanges.h"
#include "study/WhyNot.h"

namespace quarnel02 {

// Studies as tables. Columns and their meaning are part of the formats that programs read. Costs
// are dollars per year.

/// shifts,from,to,line,cost_from,cost_to,investment,best
StudyTable VolumesTable(const LineModel& model, std::span<const VolumeRange> ranges);
/// rank,cost,difference,investment,labour,line
StudyTable AlternativesTable(const LineModel& model, std::span<const Alternative> alternatives);
/// rank,capacity,expected_cost,penalty,investment,line
StudyTable CapacitiesTable(const LineModel& model, std::span<const Capacity> capacities);
/// figure,value,low,cost_low,high,cost_high,changes,break_even
StudyTable SensitivityTable(std::span<const SensitivityRow> rows);
/// The same, and capacity_low,capacity_high
StudyTable SensitivityTable(std::span<const ExpectedSensitivityRow> rows);
/// scenario,cost,difference,capital,machine,labour,penalty,investment,shifts,volume,station_limit,
/// capacity,changes,line,problem
StudyTable ScenariosTable(std::span<const ScenarioOutcome> outcomes);
/// has_line,impossible_tasks,overloaded_tasks,forbidden_tasks,smallest_limit,fewest_shifts,
/// largest_volume
StudyTable WhyNotTable(const WhyNot& why);

}  // namespace quarnel02
