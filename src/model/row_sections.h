// The sections of a geoset that hold one row for each vertex and are not edited here, such as
// Tangents and SkinWeights. Their rows follow their vertices, byte for byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/row_records.h"

namespace corvane {

class ModelText;
struct Section;

/// The section that says which bones move each vertex, with which weights.
inline constexpr std::string_view kSkinWeights = "SkinWeights";

/// Reads such a section of a geoset with that many vertices. Never throws: see `problem`.
RowSection readRowSection(const ModelText& text, const Section& section, int ordinal,
                          std::size_t vertexCount);

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

/// The same for a model with one bone, of which every vertex has the whole weight: rows of
/// SkinWeights name that bone, whatever they named; any other section follows its vertices.
std::string composeForOneBone(const RowSection& section, const std::vector<std::int16_t>& fileRows,
                              std::size_t& neutralRows);

}  // namespace corvane
