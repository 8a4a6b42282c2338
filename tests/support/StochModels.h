#pragma once

#include <array>

#include "support/ModelScript.h"

namespace quarnel02::test {

/// Two tasks, two resources, two demand points; 250 days are 21,600,000 seconds of three shifts.
///
/// Robot alone can do task 1. Its stations need 60 s for task 1, 48 s for task 2, and for both
/// 60 + 48 + 54 (change to tool 2) + 54 (change back) = 216 s; so k of them serve 360,000 k,
/// 450,000 k and 100,000 k units a year. They cost 0.3 x (9,000 + 1,000) = 3,000 a year, 3,300
/// with both tools, 36 / 3600 = 0.01 per second run, and 8 x 250 x 10 = 20,000 per shift.
/// Press needs 24 s for task 2, enough for 900,000 units; it costs 0.3 x (251,000 + 1,000)
/// = 75,600 a year, 0.01 per second run, and 20,000 / 4 = 5,000 per shift.
inline ModelScript StagesModel() {
    ModelScript model;
    model.Tasks = 2;
    model.ACF = 0.3;
    model.LaborCost = 10;
    model.Resources = {{"Robot", 2, 9000, 36, 100, 1, 54, 1},
                       {"Press", 1, 251000, 36, 100, 1, 0, 4}};
    model.Matrix = {{1, 1, 60, 1, 1000}, {1, 2, 48, 2, 1000}, {2, 2, 24, 1, 1000}};
    model.Demand = {{100000, 40}, {200000, 60}};
    return model;
}

/// Tasks, and ovens that cost 30,000 a year per station with a tool of 1,000, and nothing else. 250
/// days of three shifts are 21,600,000 seconds: a station that needs 216 s serves 100,000 units.
inline ModelScript OvensModel(int tasks, int ovens) {
    ModelScript model;
    model.Tasks = tasks;
    model.ACF = 0.3;
    model.LaborCost = 0;
    model.Resources.assign(static_cast<std::size_t>(ovens), {"Oven", 3, 99000});
    model.Demand = {{100000, 40}, {200000, 60}};
    return model;
}

/// One task of so many seconds on one oven.
inline ModelScript OvenModel(double seconds) {
    ModelScript model = OvensModel(1, 1);
    model.Matrix = {{1, 1, seconds, 7, 1000}};
    return model;
}

/// One task on one resource whose k stations serve 100,000 k units a year, for 30,000 k a year
/// and nothing else: with a penalty of 0.25 per unit one station is the best.
inline ModelScript PenaltyModel() {
    return OvenModel(216);
}

/// Three tasks with a resource each. Their stations serve 1,000, 1,003 and 1,007 units a year, so
/// that up to 3 x 1,300,000 units there are about 3 x 3,900 volumes that need one station more.
inline ModelScript LongTableModel() {
    ModelScript model;
    model.Tasks = 3;
    model.ACF = 0.3;
    model.LaborCost = 1;
    model.Resources = {{"First", 0, 900}, {"Second", 1, 800}, {"Third", 2, 700}};
    for (int task = 1; task <= model.Tasks; ++task) {
        constexpr double seconds_of_year = 21600000;
        const double served =
            std::array{1000.0, 1003.0, 1007.0}.at(static_cast<std::size_t>(task - 1));
        model.Matrix.push_back({task, task, seconds_of_year / served, 1, 100});
    }
    model.Demand = {{1000, 50}, {1300000, 50}};
    return model;
}

}  // namespace quarnel02::test
