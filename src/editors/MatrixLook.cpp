#include "editors/MatrixLook.h"

#include <QPainter>
#include <array>

#include "editors/MatrixGrid.h"

namespace quarnel02 {

namespace {

constexpr double kFaint = 0.07;
constexpr double kPale = 0.3;

struct LegendEntry {
    PairLook Look;
    const char* Meaning;
};

constexpr std::array<LegendEntry, 4> kLegend = {
    {{PairLook::Empty, "empty"},
     {PairLook::Marked, "marked, no values yet"},
     {PairLook::Cannot, "cannot (time 0)"},
     {PairLook::Leaving, "mark taken off: goes with OK"}}};

/// The background of cells with so much of the text's colour in it.
QColor Tinted(const QPalette& palette, double share) {
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    const auto mixed = [share](int from, int to) {
        return static_cast<int>(from + share * (to - from));
    };
    return {mixed(base.red(), text.red()), mixed(base.green(), text.green()),
            mixed(base.blue(), text.blue())};
}

/// At the left of the cell, where figures seldom reach.
void PaintMark(QPainter& painter, const QRect& cell, const QColor& colour) {
    const int edge = cell.height();
    PaintCheck(painter, QRectF(cell.left(), cell.top(), edge, edge), colour);
}

}  // namespace

void PaintLook(QPainter& painter, const QRect& cell, const QPalette& palette, PairLook look) {
    switch (look) {
        case PairLook::Absent:
            painter.fillRect(cell, Tinted(palette, 2 * kFaint));
            break;
        case PairLook::Empty:
            painter.fillRect(cell, Tinted(palette, kFaint));
            break;
        case PairLook::Marked:
            PaintMark(painter, cell, palette.color(QPalette::Highlight));
            break;
        case PairLook::Cannot:
            painter.fillRect(cell, QBrush(Tinted(palette, kPale), Qt::BDiagPattern));
            break;
        case PairLook::Leaving: {
            painter.save();
            painter.setPen(QPen(Tinted(palette, 2 * kPale), 1));
            const int middle = cell.center().y();
            painter.drawLine(cell.left() + 2, middle, cell.right() - 2, middle);
            painter.restore();
            break;
        }
        case PairLook::Can:
            break;
    }
}

MatrixLegend::MatrixLegend(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

int MatrixLegend::Gap() const {
    return fontMetrics().averageCharWidth();
}

QSize MatrixLegend::Swatch() const {
    const int height = fontMetrics().lineSpacing();
    return {2 * height, height};
}

QSize MatrixLegend::sizeHint() const {
    int width = 0;
    for (const LegendEntry& entry : kLegend) {
        width += Swatch().width() + fontMetrics().horizontalAdvance(tr(entry.Meaning)) + 3 * Gap();
    }
    return {width, Swatch().height() + 2};
}

void MatrixLegend::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    int left = 0;
    for (const LegendEntry& entry : kLegend) {
        const QRect swatch(QPoint(left, 1), Swatch());
        painter.fillRect(swatch, palette().base());
        PaintLook(painter, swatch, palette(), entry.Look);
        painter.setPen(Tinted(palette(), kPale));
        painter.drawRect(swatch.adjusted(0, 0, -1, -1));
        left = swatch.right() + Gap();
        const QString meaning = tr(entry.Meaning);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(QRect(left, 0, width() - left, height()), Qt::AlignLeft | Qt::AlignVCenter,
                         meaning);
        left += fontMetrics().horizontalAdvance(meaning) + 2 * Gap();
    }
}

}  // namespace quarnel02
