#include "editors/MatrixValuesView.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "editors/MatrixLook.h"
#include "editors/MatrixValuesModel.h"
#include "widgets/SheetDelegate.h"

namespace quarnel02 {

namespace {

constexpr int kShownTasks = 16;
constexpr int kShownResources = 7;

class FigurePainter : public SheetDelegate {
  public:
    using SheetDelegate::SheetDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem cell(option);
        initStyleOption(&cell, index);
        const QString text = std::exchange(cell.text, {});
        const bool selected = (cell.state & QStyle::State_Selected) != 0;
        const auto look = static_cast<PairLook>(index.data(MatrixValuesModel::kLookRole).toInt());
        if (!selected) {
            PaintLook(*painter, cell.rect, cell.palette, look);
        }
        const QWidget* widget = cell.widget;
        const QStyle& style = widget == nullptr ? *QApplication::style() : *widget->style();
        style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, widget);
        if (selected) {
            PaintOver(*painter, cell, look);
        }
        PaintFigures(*painter, cell, text, selected);
    }

  private:
    /// On a selected cell its look lies over the colour of the selection.
    static void PaintOver(QPainter& painter, const QStyleOptionViewItem& cell, PairLook look) {
        if (look == PairLook::Marked || look == PairLook::Cannot || look == PairLook::Leaving) {
            QPalette palette = cell.palette;
            for (const auto role : {QPalette::Text, QPalette::Highlight}) {
                palette.setColor(role, palette.color(QPalette::HighlightedText));
            }
            PaintLook(painter, cell.rect, palette, look);
        }
    }

    static void PaintFigures(QPainter& painter, const QStyleOptionViewItem& cell,
                             const QString& text, bool selected) {
        if (text.isEmpty()) {
            return;
        }
        const int margin = cell.fontMetrics.averageCharWidth() / 2 + 1;
        const QRect inside = cell.rect.adjusted(margin, 0, -margin, 0);
        const QColor plain =
            cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
        constexpr int right = Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine;
        painter.save();
        painter.setPen(plain);
        if (cell.fontMetrics.horizontalAdvance(text) > inside.width()) {
            painter.drawText(inside, right,
                             cell.fontMetrics.elidedText(text, Qt::ElideRight, inside.width()));
        } else {
            const auto first = std::max<qsizetype>(text.indexOf(QLatin1Char('|')), 0);
            const QString others = first == 0 ? QString() : text.mid(first - 1);
            const int width = cell.fontMetrics.horizontalAdvance(others);
            painter.drawText(inside.adjusted(0, 0, -width, 0), right,
                             text.left(text.size() - others.size()));
            painter.setPen(Faded(plain));
            painter.drawText(inside, right, others);
        }
        painter.restore();
    }

    static QColor Faded(QColor colour) {
        constexpr float share = 0.65F;
        colour.setAlphaF(share);
        return colour;
    }
};

}  // namespace

MatrixValuesView::MatrixValuesView(QWidget* parent)
    : SheetView(new FigurePainter(nullptr), parent) {}

void MatrixValuesView::FitSections() {
    FitColumns();
    const int character = fontMetrics().averageCharWidth();
    horizontalHeader()->setFixedHeight(5 * fontMetrics().lineSpacing() / 2);
    constexpr int least = 10;
    for (int column = 0; column < model()->columnCount(); ++column) {
        setColumnWidth(column, std::max(columnWidth(column), least * character));
    }
}

QSize MatrixValuesView::sizeHint() const {
    const int columns = std::min(model() == nullptr ? 0 : model()->columnCount(), kShownResources);
    const int rows = std::min(model() == nullptr ? 0 : model()->rowCount(), kShownTasks);
    int width = 0;
    for (int column = 0; column < columns; ++column) {
        width += columnWidth(column);
    }
    const QSize rim = QSize(2, 2) * (frameWidth() + 1);
    return rim + QSize(verticalHeader()->sizeHint().width() +
                           verticalScrollBar()->sizeHint().width() + width,
                       horizontalHeader()->height() + horizontalScrollBar()->sizeHint().height() +
                           rows * verticalHeader()->defaultSectionSize());
}

}  // namespace quarnel02
