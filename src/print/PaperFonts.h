#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QString>

#include "picture/TextMeasure.h"

namespace quarnel02 {

/// Texts of a document by what they are for.
enum class PaperText { Title, Heading, Strong, Plain, Table, TableHead, Printed, Small };

/// The first family for paper that there is, the one that files are laid out for if possible.
QString PaperFamily();

/// In twips; for a painter whose unit is the twip.
QFont PaperFont(PaperText text);

/// Ink of texts, and of what frames them.
QColor PaperInk();
QColor SoftPaperInk();

}  // namespace quarnel02
