// The rows that a geoset's file keeps for its vertices and that are not edited here, such as those
// of Tangents and SkinWeights, as records.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvane {

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

/// The sections of one geoset in file order. Copies share them, so that a copy of a geoset costs no
/// more than what is edited; what is added to one copy is not in the others.
class RowSections {
public:
    RowSections() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): it is that list
    RowSections(std::vector<RowSection> sections)
        : sections_(std::make_shared<std::vector<RowSection>>(std::move(sections))) {}

    std::size_t size() const { return list().size(); }
    bool empty() const { return list().empty(); }
    auto begin() const { return list().begin(); }
    auto end() const { return list().end(); }
    const RowSection& operator[](std::size_t i) const { return list()[i]; }
    const RowSection& at(std::size_t i) const { return list().at(i); }
    const RowSection& back() const { return list().back(); }

    void push_back(RowSection section) {
        if (!sections_ || sections_.use_count() > 1) {
            sections_ = std::make_shared<std::vector<RowSection>>(list());
        }
        sections_->push_back(std::move(section));
    }

private:
    const std::vector<RowSection>& list() const {
        static const std::vector<RowSection> none;
        return sections_ ? *sections_ : none;
    }

    std::shared_ptr<std::vector<RowSection>> sections_;
};

/// No row of the file.
inline constexpr std::int16_t kNoRow = -1;

}  // namespace corvane
