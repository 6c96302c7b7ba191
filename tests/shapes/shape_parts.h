// What the shapes are put together from.
#pragma once

#include <string>
#include <vector>

#include "shape_models.h"

namespace corvane {

/// The pieces of the tool-shaped model: the first geoset's sections, and what is around them.
struct Pieces {
    std::string before;
    std::string sections;
    std::string after;
    std::string withoutFirst;  ///< the model without its first geoset

    std::string text() const { return before + sections + after; }
};

Pieces toolPieces();

/// What a shape changes in a geoset's lines.
using Change = void (*)(GeosetLines& lines);

/// Add the shapes of the whole file, of the lines of a geoset, and those that mean something else
/// than the tool shape.
void addWholeFileShapes(std::vector<Shape>& shapes);
void addLineShapes(std::vector<Shape>& shapes);
void addTwinShapes(std::vector<Shape>& shapes);

}  // namespace corvane
