#pragma once

#include <span>
#include <vector>

#include "line/CurveListener.h"
#include "shell/SolveStatus.h"
#include "stoch/RunFiles.h"

namespace quarnel02 {

/// Follows a design through the stages of its programme: writes the tables of each as run files,
/// says in the status window how far it is, and gives a notice of every table that ends early.
/// Throws FileAccess when a run file cannot be written, and SolveCancelled after any curve.
class StageTables : public CurveListener {
  public:
    /// Keeps references. `tasks` is how many the model has.
    StageTables(const RunFiles& files, SolveStatus& status, int tasks)
        : m_files(files), m_status(status), m_tasks(tasks) {}

    void Begin(const CurveName& stage) override;
    void Made(const CurveName& name, const CostCurve& curve) override;
    void EndsEarly(const EarlyEnd& end) override;

    /// Curves of the cheapest lines of the first task, the first two tasks and so on.
    [[nodiscard]] std::span<const CostCurve> Prefixes() const { return m_prefixes; }

  private:
    void Keep(const CurveName& name, const CostCurve& curve);
    /// "F.. T.. .R..": the curve of a resource that can do all tasks of an arc; none that is empty.
    void BuildResourceTable(const CurveName& name, const CostCurve& curve);
    void MergeResourceTable(const CurveName& name, const CostCurve& curve) const;
    /// "IT..": the cheapest resource of an arc. An arc without any gets no file; one that another
    /// arc left under the same name is deleted.
    void BuildInitialTable(const CurveName& name, const CostCurve& curve) const;
    /// "Temp..": the cheapest designs of a prefix whose last arc has one start task.
    void BuildIntermediateTable(const CurveName& name, const CostCurve& curve) const;
    void MergeIntermediateTable(const CurveName& name, const CostCurve& curve) const;
    /// "Final..": the cheapest designs of a prefix.
    void BuildFinalTable(const CurveName& name, const CostCurve& curve) const;
    /// That of all tasks anew, with the expected penalties.
    void AddExpectedPenalties(const CurveName& name, const CostCurve& curve) const;

    void TellArcDone(const CurveName& arc) const;

    const RunFiles& m_files;
    SolveStatus& m_status;
    int m_tasks;
    std::vector<CostCurve> m_prefixes;
    bool m_firstOfArc = false;  ///< no resource table of the arc in hand so far
};

}  // namespace quarnel02
