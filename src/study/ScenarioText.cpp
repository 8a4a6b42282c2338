#include "study/ScenarioText.h"

#include <algorithm>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "study/LineText.h"
#include "study/ScenarioCells.h"
#include "study/ScenarioFields.h"

namespace quarnel02 {

namespace {

bool IsDigit(char sign) {
    return sign >= '0' && sign <= '9';
}

/// Reads one difference.
class Reader {
  public:
    Reader(const LineModel& model, std::string_view text) : m_model(model), m_text(text) {}

    [[nodiscard]] Difference Read() const {
        const std::size_t sign = SignPlace();
        const ScenarioField& field = ReadField(Trimmed(m_text.substr(0, sign)));
        Difference difference{field.Target, {field.Kind, 0}, m_text[sign] != '=', {}};
        difference.Figure.Resource = ReadResource(field, Trimmed(m_text.substr(0, sign)));
        const ScenarioValueReader value(
            field, {Quoted(), std::string(field.Name), "\"=\" and the new value"});
        difference.Value = difference.ByShare ? value.Share(m_text.substr(sign))
                                              : value.Value(Trimmed(m_text.substr(sign + 1)));
        return difference;
    }

  private:
    [[nodiscard]] std::string Quoted() const { return "\"" + std::string(m_text) + "\""; }
    [[noreturn]] void Refuse(const std::string& why) const {
        throw RunTimeError(ErrorKind::TypeMismatch, Quoted() + ": " + why);
    }

    /// Of "=", or of the sign of a share, which a name may have in it too.
    [[nodiscard]] std::size_t SignPlace() const {
        const std::size_t equals = m_text.rfind('=');
        std::size_t sign = equals != std::string_view::npos ? equals : m_text.find_last_of("+-");
        if (sign != std::string_view::npos && sign > 1 &&
            (m_text[sign - 1] == 'e' || m_text[sign - 1] == 'E') && m_text[sign] != '=' &&
            IsDigit(m_text[sign - 2])) {
            sign = m_text.find_last_of("+-", sign - 1);  // it was that of an exponent
        }
        if (sign == std::string_view::npos) {
            Refuse("write a name, \"=\" and a number, or a share such as +10%.");
        }
        return sign;
    }

    /// Name of the field, behind the last point.
    [[nodiscard]] const ScenarioField& ReadField(std::string_view name) const {
        const std::string_view last = Trimmed(name.substr(name.rfind('.') + 1));
        const auto fields = ScenarioFields();
        const auto field =
            std::find_if(fields.begin(), fields.end(),
                         [&](const ScenarioField& each) { return EqualNames(each.Name, last); });
        if (field == fields.end()) {
            Refuse("there is no figure \"" + std::string(last) +
                   "\". There are Demand, Shifts, StationLimit, Days, ACF, LaborCost, "
                   "TransportTime, Penalty, and of a resource FixedCost, VarCost, UpTime, ICF, "
                   "ToolChange, StatPerWrk and TaskTimes.");
        }
        return *field;
    }

    [[nodiscard]] int ReadResource(const ScenarioField& field, std::string_view name) const {
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
            if (EqualNames(NameText(resource), name)) {
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

    const LineModel& m_model;
    std::string_view m_text;
};

/// The name of a resource, or its number where the name is another one's too or cannot be read.
std::string ResourceText(const LineModel& model, int number) {
    const std::string name = NameText(model.ResourceOf(number));
    const auto namesakes = std::count_if(
        model.Resources().begin(), model.Resources().end(),
        [&](const Resource& resource) { return EqualNames(NameText(resource), name); });
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
    const ScenarioField& field = FieldOf(difference);
    std::string text =
        field.OfResource ? ResourceText(model, difference.Figure.Resource) + "." : "";
    text += field.Name;
    return text + (difference.ByShare ? " " : " = ") + CellText(difference);
}

std::string DifferencesText(const LineModel& model, const std::vector<Difference>& differences) {
    std::string text;
    for (const Difference& difference : differences) {
        text += (text.empty() ? "" : "; ") + DifferenceText(model, difference);
    }
    return text;
}

}  // namespace quarnel02
