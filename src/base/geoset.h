// The records of a geoset: vertices, faces, matrix groups.
//
// Deleting never shrinks a list; it only sets flags, and only the writer drops what is flagged.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/axis.h"
#include "base/row_records.h"

namespace corvane {

/// Vertices and faces are counted in 16 signed bits.
inline constexpr int kMaxVertices = 32767;
inline constexpr int kMaxFaces = 32767;

/// The matrix indices that one matrix group can hold.
inline constexpr std::size_t kMatricesPerGroup = 7;

/// An unused row of a matrix group.
inline constexpr std::int16_t kNoMatrix = -1;

/// Everything that belongs to one vertex.
struct VertexRecord {
    Triple pos{};            ///< position, slot order
    Triple normal{};         ///< normal, slot order
    double tu = 0;           ///< texture coordinate U
    double tv = 0;           ///< texture coordinate V
    std::int16_t group = 0;  ///< 0-based matrix group; may exceed the groups there are
    bool selected = false;
    bool deleted = false;
    /// The 0-based row of the geoset's rowSections that belongs to it, kNoRow for none. Copies of a
    /// vertex have its row.
    std::int16_t fileRow = kNoRow;
    /// Whether the user gave it its group, by assigning one or by cloning or merging the vertex.
    bool regrouped = false;

    /// Whether the edited data is the same, wherever it came from.
    bool operator==(const VertexRecord& other) const {
        return pos == other.pos && normal == other.normal && tu == other.tu && tv == other.tv &&
               group == other.group && selected == other.selected && deleted == other.deleted;
    }
};

/// One triangle.
struct FaceRecord {
    /// 0-based indices into the vertex list, in file order; never renumbered in memory.
    std::array<std::int16_t, 3> corner{};
    bool deleted = false;

    bool operator==(const FaceRecord&) const = default;
};

/// The matrix (bone) indices of one group in file order; unused rows hold kNoMatrix.
using MatrixGroup = std::array<std::int16_t, kMatricesPerGroup>;

/// The one group of a geoset that is saved alone: the model has one bone.
inline constexpr MatrixGroup kSoleMatrixGroup = {0,         kNoMatrix, kNoMatrix, kNoMatrix,
                                                 kNoMatrix, kNoMatrix, kNoMatrix};

/// What a geoset's file says about groups, as it was read. Never changes until another geoset is
/// read or one saved alone, so that it is there for what undo brings back even after a save. Texts
/// go from the header's first byte to the closing brace.
struct GroupsAsRead {
    /// The section VertexGroup where the file has it without a row, as models with SkinWeights do;
    /// else empty.
    std::string vertexGroup;
    std::string groups;                     ///< the section Groups; empty where the file has none
    std::vector<MatrixGroup> matrixGroups;  ///< what that section holds
};

/// The data of one geoset. The lists are counted from 1 in texts for the user; entry i here is
/// vertex (face, group) i + 1, and a face's corner is an index into Vertices as it stands.
struct Geoset {
    std::vector<VertexRecord> Vertices;
    std::vector<FaceRecord> Faces;
    std::vector<MatrixGroup> matrixGroups;

    /// What the file keeps for its vertices besides, as it was read. Never changes until another
    /// geoset is read, so that what undo brings back finds its rows even after a save.
    RowSections rowSections;

    /// The sections that the file's geoset had when it was read, as their keywords; empty for a
    /// geoset that was not read from a file.
    std::vector<std::string> sectionsRead;

    GroupsAsRead groupsRead;

    /// The number of matrix groups.
    std::size_t matrixGroupCount() const { return matrixGroups.size(); }

    /// The vertex that a 0-based corner value names.
    const VertexRecord& vertexAt(std::int16_t corner) const {
        return Vertices[static_cast<std::size_t>(corner)];
    }

    /// Whether the edited data is the same.
    bool operator==(const Geoset& other) const {
        return Vertices == other.Vertices && Faces == other.Faces &&
               matrixGroups == other.matrixGroups;
    }
};

}  // namespace corvane
