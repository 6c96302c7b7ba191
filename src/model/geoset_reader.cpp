#include "model/geoset_reader.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <span>
#include <string>

#include "model/numbers.h"

namespace corvane {

namespace {

std::string quoted(std::string_view text) {
    constexpr std::size_t kLongest = 60;  // bytes of a line that a message shows
    if (text.size() <= kLongest) return "\"" + std::string(text) + "\"";
    return "\"" + std::string(text.substr(0, kLongest)) + "...\"";
}

// Reads one geoset's sections into a Geoset. Holds what every step needs for its messages.
class GeosetReader {
public:
    explicit GeosetReader(const ModelText& text) : text_(text) {}

    Geoset read(const GeosetBlock& block);

private:
    [[noreturn]] void fail(std::string_view where, const std::string& reason) const {
        // `where` is always a piece of the text.
        const auto offset = static_cast<std::size_t>(where.data() - text_.view().data());
        throw ModelTextError(text_, offset, reason);
    }

    LineCursor bodyOf(const Section& section) const {
        return LineCursor(text_.view().substr(0, section.bodyEnd), section.bodyBegin);
    }

    // What stands after a row's closing brace is not read, so it must not be another row.
    void refuseMoreThanOneRow(std::string_view row, std::string_view afterBrace) const {
        if (afterBrace.find('{') != std::string_view::npos) {
            fail(row, quoted(row) + " holds more than one row.");
        }
    }

    std::int64_t headerCount(const Section& section, std::string_view count) const;
    double number(std::string_view field) const;
    std::int16_t int16(std::string_view field, const char* what) const;
    void numbers(std::string_view row, std::span<double> values) const;
    VertexRecord& recordOf(Geoset& geoset, std::size_t row, const Section& section,
                           const Line& line) const;

    void readVertices(const Section& section, Geoset& geoset) const;
    void readRows(const Section& section, Geoset& geoset) const;
    void readFaces(const Section& section, Geoset& geoset) const;
    void readIndexLine(std::string_view line, std::size_t vertexCount, std::size_t& face,
                       std::vector<FaceRecord>& faces) const;
    void readGroups(const Section& section, Geoset& geoset) const;

