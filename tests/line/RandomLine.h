#pragma once

#include <rapidcheck.h>

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "line/ContentTwin.h"
#include "line/FixedDemand.h"
#include "support/ModelScript.h"

namespace quarnel02::test {

/// Uniform from the first test case on.
inline int Roll(int low, int high) {
    return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(low, high + 1));
}

template <typename Value>
Value OneOf(std::initializer_list<Value> values) {
    return *(values.begin() + Roll(0, static_cast<int>(values.size()) - 1));
}

inline ResourceRow RandomResource() {
    ResourceRow resource("");
    resource.FixedCost = OneOf({0.0, 0.0, 5000.0, 12345.67});
    resource.VarCost = OneOf({0.0, 0.0, 7.5, 20.0});
    resource.UpTime = OneOf({100.0, 100.0, 90.0, 33.3});
    resource.ICF = OneOf({0.0, 1.0, 1.3});
    resource.ToolChange = OneOf({0.0, 2.0, 7.7});
    resource.StatPerWrk = OneOf({0.5, 1.0, 3.0});
    return resource;
}

inline MatrixEntry RandomEntry() {
    return {OneOf({0.0, 5.0, 5.0, 11.8, 34.1, 60.0}), Roll(1, 4),
            OneOf({0.0, 0.0, 100.0, 2500.55})};
}

/// A small random model without demand. Figures come from few values, so that equal costs, free
/// stations, times of 0 and pairs without a row are common. `density`: pairs in ten with a row.
inline ModelScript RandomModel(int density) {
    ModelScript model;
    model.Days = OneOf({240.0, 250.0});
    model.ACF = OneOf({0.0, 0.25, 0.3});
    model.LaborCost = OneOf({0.0, 0.0, 15.0, 22.5});
    model.TransportTime = OneOf({0.0, 2.0, 5.0});
    model.Tasks = Roll(1, 6);
    const int resources = Roll(1, 4);
    for (int number = 1; number <= resources; ++number) {
        model.Resources.push_back(RandomResource());
        for (int task = 1; task <= model.Tasks; ++task) {
            if (Roll(1, 10) <= density) {
                model.Matrix.push_back({number, task, RandomEntry()});
            }
        }
    }
    return model;
}

template <typename Record>
void Shuffle(std::vector<Record>& records) {
    for (std::size_t left = records.size(); left > 1; --left) {
        std::swap(records[left - 1],
                  records[static_cast<std::size_t>(Roll(0, static_cast<int>(left) - 1))]);
    }
}

/// The same model from records in another order.
inline LineModel Shuffled(ModelScript model) {
    std::vector<Resource> resources = model.NumberedResources();
    std::vector<Task> tasks = model.NumberedTasks();
    Shuffle(resources);
    Shuffle(tasks);
    Shuffle(model.Matrix);
    return {model, resources, tasks, model.Matrix, model.Demand};
}

/// A volume whose cycle time is met exactly by some stations of the first resource that can do
/// anything, or any volume.
inline double RandomVolume(const LineModel& model, int shifts) {
    const double seconds = model.Parameters().Days * shifts * 8 * 3600;
    for (int resource = 1; resource <= model.ResourceCount() && Roll(0, 2) > 0; ++resource) {
        for (int task = 1; task <= model.TaskCount(); ++task) {
            if (model.CanDo(resource, task)) {
                const float work =
                    WorkTimeTwin(model.Entries(resource, task, task), model.ResourceOf(resource),
                                 model.Parameters().TransportTime);
                return seconds / static_cast<double>(work) * Roll(1, 4);
            }
        }
    }
    return Roll(1, 50) * 10000;
}

inline FixedDemandRequest RandomRequest(const LineModel& model) {
    FixedDemandRequest request;
    request.Shifts = static_cast<std::int16_t>(Roll(1, 3));
    request.Volume = RandomVolume(model, request.Shifts);
    if (Roll(0, 1) == 1) {
        request.StationLimit = static_cast<std::int16_t>(Roll(0, 4));
    }
    return request;
}

}  // namespace quarnel02::test
