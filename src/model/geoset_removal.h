// Removes a geoset from a model's text and repairs the references to it.
#pragma once

#include "model/model_text.h"
#include "model/model_writer.h"

namespace corvane {

/// The model without geoset `geosetNumber` (1-based) and without the geoset animation that names
/// it (the first one, where several do). Every other GeosetId and GeosetAnimId that counted on
/// what was removed is redirected (to Multiple, to None) or shifted down by one. Where no geoset
/// animation names the geoset, no GeosetAnimId changes. Where the model has fewer geosets, no
/// block is removed. Views into `text`.
PiecedText removeGeoset(const ModelText& text, int geosetNumber);

}  // namespace corvane
