#pragma once

namespace quarnel02 {

/// Parallel stations of one resource that do a range of tasks.
struct StationGroup {
    int Resource = 0;
    int FirstTask = 0;
    int LastTask = 0;
    int Stations = 0;  ///< from 1

    bool operator==(const StationGroup&) const = default;
};

}  // namespace quarnel02
