#include "sheets/CellEntry.h"

#include <cmath>
#include <limits>

#include "basic/Numbers.h"
#include "basic/OneLine.h"
#include "basic/RunTimeError.h"
#include "model/Schema.h"
#include "shell/Figures.h"

namespace quarnel02 {

namespace {

constexpr double kMostWhole = std::numeric_limits<std::int16_t>::max();

FieldType TypeOf(const SheetColumn& column) {
    return TypeOfColumn(FindTable(column.Table), column.Field);
}

bool IsEquipment(const SheetColumn& column) {
    return column.Table == "Resources" && column.Place == ResourceColumn::Type;
}

bool IsCount(const SheetColumn& column) {
    return column.Table == "Gen";
}

std::string CaptionOf(const SheetColumn& column, const Figure* figure) {
    if (figure != nullptr) {
        return std::string(figure->Caption);
    }
    std::string caption(column.Caption);
    caption.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(caption.front())));
    return caption;
}

/// What a whole number without limits of its own may be.
std::string WholeRule(const SheetColumn& column, const Figure* figure) {
    if (figure != nullptr) {
        return "from -32,767 to 32,767";
    }
    return IsCount(column) ? "from 0 to 32,767" : "from 1 to 32,767";
}

bool IsAllowedWhole(const SheetColumn& column, const Figure* figure, double number) {
    const double least = figure != nullptr ? -kMostWhole : (IsCount(column) ? 0 : 1);
    return number == std::floor(number) && number >= least && number <= kMostWhole;
}

std::string WholeObjection(const SheetColumn& column, const Figure* figure,
                           const std::string& number) {
    return CaptionOf(column, figure) + " is " + number + "; it must be a whole number " +
           WholeRule(column, figure) + ".";
}

std::string NumberObjection(const SheetColumn& column, double number) {
    const Figure* figure = FindFigure(column.Table, column.Field);
    std::string objection = figure != nullptr ? Objection(*figure, number) : "";
    if (objection.empty() && TypeOf(column) == FieldType::Integer &&
        !IsAllowedWhole(column, figure, number)) {
        objection = WholeObjection(column, figure, NumberText(number));
    }
    return objection;
}

CellEntry NumberEntry(const SheetColumn& column, double number) {
    std::string objection = NumberObjection(column, number);
    if (!objection.empty()) {
        return {{}, std::move(objection)};
    }
    return {ConvertTo(TypeOf(column), number, std::string(column.Caption)), {}};
}

CellEntry EquipmentEntry(const std::string& text) {
    if (const auto code = TypeCode(text)) {
        return {Value(std::int64_t{*code}), {}};
    }
    return {{},
            "type of equipment is " + (text.empty() ? "empty" : "\"" + text + "\"") +
                "; it must be MNL, FXD, PGM or AUT."};
}

CellEntry EmptyNumber(const SheetColumn& column) {
    const Figure* figure = FindFigure(column.Table, column.Field);
    return {
        {},
        figure != nullptr ? ObjectionToNothing(*figure) : WholeObjection(column, figure, "empty")};
}

std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string::npos ? ""
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Without the unit of the figure that spreadsheets show with the number.
std::string WithoutUnit(std::string text, const Figure* figure) {
    if (figure != nullptr && figure->Unit.starts_with(" $") && text.starts_with('$')) {
        text.erase(0, 1);
    }
    if (figure != nullptr && figure->Unit == " %" && text.ends_with('%')) {
        text.pop_back();
    }
    return text;
}

CellEntry NumberEntry(const SheetColumn& column, const std::string& text, DecimalSign sign) {
    const Figure* figure = FindFigure(column.Table, column.Field);
    const std::string number = WithoutUnit(Trimmed(text), figure);
    if (number.empty()) {
        return EmptyNumber(column);
    }
    try {
        return NumberEntry(column, EnteredNumber(number, sign, CaptionOf(column, figure)));
    } catch (const RunTimeError& error) {
        return {{}, error.what()};
    }
}

}  // namespace

CellEntry EnteredCell(const SheetColumn& column, const std::string& text, DecimalSign sign) {
    const std::string line = OneLine(text);
    if (IsEquipment(column)) {
        return EquipmentEntry(Trimmed(line));
    }
    return TypeOf(column) == FieldType::Text ? CellEntry{Value(line), {}}
                                             : NumberEntry(column, line, sign);
}

CellEntry CheckedCell(const SheetColumn& column, const Value& value) {
    if (TypeOf(column) == FieldType::Text) {
        return {ConvertTo(FieldType::Text, value, ""), {}};
    }
    if (const auto* number = std::get_if<double>(&value); number && !IsEquipment(column)) {
        return NumberEntry(column, *number);
    }
    return EnteredCell(column, ShownText(column, value), DecimalSign::Point);
}

}  // namespace quarnel02
