#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "line/LineModel.h"
#include "line/WorkContent.h"

namespace quarnel02 {

/// A resource and a range of tasks that it can do, each of them. Its number is its place in the
/// list of all pathways of a model, from 1.
struct Pathway {
    std::int16_t Resource = 0;
    std::int16_t FirstTask = 0;
    std::int16_t LastTask = 0;

    bool operator==(const Pathway&) const = default;
};

/// All pathways of a model by resource, first task and last task; a pathway that follows one with
/// the same resource and first task adds one task to it.
/// Throws Overflow when there are more than 32,767.
std::vector<Pathway> PathwaysOf(const LineModel& model);

/// The work contents of some pathways of a model, in their order: what does not depend on the
/// volume. One that adds a task to the pathway before it costs a single step.
/// Throws DivisionByZero when the uptime of a resource with a pathway is 0, and Overflow.
std::vector<WorkContent> ContentsOf(const LineModel& model, std::span<const Pathway> pathways);

/// A model with all that can be computed before a volume is known.
struct PreparedLine {
    LineModel Model;
    std::vector<Pathway> Pathways;
    std::vector<WorkContent> Contents;  ///< of the pathways, in their order
};

/// Throws as the functions above do.
PreparedLine Prepare(LineModel model);

}  // namespace quarnel02
