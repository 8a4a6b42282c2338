#include "shell/ModelCheck.h"

namespace quarnel02 {

void RequireUsableModel(const Database& /*database*/) {}

}  // namespace quarnel02