    const ModelText& text_;
};

double GeosetReader::number(std::string_view field) const {
    const std::optional<double> value = parseNumber(field);
    if (!value) fail(field, quoted(field) + " is not a number.");
    return *value;
}

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

// The count in a header: `count` is what stands before its brace.
std::int64_t GeosetReader::headerCount(const Section& section, std::string_view count) const {
    const std::optional<std::int64_t> value = parseInteger(count);
    if (!value || *value < 0) {
        fail(section.header, "the header " + quoted(section.header) + " holds no count.");
    }
    return *value;
}

// Splits a row such as "\t\t{ 1, 2, 3 }," into its numbers.
void GeosetReader::numbers(std::string_view row, std::span<double> values) const {
    constexpr std::string_view kRowStart = "\t\t{";
    if (!startsWith(row, kRowStart)) {
        fail(row, quoted(row) + " is not a row of " + std::to_string(values.size()) +
                      " numbers in braces.");
    }
    std::string_view rest = row.substr(kRowStart.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        const bool last = i + 1 == values.size();
        const std::size_t stop = rest.find(last ? '}' : ',');
        if (stop == std::string_view::npos) {
            fail(row, quoted(row) + " does not hold " + std::to_string(values.size()) +
                          " numbers in braces.");
        }
        values[i] = number(rest.substr(0, stop));
        rest.remove_prefix(stop + 1);
    }
    refuseMoreThanOneRow(row, rest);
}

VertexRecord& GeosetReader::recordOf(Geoset& geoset, std::size_t row, const Section& section,
                                     const Line& line) const {
    if (row >= geoset.Vertices.size()) {
        fail(line.text, "the section " + std::string(keywordOf(section.kind)) +
                            " has more rows than the geoset has vertices (" +
                            std::to_string(geoset.Vertices.size()) + ").");
    }
    return geoset.Vertices[row];
}

void GeosetReader::readVertices(const Section& section, Geoset& geoset) const {
    std::string_view count = section.header.substr(std::string_view("\tVertices").size());
    count = count.substr(0, count.find('{'));
    const std::int64_t vertices = headerCount(section, count);
    if (vertices > kMaxVertices) {
        fail(section.header, "the geoset has " + std::to_string(vertices) + " vertices; at most " +
                                 std::to_string(kMaxVertices) + " can be edited.");
    }
    geoset.Vertices.resize(static_cast<std::size_t>(vertices));
    readRows(section, geoset);
}

// Row i of each of these sections goes into record i.
void GeosetReader::readRows(const Section& section, Geoset& geoset) const {
    LineCursor cursor = bodyOf(section);
    Line line;
    for (std::size_t row = 0; cursor.next(line); ++row) {
        VertexRecord& record = recordOf(geoset, row, section, line);
        Triple values{};
        if (section.kind == SectionKind::VertexGroup) {
            constexpr std::string_view kIndent = "\t\t";
            if (!startsWith(line.text, kIndent) || !line.text.ends_with(',')) {
                fail(line.text, quoted(line.text) + " is not a vertex group and a comma.");
            }
            record.group = int16(line.text.substr(2, line.text.size() - 3), "vertex group");
        } else if (section.kind == SectionKind::TVertices) {
            numbers(line.text, std::span(values).first(2));
            record.tu = values[0];
            record.tv = values[1];
        } else {
            numbers(line.text, values);
            Triple& target = section.kind == SectionKind::Vertices ? record.pos : record.normal;
            for (std::size_t i = 0; i < values.size(); ++i) target[kFileSlotOrder[i]] = values[i];
        }
    }
}

// Takes the corners of one line such as "\t\t\t{ 0, 1, 2, 0, 2, 3 },".
void GeosetReader::readIndexLine(std::string_view line, std::size_t vertexCount, std::size_t& face,
                                 std::vector<FaceRecord>& faces) const {
    constexpr std::string_view kLineStart = "\t\t\t{";
    const std::size_t close = line.rfind('}');
    if (!startsWith(line, kLineStart) || close == std::string_view::npos) {
        fail(line, quoted(line) + " is not a list of vertex indices in braces.");
    }
    const char* at = line.data() + kLineStart.size();
    const char* const end = line.data() + close;
    const auto skipBlanks = [&] {
        while (at != end && (*at == ' ' || *at == '\t')) ++at;
    };
    skipBlanks();
    std::size_t slot = 0;
    while (at != end) {
        int corner = 0;
        const auto [stop, error] = std::from_chars(at, end, corner);
        const bool isNumber = error == std::errc{};
        const char* const field = at;
        if (isNumber) at = stop;
        skipBlanks();
        if (!isNumber || (at != end && *at != ',')) {
            const char* const comma = std::find(field, end, ',');
            const std::string_view wrong(field, static_cast<std::size_t>(comma - field));
            fail(wrong, quoted(wrong) + " is not a vertex index.");
        }
        if (corner < 0 || static_cast<std::size_t>(corner) >= vertexCount) {
            fail(line, "a face uses vertex index " + std::to_string(corner) +
                           ", but the geoset has " + std::to_string(vertexCount) +
                           " vertices (indices start at 0).");
        }
        if (face == faces.size()) {
            fail(line, "the section Faces holds more triangles than its header says (" +
                           std::to_string(faces.size()) + ").");
        }
        faces[face].corner[slot] = static_cast<std::int16_t>(corner);
        if (++slot == 3) {
            slot = 0;
            ++face;
        }
        if (at != end) ++at;  // the comma
        skipBlanks();
    }
    if (slot != 0) {
        fail(line, "the number of vertex indices in this line is not a multiple of three.");
    }
}

void GeosetReader::readFaces(const Section& section, Geoset& geoset) const {
    // "\tFaces 1 36 {": the number of triangle groups, then the number of indices.
    std::string_view counts = section.header.substr(std::string_view("\tFaces").size());
    counts = counts.substr(0, counts.find('{'));
    while (startsWith(counts, " ")) counts.remove_prefix(1);
    const std::size_t blank = counts.find(' ');
    if (blank == std::string_view::npos) headerCount(section, "");
    const std::int64_t indices = headerCount(section, counts.substr(blank));
    const std::int64_t faces = indices / 3 + (indices % 3 == 2 ? 1 : 0);  // to the nearest
    if (faces > kMaxFaces) {
        fail(section.header, "the geoset has " + std::to_string(faces) + " faces; at most " +
                                 std::to_string(kMaxFaces) + " can be edited.");
    }
    geoset.Faces.resize(static_cast<std::size_t>(faces));
    if (faces > 0 && geoset.Vertices.empty()) {
        fail(section.header, "the geoset has faces but no vertices.");
    }

    LineCursor cursor = bodyOf(section);
    Line line;
    if (!cursor.next(line) || !startsWith(line.text, "\t\tTriangles")) {
        fail(section.header, "no line \"Triangles {\" follows; only triangles can be edited.");
    }
    std::size_t face = 0;
    while (true) {
        if (!cursor.next(line)) fail(section.header, "the list of triangles does not end.");
        if (line.text == "\t\t}") break;
        readIndexLine(line.text, geoset.Vertices.size(), face, geoset.Faces);
    }
    if (cursor.next(line)) {
        fail(line.text, "more than one group of triangles; only one can be edited.");
    }
}

void GeosetReader::readGroups(const Section& section, Geoset& geoset) const {
    constexpr std::string_view kGroupStart = "\t\tMatrices {";
    LineCursor cursor = bodyOf(section);
    Line line;
    while (cursor.next(line)) {
        const std::size_t close = line.text.find('}');
        if (!startsWith(line.text, kGroupStart) || close == std::string_view::npos) {
            fail(line.text, quoted(line.text) + " is not a matrix group.");
        }
        std::string_view rest = line.text.substr(kGroupStart.size(), close - kGroupStart.size());
        MatrixGroup group;
        group.fill(kNoMatrix);
        for (std::size_t row = 0;; ++row) {
            if (row == kMatricesPerGroup) {
                fail(line.text, "the matrix group has more than " +
                                    std::to_string(kMatricesPerGroup) + " matrix indices.");
            }
            const std::size_t comma = rest.find(',');
            group[row] = int16(rest.substr(0, comma), "matrix index");
            if (comma == std::string_view::npos) break;
            rest.remove_prefix(comma + 1);
        }
        refuseMoreThanOneRow(line.text, line.text.substr(close));
        geoset.matrixGroups.push_back(group);
    }
}

Geoset GeosetReader::read(const GeosetBlock& block) {
    const std::vector<Section> sections = scanSections(text_, block);
    Geoset geoset;
    const auto vertices = std::ranges::find(sections, SectionKind::Vertices, &Section::kind);
    if (vertices == sections.end()) {
        // Nothing of it could be shown, and saving nothing would remove the geoset.
        fail(text_.view().substr(block.begin),
             "the geoset that starts here has no section \"Vertices\" that can be read (its "
             "header is expected after one tab).");
    }
    readVertices(*vertices, geoset);
    for (const Section& section : sections) {
        switch (section.kind) {
            case SectionKind::Vertices:
                break;  // they are there already; they size the lists
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
    return geoset;
}

}  // namespace

Geoset parseGeoset(const ModelText& text, const std::vector<GeosetBlock>& geosets,
                   int geosetNumber) {
    if (geosetNumber < 1 || static_cast<std::size_t>(geosetNumber) > geosets.size()) return {};
    return GeosetReader(text).read(geosets[static_cast<std::size_t>(geosetNumber) - 1]);
}

}  // namespace corvane
