#include "model/model_scanner.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace corvane {

namespace {

constexpr std::string_view kGeosetHeader = "Geoset {";
constexpr std::string_view kSectionEnd = "\t}";

struct SectionName {
    SectionKind kind;
    std::string_view header;  // with the tab that stands before it
};

constexpr std::array<SectionName, 6> kSectionNames = {{
    {SectionKind::Vertices, "\tVertices"},
    {SectionKind::Normals, "\tNormals"},
    {SectionKind::TVertices, "\tTVertices"},
    {SectionKind::VertexGroup, "\tVertexGroup"},
    {SectionKind::Faces, "\tFaces"},
    {SectionKind::Groups, "\tGroups"},
}};

std::optional<SectionKind> sectionOpenedBy(std::string_view line) {
    for (const SectionName& name : kSectionNames) {
        if (startsWith(line, name.header)) return name.kind;
    }
    return std::nullopt;
}

}  // namespace

std::string_view keywordOf(SectionKind kind) {
    const auto* const found = std::ranges::find(kSectionNames, kind, &SectionName::kind);
    return found->header.substr(1);
}

std::vector<GeosetBlock> scanGeosets(std::string_view text) {
    std::vector<GeosetBlock> geosets;
    bool inside = false;
    LineCursor cursor(text);
    Line line;
    while (cursor.next(line)) {
        if (line.text == kGeosetHeader) {
            // A geoset that was never closed ends where the next one starts.
            if (inside) geosets.back().bodyEnd = geosets.back().end = line.begin;
            geosets.push_back({line.begin, line.end, text.size(), text.size()});
            inside = true;
        } else if (inside && startsWith(line.text, "}")) {
            geosets.back().bodyEnd = line.begin;
            geosets.back().end = line.end;
            inside = false;
        }
    }
    return geosets;
}

std::vector<Section> scanSections(const ModelText& text, const GeosetBlock& geoset) {
    std::vector<Section> sections;
    const std::string_view body = text.view().substr(0, geoset.bodyEnd);
    LineCursor cursor(body, geoset.bodyBegin);
    Line line;
    while (cursor.next(line)) {
        const std::optional<SectionKind> kind = sectionOpenedBy(line.text);
        if (!kind) continue;
        Section section{*kind, line.begin, line.text, line.lineBreak, line.end, line.end};
        const std::string name(keywordOf(*kind));
        bool closed = false;
        while (!closed && cursor.next(line)) {
            closed = line.text == kSectionEnd;
            section.bodyEnd = line.begin;
        }
        if (!closed) {
            throw ModelTextError(text, section.begin,
                                 "the section " + name + " that starts here does not end (no " +
                                     "line that is a tab and \"}\" follows in its geoset).");
        }
        const bool seen = std::ranges::find(sections, *kind, &Section::kind) != sections.end();
        if (seen && *kind == SectionKind::TVertices) continue;
        if (seen) {
            throw ModelTextError(text, section.begin, "a second section " + name + " in a geoset.");
        }
        sections.push_back(section);
    }
    return sections;
}

}  // namespace corvane
