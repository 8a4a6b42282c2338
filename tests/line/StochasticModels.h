#pragma once

#include <string>
#include <vector>

#include "line/LineModel.h"

namespace quarnel02::test {

/// 250 days of three shifts are 21,600,000 seconds: a station that needs 216 s serves 100,000 units
/// a year.
inline Production YearOfSeconds(double laborCost) {
    Production production;
    production.Days = 250;
    production.ACF = 0.3;
    production.LaborCost = laborCost;
    return production;
}

/// Costs 30,000 a year per station with a tool of 1,000, and nothing else.
inline Resource Oven(int number) {
    Resource oven;
    oven.Number = number;
    oven.ShortName = "Oven";
    oven.FixedCost = 99000;
    oven.UpTime = 100;
    oven.ICF = 1;
    oven.StatPerWrk = 1;
    return oven;
}

inline std::vector<Task> TasksTo(int last) {
    std::vector<Task> tasks;
    for (int number = 1; number <= last; ++number) {
        tasks.push_back({number, ""});
    }
    return tasks;
}

inline const std::vector<DemandPoint> kTwoVolumes = {{100000, 40}, {200000, 60}};

/// One task of so many seconds on one oven.
inline LineModel OvenModel(double seconds, double laborCost = 0) {
    return {YearOfSeconds(laborCost),
            {Oven(1)},
            TasksTo(1),
            std::vector<MatrixRow>{{1, 1, {seconds, 7, 1000}}},
            kTwoVolumes};
}

}  // namespace quarnel02::test
