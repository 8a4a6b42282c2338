#include "print/Pages.h"

#include <cstddef>

namespace quarnel02 {

namespace {

/// Height of the blocks from `first` on that must stand together, with the gaps between them.
double HeightTogether(const std::vector<Block>& blocks, std::size_t first) {
    double height = blocks[first].Height;
    for (std::size_t i = first; blocks[i].WithNext && i + 1 < blocks.size(); ++i) {
        height += blocks[i + 1].Gap + blocks[i + 1].Height;
    }
    return height;
}

class Paginator {
  public:
    Paginator(const std::vector<Block>& blocks, double body) : m_blocks(blocks), m_body(body) {}

    std::vector<PlacedPage> Run() {
        for (std::size_t i = 0; i < m_blocks.size(); ++i) {
            const bool kept = i > 0 && m_blocks[i - 1].WithNext;
            if (!IsEmpty() && !(kept ? Fits(m_blocks[i].Height, i) : FitsTogether(i))) {
                BeginPage();
            }
            if (IsEmpty() && m_blocks[i].Head) {
                Place(*m_blocks[i].Head);
            }
            m_used += IsEmpty() || StandsUnderItsHead(i) ? 0 : m_blocks[i].Gap;
            Place(m_blocks[i]);
        }
        return std::move(m_pages);
    }

  private:
    [[nodiscard]] bool IsEmpty() const { return m_pages.back().empty(); }
    [[nodiscard]] bool StandsUnderItsHead(std::size_t i) const {
        return m_pages.back().back().What == m_blocks[i].Head.get();
    }
    [[nodiscard]] bool Fits(double height, std::size_t i) const {
        return m_used + m_blocks[i].Gap + height <= m_body;
    }
    /// What cannot stand together on any page is broken anywhere.
    [[nodiscard]] bool FitsTogether(std::size_t i) const {
        return Fits(HeightTogether(m_blocks, i), i);
    }
    void BeginPage() {
        m_pages.emplace_back();
        m_used = 0;
    }
    void Place(const Block& block) {
        m_pages.back().push_back({&block, m_used});
        m_used += block.Height;
    }

    const std::vector<Block>& m_blocks;
    double m_body;
    std::vector<PlacedPage> m_pages{1};
    double m_used = 0;
};

}  // namespace

std::vector<PlacedPage> PagesOf(const std::vector<Block>& blocks, double body) {
    return Paginator(blocks, body).Run();
}

}  // namespace quarnel02
