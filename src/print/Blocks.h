#pragma once

#include <vector>

#include "print/Pages.h"
#include "report/Document.h"

namespace quarnel02 {

/// Room for the body of a page, twips.
struct PaperBody {
    double Width;
    double Height;
};

/// A document as blocks for pages of this size: its title and its parts. No block is higher than a
/// page of usual size: pictures are made to fit, and long rows of a table are parted.
std::vector<Block> BlocksOf(const Document& document, const PaperBody& body);

}  // namespace quarnel02
