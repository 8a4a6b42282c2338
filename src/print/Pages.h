#pragma once

#include <QPainter>
#include <functional>
#include <memory>
#include <vector>

namespace quarnel02 {

/// A part of a document that no page break may cut.
struct Block {
    double Height = 0;      ///< twips
    double Gap = 0;         ///< above it, unless it begins a page
    bool WithNext = false;  ///< must not be the last of a page
    /// Repeated above it where it begins a page; null for none.
    std::shared_ptr<const Block> Head = {};
    /// Paints it; the painter's origin is its upper left corner, its unit the twip.
    std::function<void(QPainter&)> Paint = {};
};

/// A block and where it stands on its page.
struct PlacedBlock {
    const Block* What;  ///< one of the blocks, or the head of one
    double Top;         ///< twips from the top of the body
};
using PlacedPage = std::vector<PlacedBlock>;

/// The blocks on pages of so much body, in their order; at least one page. A block that is higher
/// than a page has one to itself. The blocks must outlive the pages.
std::vector<PlacedPage> PagesOf(const std::vector<Block>& blocks, double body);

}  // namespace quarnel02
