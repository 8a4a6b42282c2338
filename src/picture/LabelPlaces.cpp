#include "picture/LabelPlaces.h"

#include <algorithm>

namespace quarnel02 {

bool Overlap(const Extent& a, const Extent& b) {
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

bool LabelPlaces::IsFree(const Extent& place) const {
    return place.Left >= m_area.Left && place.Top >= m_area.Top && place.Right <= m_area.Right &&
           place.Bottom <= m_area.Bottom &&
           std::none_of(m_taken.begin(), m_taken.end(),
                        [&](const Extent& taken) { return Overlap(place, taken); });
}

bool LabelPlaces::TryTake(const Extent& place) {
    const bool free = IsFree(place);
    if (free) {
        Take(place);
    }
    return free;
}

}  // namespace quarnel02
