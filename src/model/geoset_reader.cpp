#include "model/geoset_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <span>
#include <string>

#include "model/lexer.h"
#include "model/numbers.h"

namespace corvane {

namespace {

std::string quoted(std::string_view text) {
    constexpr std::size_t kLongest = 60;  // bytes of a line that a message shows
    if (text.size() <= kLongest) return "\"" + std::string(text) + "\"";
    return "\"" + std::string(text.substr(0, kLongest)) + "...\"";
}

// The ways in which programs have written numbers that are not finite, without sign.
constexpr std::array<std::string_view, 9> kNotFinite = {
    "nan", "inf", "infinity", "1.#IND", "1.#J", "1.#INF", "1.#QNAN", "1.#SNAN", "nan(ind)"};

std::string_view withoutBlanks(std::string_view field) { return trimmed(field, Lexer::isBlank); }

bool isNotFinite(std::string_view field) {
    if (field.starts_with('-') || field.starts_with('+')) field.remove_prefix(1);
    const auto lower = [](char ch) { return ch >= 'A' && ch <= 'Z' ? ch - 'A' + 'a' : int{ch}; };
    const auto isName = [&](std::string_view name) {
        // Zeros may follow "1.#IND" and the like, to fill the decimals.
        std::string_view rest = field;
        if (name.starts_with('1')) {
            while (rest.ends_with('0')) rest.remove_suffix(1);
        }
        return std::ranges::equal(rest, name, {}, lower, lower);
    };
    return std::ranges::any_of(kNotFinite, isName);
}

// Whether a row ends here, with or without a comma before its brace.
bool isRowEnd(Lexer row) {
    row.skip(',');
    return row.skipPast('}');
}

// Whether a number ends at the lexer's place, which is no blank: at its comma, or, if it is the
// last one of its row, at the row's end.
bool isNumberEnd(const Lexer& row, bool last) { return last ? isRowEnd(row) : row.peek() == ','; }

// Reads one geoset's sections into a Geoset. Holds what every step needs for its messages.
class GeosetReader {
public:
    GeosetReader(const ModelText& text, ReadNotes& notes) : text_(text), notes_(notes) {}

    Geoset read(const GeosetBlock& block);

private:
    [[noreturn]] void failAt(std::size_t offset, const std::string& reason) const {
        throw ModelTextError(text_, offset, reason);
    }
    [[noreturn]] void fail(std::string_view where, const std::string& reason) const {
        // `where` is always a piece of the text.
        failAt(static_cast<std::size_t>(where.data() - text_.view().data()), reason);
    }

    Lexer bodyOf(const Section& section) const {
        return {text_.view(), section.bodyBegin, section.bodyEnd};
    }

    // The line with an offset, as messages show it.
    std::string quotedLine(std::size_t offset) const {
        return quoted(lineAt(text_.view(), offset));
    }

    std::int64_t headerCount(const Section& section, int words) const;
    std::int16_t int16(std::string_view field, const char* what) const;
    double number(Lexer& row, std::size_t rowBegin, std::span<const double> values, bool last);
    double oddNumber(std::string_view field);
    void numbers(Lexer& row, std::span<double> values);
    void afterRow(Lexer& row, std::size_t rowBegin) const;
    VertexRecord& recordOf(Geoset& geoset, std::size_t row, const Section& section,
                           std::size_t offset) const;

    void readVertices(const Section& section, Geoset& geoset);
    void readRows(const Section& section, Geoset& geoset);
    void readVertexGroup(Lexer& row, VertexRecord& record) const;
    void readFaces(const Section& section, Geoset& geoset) const;
    void readTriangles(const Section& section, Lexer& lexer, Geoset& geoset,
                       std::size_t& face) const;
    void readIndexList(Lexer& lexer, std::size_t vertexCount, std::size_t& face,
                       std::vector<FaceRecord>& faces) const;
    void readGroups(const Section& section, Geoset& geoset) const;
    void readMatrices(Lexer& lexer, MatrixGroup& group) const;
    void readRowSections(const std::vector<Section>& parts, Geoset& geoset) const;

