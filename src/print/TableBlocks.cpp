#include "print/TableBlocks.h"

#include <QFontMetricsF>
#include <QPen>
#include <algorithm>
#include <numeric>
#include <utility>

#include "picture/Inks.h"
#include "print/PaperFonts.h"
#include "print/WrapText.h"
#include "widgets/PicturePainter.h"

namespace quarnel02 {

namespace {

constexpr double kPadding = 70;  ///< left and right of a cell's text, twips
constexpr double kAir = 36;      ///< above and below it, twips
constexpr double kThin = 6;      ///< rule under a row, twips
constexpr double kThick = 15;    ///< rule under the head, twips

/// The wrapped texts of a row.
struct RowLines {
    std::vector<QStringList> Cells;
    qsizetype Count = 0;  ///< lines of the longest cell

    /// Lines from `first` on, at most `count`.
    [[nodiscard]] RowLines Part(qsizetype first, qsizetype count) const {
        RowLines part;
        for (const QStringList& cell : Cells) {
            part.Cells.push_back(cell.mid(first, count));
        }
        part.Count = std::min(count, Count - first);
        return part;
    }
};

class TableMaker {
  public:
    TableMaker(const TablePart& table, const PaperBody& body) : m_table(table), m_body(body) {
        std::vector<double> wanted(table.Columns.size());
        for (std::size_t column = 0; column < wanted.size(); ++column) {
            wanted[column] = WantedWidth(column);
        }
        m_widths = SharedWidths(wanted, body.Width);
    }

    std::vector<Block> Make() {
        std::vector<std::string> headings;
        for (const TableColumn& column : m_table.Columns) {
            headings.push_back(column.Heading);
        }
        m_blocks.push_back(BlockOf(LinesOf(headings, PaperText::TableHead), PaperText::TableHead));
        m_blocks.front().WithNext = true;
        m_head = std::make_shared<const Block>(m_blocks.front());
        for (const auto& row : m_table.Rows) {
            AddRow(LinesOf(row, PaperText::Table));
        }
        return std::move(m_blocks);
    }

  private:
    [[nodiscard]] double WantedWidth(std::size_t column) const {
        const auto width = [](const std::string& text, PaperText style) {
            return QFontMetricsF(PaperFont(style)).horizontalAdvance(QString::fromStdString(text));
        };
        double widest = width(m_table.Columns[column].Heading, PaperText::TableHead);
        for (const auto& row : m_table.Rows) {
            widest = std::max(widest, width(row[column], PaperText::Table));
        }
        return widest + 2 * kPadding;
    }

    [[nodiscard]] RowLines LinesOf(const std::vector<std::string>& texts, PaperText style) const {
        RowLines lines;
        for (std::size_t column = 0; column < texts.size(); ++column) {
            lines.Cells.push_back(WrapText(QString::fromStdString(texts[column]),
                                           m_widths[column] - 2 * kPadding + 1, PaperFont(style)));
            lines.Count = std::max(lines.Count, lines.Cells.back().size());
        }
        return lines;
    }

    void AddRow(const RowLines& lines) {
        const double spacing = QFontMetricsF(PaperFont(PaperText::Table)).lineSpacing();
        const auto most =
            std::max<qsizetype>(1, static_cast<qsizetype>(m_body.Height / 2 / spacing));
        for (qsizetype first = 0; first < lines.Count; first += most) {
            Block block = BlockOf(lines.Part(first, most), PaperText::Table);
            block.Head = m_head;
            m_blocks.push_back(std::move(block));
        }
    }

    [[nodiscard]] Block BlockOf(const RowLines& lines, PaperText style) const {
        const QFontMetricsF metrics(PaperFont(style));
        Block block;
        block.Height = metrics.lineSpacing() * static_cast<double>(lines.Count) + 2 * kAir;
        block.Paint = [widths = m_widths, figures = Figures(), lines, style,
                       height = block.Height](QPainter& painter) {
            PaintRow(painter, widths, figures, lines, style);
            const double right = std::accumulate(widths.begin(), widths.end(), 0.0);
            const bool head = style == PaperText::TableHead;
            painter.setPen(
                QPen(head ? SoftPaperInk() : ScreenColour(kGridLine, {}), head ? kThick : kThin));
            painter.drawLine(QPointF(0, height), QPointF(right, height));
        };
        return block;
    }

    [[nodiscard]] std::vector<bool> Figures() const {
        std::vector<bool> figures;
        for (const TableColumn& column : m_table.Columns) {
            figures.push_back(column.Figures);
        }
        return figures;
    }

    static void PaintRow(QPainter& painter, const std::vector<double>& widths,
                         const std::vector<bool>& figures, const RowLines& lines, PaperText style) {
        const QFontMetricsF metrics(PaperFont(style));
        painter.setFont(PaperFont(style));
        painter.setPen(PaperInk());
        double left = 0;
        for (std::size_t column = 0; column < lines.Cells.size(); ++column) {
            double base = kAir + metrics.ascent();
            for (const QString& line : lines.Cells[column]) {
                const double shift = figures[column] ? widths[column] - 2 * kPadding -
                                                           metrics.horizontalAdvance(line)
                                                     : 0;
                painter.drawText(QPointF(left + kPadding + shift, base), line);
                base += metrics.lineSpacing();
            }
            left += widths[column];
        }
    }

    const TablePart& m_table;
    PaperBody m_body;
    std::vector<double> m_widths;
    std::shared_ptr<const Block> m_head;
    std::vector<Block> m_blocks;
};

}  // namespace

std::vector<double> SharedWidths(std::span<const double> wanted, double room) {
    std::vector<double> widths(wanted.begin(), wanted.end());
    std::vector<bool> settled(widths.size(), false);
    double left = room;
    std::size_t open = widths.size();
    for (bool changed = true; changed && open > 0;) {
        changed = false;
        const double share = left / static_cast<double>(open);
        for (std::size_t i = 0; i < widths.size(); ++i) {
            if (!settled[i] && widths[i] <= share) {
                settled[i] = true;
                changed = true;
                left -= widths[i];
                --open;
            }
        }
    }
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (!settled[i]) {
            widths[i] = left / static_cast<double>(open);
        }
    }
    return widths;
}

std::vector<Block> TableBlocks(const TablePart& table, const PaperBody& body) {
    return table.Columns.empty() ? std::vector<Block>() : TableMaker(table, body).Make();
}

}  // namespace quarnel02
