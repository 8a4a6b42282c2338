#include "studies/SaveStudy.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>
#include <exception>
#include <iterator>

#include "basic/Files.h"
#include "sheets/WorkbookFile.h"
#include "studies/StudyPicture.h"
#include "widgets/Dialogs.h"

namespace quarnel02 {

namespace {

Workbook WorkbookOf(const std::vector<ShownTable>& tables) {
    Workbook workbook;
    std::transform(tables.begin(), tables.end(), std::back_inserter(workbook), SheetOf);
    return workbook;
}

/// A kind of file that can be chosen.
struct Kind {
    QString Filter;
    QString Extension;
};

std::vector<Kind> KindsOf(const SavedParts& parts) {
    std::vector<Kind> kinds;
    if (!parts.Tables.empty()) {
        kinds.push_back({QStringLiteral("Workbook (*.xlsx)"), QStringLiteral("xlsx")});
        kinds.push_back({QStringLiteral("CSV file (*.csv)"), QStringLiteral("csv")});
    }
    if (parts.Drawing != nullptr) {
        kinds.push_back({QStringLiteral("Drawing (*.svg)"), QStringLiteral("svg")});
        kinds.push_back({QStringLiteral("Image (*.png)"), QStringLiteral("png")});
    }
    return kinds;
}

/// "" when the user cancels.
QString AskFile(QWidget* parent, const QString& proposal, const std::vector<Kind>& kinds) {
    QFileDialog dialog(parent, QStringLiteral("Save as"), QFileInfo(proposal).path());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QStringList filters;
    for (const Kind& kind : kinds) {
        filters << kind.Filter;
    }
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(kinds.front().Extension);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        dialog.setDefaultSuffix(kinds[static_cast<std::size_t>(filters.indexOf(filter))].Extension);
    });
    dialog.selectFile(QFileInfo(proposal).fileName());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().front() : QString();
}

bool IsPictureName(const QString& extension) {
    return extension.compare(QLatin1String("svg"), Qt::CaseInsensitive) == 0 ||
           extension.compare(QLatin1String("png"), Qt::CaseInsensitive) == 0;
}

}  // namespace

void SaveStudy(const std::filesystem::path& file, const SavedParts& parts) {
    const QString extension = QFileInfo(QString::fromStdString(PathText(file))).suffix();
    if (parts.Drawing != nullptr && (IsPictureName(extension) || parts.Tables.empty())) {
        SavePicture(file, *parts.Drawing);
    } else if (extension.compare(QLatin1String("xlsx"), Qt::CaseInsensitive) == 0) {
        WriteXlsx(file, WorkbookOf(parts.Tables));
    } else {
        WriteWhole(file, CsvOf(parts.Tables.front()));
    }
}

void AskAndSave(QWidget* parent, const QString& proposal, const SavedParts& parts) {
    const QString file = AskFile(parent, proposal, KindsOf(parts));
    if (file.isEmpty()) {
        return;
    }
    try {
        SaveStudy(QDir::toNativeSeparators(file).toStdU16String(), parts);
    } catch (const std::exception& error) {
        ShowMessageBox(parent, error.what(), MessageIcon::Critical);
    }
}

}  // namespace quarnel02
