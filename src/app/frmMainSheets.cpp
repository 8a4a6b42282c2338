// Import and export of frmMain.
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include "app/QtPaths.h"
#include "app/frmMain.h"
#include "commands/KeptName.h"
#include "commands/SheetFiles.h"
#include "ui_frmMain.h"

namespace quarnel02 {

void frmMain::ConnectSheetFiles() {
    const auto on = [this](QAction* action, void (frmMain::*command)()) {
        connect(action, &QAction::triggered, this,
                [this, command] { RunCommand([this, command] { (this->*command)(); }); });
    };
    on(m_ui->mnuFileImport, &frmMain::Import);
    on(m_ui->mnuFileExportXlsx, &frmMain::ExportWorkbook);
    on(m_ui->mnuFileExportCsv, &frmMain::ExportCsvFiles);
}

/// Where something was imported or left last, now or in an earlier session, else where the model's
/// own file is, else home.
QString frmMain::UserDirectory() {
    return LastDirectory(&m_memory, QString::fromStdString(m_commands.Current().Dir));
}

void frmMain::RememberDirectory(const QString& file) {
    m_memory.Keep(WindowMemory::kLastDirectory, QFileInfo(file).path());
}

void frmMain::Import() {
    const QString file = QFileDialog::getOpenFileName(
        this, QStringLiteral("Import"), UserDirectory(),
        QStringLiteral("Workbooks and CSV files (*.xlsx *.ods *.csv);;All files (*)"));
    if (!file.isEmpty()) {
        RememberDirectory(file);
        ImportWorkbook(*this, m_commands.Current(), m_commands.History(), ToPath(file));
    }
}

void frmMain::ExportWorkbook() {
    QFileDialog dialog(this, QStringLiteral("Export a workbook"), UserDirectory(),
                       QStringLiteral("Workbook (*.xlsx)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("xlsx"));
    const QString model = QString::fromStdString(m_commands.Current().File);
    dialog.selectFile((model.isEmpty()
                           ? QString::fromStdString(KeptProduct(Text(TextBox::txtProduct)))
                           : QFileInfo(model).completeBaseName()) +
                      QStringLiteral(".xlsx"));
    if (dialog.exec() == QDialog::Accepted) {
        const QString file = dialog.selectedFiles().front();
        RememberDirectory(file);
        ExportXlsx(*this, ToPath(file));
        ShowBriefly(QStringLiteral("Exported to ") + file);
    }
}

void frmMain::ExportCsvFiles() {
    const QString directory = QFileDialog::getExistingDirectory(
        this, QStringLiteral("Directory for the CSV files"), UserDirectory());
    if (!directory.isEmpty() && ExportCsv(*this, ToPath(directory))) {
        m_memory.Keep(WindowMemory::kLastDirectory, directory);
        ShowBriefly(QStringLiteral("CSV files written to ") + directory);
    }
}

}  // namespace quarnel02
