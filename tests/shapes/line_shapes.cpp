// Shapes of the lines of a geoset.
#include "shape_parts.h"

namespace corvane {

namespace {

// A shape of the first geoset's lines that means what the tool shape means.
struct LineShape {
    const char* name;
    Change change;
};

// Blanks.
constexpr LineShape kBlankShapes[] = {
    {"SeveralBlanksEverywhere",
     [](GeosetLines& g) {
         g.opening = "Geoset   {\n";
         g.vertices =
             "\tVertices   4   {\n\t\t{   1,   2,   3   },\n\t\t{  11  ,  2  ,  3  }  ,\n"
             "\t\t{ 11,\t12,\t3 },\n\t\t{\t1, 12, 3.5\t},\n\t}\n";
         g.normals =
             "\tNormals  4  {\n\t\t{  0, 0, 1 },\n\t\t{  0, 1, 0 },\n\t\t{  1, 0, 0 },\n"
             "\t\t{  0, 0, -1 },\n\t}\n";
         g.texture =
             "\tTVertices  4  {\n\t\t{  0,  1  },\n\t\t{ 1 , 1 },\n\t\t{ 1 , 0 },\n"
             "\t\t{ 0.25 , 0.5 },\n\t}\n";
         g.vertexGroup = "\tVertexGroup  {\n\t\t0 ,\n\t\t0  ,\n\t\t1,\n\t\t 1,\n\t}\n";
         g.faces =
             "\tFaces  1   6  {\n\t\tTriangles   {\n\t\t\t{  0,  1,  2,  0,  2,  3  },\n"
             "\t\t}\n\t}\n";
         g.groups =
             "\tGroups   2   3   {\n\t\tMatrices   {   0   },\n"
             "\t\tMatrices  {  1 ,  2  }  ,\n\t}\n";
     }},
    {"TwoBlanksAfterVertexGroup",
     [](GeosetLines& g) {
         g.vertexGroup = "\tVertexGroup  {\n\t\t0,\n\t\t0,\n\t\t1,\n\t\t1,\n\t}\n";
     }},
    {"NoBlanks",
     [](GeosetLines& g) {
         g.opening = "Geoset{\n";
         g.vertices =
             "\tVertices 4{\n\t\t{1,2,3},\n\t\t{11,2,3},\n\t\t{11,12,3},\n\t\t{1,12,3.5},\n\t}\n";
         g.normals = "\tNormals 4{\n\t\t{0,0,1},\n\t\t{0,1,0},\n\t\t{1,0,0},\n\t\t{0,0,-1},\n\t}\n";
         g.texture = "\tTVertices 4{\n\t\t{0,1},\n\t\t{1,1},\n\t\t{1,0},\n\t\t{0.25,0.5},\n\t}\n";
         g.vertexGroup = "\tVertexGroup{\n\t\t0,\n\t\t0,\n\t\t1,\n\t\t1,\n\t}\n";
         g.faces = "\tFaces 1 6{\n\t\tTriangles{\n\t\t\t{0,1,2,0,2,3},\n\t\t}\n\t}\n";
         g.groups = "\tGroups 2 3{\n\t\tMatrices{0},\n\t\tMatrices{1,2},\n\t}\n";
     }},
    {"NumbersTightInBracesWithBlanks",
     [](GeosetLines& g) {
         g.vertices =
             "\tVertices 4 {\n\t\t{ 1,2,3 },\n\t\t{ 11,2,3 },\n\t\t{ 11,12,3 },\n"
             "\t\t{ 1,12,3.5 },\n\t}\n";
         g.faces = "\tFaces 1 6 {\n\t\tTriangles {\n\t\t\t{ 0,1,2,0,2,3 },\n\t\t}\n\t}\n";
     }},
};

// Commas, and several things on one line.
constexpr LineShape kLineShapes[] = {
    {"LastRowsWithoutComma",
     [](GeosetLines& g) {
         g.vertices =
             "\tVertices 4 {\n\t\t{ 1, 2, 3 },\n\t\t{ 11, 2, 3 },\n\t\t{ 11, 12, 3 },\n"
             "\t\t{ 1, 12, 3.5 }\n\t}\n";
         g.normals =
             "\tNormals 4 {\n\t\t{ 0, 0, 1 },\n\t\t{ 0, 1, 0 },\n\t\t{ 1, 0, 0 },\n"
             "\t\t{ 0, 0, -1 }\n\t}\n";
         g.texture =
             "\tTVertices 4 {\n\t\t{ 0, 1 },\n\t\t{ 1, 1 },\n\t\t{ 1, 0 },\n"
             "\t\t{ 0.25, 0.5 }\n\t}\n";
         g.vertexGroup = "\tVertexGroup {\n\t\t0,\n\t\t0,\n\t\t1,\n\t\t1\n\t}\n";
         g.faces = "\tFaces 1 6 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 2, 0, 2, 3 }\n\t\t}\n\t}\n";
         g.groups = "\tGroups 2 3 {\n\t\tMatrices { 0 },\n\t\tMatrices { 1, 2 }\n\t}\n";
     }},
    {"FacesAndTrianglesOpenedOnOneLine",
     [](GeosetLines& g) {
         g.faces = "\tFaces 1 6 { Triangles {\n\t\t{ 0, 1, 2 },\n\t\t{ 0, 2, 3 }\n\t} }\n";
     }},
    {"FacesOnOneLine",
     [](GeosetLines& g) { g.faces = "\tFaces 1 6 { Triangles { { 0, 1, 2, 0, 2, 3 } } }\n"; }},
    {"GroupsOnOneLine",
     [](GeosetLines& g) { g.groups = "\tGroups 2 3 { Matrices { 0 }, Matrices { 1, 2 } }\n"; }},
    {"VertexGroupOnOneLine",
     [](GeosetLines& g) { g.vertexGroup = "\tVertexGroup { 0, 0, 1, 1 }\n"; }},
};

// Several properties on one line, which stay so.
constexpr LineShape kOpenLineShapes[] = {
    {"PropertiesOnOneLine",
     [](GeosetLines& g) {
         g.tail = "\tMinimumExtent { 1, 2, 3 }, MaximumExtent { 4, 5, 6 }, MaterialID 0,\n";
     }},
    {"PropertiesAfterAClosingBrace",
     [](GeosetLines& g) {
         g.groups = "\tGroups 2 3 {\n\t\tMatrices { 0 },\n\t\tMatrices { 1, 2 },\n\t}";
         g.tail = " MinimumExtent { 1, 2, 3 }, MaterialID 0,\n";
     }},
};

// Sections that share a line, which the save parts.
constexpr LineShape kSharedLineShapes[] = {
    {"SectionsOpenedWhereOthersClose",
     [](GeosetLines& g) {
         g.opening = "Geoset {";
         g.vertices =
             " Vertices 4 {\n\t\t{ 1, 2, 3 },\n\t\t{ 11, 2, 3 },\n\t\t{ 11, 12, 3 },\n"
             "\t\t{ 1, 12, 3.5 },\n\t}";
         g.normals =
             " Normals 4 {\n\t\t{ 0, 0, 1 },\n\t\t{ 0, 1, 0 },\n\t\t{ 1, 0, 0 },\n"
             "\t\t{ 0, 0, -1 },\n\t}";
         g.texture =
             " TVertices 4 {\n\t\t{ 0, 1 },\n\t\t{ 1, 1 },\n\t\t{ 1, 0 },\n"
             "\t\t{ 0.25, 0.5 },\n\t}\n";
         g.closing = "\t}\n";
         g.tail = "\tMaterialID 0,\n";
     }},
};

// Triangles.
constexpr LineShape kFaceShapes[] = {
    {"OneTripleARow",
     [](GeosetLines& g) {
         g.faces =
             "\tFaces 1 6 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 2 },\n\t\t\t{ 0, 2, 3 },\n"
             "\t\t}\n\t}\n";
     }},
    {"OneListWrappedWithinATriple",
     [](GeosetLines& g) {
         g.faces =
             "\tFaces 1 6 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 2, 0,\n\t\t\t2, 3 },\n\t\t}\n\t}\n";
     }},
    {"OneListWrappedBeforeAComma",
     [](GeosetLines& g) {
         g.faces =
             "\tFaces 1 6 {\n\t\tTriangles {\n\t\t\t{\n0, 1\n, 2, 0, 2\n\n, 3\n},\n\t\t}\n\t}\n";
     }},
    {"TwoGroupsOfTriangles",
     [](GeosetLines& g) {
         g.faces =
             "\tFaces 2 6 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 2 },\n\t\t}\n"
             "\t\tTriangles {\n\t\t\t{ 0, 2, 3 },\n\t\t}\n\t}\n";
     }},
    {"TwoListsCountedAsTwoGroups",
     [](GeosetLines& g) {
         g.faces =
             "\tFaces 2 6 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 2 },\n\t\t\t{ 0, 2, 3 },\n"
             "\t\t}\n\t}\n";
     }},
};

// Comments, braces that count for nothing, blocks that are not the geoset's.
constexpr LineShape kNoiseShapes[] = {
    {"CommentsBetweenSections",
     [](GeosetLines& g) {
         g.vertices = "\t// Vertices 2 {\n" + g.vertices + "// }\n";
         g.texture = "\t// the first layer {\n" + g.texture;
         g.tail = "\t// nearly there }\n" + g.tail + "// }\n";
     }},
    {"BracesInAQuotedName", [](GeosetLines& g) { g.tail = "\tName \"a } // { b\",\n" + g.tail; }},
    {"SectionNamesInAQuotedName",
     [](GeosetLines& g) { g.opening = "Geoset {\n\tName \"Vertices 2 {\",\n"; }},
    {"ExtentsOfSequences",
     [](GeosetLines& g) {
         g.tail += "\tAnim {\n\t\tMinimumExtent { 1, 2, 3 },\n\t\tBoundsRadius 4,\n\t}\n";
     }},
    {"VerticesOfABlockWithinTheGeoset",
     [](GeosetLines& g) {
         g.opening =
             "Geoset {\n\tHull {\n\t\tVertices 2 {\n\t\t\t{ 7, 7, 7 },\n\t\t\t{ 8, 8, 8 "
             "},\n\t\t}\n\t}\n";
     }},
};

// Comments and blank lines in sections, which a save drops.
constexpr LineShape kNoiseInSections[] = {
    {"CommentsInSections",
     [](GeosetLines& g) {
         g.vertices =
             "\tVertices 4 { // four of them }\n\t\t// { 9, 9, 9 },\n\t\t{ 1, 2, 3 }, // first\n"
             "\t\t{ 11, 2, 3 },\n\t\t{ 11, 12, 3 }, //}\n\t\t{ 1, 12, 3.5 },\n\t// last }\n\t}\n";
         g.faces =
             "\tFaces 1 6 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 2, // the first {\n"
             "\t\t\t0, 2, 3 },\n\t\t}\n\t}\n";
         g.groups =
             "\tGroups 2 3 {\n\t\tMatrices { 0 }, // { 7 }\n\t\t//\tMatrices { 8 },\n"
             "\t\tMatrices { 1, 2 },\n\t}\n";
     }},
    {"BlankLines",
     [](GeosetLines& g) {
         g.vertices =
             "\n\tVertices 4 {\n\n\t\t{ 1, 2, 3 },\n\t\t\n\t\t{ 11, 2, 3 },\n\t\t{ 11, 12, 3 },\n"
             "\t\t{ 1, 12, 3.5 },\n\n\t}\n\n";
         g.vertexGroup = "\tVertexGroup {\n\t\t0,\n\n\t\t0,\n   \n\t\t1,\n\t\t1,\n\n\t}\n";
         g.faces =
             "\tFaces 1 6 {\n\n\t\tTriangles {\n\n\t\t\t{ 0, 1, 2, 0, 2, 3 },\n\n\t\t}\n\n\t}\n";
         g.groups = "\tGroups 2 3 {\n\n\t\tMatrices { 0 },\n\n\t\tMatrices { 1, 2 },\n\n\t}\n\n";
     }},
};

// Sections that newer versions have.
constexpr LineShape kNewerShapes[] = {
    {"LevelOfDetail", [](GeosetLines& g) { g.tail += "\tLevelOfDetail 0,\n\tName \"Body\",\n"; }},
    {"SecondTextureLayer",
     [](GeosetLines& g) {
         g.texture +=
             "\tTVertices 4 {\n\t\t{ 9, 9 },\n\t\t{ 9, 8 },\n\t\t{ 9, 7 },\n\t\t{ 9, 6 },\n\t}\n";
     }},
    {"Tangents",
     [](GeosetLines& g) {
         g.normals +=
             "\tTangents 4 {\n\t\t{ 1, 0, 0, 1 },\n\t\t{ 0, 1, 0, 1 },\n\t\t{ 0, 0, 1, -1 },\n"
             "\t\t{ 1, 0, 0, -1 },\n\t}\n";
     }},
    {"SkinWeightsWithoutACount",
     [](GeosetLines& g) {
         g.texture +=
             "\tSkinWeights {\n\t\t0, 0, 0, 0, 255, 0, 0, 0,\n\t\t1, 0, 0, 0, 255, 0, 0, 0,\n"
             "\t\t2, 0, 0, 0, 255, 0, 0, 0,\n\t\t3, 0, 0, 0, 200, 55, 0, 0,\n\t}\n";
     }},
    {"SkinWeightsWithACount",
     [](GeosetLines& g) {
         g.texture +=
             "\tSkinWeights 4 {\n\t\t0, 0, 0, 0, 255, 0, 0, 0,\n\t\t1, 0, 0, 0, 255, 0, 0, 0,\n"
             "\t\t2, 0, 0, 0, 255, 0, 0, 0,\n\t\t3, 0, 0, 0, 200, 55, 0, 0,\n\t}\n";
     }},
};

}  // namespace

void addLineShapes(std::vector<Shape>& shapes) {
    const Pieces tool = toolPieces();
    const auto addAll = [&](const auto& table, auto savedAs) {
        for (const LineShape& shape : table) {
            const std::string text = modelWith(shape.change);
            shapes.push_back({.name = shape.name,
                              .text = text,
                              .twin = tool.text(),
                              .saved = savedAs(shape),
                              .withoutFirst = tool.withoutFirst});
        }
    };
    const auto asItIs = [](const LineShape& shape) { return modelWith(shape.change); };
    const auto notPinned = [](const LineShape&) { return std::string(); };
    // The geoset's own header is outside its sections, and its groups stay as they are.
    const auto asTool = [](const LineShape& shape) {
        GeosetLines shaped = toolLines();
        shape.change(shaped);
        return modelWith([&](GeosetLines& lines) {
            lines.opening = shaped.opening;
            lines.groups = shaped.groups;
        });
    };
    addAll(kBlankShapes, asTool);
    addAll(kLineShapes, asTool);
    addAll(kFaceShapes, asTool);
    addAll(kOpenLineShapes, asItIs);
    addAll(kSharedLineShapes, notPinned);
    addAll(kNoiseShapes, asItIs);
    addAll(kNoiseInSections, notPinned);
    addAll(kNewerShapes, asItIs);
}

}  // namespace corvane
