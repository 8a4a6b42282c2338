#pragma once

#include <span>
#include <vector>

#include "print/Blocks.h"

namespace quarnel02 {

/// Widths of the columns of a table, twips, padding included: what its texts need as long as that
/// is not wider than the paper, else the room shared so that narrow columns keep theirs.
std::vector<double> SharedWidths(std::span<const double> wanted, double room);

/// The head of a table and a block for each row; a row that is higher than half a page is parted
/// into several. The head stands with the first row and is repeated on every page.
std::vector<Block> TableBlocks(const TablePart& table, const PaperBody& body);

}  // namespace quarnel02
