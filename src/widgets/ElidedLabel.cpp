#include "widgets/ElidedLabel.h"

#include <QPainter>
#include <QTextDocument>
#include <algorithm>

namespace quarnel02 {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void ElidedLabel::Show(const QString& text, const QString& more) {
    setText(text);
    const QString& tip = more.isEmpty() ? text : more;
    setToolTip(tip.isEmpty() ? QString() : Qt::convertFromPlainText(tip));
}

QSize ElidedLabel::minimumSizeHint() const {
    constexpr int columns = 4;
    return {std::min(columns * fontMetrics().averageCharWidth(), sizeHint().width()),
            QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect room = contentsRect();
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(room, static_cast<int>(alignment()),
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width()));
}

}  // namespace quarnel02
