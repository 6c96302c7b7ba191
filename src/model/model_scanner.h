// Finds where the blocks of a model, and the sections of one geoset, begin and end. Counting,
// reading, writing and removing all use what it finds, so they cannot disagree.
//
// All of it goes by braces, whatever the layout, so that a model means the same before and after
// the sections of a geoset were written anew. Braces in strings and comments count for nothing.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "model/model_text.h"

namespace corvane {

/// A block at the top of a model. Offsets are bytes from the start of the text.
struct ModelBlock {
    std::string_view keyword;   ///< its first word, such as "Geoset"
    std::size_t begin = 0;      ///< first byte of its first line; of its keyword where something
                                ///< else stands before it on that line
    std::size_t bodyBegin = 0;  ///< first byte after the opening brace; the next line's where the
                                ///< rest of that line is blank
    std::size_t bodyEnd = 0;    ///< first byte of the closing line; the closing brace where
                                ///< something else stands before it on its line
    std::size_t end = 0;        ///< first byte after the closing line; after the brace where
                                ///< something else follows on that line
    bool closed = true;         ///< false where its closing brace is missing
    /// Where something stands after it that belongs into a block, such as a closing brace that
    /// closes nothing or a section of a geoset; npos for nothing. Then the block may have ended too
    /// early.
    std::size_t strayAt = std::string_view::npos;
};

/// A geoset's block.
using GeosetBlock = ModelBlock;
bool isGeoset(const ModelBlock& block);

/// All blocks at the top of a model in file order. A block that is not closed ends where a line
/// opens the next one.
std::vector<ModelBlock> scanBlocks(std::string_view text);

/// The one of scanBlocks(text) whose `begin` this is, with the same offsets, but without `strayAt`,
/// which depends on what stands after the block. It looks at nothing before `begin` but whether a
/// line begins there, so it is as good for a block behind another one on its line. From anywhere
/// else it goes on to the next block; a default one where none follows.
ModelBlock scanBlockAt(std::string_view text, std::size_t begin);

/// The blocks directly in one of those, or in such a block, in file order; without `strayAt`. One
/// that is not closed ends with the block around it.
std::vector<ModelBlock> scanInside(std::string_view text, const ModelBlock& block);

/// The geosets of a model in file order; geoset n of the file is entry n - 1.
std::vector<GeosetBlock> scanGeosets(std::string_view text);

/// What a part of a geoset is. The first six are read and written anew; Rows stands for any other
/// that holds one row for each vertex.
enum class SectionKind { Vertices, Normals, TVertices, VertexGroup, Faces, Groups, Rows };

/// The keyword that opens one of the six sections.
std::string_view keywordOf(SectionKind kind);

/// One section of a geoset. Offsets are bytes from the start of the text.
struct Section {
    SectionKind kind{};
    std::size_t begin = 0;       ///< first byte of the header line; of its keyword where something
                                 ///< else stands before it on that line
    std::string_view header;     ///< from there up to the opening brace
    std::string_view lineBreak;  ///< the header's line break, or the text's where it has none
    std::size_t bodyBegin = 0;   ///< first byte after the opening brace; the next line's where the
                                 ///< rest of that line is blank
    std::size_t bodyEnd = 0;     ///< first byte of the closing line; the closing brace where
                                 ///< something else stands before it on its line
    std::size_t end = 0;         ///< first byte after the closing brace
};

/// The parts of one geoset that hold the edited data, or further rows for its vertices: Tangents,
/// SkinWeights, and TVertices after the first, whose kind is Rows. In file order.
/// Throws ModelTextError for a part that is not closed before its geoset ends, for a second one of
/// a kind that may not be repeated, and for a geoset that may have ended too early.
std::vector<Section> scanParts(const ModelText& text, const GeosetBlock& geoset);

/// The keyword of a section: the first word of its header.
std::string_view keywordIn(const Section& section);

}  // namespace corvane
