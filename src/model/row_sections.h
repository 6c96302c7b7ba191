// The sections of a geoset that hold one row for each vertex and are not edited here, such as
// Tangents and SkinWeights. Their rows follow their vertices, byte for byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

class ModelText;
struct Section;

/// One row in the text of its section, as offsets into that text.
struct SectionRow {
    std::uint32_t begin = 0;      ///< where the row before it ends
    std::uint32_t ownBegin = 0;   ///< the same, or the beginning of its own line where lines with
                                  ///< nothing but comments stand between
    std::uint32_t dataBegin = 0;  ///< first byte of its numbers, or of their opening brace
    std::uint32_t dataEnd = 0;    ///< first byte after its numbers, or after their closing brace
    std::uint32_t end = 0;        ///< after its comma, and after the line break if that follows
    bool hasComma = false;
};

/// Such a section as it was read.
struct RowSection {
    std::string keyword;
    int ordinal = 0;               ///< 0-based among the sections with that keyword listed here
    std::string text;              ///< from its header's first byte to its closing brace
    std::string lineBreak;         ///< that of its lines
    std::size_t countBegin = 0;    ///< offset of the header's count in the text
    std::size_t countEnd = 0;      ///< the same as countBegin where the header has no count
    std::size_t rowsBegin = 0;     ///< offset after the header
    std::vector<SectionRow> rows;  ///< row i belongs to vertex i of the file
    std::size_t vertexCount = 0;   ///< the vertices of the geoset that it was read with
    /// Empty, or the message that says why its rows cannot be told apart: then it can only be
    /// written as it was read.
    std::string problem;
};

/// Reads such a section of a geoset with that many vertices. Never throws: see `problem`.
RowSection readRowSection(const ModelText& text, const Section& section, int ordinal,
                          std::size_t vertexCount);

/// No row of the file.
inline constexpr std::int16_t kNoRow = -1;

/// A section whose rows cannot be told apart would have to follow other vertices than it was read
/// with. what() is the section's problem, with the file and the line.
class RowsCannotFollow : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The text of the section for vertices that came from these rows of the file (0-based, or kNoRow),
/// from its header to its closing brace: as it was read where nothing was added or dropped. A
/// vertex without a row gets the neutral one, and is counted in `neutralRows`.
/// Throws RowsCannotFollow where the section has a problem and would not stay as it was read.
std::string composeRowSection(const RowSection& section, const std::vector<std::int16_t>& fileRows,
                              std::size_t& neutralRows);

}  // namespace corvane
