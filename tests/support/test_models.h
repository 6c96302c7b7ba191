// Whole models for tests, put together from the rows that a test gives, in the shape that model
// files have. Written out here by hand, so that a saved file can be compared with one of them.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace corvane {

/// The rows of one geoset, as its file writes them (without tabs, braces and last commas).
struct GeosetText {
    std::vector<std::string> vertices;  ///< "5, 0, 10": the file's X, Y, Z
    std::vector<std::string> normals;   ///< the same
    std::vector<std::string> texture;   ///< "0.5, 1"
    std::vector<std::string> groups;    ///< "0"
    std::string triangles;              ///< "0, 1, 2, 0, 2, 3"
    int indexCount = 0;                 ///< the count in the header of Faces
    std::vector<std::string> matrices;  ///< "0, 1", a row a group
    int matrixCount = 0;                ///< the second count in the header of Groups
};

/// What a bone hangs on, as its file writes it.
struct BoneText {
    std::string geosetId;      ///< a number or "Multiple"
    std::string geosetAnimId;  ///< a number or "None"
};

/// The parts of a model.
struct ModelParts {
    std::vector<GeosetText> geosets;
    std::vector<std::string> animations = {};  ///< the GeosetId of each geoset animation
    std::vector<BoneText> bones = {};
};

/// A square of two faces in the plane Y-Z of the file, at X = x; normals along X; the first two
/// vertices in group 0, the others in group 1.
inline GeosetText squareAt(const std::string& x) {
    return {.vertices = {x + ", 0, 0", x + ", 10, 0", x + ", 10, 10", x + ", 0, 10"},
            .normals = {"1, 0, 0", "1, 0, 0", "1, 0, 0", "1, 0, 0"},
            .texture = {"0, 1", "1, 1", "1, 0", "0, 0"},
            .groups = {"0", "0", "1", "1"},
            .triangles = "0, 1, 2, 0, 2, 3",
            .indexCount = 6,
            .matrices = {"0", "1, 2"},
            .matrixCount = 3};
}

/// A single face in the plane X-Y of the file, at Z = z; normals along Z; one group.
inline GeosetText triangleAt(const std::string& z) {
    return {.vertices = {"0, 0, " + z, "4, 0, " + z, "0, 4, " + z},
            .normals = {"0, 0, 1", "0, 0, 1", "0, 0, 1"},
            .texture = {"0, 0", "0.5, 0", "0, 0.5"},
            .groups = {"0", "0", "0"},
            .triangles = "0, 1, 2",
            .indexCount = 3,
            .matrices = {"0"},
            .matrixCount = 1};
}

/// A geoset's block.
inline std::string geosetText(const GeosetText& geoset) {
    std::string text = "Geoset {\n";
    const auto rows = [&](const char* keyword, const std::vector<std::string>& values) {
        text += std::string("\t") + keyword + " " + std::to_string(values.size()) + " {\n";
        for (const std::string& value : values) text += "\t\t{ " + value + " },\n";
        text += "\t}\n";
    };
    rows("Vertices", geoset.vertices);
    rows("Normals", geoset.normals);
    rows("TVertices", geoset.texture);
    text += "\tVertexGroup {\n";
    for (const std::string& group : geoset.groups) text += "\t\t" + group + ",\n";
    text += "\t}\n";
    text += "\tFaces 1 " + std::to_string(geoset.indexCount) + " {\n\t\tTriangles {\n\t\t\t{ " +
            geoset.triangles + " },\n\t\t}\n\t}\n";
    text += "\tGroups " + std::to_string(geoset.matrices.size()) + " " +
            std::to_string(geoset.matrixCount) + " {\n";
    for (const std::string& matrices : geoset.matrices) {
        text += "\t\tMatrices { " + matrices + " },\n";
    }
    return text + "\t}\n\tMinimumExtent { -10, -10, 0 },\n\tMaterialID 0,\n}\n";
}

