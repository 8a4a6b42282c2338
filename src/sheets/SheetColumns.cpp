#include "sheets/SheetColumns.h"

#include <array>

#include "basic/Numbers.h"
#include "model/Schema.h"

namespace quarnel02 {

namespace {

constexpr std::array kGeneral = {
    SheetColumn{"Gen", "Product", GenColumn::Product, "Product"},
    SheetColumn{"Gen", "Resources", GenColumn::Resources, "Number of resources"},
    SheetColumn{"Gen", "Tasks", GenColumn::Tasks, "Number of tasks"},
    SheetColumn{"Gen", "Days", GenColumn::Days, "Working days per year"},
    SheetColumn{"Gen", "ACF", GenColumn::ACF, "Annual capital factor (ACF)"},
    SheetColumn{"Gen", "LaborCost", GenColumn::LaborCost, "Labour cost ($/h)"},
    SheetColumn{"Gen", "TransportTime", GenColumn::TransportTime, "Transport time (s)"},
    SheetColumn{"Gen", "Penalty", GenColumn::Penalty, "Penalty ($/unit)"}};

constexpr std::array kTasks = {
    SheetColumn{"Tasks", "TaskId", TaskColumn::TaskId, "Number"},
    SheetColumn{"Tasks", "Description", TaskColumn::Description, "Description"}};

constexpr std::array kResources = {
    SheetColumn{"Resources", "ResourceId", ResourceColumn::ResourceId, "Number"},
    SheetColumn{"Resources", "Description", ResourceColumn::Description, "Description"},
    SheetColumn{"Resources", "ShortName", ResourceColumn::ShortName, "Short name"},
    SheetColumn{"Resources", "FixedCost", ResourceColumn::FixedCost, "Fixed cost ($)"},
    SheetColumn{"Resources", "VarCost", ResourceColumn::VarCost, "Variable cost ($/h)"},
    SheetColumn{"Resources", "UpTime", ResourceColumn::UpTime, "Uptime (%)"},
    SheetColumn{"Resources", "ICF", ResourceColumn::ICF, "Investment factor (ICF)"},
    SheetColumn{"Resources", "ToolChange", ResourceColumn::ToolChange, "Tool change time (s)"},
    SheetColumn{"Resources", "StatPerWrk", ResourceColumn::StatPerWrk, "Stations per worker"},
    SheetColumn{"Resources", "Type", ResourceColumn::Type, "Type of equipment"}};

constexpr std::array kFigures = {
    SheetColumn{"Matrix", "TaskTime", MatrixColumn::TaskTime, "Task time (s)"},
    SheetColumn{"Matrix", "ToolNum", MatrixColumn::ToolNum, "Tool number"},
    SheetColumn{"Matrix", "ToolCost", MatrixColumn::ToolCost, "Tool cost ($)"}};

constexpr std::array kDemand = {
    SheetColumn{"Demand", "Volume", DemandColumn::Volume, "Volume (units/year)"},
    SheetColumn{"Demand", "Prob", DemandColumn::Prob, "Probability (%)"}};

constexpr std::array kScenarios = {
    SheetColumn{"Scenarios", "Name", ScenarioColumn::Name, "Name"},
    SheetColumn{"Scenarios", "Differences", ScenarioColumn::Differences, "Differences"}};

constexpr std::array<std::string_view, 4> kTypes = {"MNL", "FXD", "PGM", "AUT"};

bool IsType(const SheetColumn& column) {
    return column.Table == "Resources" && column.Place == ResourceColumn::Type;
}

}  // namespace

std::span<const SheetColumn> GeneralColumns() {
    return kGeneral;
}

std::span<const SheetColumn> TaskColumns() {
    return kTasks;
}

std::span<const SheetColumn> ResourceColumns() {
    return kResources;
}

std::span<const SheetColumn> ColumnsOf(RecordKind kind) {
    return kind == RecordKind::Tasks ? TaskColumns() : ResourceColumns();
}

std::span<const SheetColumn> FigureColumns() {
    return kFigures;
}

std::span<const SheetColumn> DemandColumns() {
    return kDemand;
}

std::span<const std::string_view> TypeLabels() {
    return kTypes;
}

std::span<const SheetColumn> ScenarioColumns() {
    return kScenarios;
}

std::string_view NameOf(RecordKind kind) {
    return kind == RecordKind::Tasks ? "task" : "resource";
}

std::string ShownText(const SheetColumn& column, const Value& value) {
    if (IsNull(value)) {
        return {};
    }
    std::string text = std::get<std::string>(ConvertTo(FieldType::Text, value, ""));
    for (std::size_t code = 0; IsType(column) && code < kTypes.size(); ++code) {
        if (text == NumberText(static_cast<int>(code))) {
            return std::string(kTypes.at(code));
        }
    }
    return text;
}

std::optional<int> TypeCode(std::string_view text) {
    for (std::size_t code = 0; code < kTypes.size() && !text.empty(); ++code) {
        if (SameName(text, kTypes.at(code).substr(0, text.size())) ||
            text == NumberText(static_cast<int>(code))) {
            return static_cast<int>(code);
        }
    }
    return std::nullopt;
}

}  // namespace quarnel02
