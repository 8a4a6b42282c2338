#include "editors/MatrixGrid.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

#include "widgets/HeldKeys.h"

namespace quarnel02 {

namespace {

constexpr int kShownTasks = 18;
constexpr int kShownResources = 10;

/// A cell with its check mark.
class CellPainter : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        if (index.data(Qt::CheckStateRole).value<Qt::CheckState>() == Qt::Checked) {
            const bool selected = (option.state & QStyle::State_Selected) != 0;
            PaintCheck(*painter, option.rect,
                       option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        }
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->features &= ~QStyleOptionViewItem::HasCheckIndicator;
    }
};

}  // namespace

void PaintCheck(QPainter& painter, const QRectF& square, const QColor& colour) {
    const double edge = 0.7 * std::min(square.width(), square.height());
    const QPointF centre = square.center();
    const auto at = [&](double x, double y) { return centre + QPointF(x * edge, y * edge); };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(
        QPen(colour, std::max(1.5, edge / 7), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({at(-0.38, 0.04), at(-0.12, 0.32), at(0.40, -0.34)}));
    painter.restore();
}

CheckImage::CheckImage(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize CheckImage::sizeHint() const {
    return QSize(1, 1) * (fontMetrics().lineSpacing() * 1.25);
}

void CheckImage::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    PaintCheck(painter, rect(), palette().color(QPalette::WindowText));
}

MatrixGrid::MatrixGrid(QWidget* parent) : QTableView(parent) {
    setItemDelegate(new CellPainter(this));
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    for (QHeaderView* header : {horizontalHeader(), verticalHeader()}) {
        header->setSectionResizeMode(QHeaderView::Fixed);
        header->setSectionsClickable(false);
        header->setHighlightSections(true);
        header->setTextElideMode(Qt::ElideRight);
    }
    setCornerButtonEnabled(false);
}

void MatrixGrid::FitSections() {
    const QFontMetrics metrics = fontMetrics();
    const int character = metrics.averageCharWidth();
    int widest = 0;
    for (int column = 0; column < model()->columnCount(); ++column) {
        for (const QString& line :
             model()->headerData(column, Qt::Horizontal).toString().split(QLatin1Char('\n'))) {
            widest = std::max(widest, metrics.horizontalAdvance(line));
        }
    }
    int longest = 0;
    for (int row = 0; row < model()->rowCount(); ++row) {
        longest = std::max(
            longest, metrics.horizontalAdvance(model()->headerData(row, Qt::Vertical).toString()));
    }
    horizontalHeader()->setDefaultSectionSize(
        std::clamp(widest + 3 * character, 7 * character, 14 * character));
    horizontalHeader()->setFixedHeight(5 * metrics.lineSpacing() / 2);
    verticalHeader()->setDefaultSectionSize(8 * metrics.lineSpacing() / 5);
    verticalHeader()->setFixedWidth(
        std::clamp(longest + 3 * character, 6 * character, 32 * character));
}

QSize MatrixGrid::sizeHint() const {
    const int columns = std::min(model() == nullptr ? 0 : model()->columnCount(), kShownResources);
    const int rows = std::min(model() == nullptr ? 0 : model()->rowCount(), kShownTasks);
    const QSize rim = QSize(2, 2) * frameWidth() + QSize(2, 2);
    return rim + QSize(verticalHeader()->width() + verticalScrollBar()->sizeHint().width() +
                           columns * horizontalHeader()->defaultSectionSize(),
                       horizontalHeader()->height() + horizontalScrollBar()->sizeHint().height() +
                           rows * verticalHeader()->defaultSectionSize());
}

void MatrixGrid::mousePressEvent(QMouseEvent* event) {
    QTableView::mousePressEvent(event);
    m_pressed = indexAt(event->pos()).isValid();
}

void MatrixGrid::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    const QModelIndex cell = indexAt(event->pos());
    const bool clicked = m_pressed && cell.isValid();
    m_pressed = false;
    if (!clicked) {
        return;
    }
    setCurrentIndex(cell);
    if (event->button() == Qt::LeftButton) {
        emit Opened(cell);
    } else if (event->button() == Qt::RightButton) {
        emit Toggled(cell);
    }
}

void MatrixGrid::keyPressEvent(QKeyEvent* event) {
    const QModelIndex cell = currentIndex();
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (cell.isValid() && !IsRepeated(*event)) {
                emit Opened(cell);
            }
            break;
        case Qt::Key_Space:
            if (cell.isValid() && !IsRepeated(*event)) {
                emit Toggled(cell);
            }
            break;
        default:
            QTableView::keyPressEvent(event);
    }
}

bool MatrixGrid::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const QModelIndex cell = indexAt(static_cast<QHelpEvent*>(event)->pos());
        if (cell.isValid()) {
            emit Rested(cell);
        }
    } else if (event->type() == QEvent::Leave) {
        emit Rested(QModelIndex());
    }
    return QTableView::viewportEvent(event);
}

void MatrixGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (current.isValid()) {
        emit Selected(current);
    }
}

}  // namespace quarnel02
