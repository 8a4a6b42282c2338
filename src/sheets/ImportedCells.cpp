#include "sheets/ImportedCells.h"

#include <cmath>
#include <limits>
#include <optional>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "model/Schema.h"
#include "sheets/CellEntry.h"

namespace quarnel02 {

namespace {

/// Files of texts, such as CSV, do not say which sign their numbers use.
DecimalSign SignIn(const Sheet& sheet) {
    TextBlock numbers;
    for (const InputRow& row : sheet.Cells) {
        auto& texts = numbers.emplace_back();
        for (const Value& cell : row) {
            if (const auto* text = std::get_if<std::string>(&cell)) {
                texts.push_back(*text);
            }
        }
    }
    return DecimalSignOf(numbers);
}

std::optional<double> NumberOf(const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return static_cast<double>(*whole);
    }
    const auto* real = std::get_if<double>(&value);
    return real == nullptr ? std::nullopt : std::optional(*real);
}

/// Whether the cell says what stands in the model already.
bool Shows(const Value& cell, const SheetColumn& column, const Value& standing) {
    if (const auto number = NumberOf(cell)) {
        return number == NumberOf(standing);
    }
    const auto* text = std::get_if<std::string>(&cell);
    return text == nullptr ? IsNull(standing)
                           : !IsNull(standing) && *text == ShownText(column, standing);
}

bool IsText(const SheetColumn& column) {
    return TypeOfColumn(FindTable(column.Table), column.Field) == FieldType::Text;
}

}  // namespace

ImportedCells::ImportedCells(const Sheet& sheet, Misfits& misfits)
    : m_sheet(sheet), m_misfits(misfits), m_sign(SignIn(sheet)) {}

void ImportedCells::Refuse(CellPlace place, const std::string& reason) {
    m_misfits.Add(
        {place.Row, place.Column, CellName(m_sheet, place.Row, place.Column) + ": " + reason});
}

Value ImportedCells::Take(CellPlace place, const SheetColumn& column, const Value* standing) {
    const Value& cell = CellAt(m_sheet, place.Row, place.Column);
    const auto* text = std::get_if<std::string>(&cell);
    CellEntry entry = text != nullptr && !IsText(column) ? EnteredCell(column, *text, m_sign)
                                                         : CheckedCell(column, cell);
    if (entry.Objection.empty()) {
        return std::move(entry.Content);
    }
    if (standing != nullptr && Shows(cell, column, *standing)) {
        return *standing;
    }
    Refuse(place, entry.Objection);
    return {};
}

Value ImportedCells::TakeWhole(CellPlace place, std::string_view what) {
    const Value& cell = CellAt(m_sheet, place.Row, place.Column);
    if (IsBlank(cell)) {
        return {};
    }
    try {
        const Value real = ConvertTo(FieldType::Real, cell, std::string(what));
        const double number = std::get<double>(real);
        if (number == std::floor(number)) {
            return ConvertTo(FieldType::Integer, real, std::string(what));
        }
        Refuse(place,
               std::string(what) + " is " + NumberText(number) + "; it must be a whole number.");
    } catch (const RunTimeError& error) {
        Refuse(place, error.what());
    }
    return {};
}

}  // namespace quarnel02
