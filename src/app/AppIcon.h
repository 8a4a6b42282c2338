#pragma once

#include <QIcon>
#include <QPixmap>

namespace quarnel02 {

/// The program's icon, and its drawing `pixels` device pixels wide.
QIcon AppIcon();
QPixmap AppLogo(int pixels);

/// A text of the program's resources, such as "guide.md".
QString ResourceText(const QString& name);

}  // namespace quarnel02
