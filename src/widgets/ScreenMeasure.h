#pragma once

#include <QFont>
#include <QString>

#include "picture/TextMeasure.h"

namespace quarnel02 {

/// The desktop's font of fixed pitch; where it names one that is not, a font that is.
QFont FixedPitchFont();

/// The font of a picture's text on screen, in twips: of a family, or its fixed-pitch sibling.
QFont ScreenFont(const Font& face, const QString& family);

/// Measures texts as the screen shows them in a family. Lives as long as the program.
const TextMeasure& ScreenMeasure(const QString& family);

}  // namespace quarnel02
