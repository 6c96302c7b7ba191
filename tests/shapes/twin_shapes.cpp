// Shapes that mean something else than the tool shape, and what they mean.
#include "shape_parts.h"

namespace corvane {

namespace {

constexpr const char* kZeroNormals =
    "\tNormals 4 {\n\t\t{ 0, 0, 0 },\n\t\t{ 0, 0, 0 },\n\t\t{ 0, 0, 0 },\n\t\t{ 0, 0, 0 },\n\t}\n";
constexpr const char* kZeroTexture =
    "\tTVertices 4 {\n\t\t{ 0, 0 },\n\t\t{ 0, 0 },\n\t\t{ 0, 0 },\n\t\t{ 0, 0 },\n\t}\n";
constexpr const char* kZeroGroups = "\tVertexGroup {\n\t\t0,\n\t\t0,\n\t\t0,\n\t\t0,\n\t}\n";
constexpr const char* kSkinWeights =
    "\tSkinWeights 4 {\n\t\t0, 0, 0, 0, 255, 0, 0, 0,\n\t\t1, 0, 0, 0, 255, 0, 0, 0,\n"
    "\t\t2, 0, 0, 0, 255, 0, 0, 0,\n\t\t3, 0, 0, 0, 200, 55, 0, 0,\n\t}\n";
constexpr const char* kNoMatrices = "\tGroups 0 0 {\n\t}\n";

// A shape with a twin of its own.
struct TwinShape {
    const char* name;
    bool staysAsItIs;  // a section is missing or says nothing, and stays so
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
    {"MatricesOfMinusOne", true,
     [](GeosetLines& g) { g.groups = "\tGroups 1 0 {\n\t\tMatrices { -1 },\n\t}\n"; },
     [](GeosetLines& g) { g.groups = "\tGroups 1 0 {\n\t\tMatrices { },\n\t}\n"; }},
    {"MatricesOfNothing", true,
     [](GeosetLines& g) {
         g.groups = "\tGroups 2 1 {\n\t\tMatrices { 4 },\n\t\tMatrices { },\n\t}\n";
     },
     [](GeosetLines& g) {
         g.groups = "\tGroups 2 1 {\n\t\tMatrices { 4 },\n\t\tMatrices { -1 },\n\t}\n";
     }},
    {"SkinWeightsAndAnEmptyVertexGroup", true,
     [](GeosetLines& g) {
         g.texture += kSkinWeights;
         g.vertexGroup = "\tVertexGroup {\n\t}\n";
         g.groups = "\tGroups 1 0 {\n\t\tMatrices { -1 },\n\t}\n";
     },
     [](GeosetLines& g) {
         g.vertexGroup = kZeroGroups;
         g.groups = "\tGroups 1 0 {\n\t\tMatrices { },\n\t}\n";
     }},
    {"SkinWeightsAndAnEmptyVertexGroupOnOneLine", true,
     [](GeosetLines& g) {
         g.texture += kSkinWeights;
         g.vertexGroup = "  VertexGroup  { } // in the weights\n";
         g.groups = "\tGroups 2 3 { Matrices { 0 },Matrices{1, 2,} }\n";
     },
     [](GeosetLines& g) { g.vertexGroup = kZeroGroups; }},
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
                          .saved = shape.staysAsItIs ? text : twin,
                          .withoutFirst = withoutFirst});
    }
}

}  // namespace corvane
