#include "model/geoset_reader.h"

#include <algorithm>

#include "model/index_lists.h"
#include "model/row_sections.h"
#include "model/section_text.h"
#include "model/vertex_rows.h"

namespace corvane {

namespace {

// Notes a further section that has too few rows. Of rows that cannot be told apart nothing is
// known.
void noteIfShort(ReadNotes& notes, const ModelText& text, const Section& part,
                 const RowSection& rows) {
    if (!rows.problem.empty()) return;
    noteIfShort(notes, {.keyword = rows.keyword,
                        .offset = part.begin,
                        .rows = rows.rows.size(),
                        .counted = SectionText(text, part).countInHeader(1),
                        .vertices = rows.vertexCount});
}

// Reads the further sections with rows for the vertices.
void readRowSections(const ModelText& text, const std::vector<Section>& parts, Geoset& geoset,
                     ReadNotes& notes) {
    for (const Section& part : parts) {
        if (part.kind != SectionKind::Rows) continue;
        const std::string_view keyword = keywordIn(part);
        const auto ordinal = std::ranges::count(geoset.rowSections, keyword, &RowSection::keyword);
        geoset.rowSections.push_back(
            readRowSection(text, part, static_cast<int>(ordinal), geoset.Vertices.size()));
        noteIfShort(notes, text, part, geoset.rowSections.back());
    }
    if (geoset.rowSections.empty()) return;
    for (std::size_t i = 0; i < geoset.Vertices.size(); ++i) {
        geoset.Vertices[i].fileRow = static_cast<std::int16_t>(i);
    }
}

// Takes the sections about groups as they stand in the text.
void keepGroupsAsRead(const ModelText& text, const std::vector<Section>& parts, Geoset& geoset) {
    GroupsAsRead& read = geoset.groupsRead;
    for (const Section& part : parts) {
        const std::string_view partText = text.view().substr(part.begin, part.end - part.begin);
        if (part.kind == SectionKind::Groups) read.groups = partText;
        if (part.kind != SectionKind::VertexGroup) continue;
        if (!SectionText(text, part).body().skipBlanks()) read.vertexGroup = partText;
    }
    read.matrixGroups = geoset.matrixGroups;
}

// A section VertexGroup without a row lacks none where SkinWeights takes its place.
void forgetUnusedVertexGroup(const Geoset& geoset, ReadNotes& notes) {
    if (std::ranges::find(geoset.rowSections, kSkinWeights, &RowSection::keyword) ==
        geoset.rowSections.end()) {
        return;
    }
    std::erase_if(notes.shortSections, [](const ShortSection& section) {
        return section.keyword == keywordOf(SectionKind::VertexGroup) && section.rows == 0;
    });
}

Geoset readBlock(const ModelText& text, const GeosetBlock& block, ReadNotes& notes) {
    const std::vector<Section> parts = scanParts(text, block);
    Geoset geoset;
    const auto vertices = std::ranges::find(parts, SectionKind::Vertices, &Section::kind);
    if (vertices == parts.end()) {
        // Nothing of it could be shown, and saving nothing would remove the geoset.
        throw ModelTextError(text, block.begin,
                             "the geoset that starts here has no section \"Vertices\".");
    }
    readVertices(text, *vertices, geoset, notes);
    for (const Section& section : parts) {
        if (section.kind != SectionKind::Rows) {
            geoset.sectionsRead.emplace_back(keywordOf(section.kind));
        }
        switch (section.kind) {
            case SectionKind::Vertices:
            case SectionKind::Rows:
                break;  // the vertices are there already; they size the lists
            case SectionKind::Normals:
            case SectionKind::TVertices:
            case SectionKind::VertexGroup:
                readVertexRows(text, section, geoset, notes);
                break;
            case SectionKind::Faces:
                readFaces(text, section, geoset);
                break;
            case SectionKind::Groups:
                readGroups(text, section, geoset, notes);
                break;
        }
    }
    readRowSections(text, parts, geoset, notes);
    keepGroupsAsRead(text, parts, geoset);
    forgetUnusedVertexGroup(geoset, notes);
    std::ranges::sort(notes.shortSections, {}, &ShortSection::offset);
    return geoset;
}

}  // namespace

Geoset parseGeoset(const ModelText& text, const std::vector<GeosetBlock>& geosets, int geosetNumber,
                   ReadNotes* notes) {
    if (geosetNumber < 1 || static_cast<std::size_t>(geosetNumber) > geosets.size()) return {};
    ReadNotes ignored;
    return readBlock(text, geosets[static_cast<std::size_t>(geosetNumber) - 1],
                     notes != nullptr ? *notes : ignored);
}

void takeFileData(Geoset& geoset, Geoset read) {
    geoset.rowSections = std::move(read.rowSections);
    geoset.sectionsRead = std::move(read.sectionsRead);
    geoset.groupsRead = std::move(read.groupsRead);
    auto row = read.Vertices.begin();  // what is deleted is not in the file
    for (VertexRecord& vertex : geoset.Vertices) {
        vertex.fileRow = kNoRow;
        vertex.regrouped = false;
        if (!vertex.deleted && row != read.Vertices.end()) vertex.fileRow = row++->fileRow;
    }
}

}  // namespace corvane
