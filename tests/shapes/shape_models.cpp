#include "shape_models.h"

#include <algorithm>

#include "shape_parts.h"

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

Pieces toolPieces() {
    const GeosetLines lines = toolLines();
    return {.before = kHead + lines.opening,
            .sections = lines.vertices + lines.normals + lines.texture + lines.vertexGroup +
                        lines.faces + lines.groups,
            .after = lines.tail + lines.closing + geosetOf(toolLines("5")) + kRest,
            .withoutFirst = kHead + geosetOf(toolLines("5")) + kRestWithoutFirst};
}

std::vector<Shape> readableShapes() {
    std::vector<Shape> shapes;
    addWholeFileShapes(shapes);
    addLineShapes(shapes);
    addTwinShapes(shapes);
    return shapes;
}

}  // namespace corvane
