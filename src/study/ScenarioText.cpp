#include "study/ScenarioText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "study/LineText.h"

namespace quarnel02 {

namespace {

constexpr double kNoLimit = std::numeric_limits<double>::infinity();
constexpr double kMostCount = std::numeric_limits<std::int16_t>::max();

/// A name that a difference may have, and the values that it takes.
struct FieldName {
    std::string_view Name;
    ScenarioTarget Target;
    FigureKind Kind;
    bool OfResource;
    double Low;
    double High;
    bool AboveLow;  ///< `Low` itself is not allowed
    bool Whole;     ///< only whole numbers
};

constexpr auto kFigure = ScenarioTarget::Figure;
constexpr std::array kFields = {
    FieldName{"Days", kFigure, FigureKind::Days, false, 0, 366, true, false},
    FieldName{"ACF", kFigure, FigureKind::ACF, false, 0, kNoLimit, false, false},
    FieldName{"LaborCost", kFigure, FigureKind::LaborCost, false, 0, kNoLimit, false, false},
    FieldName{"TransportTime", kFigure, FigureKind::TransportTime, false, 0, kNoLimit, false,
              false},
    FieldName{"Penalty", kFigure, FigureKind::Penalty, false, 0, kNoLimit, false, false},
    FieldName{"FixedCost", kFigure, FigureKind::FixedCost, true, 0, kNoLimit, false, false},
    FieldName{"VarCost", kFigure, FigureKind::VarCost, true, 0, kNoLimit, false, false},
    FieldName{"UpTime", kFigure, FigureKind::UpTime, true, 0, 100, true, false},
    FieldName{"ICF", kFigure, FigureKind::ICF, true, 0, kNoLimit, false, false},
    FieldName{"ToolChange", kFigure, FigureKind::ToolChange, true, 0, kNoLimit, false, false},
    FieldName{"StatPerWrk", kFigure, FigureKind::StatPerWrk, true, 0, kNoLimit, true, false},
    FieldName{"TaskTimes", kFigure, FigureKind::TaskTimes, true, 0, kNoLimit, true, false},
    FieldName{"Demand", ScenarioTarget::Demand, {}, false, 0, kNoLimit, true, false},
    FieldName{"Shifts", ScenarioTarget::Shifts, {}, false, 1, 3, false, true},
    FieldName{"StationLimit", ScenarioTarget::StationLimit, {}, false, 1, kMostCount, false, true}};

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool IsDigit(char sign) {
    return sign >= '0' && sign <= '9';
}

bool SameName(std::string_view a, std::string_view b) {
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

std::string Rule(const FieldName& field) {
    std::string rule = "must be ";
    rule += field.Whole ? "a whole number of at least " : field.AboveLow ? "above " : "at least ";
    rule += NumberText(field.Low);
    return std::isfinite(field.High) ? rule + " and at most " + NumberText(field.High) : rule;
}

bool IsAllowed(const FieldName& field, double value) {
    return std::isfinite(value) && value <= field.High &&
           (field.AboveLow ? value > field.Low : value >= field.Low) &&
           (!field.Whole || value == std::trunc(value));
}

/// Reads one difference.
class Reader {
  public:
    Reader(const LineModel& model, std::string_view text) : m_model(model), m_text(text) {}

    [[nodiscard]] Difference Read() const {
        const std::size_t sign = SignPlace();
        const FieldName& field = ReadField(Trimmed(m_text.substr(0, sign)));
        Difference difference{field.Target, {field.Kind, 0}, m_text[sign] != '=', {}};
        difference.Figure.Resource = ReadResource(field, Trimmed(m_text.substr(0, sign)));
        if (difference.ByShare) {
            ReadShare(field, difference, m_text.substr(sign));
        } else {
            ReadValue(field, difference, Trimmed(m_text.substr(sign + 1)));
        }
        return difference;
    }

  private:
    [[noreturn]] void Refuse(const std::string& why) const {
        throw RunTimeError(ErrorKind::TypeMismatch, "\"" + std::string(m_text) + "\": " + why);
    }

    /// Of "=", or of the sign of a share, which a name may have in it too.
    [[nodiscard]] std::size_t SignPlace() const {
        const std::size_t equals = m_text.rfind('=');
        std::size_t sign = equals != std::string_view::npos ? equals : m_text.find_last_of("+-");
        if (sign != std::string_view::npos && sign > 1 && Lower(m_text[sign - 1]) == 'e' &&
            m_text[sign] != '=' && IsDigit(m_text[sign - 2])) {
            sign = m_text.find_last_of("+-", sign - 1);  // it was that of an exponent
        }
        if (sign == std::string_view::npos) {
            Refuse("write a name, \"=\" and a number, or a share such as +10%.");
        }
        return sign;
    }

    /// Name of the field, behind the last point.
    [[nodiscard]] const FieldName& ReadField(std::string_view name) const {
        const std::string_view last = Trimmed(name.substr(name.rfind('.') + 1));
        const auto* const field =
            std::find_if(kFields.begin(), kFields.end(),
                         [&](const FieldName& each) { return SameName(each.Name, last); });
        if (field == kFields.end()) {
            Refuse("there is no figure \"" + std::string(last) +
                   "\". There are Demand, Shifts, StationLimit, Days, ACF, LaborCost, "
                   "TransportTime, Penalty, and of a resource FixedCost, VarCost, UpTime, ICF, "
                   "ToolChange, StatPerWrk and TaskTimes.");
        }
        return *field;
    }

    [[nodiscard]] int ReadResource(const FieldName& field, std::string_view name) const {
        const std::size_t point = name.rfind('.');
        if (!field.OfResource) {
            if (point != std::string_view::npos) {
                Refuse(std::string(field.Name) +
                       " is no figure of a resource. Leave out what is "
                       "in front of it.");
            }
            return 0;
        }
        if (point == std::string_view::npos) {
            Refuse("say of which resource, for example " + NameText(m_model.ResourceOf(1)) + "." +
                   std::string(field.Name) + ".");
        }
        return ResourceNamed(Trimmed(name.substr(0, point)));
    }

    [[nodiscard]] int ResourceNamed(std::string_view name) const {
        int number = 0;
        for (const Resource& resource : m_model.Resources()) {
            if (name == "#" + NumberText(resource.Number)) {
                return resource.Number;
            }
            if (SameName(NameText(resource), name)) {
                if (number != 0) {
                    Refuse("resources " + NumberText(number) + " and " +
                           NumberText(resource.Number) + " are both called so. Write #" +
                           NumberText(number) + " or #" + NumberText(resource.Number) + ".");
                }
                number = resource.Number;
            }
        }
        if (number == 0) {
            Refuse("the model has no resource \"" + std::string(name) + "\".");
        }
        return number;
    }

    [[nodiscard]] double ReadNumber(std::string_view text) const {
        try {
            return TextToDouble(text, "Value");
        } catch (const RunTimeError&) {
            Refuse("\"" + std::string(text) + "\" is no number.");
        }
    }

    void ReadShare(const FieldName& field, Difference& difference, std::string_view text) const {
        constexpr double least = -100;
        if (!text.ends_with('%')) {
            Refuse("write the change as a share, such as +10%, or \"=\" and the new value.");
        }
        if (field.Whole) {
            Refuse(std::string(field.Name) + " takes no share. Write \"=\" and a number.");
        }
        // A blank may stand between sign and number.
        const std::string number(Trimmed(text.substr(1, text.size() - 2)));
        difference.Value = (text.front() == '-' ? -1 : 1) * ReadNumber(number);
        if (*difference.Value < least || (field.AboveLow && *difference.Value == least)) {
            Refuse("nothing would be left of " + std::string(field.Name) + ".");
        }
    }

    void ReadValue(const FieldName& field, Difference& difference, std::string_view text) const {
        if (field.Target == ScenarioTarget::StationLimit && SameName(text, "none")) {
            return;
        }
        if (field.Kind == FigureKind::TaskTimes && field.Target == kFigure) {
            Refuse("task times change by a share, such as -5%.");
        }
        difference.Value = ReadNumber(text);
        if (!IsAllowed(field, *difference.Value)) {
            Refuse(std::string(field.Name) + " " + Rule(field) + ".");
        }
    }

    const LineModel& m_model;
    std::string_view m_text;
};

bool SameTarget(const Difference& a, const Difference& b) {
    return a.Target == b.Target && a.Figure == b.Figure;
}

const FieldName& FieldOf(const Difference& difference) {
    return *std::find_if(kFields.begin(), kFields.end(), [&](const FieldName& field) {
        return field.Target == difference.Target &&
               (field.Target != kFigure || field.Kind == difference.Figure.Kind);
    });
}

/// The name of a resource, or its number where the name is another one's too or cannot be read.
std::string ResourceText(const LineModel& model, int number) {
    const std::string name = NameText(model.ResourceOf(number));
    const auto namesakes =
        std::count_if(model.Resources().begin(), model.Resources().end(),
                      [&](const Resource& resource) { return SameName(NameText(resource), name); });
    const bool plain = name.find_first_of(";=\n\r") == std::string::npos && !name.starts_with('#');
    return plain && namesakes == 1 ? name : "#" + NumberText(number);
}

}  // namespace

std::vector<Difference> DifferencesOf(const LineModel& model, std::string_view text) {
    std::vector<Difference> differences;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(";\n"), text.size());
        const std::string_view part = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (part.empty()) {
            continue;
        }
        const Difference difference = Reader(model, part).Read();
        if (std::any_of(differences.begin(), differences.end(),
                        [&](const Difference& each) { return SameTarget(each, difference); })) {
            throw RunTimeError(
                ErrorKind::TypeMismatch,
                "\"" + std::string(part) + "\": this figure has a difference already. Remove one.");
        }
        differences.push_back(difference);
    }
    return differences;
}

std::string DifferenceText(const LineModel& model, const Difference& difference) {
    const FieldName& field = FieldOf(difference);
    std::string text =
        field.OfResource ? ResourceText(model, difference.Figure.Resource) + "." : "";
    text += field.Name;
    if (difference.ByShare) {
        const std::string share = NumberText(*difference.Value);
        return text + " " + (share.starts_with('-') ? "" : "+") + share + "%";
    }
    return text + " = " + (difference.Value ? NumberText(*difference.Value) : "none");
}

std::string DifferencesText(const LineModel& model, const std::vector<Difference>& differences) {
    std::string text;
    for (const Difference& difference : differences) {
        text += (text.empty() ? "" : "; ") + DifferenceText(model, difference);
    }
    return text;
}

}  // namespace quarnel02
