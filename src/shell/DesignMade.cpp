#include "shell/DesignMade.h"

#include "model/InputDigest.h"
#include "shell/MainForm.h"

namespace quarnel02 {

void NoteDesign(MainForm& form, const std::string& caption) {
    const Database working_copy = Database::Open(form.WorkingCopy());
    form.LastDesign = DesignMade{caption, form.Text(TextBox::txtProduct),
                                 std::chrono::system_clock::now(), InputDigest(working_copy)};
}

bool ResultsAreOutOfDate(MainForm& form) {
    if (!form.LastDesign) {
        return false;
    }
    const Database working_copy = Database::Open(form.WorkingCopy());
    return form.LastDesign->Inputs != InputDigest(working_copy);
}

}  // namespace quarnel02
