#include "print/PictureFiles.h"

#include <QBuffer>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>

#include "basic/Version.h"
#include "picture/SvgWriter.h"
#include "print/PaperFonts.h"
#include "widgets/PicturePainter.h"
#include "widgets/ScreenMeasure.h"

namespace quarnel02 {

namespace {

constexpr double kLeastWidth = 800 * kTwipsPerPixel;

/// The picture on paper of its own.
Picture LaidOut(const Picture& picture, const TextMeasure& measure) {
    Picture paper = picture;
    paper.OnChange = nullptr;
    Page page = picture.LaidOutFor();
    const double width = std::max(page.Width, kLeastWidth);
    page = {width, width * PaperShape(picture), Page::kUsualPoints, 1, &measure};
    paper.LayOut(page);
    return paper;
}

void Paint(QPainter& painter, const Picture& paper, const Extent& bounds, double unit) {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(unit, unit);
    painter.translate(-bounds.Left, -bounds.Top);
    for (const PictureFigure& figure : paper.Figures()) {
        PaintFigure(painter, figure, {PaperFamily(), false});
    }
}

QByteArray BytesOf(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

}  // namespace

double PaperShape(const Picture& picture) {
    constexpr double flattest = 0.3;
    constexpr double highest = 0.65;
    const Page& page = picture.LaidOutFor();
    return std::clamp(page.Height / page.Width, flattest, highest);
}

QImage PaperImage(const Picture& picture, double scale) {
    constexpr double metre = 1 / 0.0254;
    constexpr double pixels_per_inch = kTwipsPerInch / kTwipsPerPixel;
    const Picture paper = LaidOut(picture, ScreenMeasure(PaperFamily()));
    const Extent bounds = paper.Bounds();
    const double unit = scale / kTwipsPerPixel;
    const auto pixels = [unit](double twips) { return static_cast<int>(std::ceil(twips * unit)); };
    QImage image(pixels(bounds.Right - bounds.Left), pixels(bounds.Bottom - bounds.Top),
                 QImage::Format_RGB32);
    image.setDotsPerMeterX(static_cast<int>(std::lround(pixels_per_inch * scale * metre)));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(1, 1);
    Paint(painter, paper, bounds, unit);
    return image;
}

std::string PngOf(const Picture& picture, double scale) {
    return BytesOf(PaperImage(picture, scale)).toStdString();
}

std::string SvgOf(const Picture& picture) {
    return ToSvg(LaidOut(picture, FileMeasure()));
}

std::string PdfOf(const Picture& picture, const std::string& title) {
    constexpr int resolution = 1200;
    const Picture paper = LaidOut(picture, ScreenMeasure(PaperFamily()));
    const Extent bounds = paper.Bounds();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(resolution);
    writer.setPageSize(QPageSize(QSizeF((bounds.Right - bounds.Left) / kTwipsPerPoint,
                                        (bounds.Bottom - bounds.Top) / kTwipsPerPoint),
                                 QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    writer.setTitle(QString::fromStdString(title));
    writer.setCreator(QStringLiteral("Quarnel02 ") + QString::fromLatin1(Version()));
    QPainter painter(&writer);
    Paint(painter, paper, bounds, resolution / kTwipsPerInch);
    painter.end();
    return bytes.toStdString();
}

}  // namespace quarnel02
