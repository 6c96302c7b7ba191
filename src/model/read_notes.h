// What the reader of a geoset came across that the user should know of, and the messages about it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

class ModelText;

/// A section with fewer rows than its header says, or than the geoset has vertices.
struct ShortSection {
    std::string keyword;
    std::size_t offset = 0;  ///< of its header in the text
    std::size_t rows = 0;
    std::optional<std::int64_t> counted;  ///< by the header, where that is more
    std::optional<std::size_t> vertices;  ///< of the geoset, where these are more
};

/// What the reader came across and mended.
struct ReadNotes {
    /// The normals' and texture coordinates' numbers that are not finite, such as "nan", and were
    /// read as 0.
    std::size_t notFinite = 0;
    std::size_t firstNotFinite = 0;  ///< the offset of the first of them in the text

    std::vector<ShortSection> shortSections;  ///< in file order
};

/// Notes a section whose rows are fewer than these counts say; nothing for no count.
void noteIfShort(ReadNotes& notes, ShortSection section);

/// Says how many numbers were not finite, and where the first one is.
std::string notFiniteMessage(const ModelText& text, const ReadNotes& notes);

/// Says for every short section where it is, and its numbers.
std::string shortSectionsMessage(const ModelText& text, const ReadNotes& notes);

}  // namespace corvane
