#include "model/model_writer.h"

#include <algorithm>
#include <utility>

#include "model/geoset_sections.h"
#include "model/row_sections.h"

namespace corvane {

namespace {

std::string withLineBreaks(std::initializer_list<std::string_view> lines,
                           std::string_view lineBreak) {
    std::string text;
    for (const std::string_view line : lines) {
        text += line;
        text += lineBreak;
    }
    return text;
}

// Writes one geoset's parts anew in their places, and adds those that it lacks.
class GeosetWriter {
public:
    GeosetWriter(PiecedText& out, const ModelText& base, const GeosetBlock& block,
                 const Geoset& geoset, bool singleGeoset, NeutralRows* neutral)
        : out_(out),
          base_(base),
          block_(block),
          geoset_(geoset),
          singleGeoset_(singleGeoset),
          neutral_(neutral),
          kept_(geoset),
          groupsAsRead_(hasGroupsAsRead(geoset)) {
        for (const VertexRecord& vertex : geoset.Vertices) {
            if (!vertex.deleted) fileRows_.push_back(vertex.fileRow);
        }
    }

    // Adds the base's text from `from` to `to`, which lie around the whole geoset.
    void write(std::size_t from, std::size_t to);

private:
    const std::string* textAsRead(SectionKind kind) const;
    std::string sectionText(SectionKind kind, std::string_view lineBreak) const;
    std::string rowsText(const RowSection& rows, const std::vector<std::int16_t>& fileRows);
    const RowSection* find(std::string_view keyword, int ordinal) const;
    bool isNeededNoMore(const Section& part) const;
    std::string replacement(const Section& part);
    std::string missingParts();

