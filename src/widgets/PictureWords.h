#pragma once

#include <QString>

#include "picture/Picture.h"

namespace quarnel02 {

/// A picture in words, for those who do not see it: its texts in the order of drawing, one to a
/// line.
QString PictureWords(const Picture& picture);

}  // namespace quarnel02
