// Shapes that mean something else than the tool shape, and what they mean.
#include "shape_parts.h"

namespace corvane {

namespace {

constexpr const char* kZeroNormals =
    "\tNormals 4 {\n\t\t{ 0, 0, 0 },\n\t\t{ 0, 0, 0 },\n\t\t{ 0, 0, 0 },\n\t\t{ 0, 0, 0 },\n\t}\n";
constexpr const char* kZeroTexture =
    "\tTVertices 4 {\n\t\t{ 0, 0 },\n\t\t{ 0, 0 },\n\t\t{ 0, 0 },\n\t\t{ 0, 0 },\n\t}\n";
constexpr const char* kZeroGroups = "\tVertexGroup {\n\t\t0,\n\t\t0,\n\t\t0,\n\t\t0,\n\t}\n";
constexpr const char* kNoMatrices = "\tGroups 0 0 {\n\t}\n";

// A shape with a twin of its own.
struct TwinShape {
    const char* name;
    bool isMissing;  // a section is missing, and stays so
    Change change;
    Change twin;
};

constexpr TwinShape kTwinShapes[] = {
    {"NoNormals", true, [](GeosetLines& g) { g.normals.clear(); },
     [](GeosetLines& g) { g.normals = kZeroNormals; }},
    {"NoTextureCoordinates", true, [](GeosetLines& g) { g.texture.clear(); },
     [](GeosetLines& g) { g.texture = kZeroTexture; }},
    {"NoVertexGroup", true, [](GeosetLines& g) { g.vertexGroup.clear(); },
     [](GeosetLines& g) { g.vertexGroup = kZeroGroups; }},
    {"NoGroups", true, [](GeosetLines& g) { g.groups.clear(); },
     [](GeosetLines& g) { g.groups = kNoMatrices; }},
    {"VerticesAndFacesOnly", true,
     [](GeosetLines& g) {
         for (std::string* section : {&g.normals, &g.texture, &g.vertexGroup, &g.groups}) {
             section->clear();
         }
     },
     [](GeosetLines& g) {
         g.normals = kZeroNormals;
         g.texture = kZeroTexture;
         g.vertexGroup = kZeroGroups;
         g.groups = kNoMatrices;
     }},
    {"NoNumbersInNormals", false,
     [](GeosetLines& g) {
         g.normals =
             "\tNormals 4 {\n\t\t{ nan, -nan, 1 },\n\t\t{ inf, -inf, NaN },\n"
             "\t\t{ -1.#IND00, 1.#QNAN0, 1.#INF00 },\n\t\t{ 0, -1.#INF00, -1 },\n\t}\n";
     },
     [](GeosetLines& g) {
         g.normals =
             "\tNormals 4 {\n\t\t{ 0, 0, 1 },\n\t\t{ 0, 0, 0 },\n\t\t{ 0, 0, 0 },\n"
             "\t\t{ 0, 0, -1 },\n\t}\n";
     }},
    {"NoNumbersInTextureCoordinates", false,
     [](GeosetLines& g) {
         g.texture =
             "\tTVertices 4 {\n\t\t{ nan, 1 },\n\t\t{ 1, inf },\n\t\t{ -1.#IND00, 0.5 },\n"
             "\t\t{ 0.25, -1.#IND00 },\n\t}\n";
     },
     [](GeosetLines& g) {
         g.texture =
             "\tTVertices 4 {\n\t\t{ 0, 1 },\n\t\t{ 1, 0 },\n\t\t{ 0, 0.5 },\n"
             "\t\t{ 0.25, 0 },\n\t}\n";
     }},
};

}  // namespace

void addTwinShapes(std::vector<Shape>& shapes) {
    const std::string withoutFirst = toolPieces().withoutFirst;
    for (const TwinShape& shape : kTwinShapes) {
        const std::string text = modelWith(shape.change);
        const std::string twin = modelWith(shape.twin);
        shapes.push_back({.name = shape.name,
                          .text = text,
                          .twin = twin,
                          .saved = shape.isMissing ? text : twin,
                          .withoutFirst = withoutFirst});
    }
}

}  // namespace corvane
