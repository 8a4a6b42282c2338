#include "studies/StudyPicture.h"

#include <QAction>
#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>
#include <cmath>

#include "basic/Files.h"
#include "picture/SvgWriter.h"
#include "widgets/PicturePainter.h"
#include "widgets/PictureWords.h"

namespace quarnel02 {

namespace {

constexpr double kImageScale = 2;

std::string PngOf(const Picture& picture) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    ImageOf(picture, kImageScale).save(&buffer, "PNG");
    return bytes.toStdString();
}

/// Laid out with the letters of files.
std::string SvgOf(const Picture& picture) {
    Picture for_file = picture;
    for_file.OnChange = nullptr;
    Page page = picture.LaidOutFor();
    page.Measure = &FileMeasure();
    for_file.LayOut(page);
    return ToSvg(for_file);
}

}  // namespace

StudyPicture::StudyPicture(QWidget* parent)
    : PictureBox(parent), m_picture(kTwipsPerPixel, kTwipsPerPixel) {
    SetPicture(m_picture);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    AddCommand(QStringLiteral("&Copy picture"), QStringLiteral("mnuCopyPicture"),
               [this] { Copy(); });
    AddCommand(QStringLiteral("&Save picture as..."), QStringLiteral("mnuSavePicture"),
               [this] { emit SaveAsked(); });
}

void StudyPicture::AddCommand(const QString& text, const QString& name,
                              const std::function<void()>& command) {
    auto* action = new QAction(text, this);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, command);
    addAction(action);
}

void StudyPicture::Draw(const std::function<void(Picture&)>& draw) {
    draw(m_picture);
    setAccessibleDescription(PictureWords(m_picture));
}

void StudyPicture::Copy() const {
    QGuiApplication::clipboard()->setImage(ImageOf(m_picture, kImageScale));
}

QImage ImageOf(const Picture& picture, double scale) {
    const Extent bounds = picture.Bounds();
    const double pixels = scale / kTwipsPerPixel;
    QImage image(static_cast<int>(std::ceil((bounds.Right - bounds.Left) * pixels)),
                 static_cast<int>(std::ceil((bounds.Bottom - bounds.Top) * pixels)),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(pixels, pixels);
    painter.translate(-bounds.Left, -bounds.Top);
    for (const PictureFigure& figure : picture.Figures()) {
        PaintFigure(painter, figure);
    }
    return image;
}

void SavePicture(const std::filesystem::path& file, const Picture& picture) {
    const bool png = QString::fromStdString(PathText(file.extension()))
                         .compare(QLatin1String(".png"), Qt::CaseInsensitive) == 0;
    WriteWhole(file, png ? PngOf(picture) : SvgOf(picture));
}

}  // namespace quarnel02
