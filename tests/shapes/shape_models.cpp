#include "shape_models.h"

#include <algorithm>

#include "model_texts.h"
#include "test_models.h"

namespace corvane {

namespace {

constexpr const char* kHead =
    "// Made for a test\n"
    "Version {\n\tFormatVersion 800,\n}\n"
    "Model \"Test\" {\n\tNumGeosets 2,\n\tBlendTime 150,\n}\n"
    "Materials 1 {\n\tMaterial {\n\t\tLayer {\n\t\t\tFilterMode None,\n\t\t}\n\t}\n}\n";

constexpr const char* kRest =
    "GeosetAnim {\n\tAlpha 1,\n\tGeosetId 0,\n}\n"
    "GeosetAnim {\n\tAlpha 1,\n\tGeosetId 1,\n}\n"
    "Bone \"Left\" {\n\tObjectId 0,\n\tGeosetId 0,\n\tGeosetAnimId 0,\n}\n"
    "Bone \"Right\" {\n\tObjectId 1,\n\tGeosetId 1,\n\tGeosetAnimId 1,\n}\n"
    "PivotPoints 2 {\n\t{ 0, 0, 0 },\n\t{ 0, 0, 1 },\n}\n";

// The same without the first geoset: its animation is gone, and what counted on the second counts
// on the first.
constexpr const char* kRestWithoutFirst =
    "GeosetAnim {\n\tAlpha 1,\n\tGeosetId 0,\n}\n"
    "Bone \"Left\" {\n\tObjectId 0,\n\tGeosetId Multiple,\n\tGeosetAnimId None,\n}\n"
    "Bone \"Right\" {\n\tObjectId 1,\n\tGeosetId 0,\n\tGeosetAnimId 0,\n}\n"
    "PivotPoints 2 {\n\t{ 0, 0, 0 },\n\t{ 0, 0, 1 },\n}\n";

std::string geosetOf(const GeosetLines& lines) {
    return lines.opening + lines.vertices + lines.normals + lines.texture + lines.vertexGroup +
           lines.faces + lines.groups + lines.tail + lines.closing;
}

using Change = void (*)(GeosetLines& lines);

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

// Every second line break with a carriage return.
std::string withMixedLineBreaks(const std::string& text) {
    bool odd = false;
    return reshaped(text, [&](const std::string& tabs, const std::string& rest) {
        odd = !odd;
        return tabs + rest + (odd ? "\r" : "");
    });
}

// The pieces of the tool-shaped model: the first geoset's sections, and what is around them.
struct Pieces {
    std::string before;
    std::string sections;
    std::string after;
    std::string withoutFirst;  // the model without its first geoset

