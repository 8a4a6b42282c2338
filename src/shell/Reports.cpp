#include "shell/Reports.h"

#include <filesystem>
#include <system_error>

#include "basic/Files.h"

namespace quarnel02 {

bool HasReport(const MainForm& form, const std::string& file) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(form.InApplicationDirectory(file), ignored);
}

void OpenReport(MainForm& form, const std::string& file) {
    if (HasReport(form, file)) {
        form.StartProgram("notepad.exe " + PathText(form.InApplicationDirectory(file)));
    }
}

void mnuViewLast(MainForm& form) {
    OpenReport(form, kProductionReport);
}

void mnuViewLastCont(MainForm& form) {
    OpenReport(form, kRunReport);
}

}  // namespace quarnel02
