// The same model in the shapes in which different programs lay it out.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "model/geoset_store.h"

namespace corvane {

/// The lines of one geoset, each section a text of its own with its header and its closing line.
/// What stands outside the sections is in `opening`, `tail` and `closing`.
struct GeosetLines {
    std::string opening = "Geoset {\n";
    std::string vertices;
    std::string normals;
    std::string texture;
    std::string vertexGroup;
    std::string faces;
    std::string groups;
    std::string tail = "\tMinimumExtent { 1, 2, 3 },\n\tMaterialID 0,\n";
    std::string closing = "}\n";
};

/// A geoset as the tools lay it out: four vertices, two faces, two groups. `x` is the first
/// coordinate of the first vertex.
GeosetLines toolLines(const std::string& x = "1");

/// A model with that geoset and, after it, the tool-shaped one with x = 5, with an animation and a
/// bone for each.
std::string shapedModel(const GeosetLines& lines);

/// One way to lay a model out.
struct Shape {
    std::string name;
    std::string text;
    std::string twin;  ///< a tool-shaped model with the same geosets
    /// What saving its first geoset unchanged makes of it, but for the blanks around the sections'
    /// closing braces. Empty where more than one text is right.
    std::string saved;
    std::string withoutFirst;  ///< the same, of removing the first geoset
};

inline void PrintTo(const Shape& shape, std::ostream* out) { *out << shape.name; }

/// All shapes that are read. Every one has two geosets.
std::vector<Shape> readableShapes();

/// What becomes of one line; it gets the tabs at its start, and what follows them.
using LineChange = std::function<std::string(const std::string& tabs, const std::string& rest)>;

/// The text with every line changed.
std::string reshaped(const std::string& text, const LineChange& change);

/// All of a geoset that its sections hold, to be compared and read. Not the rows that a vertex
/// came from: those tell the twins apart.
std::string shown(const Geoset& geoset);

/// A model whose first geoset has these lines in place of those of toolLines().
template <class Change>
std::string modelWith(Change change) {
    GeosetLines lines = toolLines();
    change(lines);
    return shapedModel(lines);
}

}  // namespace corvane
