#pragma once

#include <QImage>
#include <string>

#include "picture/Picture.h"

namespace quarnel02 {

// A picture as a file, on white paper and with the letters of files. It has the shape in which it
// is shown, as far as PaperShape goes; one that is shown small is laid out larger, so that its
// labels have room.

/// Height of a picture on paper, in widths: as it is shown, but from 0.3 to 0.65, since what stands
/// in a narrow box would be lost on high paper.
double PaperShape(const Picture& picture);

/// Pixels, `scale` to a pixel of 15 twips.
QImage PaperImage(const Picture& picture, double scale);
std::string PngOf(const Picture& picture, double scale);
std::string SvgOf(const Picture& picture);
/// One page of the picture's size.
std::string PdfOf(const Picture& picture, const std::string& title);

}  // namespace quarnel02
