#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

namespace quarnel02 {

/// The text in lines that are at most so wide, twips, broken at blanks, and within a word only
/// where the word alone is wider. At least one line, which may be empty; nothing is left out but
/// blanks at breaks.
QStringList WrapText(const QString& text, double width, const QFont& font);

/// A line in fixed pitch in lines of at most so many characters (at least 8), further ones indented
/// by 4 blanks; blanks within it stay.
QStringList WrapColumns(const QString& line, int columns);

}  // namespace quarnel02
