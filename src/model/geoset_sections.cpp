#include "model/geoset_sections.h"

#include <algorithm>

#include "base/numbers.h"

namespace corvane {

namespace {

constexpr int kRoundedDecimals = 6;  // of normals and texture coordinates

bool hasKeptCorners(const Geoset& geoset, const FaceRecord& face) {
    return std::ranges::none_of(
        face.corner, [&](std::int16_t corner) { return geoset.vertexAt(corner).deleted; });
}

// Whether two numbers are the same in a file.
bool isWrittenAlike(double a, double b) { return a == b || formatNumber(a) == formatNumber(b); }

bool isRoundedAlike(double a, double b) {
    return a == b || isWrittenAlike(roundToDecimals(a, kRoundedDecimals),
                                    roundToDecimals(b, kRoundedDecimals));
}

// Appends "\t<keyword> <count> {".
void appendCountedHeader(std::string& out, std::string_view keyword, int count,
                         std::string_view lineBreak) {
    out += '\t';
    out += keyword;
    out += ' ';
    appendInteger(out, count);
    out += " {";
    out += lineBreak;
}

void appendTripleRow(std::string& out, const Triple& triple, std::string_view lineBreak) {
    out += "\t\t{ ";
    for (std::size_t i = 0; i < kFileSlotOrder.size(); ++i) {
        if (i > 0) out += ", ";
        appendNumber(out, triple[kFileSlotOrder[i]]);
    }
    out += " },";
    out += lineBreak;
}

Triple rounded(const Triple& triple) {
    Triple result{};
    std::ranges::transform(triple, result.begin(),
                           [](double value) { return roundToDecimals(value, kRoundedDecimals); });
    return result;
}

void appendVertexRow(std::string& out, SectionKind kind, const VertexRecord& vertex,
                     bool singleGeoset, std::string_view lineBreak) {
    switch (kind) {
        case SectionKind::Vertices:
            appendTripleRow(out, vertex.pos, lineBreak);
            break;
        case SectionKind::Normals:
            appendTripleRow(out, rounded(vertex.normal), lineBreak);
            break;
        case SectionKind::TVertices:
            out += "\t\t{ ";
            appendNumber(out, roundToDecimals(vertex.tu, kRoundedDecimals));
            out += ", ";
            appendNumber(out, roundToDecimals(vertex.tv, kRoundedDecimals));
            out += " },";
            out += lineBreak;
            break;
        case SectionKind::VertexGroup:
            out += "\t\t";
            appendInteger(out, singleGeoset ? 0 : vertex.group);
            out += ',';
            out += lineBreak;
            break;
        case SectionKind::Faces:
        case SectionKind::Groups:
        case SectionKind::Rows:
            break;  // not made from the records
    }
}

// The header counts every face whose corners are kept, the list leaves out those that are deleted
// themselves: after deleting faces the two differ, and readers of the format expect that.
void appendFaces(std::string& out, const Geoset& geoset, const KeptVertices& kept,
                 std::string_view lineBreak) {
    appendCountedHeader(out, "Faces 1", 3 * countKeptFaces(geoset), lineBreak);
    out += "\t\tTriangles {";
    out += lineBreak;
    out += "\t\t\t{ ";
    bool first = true;
    for (const FaceRecord& face : geoset.Faces) {
        if (face.deleted || !hasKeptCorners(geoset, face)) continue;
        for (const std::int16_t corner : face.corner) {
            if (!first) out += ", ";
            first = false;
            appendInteger(out, kept.newVertexIndex(corner + 1));
        }
    }
    out += first ? "}," : " },";
    out += lineBreak;
    out += "\t\t}";
    out += lineBreak;
}

void appendGroups(std::string& out, const Geoset& geoset, bool singleGeoset,
                  std::string_view lineBreak) {
    if (singleGeoset) {
        out += "\tGroups 1 1 {";
        out += lineBreak;
        out += "\t\tMatrices { 0 },";
        out += lineBreak;
        return;
    }
    std::ptrdiff_t entries = 0;
    for (const MatrixGroup& group : geoset.matrixGroups) {
        entries += std::ranges::count_if(group, [](auto matrix) { return matrix != kNoMatrix; });
    }
    out += "\tGroups ";
    appendInteger(out, static_cast<std::int64_t>(geoset.matrixGroupCount()));
    out += ' ';
    appendInteger(out, entries);
    out += " {";
    out += lineBreak;
    for (const MatrixGroup& group : geoset.matrixGroups) {
        out += "\t\tMatrices { ";
        appendInteger(out, group[0]);
        for (std::size_t row = 1; row < group.size() && group[row] != kNoMatrix; ++row) {
            out += ", ";
            appendInteger(out, group[row]);
        }
        out += " },";
        out += lineBreak;
    }
}

}  // namespace

KeptVertices::KeptVertices(const Geoset& geoset) {
    newIndex_.reserve(geoset.Vertices.size());
    for (const VertexRecord& vertex : geoset.Vertices) {
        if (!vertex.deleted) ++count_;
        newIndex_.push_back(static_cast<std::int16_t>(count_ - 1));
    }
}

int countKeptFaces(const Geoset& geoset) {
    return static_cast<int>(std::ranges::count_if(
        geoset.Faces, [&](const FaceRecord& face) { return hasKeptCorners(geoset, face); }));
}

bool hasDataFor(SectionKind kind, const Geoset& geoset) {
    const auto anyKept = [&](auto hasData) {
        return std::ranges::any_of(geoset.Vertices, [&](const VertexRecord& vertex) {
            return !vertex.deleted && hasData(vertex);
        });
    };
    switch (kind) {
        case SectionKind::Normals:
            return anyKept([](const VertexRecord& vertex) { return vertex.normal != Triple{}; });
        case SectionKind::TVertices:
            return anyKept(
                [](const VertexRecord& vertex) { return vertex.tu != 0 || vertex.tv != 0; });
        case SectionKind::VertexGroup:
            return anyKept([](const VertexRecord& vertex) { return vertex.group != 0; });
        case SectionKind::Faces:
            return countKeptFaces(geoset) > 0;
        case SectionKind::Groups:
            return !geoset.matrixGroups.empty();
        case SectionKind::Vertices:
            return anyKept([](const VertexRecord&) { return true; });
        case SectionKind::Rows:
            break;
    }
    return false;
}

bool hasGroupsAsRead(const Geoset& geoset) {
    return geoset.matrixGroups == geoset.groupsRead.matrixGroups &&
           std::ranges::none_of(geoset.Vertices, [](const VertexRecord& vertex) {
               return vertex.regrouped && !vertex.deleted;
           });
}

bool writesTheSame(const Geoset& a, const Geoset& b) {
    if (a.Vertices.size() != b.Vertices.size() || a.matrixGroups != b.matrixGroups ||
        a.Faces != b.Faces) {
        return false;
    }
    const auto sameTriple = [](const Triple& x, const Triple& y, auto sameNumber) {
        return std::ranges::equal(x, y, sameNumber);
    };
    return std::ranges::equal(
        a.Vertices, b.Vertices, [&](const VertexRecord& x, const VertexRecord& y) {
            return x.deleted == y.deleted && x.group == y.group && x.regrouped == y.regrouped &&
                   x.fileRow == y.fileRow && sameTriple(x.pos, y.pos, isWrittenAlike) &&
                   sameTriple(x.normal, y.normal, isRoundedAlike) && isRoundedAlike(x.tu, y.tu) &&
                   isRoundedAlike(x.tv, y.tv);
        });
}

void appendSection(std::string& out, SectionKind kind, const Geoset& geoset,
                   const KeptVertices& kept, bool singleGeoset, std::string_view lineBreak) {
    if (kind == SectionKind::Faces) {
        appendFaces(out, geoset, kept, lineBreak);
        return;
    }
    if (kind == SectionKind::Groups) {
        appendGroups(out, geoset, singleGeoset, lineBreak);
        return;
    }
    if (kind == SectionKind::VertexGroup) {
        out += "\tVertexGroup {";
        out += lineBreak;
    } else {
        appendCountedHeader(out, keywordOf(kind), kept.count(), lineBreak);
    }
    for (const VertexRecord& vertex : geoset.Vertices) {
        if (!vertex.deleted) appendVertexRow(out, kind, vertex, singleGeoset, lineBreak);
    }
}

}  // namespace corvane
