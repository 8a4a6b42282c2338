#include "print/ClipboardPicture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <memory>

#include "print/PictureFiles.h"

namespace quarnel02 {

void CopyPicture(const Picture& picture) {
    constexpr double scale = 2;
    auto content = std::make_unique<QMimeData>();
    const auto text = picture.IsComposed() ? std::nullopt : TextOf(picture);
    if (text) {
        content->setText(QString::fromStdString(*text));
    } else {
        content->setImageData(PaperImage(picture, scale));
        content->setData(QStringLiteral("image/svg+xml"),
                         QByteArray::fromStdString(SvgOf(picture)));
    }
    QGuiApplication::clipboard()->setMimeData(content.release());
}

void CopyText(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}

}  // namespace quarnel02
