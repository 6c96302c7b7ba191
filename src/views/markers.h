// Marks on the views to line things up on. They are never saved.
#pragma once

#include <array>

#include "model/geoset_store.h"

namespace corvane {

inline constexpr std::size_t kMarkerSlots = 20;

struct MarkerRecord {
    Triple pos{};  ///< model units, slot order
    bool used = false;
};

/// The markers; entry i is slot i + 1.
using MarkerTable = std::array<MarkerRecord, kMarkerSlots>;

}  // namespace corvane
