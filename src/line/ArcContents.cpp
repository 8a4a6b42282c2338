#include "line/ArcContents.h"

namespace quarnel02 {

void ArcContents::Next() {
    const double transport = m_model.Parameters().TransportTime;
    auto& begun = m_arcs.emplace_back();
    for (const Resource& resource : m_model.Resources()) {
        if (m_model.CanDo(resource.Number, LastTask())) {
            begun.push_back({resource.Number, StationContent(resource, transport)});
        }
    }
    for (auto& arc : m_arcs) {
        std::erase_if(
            arc, [&](const OfResource& each) { return !m_model.CanDo(each.Resource, LastTask()); });
    }
}

}  // namespace quarnel02
