#pragma once

#include <cstdint>

#include "basic/Immovable.h"
#include "line/CostCurve.h"

namespace quarnel02 {

/// The kinds of curves of a stochastic design, in the order in which they are made.
enum class CurveStage : std::int8_t {
    Resource,      ///< of one resource on an arc
    ArcMerge,      ///< lower envelope of the first resources of an arc
    Arc,           ///< lower envelope of all resources of an arc
    Candidate,     ///< cheapest lines of a task prefix whose last group is an arc
    PrefixMerge,   ///< lower envelope of the first candidates of a prefix
    Prefix,        ///< lower envelope of all candidates of a prefix
    WithPenalties  ///< that of all tasks with expected penalties
};

/// Names a curve of the design; an arc is a range of tasks, a prefix begins with task 1.
struct CurveName {
    CurveStage Stage = CurveStage::Resource;
    int FirstTask = 0;
    int LastTask = 0;
    int Number = 0;  ///< resource, candidate, or count of curves merged so far, from 1; else 0

    bool operator==(const CurveName&) const = default;
};

/// A curve that does not reach as far as it should.
struct EarlyEnd {
    CurveName Curve;  ///< of the stages Resource, Arc, Candidate, Prefix and WithPenalties
    CurveEnd Reason = CurveEnd::None;
    float Volume = 0;    ///< its last volume, or the first one of the demand when it has none
    bool Empty = false;  ///< it has no volume at all

    bool operator==(const EarlyEnd&) const = default;
};

/// Is told the curves of a stochastic design as they are made. Ignores them unless overridden.
class CurveListener : Immovable {
  public:
    virtual ~CurveListener() = default;

    /// The curves of a stage are made next: of Resource or Arc for an arc, of Candidate or Prefix
    /// for a prefix, of WithPenalties for all tasks.
    virtual void Begin(const CurveName& /*stage*/) {}
    /// The curve is made; it is empty where nothing can do its tasks.
    virtual void Made(const CurveName& /*name*/, const CostCurve& /*curve*/) {}
    /// Follows Made of the curve, or of the merge that was too long.
    virtual void EndsEarly(const EarlyEnd& /*end*/) {}
};

}  // namespace quarnel02
