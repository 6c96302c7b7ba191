#include "model/index_lists.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <vector>

#include "model/section_text.h"

namespace corvane {

namespace {

// Reads the triangles of one section.
class FaceReader {
public:
    explicit FaceReader(const SectionText& section) : section_(section) {}

    void read(Geoset& geoset) const;

private:
    void readTriangles(Lexer& lexer, Geoset& geoset, std::size_t& face) const;
    void readIndexList(Lexer& lexer, std::size_t vertexCount, std::size_t& face,
                       std::vector<FaceRecord>& faces) const;

    SectionText section_;
};

// Takes the corners of one list such as "{ 0, 1, 2, 0, 2, 3 }," whose brace the lexer is at. It may
// be wrapped over several lines at any place between its numbers.
void FaceReader::readIndexList(Lexer& lexer, std::size_t vertexCount, std::size_t& face,
                               std::vector<FaceRecord>& faces) const {
    const std::size_t listBegin = lexer.offset();
    if (!lexer.skip('{')) {
        section_.failAt(listBegin, section_.quotedLine(listBegin) +
                                       " is not a list of vertex indices in braces.");
    }
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
        if (corner < 0 || static_cast<std::size_t>(corner) >= vertexCount) {
            section_.failAt(fieldBegin, "a face uses vertex index " + std::to_string(corner) +
                                            ", but the geoset has " + std::to_string(vertexCount) +
                                            " vertices (indices start at 0).");
        }
        if (face == faces.size()) {
            section_.failAt(fieldBegin,
                            "the section Faces holds more triangles than its header says (" +
                                std::to_string(faces.size()) + ").");
        }
        faces[face].corner[slot] = static_cast<std::int16_t>(corner);
        if (++slot == 3) {
            slot = 0;
            ++face;
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
void FaceReader::readTriangles(Lexer& lexer, Geoset& geoset, std::size_t& face) const {
    const std::size_t begin = lexer.offset();
    if (lexer.next().text != "Triangles" || !lexer.skipPast('{')) {
        if (face == 0) {
            section_.failAtHeader("no \"Triangles {\" follows; only triangles can be edited.");
        }
        section_.failAt(begin, section_.quotedLine(begin) +
                                   " is not a group of triangles, and only triangles can be "
                                   "edited.");
    }
    while (lexer.skipBlanks() && lexer.peek() != '}') {
        readIndexList(lexer, geoset.Vertices.size(), face, geoset.Faces);
    }
    if (!lexer.skip('}')) section_.failAtHeader("the list of triangles does not end.");
    lexer.skipPast(',');
}

void FaceReader::read(Geoset& geoset) const {
    // "Faces 1 36 {": the number of triangle groups, which are counted as they come, and that of
    // indices.
    const std::int64_t indices = section_.headerCount(2);
    const std::int64_t faces = indices / 3 + (indices % 3 == 2 ? 1 : 0);  // to the nearest
    if (faces > kMaxFaces) {
        section_.failAtHeader("the geoset has " + std::to_string(faces) + " faces; at most " +
                              std::to_string(kMaxFaces) + " can be edited.");
    }
    geoset.Faces.resize(static_cast<std::size_t>(faces));
    if (faces > 0 && geoset.Vertices.empty()) {
        section_.failAtHeader("the geoset has faces but no vertices.");
    }

    Lexer lexer = section_.body();
    if (!lexer.skipBlanks()) {
        if (faces == 0) return;
        section_.failAtHeader("no \"Triangles {\" follows; only triangles can be edited.");
    }
    std::size_t face = 0;
    do {
        readTriangles(lexer, geoset, face);
    } while (lexer.skipBlanks());
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

void readGroups(const ModelText& text, const Section& section, Geoset& geoset) {
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
}

}  // namespace corvane
