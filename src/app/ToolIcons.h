#pragma once

#include <QIcon>
#include <QPalette>
#include <QString>

namespace quarnel02 {

/// One of the program's own icons, ":/icons/NAME.svg": lines in the colour of the palette's button
/// text, so that they stand out in every theme.
QIcon ToolIcon(const QString& name, const QPalette& palette);

}  // namespace quarnel02
