#include "GeneratedLine.h"

#include <random>
#include <string>
#include <utility>
#include <vector>

namespace quarnel02::bench {

namespace {

/// Whole numbers from `low` to `high`, the same on every platform.
class Dice {
  public:
    explicit Dice(std::uint32_t seed) : m_engine(seed) {}
    int operator()(int low, int high) {
        const auto span = static_cast<std::uint32_t>(high - low + 1);
        return low + static_cast<int>(m_engine() % span);
    }

  private:
    std::mt19937 m_engine;
};

Resource RandomResource(int number, Dice& dice) {
    Resource resource;
    resource.Number = number;
    resource.ShortName = "Res" + std::to_string(number);
    resource.Type = number % 4;
    resource.FixedCost = resource.Type == 0   ? dice(2, 9) * 1000
                         : resource.Type == 1 ? 0
                                              : dice(40, 140) * 1000;
    resource.VarCost = dice(1, 12);
    resource.UpTime = dice(80, 99);
    resource.ICF = dice(10, 16) / 10.0;
    resource.ToolChange = dice(1, 12);
    resource.StatPerWrk = resource.Type == 0 ? 1 : dice(2, 6);
    return resource;
}

MatrixEntry RandomEntry(int type, Dice& dice) {
    const int seconds = type == 0 ? dice(8, 45) : dice(3, 20);
    const int tool_cost = type == 1 ? dice(10, 50) * 1000 : dice(2, 90) * 100;
    const int tool = dice(1, 5);
    return {static_cast<double>(seconds), tool, static_cast<double>(tool_cost)};
}

}  // namespace

LineModel GeneratedLine(int tasks, int resources, std::uint32_t seed) {
    Dice dice(seed);
    Production production{240, 0.25, 22, 4, 15, "Generated"};
    std::vector<Task> all_tasks;
    for (int task = 1; task <= tasks; ++task) {
        all_tasks.push_back({task, "Generated task " + std::to_string(task)});
    }
    std::vector<Resource> all_resources;
    std::vector<MatrixRow> matrix;
    for (int number = 1; number <= resources; ++number) {
        all_resources.push_back(RandomResource(number, dice));
        for (int task = 1; task <= tasks; ++task) {
            matrix.push_back({number, task, RandomEntry(all_resources.back().Type, dice)});
        }
    }
    return {std::move(production),
            std::move(all_resources),
            std::move(all_tasks),
            matrix,
            {{20000, 10}, {40000, 20}, {60000, 40}, {80000, 20}, {120000, 10}}};
}

}  // namespace quarnel02::bench
