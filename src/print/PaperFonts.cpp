#include "print/PaperFonts.h"

#include <QFontDatabase>
#include <QStringList>

#include "picture/Fonts.h"
#include "picture/Inks.h"
#include "widgets/PicturePainter.h"
#include "widgets/ScreenMeasure.h"

namespace quarnel02 {

namespace {

Font FaceOf(PaperText text) {
    switch (text) {
        case PaperText::Title:
            return {FontFamily::Proportional, 18, true};
        case PaperText::Heading:
            return {FontFamily::Proportional, 12, true};
        case PaperText::Strong:
            return {FontFamily::Proportional, 10, true};
        case PaperText::Plain:
            return {FontFamily::Proportional, 10, false};
        case PaperText::TableHead:
            return {FontFamily::Proportional, 8.5, true};
        case PaperText::Table:
            return {FontFamily::Proportional, 8.5, false};
        case PaperText::Printed:
            return {FontFamily::FixedPitch, 9, false};
        case PaperText::Small:
            break;
    }
    return {FontFamily::Proportional, 8, false};
}

}  // namespace

QString PaperFamily() {
    const QStringList families = QFontDatabase::families();
    for (const char* name : kProportionalFamilies) {
        if (families.contains(QLatin1String(name))) {
            return QString::fromLatin1(name);
        }
    }
    return QString::fromLatin1(kProportionalFamilies.back());
}

QFont PaperFont(PaperText text) {
    static const QString family = PaperFamily();
    return ScreenFont(FaceOf(text), family);
}

QColor PaperInk() {
    return ScreenColour(kInk, {});
}

QColor SoftPaperInk() {
    return ScreenColour(kSoftInk, {});
}

}  // namespace quarnel02
