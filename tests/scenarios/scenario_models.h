// Models for scenarios, in the tools' own shape.
#pragma once

#include <string>

namespace corvane {

/// The start of a geoset's Vertices section in these models: four corners of a square across the
/// front view. In the view's pixels at the start: 1 at (64.5, 140.5), 2 at (144.5, 140.5), 3 at
/// (144.5, 60.5), 4 at (64.5, 60.5). In the top view vertex 4 stands higher than the others.
inline std::string squareVertices() {
    return "\tVertices 4 {\n"
           "\t\t{ 0, -30, -30 },\n"
           "\t\t{ 0, 30, -30 },\n"
           "\t\t{ 0, 30, 30 },\n"
           "\t\t{ 24, -30, 30 },\n"
           "\t}\n";
}

/// The other sections of that geoset, and what stands after them.
inline std::string squareRest(int material) {
    return "\tNormals 4 {\n"
           "\t\t{ 1, 0, 0 },\n"
           "\t\t{ 1, 0, 0 },\n"
           "\t\t{ 0, 1, 0 },\n"
           "\t\t{ 0, 0, 1 },\n"
           "\t}\n"
           "\tTVertices 4 {\n"
           "\t\t{ 0, 1 },\n"
           "\t\t{ 1, 1 },\n"
           "\t\t{ 1, 0 },\n"
           "\t\t{ 0, 0 },\n"
           "\t}\n"
           "\tVertexGroup {\n"
           "\t\t0,\n"
           "\t\t0,\n"
           "\t\t1,\n"
           "\t\t1,\n"
           "\t}\n"
           "\tFaces 1 6 {\n"
           "\t\tTriangles {\n"
           "\t\t\t{ 0, 1, 2, 0, 2, 3 },\n"
           "\t\t}\n"
           "\t}\n"
           "\tGroups 2 3 {\n"
           "\t\tMatrices { 0 },\n"
           "\t\tMatrices { 0, 1 },\n"
           "\t}\n"
           "\tMinimumExtent { 0, -30, -30 },\n"
           "\tMaterialID " +
           std::to_string(material) +
           ",\n"
           "\tSelectionGroup 0,\n";
}

inline std::string squareGeoset(int material) {
    return "Geoset {\n" + squareVertices() + squareRest(material) + "}\n";
}

/// A geoset with one triangle, so that it can be told from the square.
inline std::string triangleGeoset(int material) {
    return "Geoset {\n"
           "\tVertices 3 {\n"
           "\t\t{ 1, 2, 3 },\n"
           "\t\t{ 4, 5, 6 },\n"
           "\t\t{ 7, 8, 10 },\n"
           "\t}\n"
           "\tNormals 3 {\n"
           "\t\t{ 0, 0, 1 },\n"
           "\t\t{ 0, 0, 1 },\n"
           "\t\t{ 0, 0, 1 },\n"
           "\t}\n"
           "\tTVertices 3 {\n"
           "\t\t{ 0, 0 },\n"
           "\t\t{ 1, 0 },\n"
           "\t\t{ 0, 1 },\n"
           "\t}\n"
           "\tVertexGroup {\n"
           "\t\t0,\n"
           "\t\t0,\n"
           "\t\t0,\n"
           "\t}\n"
           "\tFaces 1 3 {\n"
           "\t\tTriangles {\n"
           "\t\t\t{ 0, 1, 2 },\n"
           "\t\t}\n"
           "\t}\n"
           "\tGroups 1 1 {\n"
           "\t\tMatrices { 0 },\n"
           "\t}\n"
           "\tMaterialID " +
           std::to_string(material) +
           ",\n"
           "}\n";
}

inline std::string modelHead() {
    return "// made for a test\n"
           "Version {\n"
           "\tFormatVersion 800,\n"
           "}\n"
           "Model \"Test\" {\n"
           "\tNumGeosets 3,\n"
           "\tBlendTime 150,\n"
           "}\n"
           "Sequences 2 {\n"
           "\tAnim \"Stand\" {\n"
           "\t\tInterval { 0, 333 },\n"
           "\t}\n"
           "\tAnim \"Death\" {\n"
           "\t\tInterval { 400, 800 },\n"
           "\t}\n"
           "}\n";
}

inline std::string geosetAnim(int geosetId) {
    return "GeosetAnim {\n"
           "\tstatic Alpha 0.5,\n"
           "\tGeosetId " +
           std::to_string(geosetId) +
           ",\n"
           "}\n";
}

inline std::string bone(const std::string& name, const std::string& geosetId,
                        const std::string& geosetAnimId) {
    return "Bone \"" + name +
           "\" {\n"
           "\tObjectId 0,\n"
           "\tGeosetId " +
           geosetId +
           ",\n"
           "\tGeosetAnimId " +
           geosetAnimId +
           ",\n"
           "}\n";
}

/// One geoset, the square.
inline std::string squareModel() {
    return modelHead() + squareGeoset(0) + bone("Root", "0", "None");
}

/// Three geosets: triangle, square, triangle; each with an animation and a bone.
inline std::string threeGeosets() {
    return modelHead() + triangleGeoset(0) + squareGeoset(1) + triangleGeoset(2) + geosetAnim(0) +
           geosetAnim(1) + geosetAnim(2) + bone("A", "0", "0") + bone("B", "1", "1") +
           bone("C", "2", "2");
}

}  // namespace corvane
