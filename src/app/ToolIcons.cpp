#include "app/ToolIcons.h"

#include <QPainter>
#include <QSvgRenderer>

#include "app/AppIcon.h"

namespace quarnel02 {

namespace {

QPixmap Drawn(QSvgRenderer& drawing, int pixels) {
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawing.render(&painter);
    return pixmap;
}

/// The drawing with its own lines in an ink.
void AddDrawing(QIcon& icon, QString drawing, const QColor& ink, QIcon::Mode mode) {
    QSvgRenderer renderer(drawing.replace(QStringLiteral("currentColor"), ink.name()).toUtf8());
    for (const int pixels : {16, 24, 48}) {
        icon.addPixmap(Drawn(renderer, pixels), mode);
    }
}

}  // namespace

QIcon ToolIcon(const QString& name, const QPalette& palette) {
    const QString drawing = ResourceText(QStringLiteral("icons/%1.svg").arg(name));
    QIcon icon;
    AddDrawing(icon, drawing, palette.color(QPalette::ButtonText), QIcon::Normal);
    AddDrawing(icon, drawing, palette.color(QPalette::Disabled, QPalette::ButtonText),
               QIcon::Disabled);
    return icon;
}

}  // namespace quarnel02
