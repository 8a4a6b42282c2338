#include "line/ArcContents.h"

namespace quarnel02::line {

void ArcContents::Next() {
    const int last = static_cast<int>(m_arcs.size()) + 1;
    auto& begun = m_arcs.emplace_back();
    for (const Resource& resource : m_model.Resources()) {
        if (m_model.CanDo(resource.Number, last)) {
            begun.push_back(
                {resource.Number, StationContent(resource, m_model.Parameters().TransportTime)});
        }
    }
    for (auto& arc : m_arcs) {
        std::erase_if(arc,
                      [&](const OfResource& each) { return !m_model.CanDo(each.Resource, last); });
        for (OfResource& each : arc) {
            each.Content.Add(m_model.Entry(each.Resource, last));
        }
    }
}

}  // namespace quarnel02::line
