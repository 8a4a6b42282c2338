#include "study/PathwayPlaces.h"

namespace quarnel02 {

PathwayPlaces::PathwayPlaces(const PreparedLine& line)
    : m_tasks(line.Model.Tasks().size()), m_chains(line.Model.Resources().size() * m_tasks) {
    for (std::size_t place = 0; place < line.Pathways.size(); ++place) {
        const auto& [resource, first, last] = line.Pathways[place];
        Chain& chain = m_chains[ChainPlace(resource, first)];
        if (chain.LastTask == 0) {
            chain.Place = place;
        }
        chain.LastTask = last;
    }
}

std::optional<std::size_t> PathwayPlaces::Of(int resource, int first, int last) const {
    const Chain& chain = m_chains[ChainPlace(resource, first)];
    if (last > chain.LastTask) {
        return std::nullopt;
    }
    return chain.Place + static_cast<std::size_t>(last - first);
}

}  // namespace quarnel02
