#include "print/PrintPreview.h"

#include <QMarginsF>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScreen>

#include "print/PrintDocument.h"
#include "print/SaveDialog.h"

namespace quarnel02 {

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
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&document](QPrinter* paper) { PrintDocument(document, *paper); });
    preview.resize(preview.screen()->availableSize() * share_of_screen);
    preview.exec();
}

}  // namespace quarnel02
