#include "studies/TypedFigures.h"

#include <QLineEdit>
#include <cmath>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "study/LargestVolume.h"

namespace quarnel02 {

int TypedVolume(const QString& text, const char* field) {
    const double volume = std::round(TextToDouble(text.toStdString(), field));
    if (volume < 1 || volume > kMostVolume) {
        throw RunTimeError(ErrorKind::Overflow, std::string(field) + " is " +
                                                    text.trimmed().toStdString() +
                                                    "; it must be from 1 to 2,000,000,000.");
    }
    return static_cast<int>(volume);
}

std::optional<std::int16_t> TypedLimit(const QString& text) {
    const std::string typed = text.trimmed().toStdString();
    if (typed.empty() || typed == "--" || TextToDouble(typed, "Station limit") < 1) {
        return std::nullopt;
    }
    return TextToInteger(typed, "Station limit");
}

QString LimitText(std::optional<std::int16_t> limit) {
    return limit ? QString::number(*limit) : QStringLiteral("--");
}

void LimitWidth(QLineEdit& box) {
    constexpr int digits = 13;
    box.setMaximumWidth(digits * box.fontMetrics().horizontalAdvance(QLatin1Char('0')));
    box.setAlignment(Qt::AlignRight);
}

}  // namespace quarnel02
