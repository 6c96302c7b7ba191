#include "model/index_lists.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <vector>

#include "model/read_notes.h"
#include "model/section_text.h"

namespace corvane {

namespace {

// Reads the triangles of one section.
class FaceReader {
public:
    explicit FaceReader(const SectionText& section) : section_(section) {}

    void read(Geoset& geoset) const;

private:
    void readTriangles(Lexer& lexer, Geoset& geoset) const;
    void readIndexList(Lexer& lexer, Geoset& geoset) const;
    std::int16_t cornerAt(std::size_t offset, int index, const Geoset& geoset) const;

    SectionText section_;
};

// A vertex index that stands at an offset.
std::int16_t FaceReader::cornerAt(std::size_t offset, int index, const Geoset& geoset) const {
    const std::size_t vertices = geoset.Vertices.size();
    if (vertices == 0) section_.failAtHeader("the geoset has faces but no vertices.");
    if (index < 0 || static_cast<std::size_t>(index) >= vertices) {
        section_.failAt(offset, "a face uses vertex index " + std::to_string(index) +
                                    ", but the geoset has " + std::to_string(vertices) +
                                    " vertices (indices start at 0).");
    }
    return static_cast<std::int16_t>(index);
}

// Takes the corners of one list such as "{ 0, 1, 2, 0, 2, 3 }," whose brace the lexer is at. It may
// be wrapped over several lines at any place between its numbers.
void FaceReader::readIndexList(Lexer& lexer, Geoset& geoset) const {
    const std::size_t listBegin = lexer.offset();
    if (!lexer.skip('{')) {
        section_.failAt(listBegin, section_.quotedLine(listBegin) +
                                       " is not a list of vertex indices in braces.");
    }
    FaceRecord face;
    std::size_t slot = 0;
    while (lexer.skipBlanks() && lexer.peek() != '}') {
        int corner = 0;
        const char* const field = lexer.at();
        const std::size_t fieldBegin = lexer.offset();
        const auto [stop, error] = std::from_chars(field, lexer.end(), corner);
        const bool isNumber = error == std::errc{};
        if (isNumber) lexer.moveTo(stop);
        const bool more = lexer.skipBlanks();
        if (!more && isNumber) break;
        if (!isNumber || (lexer.peek() != ',' && lexer.peek() != '}')) {
            const char* const fieldEnd =
                std::find_if(field, lexer.end(), [](char ch) { return ch == ',' || ch == '}'; });
            const std::string_view wrong =
                withoutBlanks({field, static_cast<std::size_t>(fieldEnd - field)});
            section_.failAt(fieldBegin, quoted(wrong) + " is not a vertex index.");
        }
        face.corner[slot] = cornerAt(fieldBegin, corner, geoset);
        if (++slot == face.corner.size()) {
            slot = 0;
            geoset.Faces.push_back(face);
        }
        lexer.skip(',');
    }
    if (!lexer.skip('}')) {
        section_.failAt(listBegin, section_.quotedLine(listBegin) +
                                       " is not a list of vertex indices in braces.");
    }
    if (slot != 0) {
        section_.failAt(listBegin,
                        "the number of vertex indices in the list that starts in this line is "
                        "not a multiple of three.");
    }
    lexer.skipPast(',');
}

// Reads a group such as "Triangles { ... }" whose keyword the lexer is at.
void FaceReader::readTriangles(Lexer& lexer, Geoset& geoset) const {
    const std::size_t begin = lexer.offset();
    if (lexer.next().text != "Triangles" || !lexer.skipPast('{')) {
        if (geoset.Faces.empty()) {
            section_.failAtHeader("no \"Triangles {\" follows; only triangles can be edited.");
        }
        section_.failAt(begin, section_.quotedLine(begin) +
                                   " is not a group of triangles, and only triangles can be "
                                   "edited.");
    }
    while (lexer.skipBlanks() && lexer.peek() != '}') {
        readIndexList(lexer, geoset);
    }
    if (!lexer.skip('}')) section_.failAtHeader("the list of triangles does not end.");
    lexer.skipPast(',');
}

void FaceReader::read(Geoset& geoset) const {
    // "Faces 1 36 {": the number of triangle groups and that of indices. Both are counted as they
    // come, but a header without them is none.
    const std::int64_t indices = section_.headerCount(2);
    geoset.Faces.reserve(static_cast<std::size_t>(std::min<std::int64_t>(indices / 3, kMaxFaces)));
    Lexer lexer = section_.body();
    while (lexer.skipBlanks()) readTriangles(lexer, geoset);
    if (geoset.Faces.size() > kMaxFaces) {
        section_.failTooLarge(geoset.Faces.size(), "faces", kMaxFaces);
    }
}

// Reads the indices of a group whose opening brace the lexer has just passed.
void readMatrices(const SectionText& section, Lexer& lexer, MatrixGroup& group) {
    group.fill(kNoMatrix);
    const std::size_t begin = lexer.offset();
    for (std::size_t row = 0; lexer.skipBlanks() && lexer.peek() != '}'; ++row) {
        if (row == kMatricesPerGroup) {
            section.failAt(begin, "the matrix group has more than " +
                                      std::to_string(kMatricesPerGroup) + " matrix indices.");
        }
        const char* const from = lexer.at();
        const char* const to = std::find_if(from, lexer.end(), [](char ch) {
            return ch == ',' || ch == '}' || ch == '{' || ch == '\n' || ch == '/';
        });
        group[row] = section.int16(withoutBlanks({from, static_cast<std::size_t>(to - from)}),
                                   "matrix index");
        lexer.moveTo(to);
        if (!lexer.skipBlanks() || (lexer.peek() != ',' && lexer.peek() != '}')) {
            section.failAt(begin, section.quotedLine(begin) + " is not a matrix group.");
        }
        lexer.skip(',');
    }
    if (!lexer.skip('}')) {
        section.failAt(begin, section.quotedLine(begin) + " is not a matrix group.");
    }
}

}  // namespace

void readFaces(const ModelText& text, const Section& section, Geoset& geoset) {
    FaceReader(SectionText(text, section)).read(geoset);
}

void readGroups(const ModelText& text, const Section& section, Geoset& geoset, ReadNotes& notes) {
    const SectionText source(text, section);
    Lexer lexer = source.body();
    while (lexer.skipBlanks()) {
        const std::size_t begin = lexer.offset();
        if (lexer.next().text != "Matrices" || !lexer.skipPast('{')) {
            source.failAt(begin, source.quotedLine(begin) + " is not a matrix group.");
        }
        readMatrices(source, lexer, geoset.matrixGroups.emplace_back());
        lexer.skipPast(',');
    }
    noteIfShort(notes, {.keyword = std::string(keywordOf(section.kind)),
                        .offset = section.begin,
                        .rows = geoset.matrixGroups.size(),
                        .counted = source.countInHeader(1),
                        .vertices = {}});
}

}  // namespace corvane
