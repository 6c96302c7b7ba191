// Models for the tests of the windows.
#pragma once

#include <string>

namespace corvane {

/// A geoset with one triangle across the front view. With the window as it first shows, its
/// corners stand at these pixels of the front picture, counted from the left and the top: 1 at
/// (64.5, 140.5), 2 at (144.5, 140.5), 3 at (144.5, 60.5).
inline std::string triangleGeoset() {
    return "Geoset {\n"
           "\tVertices 3 {\n"
           "\t\t{ 0, -30, -30 },\n"
           "\t\t{ 0, 30, -30 },\n"
           "\t\t{ 0, 30, 30 },\n"
           "\t}\n"
           "\tNormals 3 {\n"
           "\t\t{ 1, 0, 0 },\n"
           "\t\t{ 1, 0, 0 },\n"
           "\t\t{ 1, 0, 0 },\n"
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
           "\tMaterialID 0,\n"
           "}\n";
}

/// A model with this many geosets, all alike.
inline std::string modelWithGeosets(int count) {
    std::string text = "Version {\n\tFormatVersion 800,\n}\n";
    for (int i = 0; i < count; ++i) text += triangleGeoset();
    return text;
}

}  // namespace corvane
