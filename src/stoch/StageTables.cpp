#include "stoch/StageTables.h"

#include <string>

#include "basic/Numbers.h"
#include "stoch/Notices.h"
#include "stoch/RunRecords.h"

namespace quarnel02 {

namespace {

constexpr const char* kMergedResources = "TempA";
constexpr const char* kMergedCandidates = "Temp1";

std::string StatusOf(const CurveName& stage) {
    const std::string last = NumberText(stage.LastTask);
    const std::string arc = " for Task " + NumberText(stage.FirstTask) + " To Task " + last;
    switch (stage.Stage) {
        case CurveStage::Resource:
            return "Creating Resource Tables" + arc;
        case CurveStage::Arc:
            return "Creating Initial Tables" + arc;
        case CurveStage::Candidate:
            return "Creating Intermediate Tables for Task " + last;
        case CurveStage::Prefix:
            return "Creating Final Table for Task " + last;
        default:
            return "Adding Expected Penalties to Final Table";
    }
}

}  // namespace

void StageTables::Begin(const CurveName& stage) {
    m_status.SetStatus(StatusOf(stage));
    m_status.Look();
    m_firstOfArc = true;
}

void StageTables::Made(const CurveName& name, const CostCurve& curve) {
    Keep(name, curve);
    m_status.Look();
}

void StageTables::Keep(const CurveName& name, const CostCurve& curve) {
    switch (name.Stage) {
        case CurveStage::Resource:
            return BuildResourceTable(name, curve);
        case CurveStage::ArcMerge:
            return MergeResourceTable(name, curve);
        case CurveStage::Arc:
            BuildInitialTable(name, curve);
            return TellArcDone(name);
        case CurveStage::Candidate:
            return BuildIntermediateTable(name, curve);
        case CurveStage::PrefixMerge:
            return MergeIntermediateTable(name, curve);
        case CurveStage::Prefix:
            BuildFinalTable(name, curve);
            m_prefixes.push_back(curve);
            return m_status.SetStatus(NumberText(name.LastTask) + " of " + NumberText(m_tasks) +
                                      " Tasks Completed");
        case CurveStage::WithPenalties:
            return AddExpectedPenalties(name, curve);
    }
}

void StageTables::EndsEarly(const EarlyEnd& end) {
    m_status.Notice(NoticeOf(end));
}

void StageTables::BuildResourceTable(const CurveName& name, const CostCurve& curve) {
    if (curve.IsEmpty() || !m_files.KeepsScratch()) {
        return;
    }
    const std::string records = ArcRecords(curve);
    m_files.WriteScratch(RunFileName(name), records);
    if (m_firstOfArc) {
        m_files.WriteScratch(kMergedResources, records);
        m_firstOfArc = false;
    }
}

/// What the merge before put out is merged with the next table.
void StageTables::MergeResourceTable(const CurveName& name, const CostCurve& curve) const {
    if (!m_files.KeepsScratch()) {
        return;
    }
    if (name.Number > 2) {
        m_files.RenameScratch(RunFileName(name), kMergedResources);
    }
    m_files.WriteScratch(RunFileName(name), ArcRecords(curve));
}

void StageTables::BuildInitialTable(const CurveName& name, const CostCurve& curve) const {
    if (curve.IsEmpty()) {
        m_files.Delete(RunFileName(name));
    } else {
        m_files.Write(RunFileName(name), ArcRecords(curve));
    }
}

void StageTables::BuildIntermediateTable(const CurveName& name, const CostCurve& curve) const {
    if (m_files.KeepsScratch()) {
        m_files.WriteScratch(RunFileName(name), DesignRecords(curve));
    }
}

void StageTables::MergeIntermediateTable(const CurveName& name, const CostCurve& curve) const {
    if (!m_files.KeepsScratch()) {
        return;
    }
    if (name.Number > 2) {
        m_files.RenameScratch(RunFileName(name), kMergedCandidates);
    }
    m_files.WriteScratch(RunFileName(name), DesignRecords(curve));
}

void StageTables::BuildFinalTable(const CurveName& name, const CostCurve& curve) const {
    m_files.Write(RunFileName(name), DesignRecords(curve));
}

void StageTables::AddExpectedPenalties(const CurveName& name, const CostCurve& curve) const {
    m_files.Write(RunFileName(name), DesignRecords(curve));
}

void StageTables::TellArcDone(const CurveName& arc) const {
    const auto arcs_to = [](int task) { return task * (task + 1) / 2; };
    m_status.SetProgress(arcs_to(arc.LastTask - 1) + arc.FirstTask, arcs_to(m_tasks));
}

}  // namespace quarnel02
