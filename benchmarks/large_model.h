// Models as large as the format and the targets have them, the same in every run.
#pragma once

#include <cstddef>
#include <iosfwd>

#include "model/geoset_store.h"

namespace corvane {

/// The size of the large model, bytes; the text may be longer by less than one bone.
inline constexpr std::size_t kLargeModelSize = 50'000'000;

/// The geosets of the large model, all of them sphereAtLimit(), and the one in their middle.
inline constexpr int kLargeModelGeosets = 5;
inline constexpr int kEditedGeoset = 3;

/// Model units; at the views' first zoom a sphere of that size just fits.
inline constexpr double kFittingRadius = 60;

/// A sphere about the origin with kMaxVertices vertices and kMaxFaces faces. Its bands share no
/// vertices, as where a texture has seams. Numbers have five decimals, as tools write them.
Geoset sphereAtLimit(double radius);

/// Writes a model of one geoset and nothing else that matters.
void writeModelOf(std::ostream& out, const Geoset& geoset);

/// Writes a model of kLargeModelSize: geosets for nearly half of it, tracks of bones for the rest.
void writeLargeModel(std::ostream& out);

}  // namespace corvane
