// Marks on the views to line things up on. They are never saved.
#pragma once

#include <array>

#include "base/axis.h"

namespace corvane {

inline constexpr std::size_t kMarkerSlots = 20;

struct MarkerRecord {
    Triple pos{};  ///< model units, slot order
    bool used = false;
};

/// The markers; entry i is slot i + 1.
using MarkerTable = std::array<MarkerRecord, kMarkerSlots>;

/// The first slot that is free, 1 to 20; 20 where none is, so that the next marker takes its place.
int findFreeMarker(const MarkerTable& markers);

/// Puts a marker into that slot.
void placeMarker(MarkerTable& markers, const Triple& pos);

/// Removes the marker in the highest slot.
void removeLastMarker(MarkerTable& markers);
void removeAllMarkers(MarkerTable& markers);

}  // namespace corvane
