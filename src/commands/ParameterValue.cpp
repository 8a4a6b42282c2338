#include "commands/ParameterValue.h"

#include <cctype>

#include "basic/RunTimeError.h"
#include "model/Schema.h"
#include "shell/Figures.h"

namespace quarnel02 {

namespace {

constexpr std::string_view kTable = "Gen";

std::string AsSentence(std::string text) {
    text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
    return text;
}

}  // namespace

Value ParameterValue(std::string_view field, const std::string& caption, const std::string& text) {
    Value value = ConvertTo(TypeOfColumn(FindTable(kTable), field), text, caption);
    const auto* figure = FindFigure(kTable, field);
    const auto* number = std::get_if<double>(&value);
    if (figure != nullptr && number != nullptr) {
        const std::string objection = Objection(*figure, *number);
        if (!objection.empty()) {
            throw RunTimeError(ErrorKind::Overflow, AsSentence(objection));
        }
    }
    return value;
}

}  // namespace quarnel02
