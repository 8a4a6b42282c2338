#include "print/PrintDocument.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QMarginsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPen>
#include <algorithm>

#include "basic/Version.h"
#include "picture/Units.h"
#include "print/Blocks.h"
#include "print/PaperFonts.h"

namespace quarnel02 {

namespace {

constexpr double kEdge = 420;  ///< height of a page's head, and of its foot, twips
constexpr double kRule = 8;    ///< line under the head, twips
constexpr int kResolution = 1200;

/// A page between its margins, twips.
QSizeF PaperSize(const QPagedPaintDevice& device) {
    return device.pageLayout().paintRect(QPageLayout::Point).size() * kTwipsPerPoint;
}

class DocumentPainter {
  public:
    DocumentPainter(const Document& document, QPagedPaintDevice& device)
        : m_document(document),
          m_device(device),
          m_paper(PaperSize(device)),
          m_blocks(BlocksOf(document, {m_paper.width(), Body()})),
          m_pages(PagesOf(m_blocks, Body())) {}

    int Paint() {
        QPainter painter;
        if (!painter.begin(&m_device)) {
            return 0;
        }
        const double unit = m_device.logicalDpiX() / kTwipsPerInch;
        painter.scale(unit, unit);
        for (std::size_t page = 0; page < m_pages.size(); ++page) {
            if (page > 0) {
                m_device.newPage();
            }
            PaintEdges(painter, page + 1);
            PaintBody(painter, m_pages[page]);
        }
        return static_cast<int>(m_pages.size());
    }

  private:
    [[nodiscard]] double Body() const { return std::max(kEdge, m_paper.height() - 2 * kEdge); }

    /// The product gives way to the date.
    void PaintEdges(QPainter& painter, std::size_t page) const {
        const QFontMetricsF metrics(PaperFont(PaperText::Small));
        painter.setFont(PaperFont(PaperText::Small));
        painter.setPen(SoftPaperInk());
        const QString date = QString::fromStdString(m_document.Date);
        const double room = m_paper.width() - 2 * metrics.horizontalAdvance(date);
        const double top = metrics.ascent();
        painter.drawText(
            QPointF(0, top),
            metrics.elidedText(QString::fromStdString(m_document.Product), Qt::ElideRight, room));
        PaintRight(painter, metrics, top, date);
        const double bottom = m_paper.height() - metrics.descent();
        painter.drawText(QPointF(0, bottom), QStringLiteral("Quarnel02"));
        PaintRight(painter, metrics, bottom,
                   QStringLiteral("Page %1 of %2").arg(page).arg(m_pages.size()));
        painter.setPen(QPen(SoftPaperInk(), kRule));
        const double rule = metrics.lineSpacing() + kRule;
        painter.drawLine(QPointF(0, rule), QPointF(m_paper.width(), rule));
    }

    void PaintRight(QPainter& painter, const QFontMetricsF& metrics, double base,
                    const QString& text) const {
        painter.drawText(QPointF(m_paper.width() - metrics.horizontalAdvance(text), base), text);
    }

    static void PaintBody(QPainter& painter, const PlacedPage& page) {
        for (const PlacedBlock& placed : page) {
            painter.save();
            painter.translate(0, kEdge + placed.Top);
            placed.What->Paint(painter);
            painter.restore();
        }
    }

    const Document& m_document;
    QPagedPaintDevice& m_device;
    QSizeF m_paper;
    std::vector<Block> m_blocks;
    std::vector<PlacedPage> m_pages;
};

}  // namespace

int PrintDocument(const Document& document, QPagedPaintDevice& device) {
    return DocumentPainter(document, device).Paint();
}

std::string PdfOf(const Document& document) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kResolution);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(kPaperMargin, kPaperMargin, kPaperMargin, kPaperMargin),
                          QPageLayout::Millimeter);
    writer.setTitle(QString::fromStdString(document.Title));
    writer.setCreator(QStringLiteral("Quarnel02 ") + QString::fromLatin1(Version()));
    PrintDocument(document, writer);
    return bytes.toStdString();
}

}  // namespace quarnel02
