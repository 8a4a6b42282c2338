#pragma once

#include <QPagedPaintDevice>
#include <string>

#include "report/Document.h"

namespace quarnel02 {

/// Prints a document on the pages of a device, within its margins, on white paper and with letters
/// that stay letters; a head and a foot on each page name product, date and page. Returns the
/// number of pages; 0 where the device cannot be printed on.
int PrintDocument(const Document& document, QPagedPaintDevice& device);

/// A document as the bytes of a PDF file, A4.
std::string PdfOf(const Document& document);

/// Margins of a page on each side, millimetres.
inline constexpr double kPaperMargin = 18;

}  // namespace quarnel02
