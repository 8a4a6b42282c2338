#include "shell/Reports.h"

#include "basic/Files.h"

namespace quarnel02 {

void OpenReport(MainForm& form, const std::string& file) {
    const auto path = form.InApplicationDirectory(file);
    if (KindOfFile(path) == FileKind::Ordinary) {
        form.StartProgram("notepad.exe " + PathText(path));
    }
}

void mnuViewLastCont(MainForm& form) {
    OpenReport(form, kRunReport);
}

}  // namespace quarnel02
