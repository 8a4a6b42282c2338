#include "study/ScenarioFields.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

constexpr double kNoLimit = std::numeric_limits<double>::infinity();
constexpr double kMostCount = std::numeric_limits<std::int16_t>::max();

constexpr auto kFigure = ScenarioTarget::Figure;
constexpr std::array kFields = {
    ScenarioField{"Days", kFigure, FigureKind::Days, false, 0, 366, true, false},
    ScenarioField{"ACF", kFigure, FigureKind::ACF, false, 0, kNoLimit, false, false},
    ScenarioField{"LaborCost", kFigure, FigureKind::LaborCost, false, 0, kNoLimit, false, false},
    ScenarioField{"TransportTime", kFigure, FigureKind::TransportTime, false, 0, kNoLimit, false,
                  false},
    ScenarioField{"Penalty", kFigure, FigureKind::Penalty, false, 0, kNoLimit, false, false},
    ScenarioField{"FixedCost", kFigure, FigureKind::FixedCost, true, 0, kNoLimit, false, false},
    ScenarioField{"VarCost", kFigure, FigureKind::VarCost, true, 0, kNoLimit, false, false},
    ScenarioField{"UpTime", kFigure, FigureKind::UpTime, true, 0, 100, true, false},
    ScenarioField{"ICF", kFigure, FigureKind::ICF, true, 0, kNoLimit, false, false},
    ScenarioField{"ToolChange", kFigure, FigureKind::ToolChange, true, 0, kNoLimit, false, false},
    ScenarioField{"StatPerWrk", kFigure, FigureKind::StatPerWrk, true, 0, kNoLimit, true, false},
    ScenarioField{"TaskTimes", kFigure, FigureKind::TaskTimes, true, 0, kNoLimit, true, false},
    ScenarioField{"Demand", ScenarioTarget::Demand, {}, false, 0, kNoLimit, true, false},
    ScenarioField{"Shifts", ScenarioTarget::Shifts, {}, false, 1, 3, false, true},
    ScenarioField{
        "StationLimit", ScenarioTarget::StationLimit, {}, false, 1, kMostCount, false, true}};

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string Rule(const ScenarioField& field) {
    std::string rule = "must be ";
    rule += field.Whole ? "a whole number of at least " : field.AboveLow ? "above " : "at least ";
    rule += NumberText(field.Low);
    return std::isfinite(field.High) ? rule + " and at most " + NumberText(field.High) : rule;
}

bool IsAllowed(const ScenarioField& field, double value) {
    return std::isfinite(value) && value <= field.High &&
           (field.AboveLow ? value > field.Low : value >= field.Low) &&
           (!field.Whole || value == std::trunc(value));
}

}  // namespace

std::span<const ScenarioField> ScenarioFields() {
    return kFields;
}

const ScenarioField& FieldOf(const Difference& difference) {
    return *std::find_if(kFields.begin(), kFields.end(), [&](const ScenarioField& field) {
        return field.Target == difference.Target &&
               (field.Target != kFigure || field.Kind == difference.Figure.Kind);
    });
}

bool EqualNames(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Lower(x) == Lower(y); });
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

void ScenarioValueReader::Refuse(const std::string& why) const {
    throw RunTimeError(ErrorKind::TypeMismatch, m_words.Who + ": " + why);
}

double ScenarioValueReader::Number(std::string_view text) const {
    try {
        return TextToDouble(text, "Value");
    } catch (const RunTimeError&) {
        Refuse("\"" + std::string(text) + "\" is no number.");
    }
}

double ScenarioValueReader::Share(std::string_view text) const {
    constexpr double least = -100;
    if (!text.ends_with('%')) {
        Refuse("write the change as a share, such as +10%, or " + m_words.NewValue + ".");
    }
    if (m_field.Whole) {
        Refuse(m_words.Name + " takes no share. Write " + m_words.NewValue + ".");
    }
    // A blank may stand between sign and number.
    const std::string number(Trimmed(text.substr(1, text.size() - 2)));
    const double share = (text.front() == '-' ? -1 : 1) * Number(number);
    if (share < least || (m_field.AboveLow && share == least)) {
        Refuse("nothing would be left of " + m_words.Name + ".");
    }
    return share;
}

std::optional<double> ScenarioValueReader::Value(std::string_view text) const {
    if (m_field.Target == ScenarioTarget::StationLimit && EqualNames(text, "none")) {
        return {};
    }
    if (m_field.Target == kFigure && m_field.Kind == FigureKind::TaskTimes) {
        Refuse("task times change by a share, such as -5%.");
    }
    const double value = Number(text);
    if (!IsAllowed(m_field, value)) {
        Refuse(m_words.Name + " " + Rule(m_field) + ".");
    }
    return value;
}

}  // namespace quarnel02
