#include "app/GuideText.h"

#include <QFileInfo>
#include <QImage>

#include "app/AppIcon.h"

namespace quarnel02 {

void GuideText::ShowGuide(int width) {
    m_width = width;
    setMarkdown(ResourceText(QStringLiteral("guide.md")));
}

/// The guide names its pictures as the directory of its source does.
QVariant GuideText::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::ImageResource) {
        return QTextBrowser::loadResource(type, name);
    }
    const QImage picture(QStringLiteral(":/images/") + QFileInfo(name.path()).fileName());
    const double ratio = devicePixelRatioF();
    const int pixels = static_cast<int>(m_width * ratio);
    if (picture.width() <= pixels) {
        return picture;
    }
    QImage fitted = picture.scaledToWidth(pixels, Qt::SmoothTransformation);
    fitted.setDevicePixelRatio(ratio);
    return fitted;
}

}  // namespace quarnel02
