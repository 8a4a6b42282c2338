#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "line/LineModel.h"
#include "shell/MainForm.h"
#include "stoch/RunFiles.h"

namespace quarnel02 {

inline constexpr int kMostDemandPoints = 10;

/// An arc of the chosen design; the design is kept from its last arc backwards.
struct SolutionEntry {
    std::int16_t StartTask;
    std::int16_t EndTask;
    std::int16_t ArcResource;
    std::int16_t ArcInfo;  ///< parallel stations
    float Cost;            ///< expected dollars per year at the chosen capacity
};

/// What the stages of one stochastic solve share.
struct StochRun {
    explicit StochRun(MainForm& form) : Form(form), Files(form.ApplicationDirectory()) {}

    MainForm& Form;
    RunFiles Files;

    int Tasks = 0;
    int Resources = 0;
    Production Parameters;
    std::vector<MatrixEntry> Matrix;  ///< by resource, then task; time 0 where a pair has no row
    std::vector<Resource> ResourceData;

    /// Demand points in ascending volume, from index 1 on.
    std::array<float, kMostDemandPoints + 1> Volume{};
    std::array<float, kMostDemandPoints + 1> Prob{};  ///< percent
    int DemandPoints = 0;
    float FirstVolume = 0;  ///< all curves start here: the lowest volume above 0
    float LastVolume = 0;   ///< and end here: 3 times the largest volume

    /// The volumes that the planner means, ascending: those above 0 of the demand points, and 1.5
    /// and 3 times them.
    std::vector<float> MeantVolumes;

    int EndTask = 0;    ///< i: last task of the arc being built
    int StartTask = 0;  ///< j: its first task

    std::vector<SolutionEntry> Solution;  ///< last arc first
    float Capacity = 0;                   ///< units per year with three shifts
    float ExpectedCost = 0;               ///< dollars per year, penalty included

    [[nodiscard]] const MatrixEntry& Pair(int resource, int task) const {
        return Matrix[static_cast<std::size_t>((resource - 1) * Tasks + task - 1)];
    }
    [[nodiscard]] const Resource& ResourceOf(int resource) const {
        return ResourceData[static_cast<std::size_t>(resource - 1)];
    }
};

}  // namespace quarnel02
