#include "sheets/BlockShape.h"

#include <algorithm>

namespace quarnel02 {

namespace {

bool IsMultiple(std::size_t size, std::size_t part) {
    return part > 0 && size > part && size % part == 0;
}

/// Repeats the items at the front until there are so many.
template <class Items>
void Repeat(Items& items, std::size_t size) {
    const std::size_t part = items.size();
    while (items.size() < size) {
        const auto next = items[items.size() - part];
        items.push_back(next);
    }
}

bool IsRectangle(const TextBlock& block) {
    return std::all_of(block.begin(), block.end(),
                       [&](const auto& row) { return row.size() == block.front().size(); });
}

}  // namespace

bool IsBlankText(const std::string& text) {
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

BlockSize FilledSize(const TextBlock& block) {
    BlockSize size;
    for (std::size_t row = 0; row < block.size(); ++row) {
        for (std::size_t column = 0; column < block[row].size(); ++column) {
            if (!IsBlankText(block[row][column])) {
                size = {row + 1, std::max(size.Columns, column + 1)};
            }
        }
    }
    return size;
}

TextBlock FittedTo(const TextBlock& block, std::size_t rows, std::size_t columns) {
    TextBlock fitted = block;
    if (block.empty() || !IsRectangle(block)) {
        return fitted;
    }
    const std::size_t width = block.front().size();
    const bool down = IsMultiple(rows, block.size());
    const bool across = IsMultiple(columns, width);
    if ((down || rows == block.size()) && (across || columns == width)) {
        for (auto& row : fitted) {
            Repeat(row, columns);
        }
        Repeat(fitted, rows);
    }
    return fitted;
}

TextBlock FilledDown(TextBlock block) {
    for (auto& row : block) {
        row = block.front();
    }
    return block;
}

TextBlock FilledRight(TextBlock block) {
    for (auto& row : block) {
        std::fill(row.begin(), row.end(), row.empty() ? std::string() : row.front());
    }
    return block;
}

}  // namespace quarnel02