    PiecedText& out_;
    const ModelText& base_;
    const GeosetBlock& block_;
    const Geoset& geoset_;
    bool singleGeoset_;
    NeutralRows* neutral_;
    KeptVertices kept_;
    bool groupsAsRead_;
    std::vector<std::int16_t> fileRows_;  // of the kept vertices
    std::vector<SectionKind> written_;
    std::vector<std::pair<std::string, int>> writtenRows_;  // keywords and ordinals
};

// The text of a section about groups that stays as it was read; null where it is made anew. Alone,
// the geoset has one bone, so that its Groups are others.
const std::string* GeosetWriter::textAsRead(SectionKind kind) const {
    const GroupsAsRead& read = geoset_.groupsRead;
    const std::string* text = nullptr;
    if (kind == SectionKind::VertexGroup) text = &read.vertexGroup;
    if (kind == SectionKind::Groups && !singleGeoset_) text = &read.groups;
    return groupsAsRead_ && text != nullptr && !text->empty() ? text : nullptr;
}

std::string GeosetWriter::sectionText(SectionKind kind, std::string_view lineBreak) const {
    if (const std::string* const asRead = textAsRead(kind)) return *asRead;
    std::string text;
    appendSection(text, kind, geoset_, kept_, singleGeoset_, lineBreak);
    text += "\t}";
    return text;
}

std::string GeosetWriter::rowsText(const RowSection& rows,
                                   const std::vector<std::int16_t>& fileRows) {
    std::size_t neutralRows = 0;
    const auto compose = singleGeoset_ ? composeForOneBone : composeRowSection;
    std::string text = compose(rows, fileRows, neutralRows);
    if (neutral_ != nullptr && neutralRows > 0) {
        neutral_->rows += neutralRows;
        neutral_->sectionNames.push_back(rows.keyword);
    }
    return text;
}

const RowSection* GeosetWriter::find(std::string_view keyword, int ordinal) const {
    const auto found = std::ranges::find_if(geoset_.rowSections, [&](const RowSection& rows) {
        return rows.keyword == keyword && rows.ordinal == ordinal;
    });
    return found == geoset_.rowSections.end() ? nullptr : &*found;
}

// Whether an earlier save added a part for data that Undo has taken back since.
bool GeosetWriter::isNeededNoMore(const Section& part) const {
    const std::vector<std::string>& read = geoset_.sectionsRead;
    const bool wasRead =
        read.empty() || std::ranges::find(read, keywordOf(part.kind)) != read.end();
    return !wasRead && part.kind != SectionKind::Rows && !hasDataFor(part.kind, geoset_) &&
           isLineBegin(base_.view(), part.begin);
}

// What takes the place of a part of the file's geoset, from its begin to its end.
std::string GeosetWriter::replacement(const Section& part) {
    if (part.kind != SectionKind::Rows) {
        written_.push_back(part.kind);
        return sectionText(part.kind, part.lineBreak);
    }
    const std::string keyword(keywordIn(part));
    const auto ordinal = static_cast<int>(
        std::ranges::count(writtenRows_, keyword, &std::pair<std::string, int>::first));
    writtenRows_.emplace_back(keyword, ordinal);
    if (const RowSection* const rows = find(keyword, ordinal)) return rowsText(*rows, fileRows_);
    // The geoset in memory is another one, which has no rows for it.
    const std::vector<std::int16_t> noRows(fileRows_.size(), kNoRow);
    return rowsText(readRowSection(base_, part, ordinal, kMaxVertices + 1), noRows);
}

// The parts that the file's geoset lacks and the one in memory has, each on lines of its own.
std::string GeosetWriter::missingParts() {
    const std::string_view lineBreak = lineBreakOf(base_.view());
    const auto isMissing = [&](SectionKind kind) {
        return std::ranges::find(written_, kind) == written_.end();
    };
    const bool addsGroups =
        isMissing(SectionKind::Groups) && hasDataFor(SectionKind::Groups, geoset_);
    const bool hasFurtherLayer = find(keywordOf(SectionKind::TVertices), 0) != nullptr;
    std::string text;
    for (const SectionKind kind :
         {SectionKind::Vertices, SectionKind::Normals, SectionKind::TVertices,
          SectionKind::VertexGroup, SectionKind::Faces, SectionKind::Groups}) {
        // Groups are of no use without the vertices' numbers, even where all of these are 0; and
        // another texture layer without the first would be taken for it.
        const bool needed = (kind == SectionKind::VertexGroup && addsGroups) ||
                            (kind == SectionKind::TVertices && hasFurtherLayer);
        if (!isMissing(kind) || (!hasDataFor(kind, geoset_) && !needed)) continue;
        text += sectionText(kind, lineBreak);
        text += lineBreak;
    }
    for (const RowSection& rows : geoset_.rowSections) {
        if (std::ranges::find(writtenRows_, std::pair(rows.keyword, rows.ordinal)) !=
            writtenRows_.end()) {
            continue;
        }
        text += rowsText(rows, fileRows_);
        text += lineBreak;
    }
    return text;
}

void GeosetWriter::write(std::size_t from, std::size_t to) {
    const std::string_view text = base_.view();
    const std::string_view lineBreak = lineBreakOf(text);
    for (const Section& part : scanParts(base_, block_)) {
        out_.addView(text.substr(from, part.begin - from));
        if (isNeededNoMore(part)) {
            from = isRestOfLineBlank(text, part.end) ? lineEndOf(text, part.end) : part.end;
            continue;
        }
        std::string anew = replacement(part);
        const bool ownShape = part.kind == SectionKind::Rows || textAsRead(part.kind) != nullptr;
        if (!ownShape && !isLineBegin(text, part.begin)) anew.insert(0, part.lineBreak);
        out_.addText(std::move(anew));
        from = part.end;
    }

    std::string missing = missingParts();
    // Alone, the geoset is followed by blocks that must not become part of it.
    const bool close = !block_.closed && (singleGeoset_ || !missing.empty());
    if (!missing.empty() || close) {
        std::size_t place = block_.bodyEnd;
        if (!block_.closed) {
            // Before the empty lines at its end.
            const std::size_t last = text.substr(0, place).find_last_not_of(" \t\r\n");
            place = std::max(from, last == std::string_view::npos ? 0 : last + 1);
        }
        if (close) missing.append("}");
        if (!isLineBegin(text, place)) missing.insert(0, lineBreak);
        // What follows a brace that was added begins a line already, or is the end of the file.
        out_.addView(text.substr(from, place - from));
        out_.addText(std::move(missing));
        from = place;
    }
    out_.addView(text.substr(from, to - from));
}

// Adds what stands before the first geoset, with its sequences replaced by a single one.
void addSingleGeosetHead(PiecedText& out, const ModelText& base, std::size_t end) {
    const std::string_view text = base.view();
    std::size_t copied = 0;
    for (const ModelBlock& block : scanBlocks(text.substr(0, end))) {
        if (block.keyword != "Sequences") continue;
        if (!block.closed) {
            throw ModelTextError(base, block.begin,
                                 "the block Sequences that starts here does not end.");
        }
        const std::string_view lineBreak = lineBreakAt(text, block.begin);
        out.addView(text.substr(copied, block.begin - copied));
        out.addText(withLineBreaks(
            {"Sequences 1 {", "\tAnim \"Stand\" {", "\t\tInterval { 0, 3333 },", "\t}"},
            lineBreak));
        copied = block.bodyEnd;
    }
    out.addView(text.substr(copied, end - copied));
}

}  // namespace

std::size_t PiecedText::size() const {
    std::size_t bytes = 0;
    for (const std::string_view piece : pieces_) bytes += piece.size();
    return bytes;
}

std::string PiecedText::joined() const {
    std::string text;
    text.reserve(size());
    for (const std::string_view piece : pieces_) text += piece;
    return text;
}

PiecedText composeModel(const ModelText& base, const std::vector<GeosetBlock>& geosets,
                        int geosetNumber, const Geoset& geoset, NeutralRows* neutral) {
    const GeosetBlock& block = geosets.at(static_cast<std::size_t>(geosetNumber) - 1);
    PiecedText out;
    GeosetWriter(out, base, block, geoset, false, neutral).write(0, base.view().size());
    return out;
}

PiecedText composeSingleGeoset(const ModelText& base, const std::vector<GeosetBlock>& geosets,
                               int geosetNumber, const Geoset& geoset, NeutralRows* neutral) {
    const GeosetBlock& block = geosets.at(static_cast<std::size_t>(geosetNumber) - 1);
    const std::string_view lineBreak = lineBreakOf(base.view());
    PiecedText out;
    addSingleGeosetHead(out, base, geosets.front().begin);
    GeosetWriter(out, base, block, geoset, true, neutral).write(block.begin, block.end);
    if (!out.pieces().back().ends_with('\n')) out.addView(lineBreak);
    out.addText(withLineBreaks({"Bone \"Bone0\" {", "\tObjectId 0,", "\tGeosetAnimId None,", "}",
                                "PivotPoints 1 {", "\t{ 0, 0, 0 },", "}"},
                               lineBreak));
    return out;
}

}  // namespace corvane
