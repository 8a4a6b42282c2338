#include "commands/ResourceRecords.h"

#include <array>

#include "basic/Numbers.h"
#include "sheets/SheetColumns.h"

namespace quarnel02 {

namespace {

/// What the classes are for, by their codes.
constexpr std::array<std::string_view, 4> kHelp = {
    "Manual assembly workstations typically have a low fixed costs but higher variable costs.  "
    "Operator downtime can be modeled by setting Stations/Worker less than 1.0",
    "Fixed assembly machines are specially built for a given task.  Enter a fixed cost of $0, and "
    "price each tool to bear its percentage of the total investment.",
    "Programmable machine tools, such as CNC equipment, have high initial fixed investment costs, "
    "but have much lower variable costs throughout the life cycle of the product.",
    "Automated industrial equipment, such as multi-axis robots, have high fixed costs as well as "
    "other hidden costs, such as indirect engineering support."};

constexpr int kTypeCount = static_cast<int>(kHelp.size());

}  // namespace

NumberedTable ResourceTable() {
    const std::string blanks = "   ";
    return {"Resources",
            "ResourceId",
            TextBox::txtResources,
            {{"ShortName", blanks},
             {"Description", blanks},
             {"Type", 0},
             {"FixedCost", 0},
             {"VarCost", 0},
             {"UpTime", 100},
             {"ICF", 1},
             {"ToolChange", 1},
             {"StatPerWrk", 1}},
            RecordKind::Resources};
}

std::optional<TypeTexts> TypeOfCode(std::string_view code) {
    for (std::size_t type = 0; type < kHelp.size(); ++type) {
        if (NumberText(static_cast<int>(type)) == code) {
            return TypeTexts{static_cast<ResourceType>(type), TypeLabels()[type], kHelp.at(type)};
        }
    }
    return std::nullopt;
}

std::string NextTypeCode(const std::string& code, int step) {
    const int next = (code.empty() ? 0 : TextToInteger(code, "Type")) + step;
    if (next == -1) {
        return NumberText(kTypeCount - 1);
    }
    return NumberText(next == kTypeCount ? 0 : next);
}

}  // namespace quarnel02
