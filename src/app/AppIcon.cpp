#include "app/AppIcon.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

// Outside every namespace: the resources of a static library are not found by themselves.
static void LoadResources() {
    Q_INIT_RESOURCE(resources);
}

namespace quarnel02 {

QPixmap AppLogo(int pixels) {
    LoadResources();
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(QStringLiteral(":/quarnel02.svg")).render(&painter);
    return pixmap;
}

QIcon AppIcon() {
    QIcon icon;
    for (const int pixels : {16, 24, 32, 48, 64, 128}) {
        icon.addPixmap(AppLogo(pixels));
    }
    return icon;
}

QString ResourceText(const QString& name) {
    LoadResources();
    QFile file(QStringLiteral(":/") + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace quarnel02
