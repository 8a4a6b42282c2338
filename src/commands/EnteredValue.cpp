#include "commands/EnteredValue.h"

#include <cmath>

#include "basic/Numbers.h"
#include "basic/OneLine.h"
#include "basic/RunTimeError.h"
#include "model/Schema.h"
#include "shell/Figures.h"

namespace quarnel02 {

namespace {

constexpr double kLargestNumber = 32767;

bool IsRecordNumber(const std::string& table, const std::string& column) {
    return (SameName(table, "Tasks") && SameName(column, "TaskId")) ||
           (SameName(table, "Resources") && SameName(column, "ResourceId"));
}

bool CanBeRecordNumber(double value) {
    return value == std::floor(value) && value >= 1 && value <= kLargestNumber;
}

/// Why the value cannot be, beginning with `caption`; "" when it can.
std::string ObjectionTo(const std::string& table, const std::string& column, double value,
                        const std::string& caption) {
    if (IsRecordNumber(table, column)) {
        return CanBeRecordNumber(value) ? ""
                                        : caption + " is " + NumberText(value) +
                                              "; it must be a whole number from 1 to " +
                                              NumberText(kLargestNumber) + ".";
    }
    const Figure* figure = FindFigure(table, column);
    if (figure == nullptr) {
        return {};
    }
    const std::string objection = Objection(*figure, value);
    return objection.empty() ? "" : caption + objection.substr(figure->Caption.size());
}

}  // namespace

Value EnteredValue(const std::string& table, const std::string& column, const std::string& text,
                   const std::string& caption) {
    const FieldType type = TypeOfColumn(FindTable(table), column);
    const std::string line = OneLine(text);
    if (type == FieldType::Text) {
        return line;
    }
    const double number = TextToDouble(line, caption);
    if (const std::string objection = ObjectionTo(table, column, number, caption);
        !objection.empty()) {
        throw RunTimeError(ErrorKind::Overflow, objection);
    }
    return ConvertTo(type, number, caption);
}

}  // namespace quarnel02
