#include "line/RecordNames.h"

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

std::string NameOf(const Resource& resource) {
    const std::string number = "Resource " + NumberText(resource.Number);
    return resource.ShortName.empty() ? number : number + " (" + resource.ShortName + ")";
}

void RefuseDivisor(const Resource& resource, const std::string& objection) {
    throw RunTimeError(ErrorKind::DivisionByZero, NameOf(resource) + ": " + objection);
}

}  // namespace quarnel02
