#include "commands/SheetFiles.h"

#include <string>
#include <utility>

#include "basic/Files.h"
#include "commands/LoadModel.h"
#include "sheets/ImportPreview.h"
#include "sheets/ModelSheets.h"
#include "sheets/WorkbookFile.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

bool UserAgrees(MainForm& form, const std::string& name, const ImportPreview& preview) {
    if (preview.Differences == 0) {
        form.ShowMessage(name + " holds what is entered already. There is nothing to import.",
                         MessageIcon::Information);
        return false;
    }
    return form.AskYesNo("Import " + name + "? It replaces what is entered:\n\n" + preview.Text() +
                             "\nEdit > Undo takes the import back.",
                         MessageIcon::Question, Answer::Yes);
}

Workbook SheetsOfWorkingCopy(const MainForm& form) {
    return SheetsOf(ReadInputTables(form.OpenWorkingCopy()));
}

}  // namespace

void ImportWorkbook(MainForm& form, CurrentModel& current, EditHistory& history,
                    const fs::path& file) {
    const InputTables before = ReadInputTables(form.OpenWorkingCopy());
    const ModelOfSheets incoming = TablesOf(ReadWorkbook(file), before);
    const std::string name = PathText(file.filename());
    if (!incoming.Refused.IsEmpty()) {
        form.ShowMessage(incoming.Refused.Message(name + " was not imported.", "\n"),
                         MessageIcon::Critical);
        return;
    }
    if (UserAgrees(form, name, PreviewOf(before, incoming.Tables))) {
        WriteInputTables(form.OpenWorkingCopy(), incoming.Tables);
        history.Note("Import " + name);
        current.Changed = true;
        ShowInputs(form);
    }
}

void ExportXlsx(const MainForm& form, const fs::path& file) {
    WriteXlsx(file, SheetsOfWorkingCopy(form));
}

bool ExportCsv(MainForm& form, const fs::path& directory) {
    const Workbook workbook = SheetsOfWorkingCopy(form);
    std::string replaced;
    for (const Sheet& sheet : workbook) {
        const std::string name = sheet.Name + ".csv";
        if (fs::exists(directory / name)) {
            replaced += (replaced.empty() ? "" : ", ") + name;
        }
    }
    if (!replaced.empty() &&
        !form.AskYesNo("The directory " + PathText(directory) +
                           " has files of these names: " + replaced + ". Replace them?",
                       MessageIcon::Question, Answer::No)) {
        return false;
    }
    WriteCsvDirectory(directory, workbook);
    return true;
}

}  // namespace quarnel02
