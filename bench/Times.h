#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace quarnel02::bench {

/// The median of what `measure` gives in so many runs.
template <class Measure>
double MedianOf(int runs, Measure measure) {
    std::vector<double> results;
    results.reserve(static_cast<std::size_t>(runs));
    for (int run = 0; run < runs; ++run) {
        results.push_back(measure());
    }
    const auto middle = results.begin() + runs / 2;
    std::nth_element(results.begin(), middle, results.end());
    return *middle;
}

template <class Action>
double MillisecondsOf(Action action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

}  // namespace quarnel02::bench