/// What stands before the geosets, with the given lines for the block Sequences.
inline std::string modelHead(const std::string& sequences) {
    return "// Made for a test\n"
           "Version {\n\tFormatVersion 800,\n}\n"
           "Model \"Test\" {\n\tBlendTime 150,\n}\n" +
           sequences +
           "Materials 1 {\n\tMaterial {\n\t\tLayer {\n\t\t\tFilterMode None,\n\t\t}\n\t}\n}\n";
}

/// A whole model.
inline std::string modelOf(const ModelParts& parts) {
    std::string text = modelHead(
        "Sequences 2 {\n"
        "\tAnim \"Stand\" {\n\t\tInterval { 0, 1000 },\n\t}\n"
        "\tAnim \"Walk\" {\n\t\tInterval { 1100, 2000 },\n\t}\n"
        "}\n");
    for (const GeosetText& geoset : parts.geosets) text += geosetText(geoset);
    for (const std::string& geosetId : parts.animations) {
        text += "GeosetAnim {\n\tAlpha 1,\n\tGeosetId " + geosetId + ",\n}\n";
    }
    int number = 0;
    for (const BoneText& bone : parts.bones) {
        text += "Bone \"Bone" + std::to_string(number) + "\" {\n\tObjectId " +
                std::to_string(number) + ",\n\tGeosetId " + bone.geosetId + ",\n\tGeosetAnimId " +
                bone.geosetAnimId + ",\n}\n";
        ++number;
    }
    return text + "PivotPoints 1 {\n\t{ 0, 0, 0 },\n}\n";
}

/// What Save geoset makes of a model with that geoset: one matrix group, every vertex in it.
inline std::string singleGeosetModelOf(GeosetText geoset) {
    geoset.matrices = {"0"};
    geoset.matrixCount = 1;
    geoset.groups.assign(geoset.vertices.size(), "0");
    return modelHead("Sequences 1 {\n\tAnim \"Stand\" {\n\t\tInterval { 0, 3333 },\n\t}\n}\n") +
           geosetText(geoset) +
           "Bone \"Bone0\" {\n\tObjectId 0,\n\tGeosetAnimId None,\n}\n"
           "PivotPoints 1 {\n\t{ 0, 0, 0 },\n}\n";
}

/// Three geosets that can be told apart, each with an animation and a bone of its own.
inline ModelParts threeGeosets() {
    return {.geosets = {squareAt("1"), squareAt("2"), squareAt("3")},
            .animations = {"0", "1", "2"},
            .bones = {{"0", "0"}, {"1", "1"}, {"2", "2"}}};
}

/// That model after geoset 2 was removed: its animation is gone with it, its bone refers to
/// nothing any more, and what counted on the third counts on the second.
inline ModelParts threeWithoutTheSecond() {
    return {.geosets = {squareAt("1"), squareAt("3")},
            .animations = {"0", "1"},
            .bones = {{"0", "0"}, {"Multiple", "None"}, {"1", "1"}}};
}

/// A geoset that no one can read: its first matrix group has eight indices.
inline GeosetText unreadableSquare() {
    GeosetText geoset = squareAt("0");
    geoset.matrices = {"0, 1, 2, 3, 4, 5, 6, 7"};
    return geoset;
}

/// The text with its only occurrence of `from` replaced.
inline std::string replacedOnce(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    if (at == std::string::npos || text.find(from, at + 1) != std::string::npos) {
        throw std::invalid_argument("not exactly once in the text: " + from);
    }
    return text.replace(at, from.size(), to);
}

/// The number of the line on which a part of a text first stands, as messages name it.
inline std::string lineOf(const std::string& text, const std::string& part) {
    const std::size_t end = text.find(part);
    if (end == std::string::npos) throw std::invalid_argument("not in the text: " + part);
    std::size_t line = 1;
    for (std::size_t i = 0; i < end; ++i) {
        if (text[i] == '\n') ++line;
    }
    return std::to_string(line);
}

}  // namespace corvane
