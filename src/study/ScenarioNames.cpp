#include "study/ScenarioNames.h"

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "study/ScenarioFields.h"

namespace quarnel02 {

namespace {

bool IsTaken(std::span<const Scenario> scenarios, std::size_t but, const std::string& name) {
    for (std::size_t place = 0; place < scenarios.size(); ++place) {
        if (place != but && EqualNames(scenarios[place].Name, name)) {
            return true;
        }
    }
    return EqualNames(name, kBaseName);
}

}  // namespace

std::string FreeName(std::span<const Scenario> scenarios, const std::string& wanted) {
    std::string name = wanted;
    for (int number = 2; IsTaken(scenarios, scenarios.size(), name); ++number) {
        name = wanted + " " + NumberText(number);
    }
    return name;
}

std::string UsableName(std::span<const Scenario> scenarios, std::size_t but,
                       const std::string& name) {
    std::string usable(Trimmed(name));
    if (usable.empty()) {
        throw RunTimeError(ErrorKind::TypeMismatch, "A scenario needs a name. Enter one.");
    }
    if (IsTaken(scenarios, but, usable)) {
        throw RunTimeError(ErrorKind::TypeMismatch, "\"" + usable +
                                                        "\" is the name of the base or of "
                                                        "another scenario. Enter another name.");
    }
    return usable;
}

}  // namespace quarnel02
