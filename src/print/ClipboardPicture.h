#pragma once

#include <QString>

#include "picture/Picture.h"

namespace quarnel02 {

/// Puts a picture on the clipboard: what a line printer wrote as text, a drawing as an image and as
/// SVG, from which the program that takes it chooses.
void CopyPicture(const Picture& picture);

void CopyText(const QString& text);

}  // namespace quarnel02
