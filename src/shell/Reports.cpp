#include "shell/Reports.h"

#include <filesystem>
#include <system_error>

#include "basic/Files.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

bool IsReport(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored);
}

}  // namespace

bool HasReport(const MainForm& form, const std::string& file) {
    return IsReport(form.InApplicationDirectory(file));
}

void RemoveReport(const std::filesystem::path& applicationDirectory, const std::string& file) {
    const std::filesystem::path path = applicationDirectory / file;
    if (!IsReport(path)) {
        return;
    }
    std::error_code error;
    std::filesystem::remove(path, error);
    if (error) {
        throw RunTimeError(ErrorKind::FileAccess,
                           "The report of the last solve, " + PathText(path) +
                               ", cannot be removed (" + error.message() +
                               "). Close the programs that use it and make its directory "
                               "writable.");
    }
}

void ClearResults(MainForm& form) {
    for (Picture& picture : form.picGraph) {
        picture.Clear();
    }
    form.LastDesign.reset();
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
