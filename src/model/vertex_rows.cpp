#include "model/vertex_rows.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <span>
#include <string>

#include "base/numbers.h"
#include "model/read_notes.h"
#include "model/section_text.h"

namespace corvane {

namespace {

// The ways in which programs have written numbers that are not finite, without sign.
constexpr std::array<std::string_view, 9> kNotFinite = {
    "nan", "inf", "infinity", "1.#IND", "1.#J", "1.#INF", "1.#QNAN", "1.#SNAN", "nan(ind)"};

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

// Reads the rows of one section.
class RowReader {
public:
    // There may be `mostRows` rows.
    RowReader(const SectionText& section, std::size_t mostRows, ReadNotes& notes)
        : section_(section), mostRows_(mostRows), notes_(notes) {}

    // The number of rows.
    std::size_t read(Geoset& geoset);

private:
    double number(Lexer& row, std::size_t rowBegin, std::span<const double> values, bool last);
    double oddNumber(std::string_view field);
    void numbers(Lexer& row, std::span<double> values);
    void afterRow(Lexer& row, std::size_t rowBegin) const;
    VertexRecord& recordOf(Geoset& geoset, std::size_t row, std::size_t offset);
    void readVertexGroup(Lexer& row, VertexRecord& record) const;

    SectionText section_;
    std::size_t mostRows_;
    ReadNotes& notes_;
    VertexRecord beyond_;  // takes the rows that are too many to be edited, and only counted
};

// Reads one number of a row and leaves the lexer at the comma or brace that follows it.
double RowReader::number(Lexer& row, std::size_t rowBegin, std::span<const double> values,
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
        section_.failAt(rowBegin, section_.quotedLine(rowBegin) + " does not hold " +
                                      std::to_string(values.size()) + " numbers in braces.");
    }
    std::string_view field =
        withoutBlanks({fieldBegin, static_cast<std::size_t>(fieldEnd - fieldBegin)});
    if (last && field.ends_with(',')) field = withoutBlanks(field.substr(0, field.size() - 1));
    row.moveTo(fieldEnd);
    return oddNumber(field);
}

// The value of what is no plain number.
double RowReader::oddNumber(std::string_view field) {
    if (const std::optional<double> parsed = parseNumber(field)) return *parsed;
    if (section_.kind() != SectionKind::Vertices && isNotFinite(field)) {
        if (notes_.notFinite++ == 0) notes_.firstNotFinite = section_.offsetOf(field);
        return 0;
    }
    section_.fail(field, quoted(field) + " is not a number.");
}

// Reads a row such as "{ 1, 2, 3 }," whose brace the lexer is at, and the comma after it.
void RowReader::numbers(Lexer& row, std::span<double> values) {
    const std::size_t rowBegin = row.offset();
    if (!row.skip('{')) {
        section_.failAt(rowBegin, section_.quotedLine(rowBegin) + " is not a row of " +
                                      std::to_string(values.size()) + " numbers in braces.");
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = number(row, rowBegin, values, i + 1 == values.size());
        row.skip(',');
        row.skipBlanks();
    }
    if (!row.skip('}')) {
        section_.failAt(rowBegin, section_.quotedLine(rowBegin) + " does not hold " +
                                      std::to_string(values.size()) + " numbers in braces.");
    }
    afterRow(row, rowBegin);
}

// Passes the comma after a row. Only another row may follow.
void RowReader::afterRow(Lexer& row, std::size_t rowBegin) const {
    if (!row.skipBlanks()) return;
    row.skip(',');
    if (row.skipBlanks() && row.peek() != '{' && row.offset() < section_.lineEnd(rowBegin)) {
        section_.failAt(row.offset(),
                        section_.quotedLine(row.offset()) + " holds more than a row.");
    }
}

// The record of a row. The rows of Vertices make the records.
VertexRecord& RowReader::recordOf(Geoset& geoset, std::size_t row, std::size_t offset) {
    if (row >= mostRows_) {
        section_.failAt(offset, "the section " + std::string(keywordOf(section_.kind())) +
                                    " has more rows than the geoset has vertices (" +
                                    std::to_string(mostRows_) + ").");
    }
    if (section_.kind() == SectionKind::Vertices) {
        return row < kMaxVertices ? geoset.Vertices.emplace_back() : beyond_;
    }
    return geoset.Vertices[row];
}

// Reads a vertex group and its comma; the last one of a section may go without.
void RowReader::readVertexGroup(Lexer& row, VertexRecord& record) const {
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
        section_.failAt(rowBegin,
                        section_.quotedLine(rowBegin) + " is not a vertex group and a comma.");
    }
    record.group = section_.int16(field, "vertex group");
}

// Row i of each of these sections goes into record i.
std::size_t RowReader::read(Geoset& geoset) {
    Lexer lexer = section_.body();
    std::size_t row = 0;
    for (; lexer.skipBlanks(); ++row) {
        VertexRecord& record = recordOf(geoset, row, lexer.offset());
        Triple values{};
        if (section_.kind() == SectionKind::VertexGroup) {
            readVertexGroup(lexer, record);
        } else if (section_.kind() == SectionKind::TVertices) {
            numbers(lexer, std::span(values).first(2));
            record.tu = values[0];
            record.tv = values[1];
        } else {
            numbers(lexer, values);
            Triple& target = section_.kind() == SectionKind::Vertices ? record.pos : record.normal;
            for (std::size_t i = 0; i < values.size(); ++i) target[kFileSlotOrder[i]] = values[i];
        }
    }
    return row;
}

}  // namespace

void readVertices(const ModelText& text, const Section& section, Geoset& geoset, ReadNotes& notes) {
    const SectionText source(text, section);
    const std::int64_t counted = source.headerCount(1);  // after the keyword
    geoset.Vertices.reserve(
        static_cast<std::size_t>(std::min<std::int64_t>(counted, kMaxVertices)));
    const std::size_t rows =
        RowReader(source, static_cast<std::size_t>(counted), notes).read(geoset);
    if (rows > kMaxVertices) source.failTooLarge(rows, "vertices", kMaxVertices);
    noteIfShort(notes, {.keyword = std::string(keywordOf(section.kind)),
                        .offset = section.begin,
                        .rows = rows,
                        .counted = counted,
                        .vertices = {}});
}

void readVertexRows(const ModelText& text, const Section& section, Geoset& geoset,
                    ReadNotes& notes) {
    const SectionText source(text, section);
    const std::size_t rows = RowReader(source, geoset.Vertices.size(), notes).read(geoset);
    noteIfShort(notes, {.keyword = std::string(keywordOf(section.kind)),
                        .offset = section.begin,
                        .rows = rows,
                        .counted = source.countInHeader(1),
                        .vertices = geoset.Vertices.size()});
}

}  // namespace corvane
