#include "studies/SaveStudy.h"

#include <QDir>
#include <algorithm>
#include <filesystem>
#include <iterator>

#include "basic/Files.h"
#include "print/PictureCommands.h"
#include "print/SaveDialog.h"
#include "sheets/WorkbookFile.h"

namespace quarnel02 {

namespace {

Workbook WorkbookOf(const std::vector<ShownTable>& tables) {
    Workbook workbook;
    std::transform(tables.begin(), tables.end(), std::back_inserter(workbook), SheetOf);
    return workbook;
}

std::vector<SavedKind> KindsOf(const SavedParts& parts) {
    std::vector<SavedKind> kinds = {{QStringLiteral("Workbook"), QStringLiteral("xlsx")},
                                    {QStringLiteral("CSV file"), QStringLiteral("csv")}};
    if (parts.Drawing != nullptr) {
        const std::vector<SavedKind> drawings = DrawingKinds();
        kinds.insert(kinds.end(), drawings.begin(), drawings.end());
    }
    return kinds;
}

void Write(const std::filesystem::path& file, const SavedKind& kind, const SavedParts& parts) {
    if (kind.Extension == QLatin1String("xlsx")) {
        WriteXlsx(file, WorkbookOf(parts.Tables));
    } else if (kind.Extension == QLatin1String("csv")) {
        WriteWhole(file, CsvOf(parts.Tables.front()));
    } else {
        WriteWhole(file, FileOf(*parts.Drawing, kind, parts.Title));
    }
}

}  // namespace

std::optional<QString> AskAndSave(QWidget* parent, const QString& directory, const QString& name,
                                  const SavedParts& parts) {
    const auto saved =
        AskSavedFile(parent, QStringLiteral("Save as"), directory, name, KindsOf(parts));
    if (!saved) {
        return std::nullopt;
    }
    Write(QDir::toNativeSeparators(saved->Path).toStdU16String(), saved->Kind, parts);
    return saved->Path;
}

}  // namespace quarnel02
