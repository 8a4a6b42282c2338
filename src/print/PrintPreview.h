#pragma once

#include <QWidget>

#include "report/Document.h"

namespace quarnel02 {

/// Shows the pages of a document as they will be printed, and prints them from there: on a printer,
/// or into a file, which needs none. Paper and its direction are chosen there.
void ShowPrintPreview(QWidget* parent, const Document& document);

}  // namespace quarnel02
