#include "model/model_writer.h"

#include "model/geoset_sections.h"

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

// Adds the text from `from` to `to`, which lie around the whole geoset, with its sections anew.
void addWithSections(PiecedText& out, const ModelText& base, const GeosetBlock& block,
                     const Geoset& geoset, bool singleGeoset, std::size_t from, std::size_t to) {
    const KeptVertices kept(geoset);
    for (const Section& section : scanSections(base, block)) {
        out.addView(base.view().substr(from, section.begin - from));
        std::string text;
        appendSection(text, section.kind, geoset, kept, singleGeoset, section.lineBreak);
        out.addText(std::move(text));
        from = section.bodyEnd;
    }
    out.addView(base.view().substr(from, to - from));
}

// Adds what stands before the first geoset, with its sequences replaced by a single one.
void addSingleGeosetHead(PiecedText& out, const ModelText& base, std::size_t end) {
    const std::string_view head = base.view().substr(0, end);
    LineCursor cursor(head);
    Line line;
    std::size_t copied = 0;
    while (cursor.next(line)) {
        if (!startsWith(line.text, "Sequences")) continue;
        // A byte order mark before the header is not part of the line that is replaced.
        const auto header = static_cast<std::size_t>(line.text.data() - head.data());
        out.addView(head.substr(copied, header - copied));
        out.addText(withLineBreaks(
            {"Sequences 1 {", "\tAnim \"Stand\" {", "\t\tInterval { 0, 3333 },", "\t}"},
            line.lineBreak));
        do {
            if (!cursor.next(line)) {
                throw ModelTextError(base, header,
                                     "the block Sequences that starts here does not end.");
            }
        } while (line.text != "}");
        copied = line.begin;
    }
    out.addView(head.substr(copied));
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
                        int geosetNumber, const Geoset& geoset) {
    PiecedText out;
    addWithSections(out, base, geosets.at(static_cast<std::size_t>(geosetNumber) - 1), geoset,
                    false, 0, base.view().size());
    return out;
}

PiecedText composeSingleGeoset(const ModelText& base, const std::vector<GeosetBlock>& geosets,
                               int geosetNumber, const Geoset& geoset) {
    const GeosetBlock& block = geosets.at(static_cast<std::size_t>(geosetNumber) - 1);
    const std::string_view lineBreak = lineBreakOf(base.view());
    PiecedText out;
    addSingleGeosetHead(out, base, geosets.front().begin);
    addWithSections(out, base, block, geoset, true, block.begin, block.end);
    if (block.end > 0 && base.view()[block.end - 1] != '\n') out.addView(lineBreak);
    out.addText(withLineBreaks({"Bone \"Bone0\" {", "\tObjectId 0,", "\tGeosetAnimId None,", "}",
                                "PivotPoints 1 {", "\t{ 0, 0, 0 },", "}"},
                               lineBreak));
    return out;
}

}  // namespace corvane