    const ModelText& text_;
    ReadNotes& notes_;
    bool mayBeNotFinite_ = false;  // in the section that is being read
};

std::int16_t GeosetReader::int16(std::string_view field, const char* what) const {
    const std::optional<std::int64_t> value = parseInteger(field);
    if (!value) fail(field, quoted(field) + " is not a whole number.");
    if (*value < std::numeric_limits<std::int16_t>::min() ||
        *value > std::numeric_limits<std::int16_t>::max()) {
        fail(field,
             std::string(what) + " " + std::to_string(*value) + " is outside -32768 to 32767.");
    }
    return static_cast<std::int16_t>(*value);
}

// The count in a header after `words` words.
std::int64_t GeosetReader::headerCount(const Section& section, int words) const {
    Lexer header(section.header, 0, section.header.size());
    for (int i = 0; i < words; ++i) header.next();
    const std::optional<std::int64_t> value = parseInteger(header.next().text);
    if (!value || *value < 0) {
        fail(section.header,
             "the header " + quotedLine(section.bodyBegin - 1) + " holds no count.");
    }
    return *value;
}

// Reads one number of a row and leaves the lexer at the comma or brace that follows it.
double GeosetReader::number(Lexer& row, std::size_t rowBegin, std::span<const double> values,
                            bool last) {
    const char* const fieldBegin = row.at();
    row.skipBlanks();
    const char* const numberBegin = row.at();
    double value = 0;
    const auto [stop, error] = std::from_chars(numberBegin, row.end(), value);
    if (error == std::errc{} && std::isfinite(value)) {
        row.moveTo(stop);
        row.skipBlanks();
        if (isNumberEnd(row, last)) return value;
    }
    // Not a plain number, but perhaps a number all the same.
    Lexer probe = row;
    probe.moveTo(numberBegin);
    const Token word = probe.next();
    probe.skipBlanks();
    if (word.isWord() && isNumberEnd(probe, last)) {
        row.moveTo(probe.at());
        return oddNumber(word.text);
    }
    // Anything else is shown whole.
    const char* const fieldEnd = std::find(fieldBegin, row.end(), last ? '}' : ',');
    if (fieldEnd == row.end()) {
        failAt(rowBegin, quotedLine(rowBegin) + " does not hold " + std::to_string(values.size()) +
                             " numbers in braces.");
    }
    std::string_view field =
        withoutBlanks({fieldBegin, static_cast<std::size_t>(fieldEnd - fieldBegin)});
    if (last && field.ends_with(',')) field = withoutBlanks(field.substr(0, field.size() - 1));
    row.moveTo(fieldEnd);
    return oddNumber(field);
}

// The value of what is no plain number.
double GeosetReader::oddNumber(std::string_view field) {
    if (const std::optional<double> parsed = parseNumber(field)) return *parsed;
    if (mayBeNotFinite_ && isNotFinite(field)) {
        if (notes_.notFinite++ == 0) {
            notes_.firstNotFinite = static_cast<std::size_t>(field.data() - text_.view().data());
        }
        return 0;
    }
    fail(field, quoted(field) + " is not a number.");
}

// Reads a row such as "{ 1, 2, 3 }," whose brace the lexer is at, and the comma after it.
void GeosetReader::numbers(Lexer& row, std::span<double> values) {
    const std::size_t rowBegin = row.offset();
    if (!row.skip('{')) {
        failAt(rowBegin, quotedLine(rowBegin) + " is not a row of " +
                             std::to_string(values.size()) + " numbers in braces.");
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = number(row, rowBegin, values, i + 1 == values.size());
        row.skip(',');
        row.skipBlanks();
    }
    if (!row.skip('}')) {
        failAt(rowBegin, quotedLine(rowBegin) + " does not hold " + std::to_string(values.size()) +
                             " numbers in braces.");
    }
    afterRow(row, rowBegin);
}

// Passes the comma after a row. Only another row may follow.
void GeosetReader::afterRow(Lexer& row, std::size_t rowBegin) const {
    if (!row.skipBlanks()) return;
    row.skip(',');
    if (row.skipBlanks() && row.peek() != '{' && row.offset() < lineEndOf(text_.view(), rowBegin)) {
        failAt(row.offset(), quotedLine(row.offset()) + " holds more than a row.");
    }
}

VertexRecord& GeosetReader::recordOf(Geoset& geoset, std::size_t row, const Section& section,
                                     std::size_t offset) const {
    if (row >= geoset.Vertices.size()) {
        failAt(offset, "the section " + std::string(keywordOf(section.kind)) +
                           " has more rows than the geoset has vertices (" +
                           std::to_string(geoset.Vertices.size()) + ").");
    }
    return geoset.Vertices[row];
}

void GeosetReader::readVertices(const Section& section, Geoset& geoset) {
    const std::int64_t vertices = headerCount(section, 1);  // after the keyword
    if (vertices > kMaxVertices) {
        fail(section.header, "the geoset has " + std::to_string(vertices) + " vertices; at most " +
                                 std::to_string(kMaxVertices) + " can be edited.");
    }
    geoset.Vertices.resize(static_cast<std::size_t>(vertices));
    readRows(section, geoset);
}

// Reads a vertex group and its comma; the last one of a section may go without.
void GeosetReader::readVertexGroup(Lexer& row, VertexRecord& record) const {
    const std::size_t rowBegin = row.offset();
    const char* const from = row.at();
    while (!row.atEnd() && row.peek() != ',' && row.peek() != '\n' && row.peek() != '{') {
        row.moveTo(row.at() + 1);
    }
    std::string_view field(from, static_cast<std::size_t>(row.at() - from));
    if (const std::size_t comment = field.find("//"); comment != std::string_view::npos) {
        field = field.substr(0, comment);
        row.moveTo(from + comment);
    }
    field = withoutBlanks(field);
    const bool last = !row.skipBlanks();
    if (!last && !row.skip(',')) {
        failAt(rowBegin, quotedLine(rowBegin) + " is not a vertex group and a comma.");
    }
    record.group = int16(field, "vertex group");
}

// Row i of each of these sections goes into record i.
void GeosetReader::readRows(const Section& section, Geoset& geoset) {
    mayBeNotFinite_ = section.kind != SectionKind::Vertices;
    Lexer lexer = bodyOf(section);
    for (std::size_t row = 0; lexer.skipBlanks(); ++row) {
        VertexRecord& record = recordOf(geoset, row, section, lexer.offset());
        Triple values{};
        if (section.kind == SectionKind::VertexGroup) {
            readVertexGroup(lexer, record);
        } else if (section.kind == SectionKind::TVertices) {
            numbers(lexer, std::span(values).first(2));
            record.tu = values[0];
            record.tv = values[1];
        } else {
            numbers(lexer, values);
            Triple& target = section.kind == SectionKind::Vertices ? record.pos : record.normal;
            for (std::size_t i = 0; i < values.size(); ++i) target[kFileSlotOrder[i]] = values[i];
        }
    }
}

// Takes the corners of one list such as "{ 0, 1, 2, 0, 2, 3 }," whose brace the lexer is at. It may
// be wrapped over several lines at any place between its numbers.
void GeosetReader::readIndexList(Lexer& lexer, std::size_t vertexCount, std::size_t& face,
                                 std::vector<FaceRecord>& faces) const {
    const std::size_t listBegin = lexer.offset();
    if (!lexer.skip('{')) {
        failAt(listBegin, quotedLine(listBegin) + " is not a list of vertex indices in braces.");
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
            failAt(fieldBegin, quoted(wrong) + " is not a vertex index.");
        }
        if (corner < 0 || static_cast<std::size_t>(corner) >= vertexCount) {
            failAt(fieldBegin, "a face uses vertex index " + std::to_string(corner) +
                                   ", but the geoset has " + std::to_string(vertexCount) +
                                   " vertices (indices start at 0).");
        }
        if (face == faces.size()) {
            failAt(fieldBegin, "the section Faces holds more triangles than its header says (" +
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
        failAt(listBegin, quotedLine(listBegin) + " is not a list of vertex indices in braces.");
    }
    if (slot != 0) {
        failAt(listBegin,
               "the number of vertex indices in the list that starts in this line is "
               "not a multiple of three.");
    }
    lexer.skipPast(',');
}

// Reads a group such as "Triangles { ... }" whose keyword the lexer is at.
void GeosetReader::readTriangles(const Section& section, Lexer& lexer, Geoset& geoset,
                                 std::size_t& face) const {
    const std::size_t begin = lexer.offset();
    if (lexer.next().text != "Triangles" || !lexer.skipPast('{')) {
        if (face == 0) {
            fail(section.header, "no \"Triangles {\" follows; only triangles can be edited.");
        }
        failAt(begin, quotedLine(begin) +
                          " is not a group of triangles, and only triangles can "
                          "be edited.");
    }
    while (lexer.skipBlanks() && lexer.peek() != '}') {
        readIndexList(lexer, geoset.Vertices.size(), face, geoset.Faces);
    }
    if (!lexer.skip('}')) fail(section.header, "the list of triangles does not end.");
    lexer.skipPast(',');
}

void GeosetReader::readFaces(const Section& section, Geoset& geoset) const {
    // "Faces 1 36 {": the number of triangle groups, which are counted as they come, and that of
    // indices.
    const std::int64_t indices = headerCount(section, 2);
    const std::int64_t faces = indices / 3 + (indices % 3 == 2 ? 1 : 0);  // to the nearest
    if (faces > kMaxFaces) {
        fail(section.header, "the geoset has " + std::to_string(faces) + " faces; at most " +
                                 std::to_string(kMaxFaces) + " can be edited.");
    }
    geoset.Faces.resize(static_cast<std::size_t>(faces));
    if (faces > 0 && geoset.Vertices.empty()) {
        fail(section.header, "the geoset has faces but no vertices.");
    }

    Lexer lexer = bodyOf(section);
    if (!lexer.skipBlanks()) {
        if (faces == 0) return;
        fail(section.header, "no \"Triangles {\" follows; only triangles can be edited.");
    }
    std::size_t face = 0;
    do {
        readTriangles(section, lexer, geoset, face);
    } while (lexer.skipBlanks());
}

// Reads the indices of a group whose opening brace the lexer has just passed.
void GeosetReader::readMatrices(Lexer& lexer, MatrixGroup& group) const {
    group.fill(kNoMatrix);
    const std::size_t begin = lexer.offset();
    for (std::size_t row = 0; lexer.skipBlanks() && lexer.peek() != '}'; ++row) {
        if (row == kMatricesPerGroup) {
            failAt(begin, "the matrix group has more than " + std::to_string(kMatricesPerGroup) +
                              " matrix indices.");
        }
        const char* const from = lexer.at();
        const char* const to = std::find_if(from, lexer.end(), [](char ch) {
            return ch == ',' || ch == '}' || ch == '{' || ch == '\n' || ch == '/';
        });
        group[row] =
            int16(withoutBlanks({from, static_cast<std::size_t>(to - from)}), "matrix index");
        lexer.moveTo(to);
        if (!lexer.skipBlanks() || (lexer.peek() != ',' && lexer.peek() != '}')) {
            failAt(begin, quotedLine(begin) + " is not a matrix group.");
        }
        lexer.skip(',');
    }
    if (!lexer.skip('}')) failAt(begin, quotedLine(begin) + " is not a matrix group.");
}

void GeosetReader::readGroups(const Section& section, Geoset& geoset) const {
    Lexer lexer = bodyOf(section);
    while (lexer.skipBlanks()) {
        const std::size_t begin = lexer.offset();
        if (lexer.next().text != "Matrices" || !lexer.skipPast('{')) {
            failAt(begin, quotedLine(begin) + " is not a matrix group.");
        }
        readMatrices(lexer, geoset.matrixGroups.emplace_back());
        lexer.skipPast(',');
    }
}

void GeosetReader::readRowSections(const std::vector<Section>& parts, Geoset& geoset) const {
    for (const Section& part : parts) {
        if (part.kind != SectionKind::Rows) continue;
        const std::string_view keyword = keywordIn(part);
        const auto ordinal = std::ranges::count(geoset.rowSections, keyword, &RowSection::keyword);
        geoset.rowSections.push_back(
            readRowSection(text_, part, static_cast<int>(ordinal), geoset.Vertices.size()));
    }
    if (geoset.rowSections.empty()) return;
    for (std::size_t i = 0; i < geoset.Vertices.size(); ++i) {
        geoset.Vertices[i].fileRow = static_cast<std::int16_t>(i);
    }
}

Geoset GeosetReader::read(const GeosetBlock& block) {
    const std::vector<Section> parts = scanParts(text_, block);
    Geoset geoset;
    const auto vertices = std::ranges::find(parts, SectionKind::Vertices, &Section::kind);
    if (vertices == parts.end()) {
        // Nothing of it could be shown, and saving nothing would remove the geoset.
        failAt(block.begin, "the geoset that starts here has no section \"Vertices\".");
    }
    readVertices(*vertices, geoset);
    for (const Section& section : parts) {
        if (section.kind != SectionKind::Rows) {
            geoset.sectionsRead.emplace_back(keywordOf(section.kind));
        }
        switch (section.kind) {
            case SectionKind::Vertices:
            case SectionKind::Rows:
                break;  // the vertices are there already; they size the lists
            case SectionKind::Normals:
            case SectionKind::TVertices:
            case SectionKind::VertexGroup:
                readRows(section, geoset);
                break;
            case SectionKind::Faces:
                readFaces(section, geoset);
                break;
            case SectionKind::Groups:
                readGroups(section, geoset);
                break;
        }
    }
    readRowSections(parts, geoset);
    return geoset;
}

}  // namespace

Geoset parseGeoset(const ModelText& text, const std::vector<GeosetBlock>& geosets, int geosetNumber,
                   ReadNotes* notes) {
    if (geosetNumber < 1 || static_cast<std::size_t>(geosetNumber) > geosets.size()) return {};
    ReadNotes ignored;
    return GeosetReader(text, notes != nullptr ? *notes : ignored)
        .read(geosets[static_cast<std::size_t>(geosetNumber) - 1]);
}

}  // namespace corvane
