#include "widgets/ScreenMeasure.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QStringList>
#include <cmath>
#include <map>
#include <memory>

#include "basic/LinePrinter.h"
#include "picture/Fonts.h"
#include "picture/Units.h"

namespace quarnel02 {

namespace {

class FamilyMeasure : public TextMeasure {
  public:
    explicit FamilyMeasure(QString family) : m_family(std::move(family)) {}

    [[nodiscard]] double Width(std::string_view text, const Font& font) const override {
        if (font.Family == FontFamily::FixedPitch) {
            return CharacterCount(text) * CharacterWidth(font);
        }
        return QFontMetricsF(ScreenFont(font, m_family))
            .horizontalAdvance(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    }

  private:
    QString m_family;
};

}  // namespace

QFont FixedPitchFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!QFontInfo(font).fixedPitch()) {
        QStringList families;
        for (const char* family : kFixedPitchFamilies) {
            families << QString::fromLatin1(family);
        }
        font.setFamilies(families);
        font.setStyleHint(QFont::Monospace);
    }
    return font;
}

QFont ScreenFont(const Font& face, const QString& family) {
    QFont font = face.Family == FontFamily::FixedPitch ? FixedPitchFont() : QFont(family);
    font.setPixelSize(static_cast<int>(std::lround(face.Points * kTwipsPerPoint)));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setBold(face.Bold);
    return font;
}

const TextMeasure& ScreenMeasure(const QString& family) {
    static std::map<QString, std::unique_ptr<FamilyMeasure>> measures;
    auto& measure = measures[family];
    if (!measure) {
        measure = std::make_unique<FamilyMeasure>(family);
    }
    return *measure;
}

}  // namespace quarnel02
