#pragma once

#include <cstdint>
#include <string>

#include "fixed/FixedDemandOrder.h"
#include "line/LineModel.h"
#include "shell/MainForm.h"

namespace quarnel02 {

/// What a fixed-demand design is asked for, as typed.
struct FixedDemandAnswers {
    std::int16_t Shifts = 1;   ///< per day, 1 to 3
    std::string Demand;        ///< units per year
    std::string StationLimit;  ///< most parallel stations; "", or a number below 1, for no limit
};

/// Takes a station limit as it is typed; a number below 1, or "", is none. Throws TypeMismatch and
/// Overflow.
void TakeStationLimit(const std::string& answer, FixedDemandOrder& order);

/// Designs and reports the line of the working copy: removes the report of an earlier solve, checks
/// the model, before anything else is touched (one without tasks or resources gets a message),
/// regenerates and costs the pathways, searches the cheapest line and reports it (DesignLine).
/// Throws TypeMismatch for a demand or limit that is no number, Overflow for a limit beyond 16
/// bits or a negative demand, DivisionByZero for a demand of 0, NotAModel for a record that cannot
/// be (RequireUsableModel), and what the solve throws.
void SolveFixedDemand(MainForm& form, const FixedDemandAnswers& answers);

/// The part of it behind the checks, on pathways that stand: costs them and goes on as ReportLine.
/// Says so, and stops, when there is no pathway or none within the limit. However it ends, the
/// network shows the states of the pathways.
void DesignLine(MainForm& form, const Database& database, const LineModel& model,
                const FixedDemandOrder& order);

/// The last part, on pathways that are costed: searches the best path, draws the network, writes
/// the solution summary, opens it and notes the design; where the line ends before the last task,
/// says afterwards which tasks it leaves out. Says so, and stops, when there is no line; labels and
/// marks made so far stay.
void ReportLine(MainForm& form, const Database& database, const LineModel& model,
                const FixedDemandOrder& order);

}  // namespace quarnel02
