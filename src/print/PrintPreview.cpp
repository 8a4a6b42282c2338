#include "print/PrintPreview.h"

#include <QFile>
#include <QMarginsF>
#include <QPaintEngine>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScreen>
#include <exception>
#include <filesystem>

#include "basic/Files.h"
#include "basic/ScopeGuard.h"
#include "print/PrintDocument.h"
#include "print/SaveDialog.h"

namespace quarnel02 {

namespace {

/// The preview paints its pages through the same printer, into pictures.
bool IsForPreview(const QPrinter& printer) {
    return printer.paintEngine()->type() == QPaintEngine::Picture;
}

/// The file is replaced whole: an earlier one stays as it is until all pages are there.
void PrintIntoFile(const Document& document, QPrinter& printer) {
    const QString file = printer.outputFileName();
    const TemporaryDirectory place;
    const std::filesystem::path pages = place.Path() / "pages.pdf";
    const ScopeGuard keep_name([&] { printer.setOutputFileName(file); });
    printer.setOutputFileName(QString::fromStdString(PathText(pages)));
    PrintDocument(document, printer);
    CopyWhole(pages, QFile::encodeName(file).toStdString());
}

void Print(const Document& document, QPrinter& printer) {
    if (IsForPreview(printer) || printer.outputFileName().isEmpty()) {
        PrintDocument(document, printer);
    } else {
        PrintIntoFile(document, printer);
    }
}

}  // namespace

void ShowPrintPreview(QWidget* parent, const Document& document) {
    constexpr double share_of_screen = 0.85;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageMargins(QMarginsF(kPaperMargin, kPaperMargin, kPaperMargin, kPaperMargin),
                           QPageLayout::Millimeter);
    const QString title = QString::fromStdString(document.Title);
    printer.setDocName(
        FileNameOf(QString(title).replace(QLatin1String(": "), QLatin1String(" - "))));
    QPrintPreviewDialog preview(&printer, parent);
    preview.setWindowTitle(QStringLiteral("Print preview - ") + title);
    std::exception_ptr failure;  // must not fly through the dialog's events
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&document, &failure](QPrinter* paper) {
                         try {
                             Print(document, *paper);
                         } catch (...) {
                             failure = std::current_exception();
                         }
                     });
    preview.resize(preview.screen()->availableSize() * share_of_screen);
    preview.exec();
    if (failure) {
        std::rethrow_exception(failure);
    }
}

}  // namespace quarnel02