    std::string text() const { return before + sections + after; }
};

Pieces toolPieces() {
    const GeosetLines lines = toolLines();
    return {.before = kHead + lines.opening,
            .sections = lines.vertices + lines.normals + lines.texture + lines.vertexGroup +
                        lines.faces + lines.groups,
            .after = lines.tail + lines.closing + geosetOf(toolLines("5")) + kRest,
            .withoutFirst = kHead + geosetOf(toolLines("5")) + kRestWithoutFirst};
}

std::string withName(const std::string& text) {
    return replacedOnce(text, "Model \"Test\" {", "Model \"Te}s{t // {\" {");
}

std::string withGeosetInWords(const std::string& text) {
    return "// Geoset {\n" + replacedOnce(text, "NumGeosets 2,", "Title \"Geoset {\", // Geoset {");
}

std::string withHit(const std::string& text) {
    return replacedOnce(text, "Materials 1 {",
                        "CollisionShape \"Hit\" {\n\tBox,\n\tVertices 2 {\n"
                        "\t\t{ 7, 7, 7 },\n\t\t{ 8, 8, 8 },\n\t}\n}\nMaterials 1 {");
}

constexpr const char* kLateHit =
    "CollisionShape \"Late\" {\n\tSphere,\n\tVertices 1 {\n\t\t{ 9, 9, 9 },\n\t}\n"
    "\tBoundsRadius 3,\n}\n";

// Shapes of the whole file. What is outside the sections keeps its shape at a save.
void addWholeFileShapes(std::vector<Shape>& shapes) {
    const Pieces tool = toolPieces();
    const auto add = [&](const char* name, const Pieces& pieces, const std::string& sections) {
        shapes.push_back({.name = name,
                          .text = pieces.text(),
                          .twin = tool.text(),
                          .saved = pieces.before + sections + pieces.after,
                          .withoutFirst = pieces.withoutFirst});
    };
    const auto addLines = [&](const char* name, const LineChange& change) {
        add(name,
            {reshaped(tool.before, change), reshaped(tool.sections, change),
             reshaped(tool.after, change), reshaped(tool.withoutFirst, change)},
            tool.sections);
    };
    const auto addIndent = [&](const char* name, const std::string& indent) {
        addLines(name, [&](const std::string& tabs, const std::string& rest) {
            std::string line;
            for (std::size_t i = 0; i < tabs.size(); ++i) line += indent;
            return line + rest;
        });
    };
    add("ToolShape", tool, tool.sections);
    addIndent("FourSpacesATab", "    ");
    addIndent("TwoSpacesATab", "  ");
    addIndent("NoIndentation", "");
    addIndent("SpacesAndTabsMixed", " \t ");
    addLines("TwoSpaceHeadersWithTwoTabRows", [](const std::string& tabs, const std::string& rest) {
        return (tabs.size() == 1 ? "  " : tabs) + rest;
    });
    addLines("EverythingIndentedOnceMore",
             [](const std::string& tabs, const std::string& rest) { return "\t" + tabs + rest; });
    addLines("TrailingBlanks",
             [](const std::string& tabs, const std::string& rest) { return tabs + rest + " \t "; });
    add("CarriageReturns",
        {withCrLf(tool.before), withCrLf(tool.sections), withCrLf(tool.after),
         withCrLf(tool.withoutFirst)},
        withCrLf(tool.sections));
    add("ByteOrderMark",
        {"\xEF\xBB\xBF" + tool.before, tool.sections, tool.after,
         "\xEF\xBB\xBF" + tool.withoutFirst},
        tool.sections);
    const auto cut = [](const std::string& text) { return text.substr(0, text.size() - 1); };
    add("NoLastLineBreak", {tool.before, tool.sections, cut(tool.after), cut(tool.withoutFirst)},
        tool.sections);
    add("BracesInTheModelsName",
        {withName(tool.before), tool.sections, tool.after, withName(tool.withoutFirst)},
        tool.sections);
    add("GeosetInACommentAndAName",
        {withGeosetInWords(tool.before), tool.sections, tool.after,
         withGeosetInWords(tool.withoutFirst)},
        tool.sections);
    add("VerticesOfOtherBlocks",
        {withHit(tool.before), tool.sections, tool.after + kLateHit,
         withHit(tool.withoutFirst) + kLateHit},
        tool.sections);
    const GeosetLines lines = toolLines();
    const std::string backwards = lines.groups + lines.faces + lines.vertexGroup + lines.texture +
                                  lines.normals + lines.vertices;
    add("SectionsInAnotherOrder", {tool.before, backwards, tool.after, tool.withoutFirst},
        backwards);
    shapes.push_back({.name = "MixedLineBreaks",
                      .text = withMixedLineBreaks(tool.text()),
                      .twin = tool.text(),
                      .saved = "",
                      .withoutFirst = ""});
}

}  // namespace

std::string reshaped(const std::string& text, const LineChange& change) {
    std::string out;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string line = text.substr(begin, end - begin);
        std::size_t tabs = 0;
        while (tabs < line.size() && line[tabs] == '\t') ++tabs;
        out += change(line.substr(0, tabs), line.substr(tabs));
        if (end < text.size()) out += "\n";
        begin = end + 1;
    }
    return out;
}

