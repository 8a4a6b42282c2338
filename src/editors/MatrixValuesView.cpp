#include "editors/MatrixValuesView.h"

#include <QApplication>
#include <QHash>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStaticText>
#include <algorithm>

#include "editors/MatrixLook.h"
#include "editors/MatrixValuesModel.h"
#include "widgets/SheetDelegate.h"

namespace quarnel02 {

namespace {

constexpr int kVisibleTasks = 16;
constexpr int kVisibleResources = 7;

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

    void PaintFigures(QPainter& painter, const QStyleOptionViewItem& cell, const QString& text,
                      bool selected) const {
        if (text.isEmpty()) {
            return;
        }
        const int margin = cell.fontMetrics.averageCharWidth() / 2 + 1;
        const QRectF inside = cell.rect.adjusted(margin, 0, -margin, 0);
        const QColor plain =
            cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
        const auto bar = std::max<qsizetype>(text.indexOf(QLatin1Char('|')), 0);
        const auto first_length = bar == 0 ? text.size() : bar - 1;
        const QStaticText first = Prepared(text.left(first_length), cell.font);
        const QStaticText others = Prepared(text.mid(first_length), cell.font);
        const double top = inside.center().y() - first.size().height() / 2;
        const double middle = inside.right() - others.size().width();
        painter.save();
        painter.setFont(cell.font);
        painter.setPen(plain);
        if (first.size().width() > middle - inside.left()) {
            painter.drawText(inside, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                             cell.fontMetrics.elidedText(text, Qt::ElideRight,
                                                         static_cast<int>(inside.width())));
        } else {
            painter.drawStaticText(QPointF(middle - first.size().width(), top), first);
            painter.setPen(Faded(plain));
            painter.drawStaticText(QPointF(middle, top), others);
        }
        painter.restore();
    }

    /// Laying texts out takes most of the time of painting.
    const QStaticText& Prepared(const QString& text, const QFont& font) const {
        constexpr qsizetype most = 10'000;
        if (font != m_font || m_texts.size() > most) {
            m_texts.clear();
            m_font = font;
        }
        auto found = m_texts.find(text);
        if (found == m_texts.end()) {
            QStaticText prepared(text);
            prepared.setTextFormat(Qt::PlainText);
            prepared.prepare({}, font);
            found = m_texts.insert(text, prepared);
        }
        return *found;
    }

    static QColor Faded(QColor colour) {
        constexpr float share = 0.65F;
        colour.setAlphaF(share);
        return colour;
    }

    mutable QHash<QString, QStaticText> m_texts;
    mutable QFont m_font;  ///< of m_texts
};

}  // namespace

MatrixValuesView::MatrixValuesView(QWidget* parent)
    : SheetView(new FigurePainter(nullptr), parent) {
    connect(this, &SheetView::StoredIn, this, &MatrixValuesView::Widen);
}

void MatrixValuesView::FitSections() {
    FitColumns();
    const int character = fontMetrics().averageCharWidth();
    horizontalHeader()->setFixedHeight(5 * fontMetrics().lineSpacing() / 2);
    constexpr int least = 10;
    for (int column = 0; column < model()->columnCount(); ++column) {
        setColumnWidth(column, std::max(columnWidth(column), least * character));
    }
    NoteWidths();
    updateGeometry();
}

void MatrixValuesView::NoteWidths() {
    m_fitted.clear();
    for (int column = 0; column < model()->columnCount(); ++column) {
        m_fitted.push_back(columnWidth(column));
    }
}

/// But for those that the user has given another width.
void MatrixValuesView::Widen(int first, int last) {
    constexpr int widest = 40;
    const int character = fontMetrics().averageCharWidth();
    m_fitted.resize(model()->columnCount(), horizontalHeader()->defaultSectionSize());
    for (int column = first; column <= last; ++column) {
        const int wanted = std::min(sizeHintForColumn(column) + character, widest * character);
        if (columnWidth(column) == m_fitted[column] && wanted > columnWidth(column)) {
            setColumnWidth(column, wanted);
            m_fitted[column] = wanted;
        }
    }
}

QSize MatrixValuesView::sizeHint() const {
    const int columns =
        std::min(model() == nullptr ? 0 : model()->columnCount(), kVisibleResources);
    const int rows = std::min(model() == nullptr ? 0 : model()->rowCount(), kVisibleTasks);
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
