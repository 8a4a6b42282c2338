#include "study/StudyWatch.h"

#include <utility>

namespace quarnel02 {

StudyWatch::StudyWatch(std::stop_token stop, Progress progress)
    : m_stop(std::move(stop)), m_progress(std::move(progress)) {}

void StudyWatch::Look() const {
    if (m_stop.stop_requested()) {
        throw StudyStopped();
    }
}

void StudyWatch::Look(double share) const {
    Look();
    if (m_progress) {
        m_progress(share);
    }
}

StudyWatch StudyWatch::Part(double from, double to) const {
    if (!m_progress) {
        return StudyWatch(m_stop);
    }
    return StudyWatch(m_stop, [whole = m_progress, from, to](double share) {
        whole(from + (to - from) * share);
    });
}

void WatchedCurves::Begin(const CurveName& stage) {
    // The curves of a last task are as many as the tasks up to it.
    const double last = stage.LastTask;
    const double before = (last - 1) * last / 2;
    const double within = stage.Stage <= CurveStage::Arc ? stage.FirstTask - 1 : stage.LastTask;
    m_watch.Look((before + within) / (m_tasks * (m_tasks + 1) / 2.0));
}

void WatchedCurves::Made(const CurveName& /*name*/, const CostCurve& /*curve*/) {
    m_watch.Look();
}

}  // namespace quarnel02
