#include "views/markers.h"

#include <algorithm>

namespace corvane {

int findFreeMarker(const MarkerTable& markers) {
    const auto free = std::ranges::find(markers, false, &MarkerRecord::used);
    const auto slot = static_cast<int>(free - markers.begin()) + 1;
    return std::min(slot, static_cast<int>(kMarkerSlots));
}

void placeMarker(MarkerTable& markers, const Triple& pos) {
    markers[static_cast<std::size_t>(findFreeMarker(markers)) - 1] = {pos, true};
}

void removeLastMarker(MarkerTable& markers) {
    const auto last = std::find_if(markers.rbegin(), markers.rend(),
                                   [](const MarkerRecord& marker) { return marker.used; });
    if (last != markers.rend()) last->used = false;
}

void removeAllMarkers(MarkerTable& markers) {
    for (MarkerRecord& marker : markers) marker.used = false;
}

}  // namespace corvane
