#pragma once

#include <cstddef>
#include <string>

#include "sheets/DelimitedText.h"

namespace quarnel02 {

/// Rows and columns of a block up to the last cell that is not blank.
struct BlockSize {
    std::size_t Rows = 0;
    std::size_t Columns = 0;
};
BlockSize FilledSize(const TextBlock& block);

/// Whether a cell shows nothing.
bool IsBlankText(const std::string& text);

/// The block repeated over a selection of that size, as spreadsheets paste: a selection that is a
/// whole multiple of the block in each direction is filled with it, any other takes it once.
TextBlock FittedTo(const TextBlock& block, std::size_t rows, std::size_t columns);

/// Each cell as the one in the first row above it.
TextBlock FilledDown(TextBlock block);

/// Each cell as the first one of its row.
TextBlock FilledRight(TextBlock block);

}  // namespace quarnel02
