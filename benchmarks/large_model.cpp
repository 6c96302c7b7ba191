#include "large_model.h"

#include <cmath>
#include <numbers>
#include <ostream>
#include <string>
#include <string_view>

#include "base/numbers.h"
#include "model/geoset_sections.h"

namespace corvane {

namespace {

constexpr int kDecimals = 5;

constexpr const char* kHeader =
    "Version {\n\tFormatVersion 800,\n}\nModel \"Large\" {\n\tBlendTime 150,\n}\n"
    "Sequences 1 {\n\tAnim \"Stand\" {\n\t\tInterval { 0, 16500 },\n\t}\n}\n";

// The sphere's bands lie between two caps. A band has its own two rings of vertices, whose first
// and last vertex share a place: 127 * 2 * 129 vertices and 127 * 128 * 2 faces. With one pole
// and the faces of the caps (128 and 127) the sphere is exactly at both limits.
constexpr int kBands = 127;
constexpr int kSegments = 128;
constexpr int kRing = kSegments + 1;

VertexRecord vertexAt(double radius, double latitude, double longitude) {
    const Triple direction = {std::cos(latitude) * std::sin(longitude), std::sin(latitude),
                              std::cos(latitude) * std::cos(longitude)};
    VertexRecord vertex;
    for (std::size_t slot = 0; slot < direction.size(); ++slot) {
        vertex.pos[slot] = roundToDecimals(radius * direction[slot], kDecimals);
        vertex.normal[slot] = roundToDecimals(direction[slot], kDecimals);
    }
    vertex.tu = roundToDecimals(longitude / (2 * std::numbers::pi), kDecimals);
    vertex.tv = roundToDecimals(0.5 - latitude / std::numbers::pi, kDecimals);
    return vertex;
}

void addFace(Geoset& geoset, int a, int b, int c) {
    FaceRecord face;
    face.corner = {static_cast<std::int16_t>(a), static_cast<std::int16_t>(b),
                   static_cast<std::int16_t>(c)};
    geoset.Faces.push_back(face);
}

void appendGeoset(std::string& out, const Geoset& geoset) {
    const KeptVertices kept(geoset);
    out += "Geoset {\n";
    for (const SectionKind kind :
         {SectionKind::Vertices, SectionKind::Normals, SectionKind::TVertices,
          SectionKind::VertexGroup, SectionKind::Faces, SectionKind::Groups}) {
        appendSection(out, kind, geoset, kept, false, "\n");
        out += "\t}\n";
    }
    out +=
        "\tMinimumExtent { -60, -60, -60 },\n\tMaximumExtent { 60, 60, 60 },\n"
        "\tBoundsRadius 60,\n\tMaterialID 0,\n\tSelectionGroup 0,\n}\n";
}

// One track of a bone: a key every `kKeyInterval` milliseconds.
void appendTrack(std::string& out, std::string_view name, int bone, int components) {
    constexpr int kKeys = 500;
    constexpr int kKeyInterval = 33;
    out += '\t';
    out += name;
    out += ' ';
    appendInteger(out, kKeys);
    out += " {\n\t\tLinear,\n";
    for (int key = 0; key < kKeys; ++key) {
        out += "\t\t";
        appendInteger(out, key * kKeyInterval);
        out += ": { ";
        for (int i = 0; i < components; ++i) {
            if (i > 0) out += ", ";
            appendNumber(out, roundToDecimals(std::sin(bone + key * 0.1 + i), kDecimals));
        }
        out += " },\n";
    }
    out += "\t}\n";
}

void appendBone(std::string& out, int bone) {
    out += "Bone \"Bone";
    appendInteger(out, bone);
    out += "\" {\n\tObjectId ";
    appendInteger(out, bone);
    out += ",\n\tGeosetId Multiple,\n\tGeosetAnimId None,\n";
    appendTrack(out, "Translation", bone, 3);
    appendTrack(out, "Rotation", bone, 4);
    appendTrack(out, "Scaling", bone, 3);
    out += "}\n";
}

}  // namespace

Geoset sphereAtLimit(double radius) {
    constexpr double kLatitudeStep = std::numbers::pi / (kBands + 2);
    constexpr double kLongitudeStep = 2 * std::numbers::pi / kSegments;
    const auto latitudeOf = [](int ring) { return std::numbers::pi / 2 - ring * kLatitudeStep; };

    Geoset geoset;
    for (int band = 0; band < kBands; ++band) {
        const int upper = static_cast<int>(geoset.Vertices.size());
        const int lower = upper + kRing;
        for (const int ring : {band + 1, band + 2}) {
            for (int i = 0; i < kRing; ++i) {
                geoset.Vertices.push_back(vertexAt(radius, latitudeOf(ring), i * kLongitudeStep));
            }
        }
        for (int i = 0; i < kSegments; ++i) {
            addFace(geoset, upper + i, lower + i, upper + i + 1);
            addFace(geoset, upper + i + 1, lower + i, lower + i + 1);
        }
    }
    const int pole = static_cast<int>(geoset.Vertices.size());
    const int lowestRing = pole - kRing;
    geoset.Vertices.push_back(vertexAt(radius, latitudeOf(0), 0));
    for (int i = 0; i < kSegments; ++i) addFace(geoset, pole, i, i + 1);
    for (int i = 1; i < kSegments; ++i) {
        addFace(geoset, lowestRing, lowestRing + i + 1, lowestRing + i);
    }

    constexpr int kGroups = 100;
    for (std::size_t i = 0; i < geoset.Vertices.size(); ++i) {
        geoset.Vertices[i].group = static_cast<std::int16_t>(i % kGroups);
    }
    for (int i = 0; i < kGroups; ++i) {
        MatrixGroup group;
        group.fill(kNoMatrix);
        group[0] = static_cast<std::int16_t>(i);
        geoset.matrixGroups.push_back(group);
    }
    return geoset;
}

void writeModelOf(std::ostream& out, const Geoset& geoset) {
    std::string text = kHeader;
    appendGeoset(text, geoset);
    out << text;
}

void writeLargeModel(std::ostream& out) {
    std::string piece = kHeader;
    std::size_t size = 0;
    const auto flush = [&] {
        out << piece;
        size += piece.size();
        piece.clear();
    };
    const Geoset sphere = sphereAtLimit(kFittingRadius);
    for (int i = 0; i < kLargeModelGeosets; ++i) {
        appendGeoset(piece, sphere);
        flush();
    }
    for (int bone = 0; size < kLargeModelSize; ++bone) {
        appendBone(piece, bone);
        flush();
    }
}

}  // namespace corvane
