#include "commands/TakeStep.h"

#include "commands/LoadModel.h"
#include "model/InputDigest.h"

namespace quarnel02 {

void TakeStep(MainForm& form, EditHistory& history, HistoryStep step) {
    const auto line = [&] { return DesignDigest(form.OpenWorkingCopy()); };
    const std::uint64_t before = line();
    (history.*step)();
    if (line() != before) {
        ShowInputs(form);
    }
}

}  // namespace quarnel02
