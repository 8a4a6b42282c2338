#include "generate_model.h"

#include <random>

#include "basic/Numbers.h"

namespace quarnel02 {

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

std::string Row(std::initializer_list<std::string> values) {
    std::string row;
    for (const std::string& value : values) {
        row += (row.empty() ? "(" : ", ") + value;
    }
    return row + ")";
}

std::string Insert(const char* table, const std::string& row) {
    return std::string("INSERT INTO ") + table + " VALUES " + row + ";\n";
}

std::string ResourceRow(int resource, Dice& dice) {
    const int type = resource % 4;
    const int fixed = type == 0 ? dice(2, 9) * 1000 : type == 1 ? 0 : dice(40, 140) * 1000;
    const std::string id = NumberText(resource);
    return Row({id, "'Res" + id + "'", "'Generated resource " + id + "'", NumberText(type),
                NumberText(fixed), NumberText(dice(1, 12)), NumberText(dice(80, 99)),
                NumberText(dice(10, 16) / 10.0), NumberText(dice(1, 12)),
                NumberText(type == 0 ? 1 : dice(2, 6))});
}

std::string MatrixRow(int resource, int task, Dice& dice) {
    const int type = resource % 4;
    const int seconds = type == 0 ? dice(8, 45) : dice(3, 20);
    const int tool_cost = type == 1 ? dice(10, 50) * 1000 : dice(2, 90) * 100;
    return Row({NumberText(resource), NumberText(task), NumberText(seconds), NumberText(dice(1, 5)),
                NumberText(tool_cost)});
}

}  // namespace

std::string GeneratedModelScript(int tasks, int resources, std::uint32_t seed) {
    Dice dice(seed);
    std::string script = "UPDATE Gen SET Resources = " + NumberText(resources) +
                         ", Tasks = " + NumberText(tasks) +
                         ", Days = 240, ACF = 0.25, LaborCost = 22, TransportTime = 4, "
                         "Penalty = 15, Product = 'Generated';\n";
    for (int task = 1; task <= tasks; ++task) {
        const std::string id = NumberText(task);
        script += Insert("Tasks", Row({id, "'Generated task " + id + "'"}));
    }
    for (int resource = 1; resource <= resources; ++resource) {
        script += Insert("Resources", ResourceRow(resource, dice));
        for (int task = 1; task <= tasks; ++task) {
            script += Insert("Matrix", MatrixRow(resource, task, dice));
        }
    }
    for (const char* demand :
         {"(20000, 10)", "(40000, 20)", "(60000, 40)", "(80000, 20)", "(120000, 10)"}) {
        script += Insert("Demand", demand);
    }
    return script;
}

}  // namespace quarnel02
