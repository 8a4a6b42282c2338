#include "shell/Reports.h"

#include <filesystem>
#include <system_error>

#include "basic/Files.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

bool HasReport(const WorkingCopy& copy, const std::string& file) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(copy.File(file), ignored);
}

void RemoveReport(const WorkingCopy& copy, const std::string& file) {
    if (!HasReport(copy, file)) {
        return;
    }
    const std::filesystem::path path = copy.File(file);
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

void ClearResults(PictureBoxes& boxes) {
    for (Picture& picture : boxes.picGraph) {
        picture.Clear();
    }
    boxes.picLoad.Clear();
    boxes.LastDesign.reset();
}

void ShowResultsAgain(const PictureBoxes& earlier, PictureBoxes& boxes) {
    for (std::size_t i = 0; i < boxes.picGraph.size(); ++i) {
        Picture& picture = boxes.picGraph.at(i);
        const Page page = picture.LaidOutFor();
        picture = earlier.picGraph.at(i);
        picture.LayOut(page);
        if (picture.OnChange) {
            picture.OnChange();
        }
    }
    boxes.LastDesign = earlier.LastDesign;
}

void OpenReport(const WorkingCopy& copy, const std::string& file, Desktop& desktop) {
    if (HasReport(copy, file)) {
        desktop.StartProgram("notepad.exe " + PathText(copy.File(file)));
    }
}

}  // namespace quarnel02
