#include "studies/SaveStudy.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>
#include <exception>
#include <iterator>

#include "basic/Files.h"
#include "sheets/WorkbookFile.h"
#include "widgets/Dialogs.h"

namespace quarnel02 {

namespace {

Workbook WorkbookOf(const std::vector<ShownTable>& tables) {
    Workbook workbook;
    std::transform(tables.begin(), tables.end(), std::back_inserter(workbook), SheetOf);
    return workbook;
}

/// "" when the user cancels.
QString AskFile(QWidget* parent, const QString& proposal) {
    const QString workbook = QStringLiteral("Workbook (*.xlsx)");
    const QString csv = QStringLiteral("CSV file (*.csv)");
    QFileDialog dialog(parent, QStringLiteral("Save as"), QFileInfo(proposal).path());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters({workbook, csv});
    dialog.setDefaultSuffix(QStringLiteral("xlsx"));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        dialog.setDefaultSuffix(filter == csv ? QStringLiteral("csv") : QStringLiteral("xlsx"));
    });
    dialog.selectFile(QFileInfo(proposal).fileName());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().front() : QString();
}

}  // namespace

void SaveTables(const std::filesystem::path& file, const std::vector<ShownTable>& tables) {
    const QString extension = QFileInfo(QString::fromStdString(PathText(file))).suffix();
    if (extension.compare(QLatin1String("xlsx"), Qt::CaseInsensitive) == 0) {
        WriteXlsx(file, WorkbookOf(tables));
    } else {
        WriteWhole(file, CsvOf(tables.front()));
    }
}

QString AskAndSave(QWidget* parent, const QString& proposal,
                   const std::vector<ShownTable>& tables) {
    const QString file = AskFile(parent, proposal);
    if (file.isEmpty()) {
        return {};
    }
    try {
        SaveTables(QDir::toNativeSeparators(file).toStdU16String(), tables);
        return file;
    } catch (const std::exception& error) {
        ShowMessageBox(parent, error.what(), MessageIcon::Critical);
        return {};
    }
}

}  // namespace quarnel02
