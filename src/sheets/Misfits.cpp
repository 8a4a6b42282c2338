#include "sheets/Misfits.h"

#include <utility>

namespace quarnel02 {

void Misfits::Add(Misfit misfit) {
    ++m_count;
    if (m_first.size() < kKept) {
        m_first.push_back(std::move(misfit));
    }
}

std::string Misfits::Message(std::string opening, std::string_view between) const {
    for (const Misfit& misfit : m_first) {
        opening += std::string(between) + misfit.Reason;
    }
    const std::size_t more = m_count - m_first.size();
    if (more > 0) {
        opening += std::string(between) + "And " + std::to_string(more) +
                   (more == 1 ? " more cell does not fit." : " more cells do not fit.");
    }
    return opening;
}

}  // namespace quarnel02
