#include "files/RowIntake.h"

#include <cmath>

#include "basic/Limits.h"
#include "basic/Numbers.h"
#include "files/ModelChecks.h"

namespace quarnel02 {

namespace {

/// What a value takes in the memory of a database, its text aside, and with its share of a row.
constexpr std::size_t kValueSize = 12;

/// Rounding would change a figure of the user's file in silence. Throws Overflow.
void RequireWholeNumber(const Value& value, const std::string& field) {
    const Value number = ConvertTo(FieldType::Real, value, field);
    const auto* real = std::get_if<double>(&number);
    if (real != nullptr && *real != std::trunc(*real)) {
        throw RunTimeError(ErrorKind::Overflow, field + ": " + NumberText(*real) +
                                                    " is no whole number. Correct it there.");
    }
}

/// What no field takes, or none of this type; empty when there is nothing to say.
const char* Fault(const Value& value, FieldType type) {
    constexpr std::size_t longest_number = 100;
    if (const auto* real = std::get_if<double>(&value)) {
        return std::isfinite(*real) ? "" : " is infinite. Correct it there.";
    }
    const auto* text = std::get_if<std::string>(&value);
    if (text == nullptr) {
        return "";
    }
    if (type != FieldType::Text && text->size() > longest_number) {
        return " is a text, not a number. Correct it there.";
    }
    return text->size() > limits::kText ? " is longer than 128 KB. Shorten it there." : "";
}

}  // namespace

Value FieldFrom(const Value& value, const ColumnSchema& column) {
    const std::string name(column.Name);
    const std::string fault = Fault(value, column.Type);
    if (!fault.empty()) {
        throw RunTimeError(ErrorKind::NotAModel, name + fault);
    }
    if (column.Type == FieldType::Integer) {
        RequireWholeNumber(value, name);
    }
    return ConvertTo(column.Type, value, name);
}

void ContentLimit::Count(const Value& value) {
    const auto* text = std::get_if<std::string>(&value);
    m_bytes += kValueSize + (text == nullptr ? 0 : text->size());
    if (m_bytes > limits::kContent) {
        RefuseFile(m_name, "holds more than 64 MB of rows and texts, which no model does.");
    }
}

void RowIntake::StartRow() {
    if (++m_rows > limits::kRows) {
        RefuseFile(m_name,
                   "has more than 1,048,576 rows in table " + m_table + ", which no model has.");
    }
}

void RowIntake::Refuse(const std::string& why) const {
    throw RunTimeError(ErrorKind::NotAModel, m_name + " has a wrong value in row " +
                                                 std::to_string(m_rows) + " of table " + m_table +
                                                 ": " + why);
}

}  // namespace quarnel02