std::string shown(const Geoset& geoset) {
    std::string text;
    const auto add = [&](double value) { text += std::to_string(value) + " "; };
    for (const VertexRecord& vertex : geoset.Vertices) {
        for (const double value : vertex.pos) add(value);
        text += "| ";
        for (const double value : vertex.normal) add(value);
        text += "| ";
        add(vertex.tu);
        add(vertex.tv);
        text += "| " + std::to_string(vertex.group) + "\n";
    }
    for (const FaceRecord& face : geoset.Faces) {
        for (const std::int16_t corner : face.corner) text += std::to_string(corner) + " ";
    }
    for (const MatrixGroup& group : geoset.matrixGroups) {
        text += "\nmatrices";
        for (const std::int16_t matrix : group) text += " " + std::to_string(matrix);
    }
    return text;
}

GeosetLines toolLines(const std::string& x) {
    GeosetLines lines;
    lines.vertices = "\tVertices 4 {\n\t\t{ " + x +
                     ", 2, 3 },\n\t\t{ 11, 2, 3 },\n\t\t{ 11, 12, 3 },\n"
                     "\t\t{ 1, 12, 3.5 },\n\t}\n";
    lines.normals =
        "\tNormals 4 {\n\t\t{ 0, 0, 1 },\n\t\t{ 0, 1, 0 },\n\t\t{ 1, 0, 0 },\n"
        "\t\t{ 0, 0, -1 },\n\t}\n";
    lines.texture =
        "\tTVertices 4 {\n\t\t{ 0, 1 },\n\t\t{ 1, 1 },\n\t\t{ 1, 0 },\n\t\t{ 0.25, 0.5 },\n\t}\n";
    lines.vertexGroup = "\tVertexGroup {\n\t\t0,\n\t\t0,\n\t\t1,\n\t\t1,\n\t}\n";
    lines.faces = "\tFaces 1 6 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 2, 0, 2, 3 },\n\t\t}\n\t}\n";
    lines.groups = "\tGroups 2 3 {\n\t\tMatrices { 0 },\n\t\tMatrices { 1, 2 },\n\t}\n";
    return lines;
}

std::string shapedModel(const GeosetLines& lines) {
    return kHead + geosetOf(lines) + geosetOf(toolLines("5")) + kRest;
}

std::vector<Shape> readableShapes() {
    const Pieces tool = toolPieces();
    std::vector<Shape> shapes;
    addWholeFileShapes(shapes);
    const auto addAll = [&](const auto& table, auto savedAs) {
        for (const LineShape& shape : table) {
            const std::string text = modelWith(shape.change);
            shapes.push_back({.name = shape.name,
                              .text = text,
                              .twin = tool.text(),
                              .saved = savedAs(text),
                              .withoutFirst = tool.withoutFirst});
        }
    };
    const auto asTool = [&](const std::string&) { return tool.text(); };
    const auto asItIs = [](const std::string& text) { return text; };
    const auto notPinned = [](const std::string&) { return std::string(); };
    // The geoset's own header is outside its sections.
    const auto withOpening = [&](const std::string& text) {
        const std::size_t begin = text.find("Geoset", text.find("Materials"));
        const std::string opening = text.substr(begin, text.find('\n', begin) + 1 - begin);
        return modelWith([&](GeosetLines& lines) { lines.opening = opening; });
    };
    addAll(kBlankShapes, withOpening);
    addAll(kLineShapes, asTool);
    addAll(kFaceShapes, asTool);
    addAll(kOpenLineShapes, asItIs);
    addAll(kSharedLineShapes, notPinned);
    addAll(kNoiseShapes, asItIs);
    addAll(kNoiseInSections, notPinned);
    addAll(kNewerShapes, asItIs);
    for (const TwinShape& shape : kTwinShapes) {
        const std::string text = modelWith(shape.change);
        const std::string twin = modelWith(shape.twin);
        shapes.push_back({.name = shape.name,
                          .text = text,
                          .twin = twin,
                          .saved = shape.isMissing ? text : twin,
                          .withoutFirst = tool.withoutFirst});
    }
    return shapes;
}

}  // namespace corvane
