#include "commands/Parameters.h"

#include <array>
#include <span>
#include <string>

#include "basic/RunTimeError.h"
#include "commands/ParameterValue.h"

namespace quarnel02 {

namespace {

constexpr const char* kWholeRow = "SELECT * FROM Gen;";

/// A box and its field of Gen.
struct Parameter {
    TextBox Box;
    const char* Field;
    const char* Caption;
};

constexpr std::array kParameters = {
    Parameter{TextBox::txtResources, "Resources", "Number of resources"},
    Parameter{TextBox::txtTasks, "Tasks", "Number of tasks"},
    Parameter{TextBox::txtDays, "Days", "Working days per year"},
    Parameter{TextBox::txtACF, "ACF", "Annual capital factor (ACF)"},
    Parameter{TextBox::txtLaborCost, "LaborCost", "Labour cost"},
    Parameter{TextBox::txtTransTime, "TransportTime", "Transport time"},
    Parameter{TextBox::txtPenalty, "Penalty", "Penalty"},
    Parameter{TextBox::txtProduct, "Product", "Product"}};
constexpr std::span<const Parameter> kPenalty = std::span(kParameters).subspan(6, 1);

void Save(const Database& database, const TextBoxes& boxes, const char* sql,
          std::span<const Parameter> parameters) {
    RecordSet gen = database.OpenRecordSet(sql);
    gen.Edit();
    for (const Parameter& parameter : parameters) {
        const std::string text = boxes.Text(parameter.Box);
        if (text != gen.Text(parameter.Field)) {
            gen.Set(parameter.Field, ParameterValue(parameter.Field, parameter.Caption, text));
        }
    }
    gen.Update();
    gen.MoveToLastModified();
}

}  // namespace

void SaveGeneral(MainForm& form, CurrentModel& current) {
    Save(form.OpenWorkingCopy(), form, kWholeRow, kParameters);
    current.Changed = true;
}

void SavePenalty(MainForm& form, CurrentModel& current) {
    Save(form.OpenWorkingCopy(), form, "SELECT Penalty FROM Gen;", kPenalty);
    current.Changed = true;
}

std::optional<TextBox> RefusedParameter(const Database& database, const TextBoxes& boxes) {
    const RecordSet gen = database.OpenRecordSet(kWholeRow);
    for (const Parameter& parameter : kParameters) {
        const std::string text = boxes.Text(parameter.Box);
        try {
            if (text != gen.Text(parameter.Field)) {
                static_cast<void>(ParameterValue(parameter.Field, parameter.Caption, text));
            }
        } catch (const RunTimeError&) {
            return parameter.Box;
        }
    }
    return std::nullopt;
}

}  // namespace quarnel02
