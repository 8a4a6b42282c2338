#pragma once

#include <exception>
#include <functional>
#include <stop_token>

#include "line/CurveListener.h"

namespace quarnel02 {

/// Ends a study that was told to stop; nothing is left of it.
class StudyStopped : public std::exception {
  public:
    [[nodiscard]] const char* what() const noexcept override { return "The study was stopped."; }
};

/// How whoever asked for a study watches it and stops it. A study looks at its watch so often that
/// it ends within 0.2 s after a stop is requested, from whatever thread.
class StudyWatch {
  public:
    /// Told the share of the work that is done, from 0 to 1, in the thread of the study.
    using Progress = std::function<void(double share)>;

    StudyWatch() = default;
    explicit StudyWatch(std::stop_token stop, Progress progress = {});

    /// Throws StudyStopped when a stop was requested.
    void Look() const;
    /// The same; otherwise tells the share.
    void Look(double share) const;
    /// For a part of the work, which begins and ends at these shares of the whole.
    [[nodiscard]] StudyWatch Part(double from, double to) const;

  private:
    std::stop_token m_stop;
    Progress m_progress;
};

/// Has a stochastic design look at a watch for every curve that it makes.
class WatchedCurves : public CurveListener {
  public:
    /// Keeps a reference to the watch.
    WatchedCurves(const StudyWatch& watch, int tasks) : m_watch(watch), m_tasks(tasks) {}

    void Begin(const CurveName& stage) override;
    void Made(const CurveName& name, const CostCurve& curve) override;

  private:
    const StudyWatch& m_watch;
    int m_tasks;
};

}  // namespace quarnel02
