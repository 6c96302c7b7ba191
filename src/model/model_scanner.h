// Finds where the geosets of a model, and the sections of one geoset, begin and end. Counting,
// reading, writing and removing all use what it finds, so they cannot disagree.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "model/model_text.h"

namespace corvane {

/// A top-level geoset block. Offsets are bytes from the start of the text.
struct GeosetBlock {
    std::size_t begin = 0;      ///< first byte of the line "Geoset {"
    std::size_t bodyBegin = 0;  ///< first byte of the line after it
    std::size_t bodyEnd = 0;    ///< first byte of the closing line, or the end of the block
    std::size_t end = 0;        ///< first byte after the closing line
};

/// The geosets of a model in file order; geoset n of the file is entry n - 1.
std::vector<GeosetBlock> scanGeosets(std::string_view text);

/// The sections of a geoset that are read and written anew.
enum class SectionKind { Vertices, Normals, TVertices, VertexGroup, Faces, Groups };

/// The keyword that opens a section.
std::string_view keywordOf(SectionKind kind);

/// One section of a geoset. Offsets are bytes from the start of the text.
struct Section {
    SectionKind kind{};
    std::size_t begin = 0;       ///< first byte of the header line
    std::string_view header;     ///< the header line, without its line break
    std::string_view lineBreak;  ///< the header's line break
    std::size_t bodyBegin = 0;   ///< first byte of the line after the header
    std::size_t bodyEnd = 0;     ///< first byte of the closing line
};

/// The sections of one geoset in file order. Of several TVertices sections only the first is
/// listed: the others belong to further texture layers and stay as they are.
/// Throws ModelTextError for a section that is not closed before its geoset ends, and for a
/// second section of any other kind.
std::vector<Section> scanSections(const ModelText& text, const GeosetBlock& geoset);

}  // namespace corvane
