#include "model/row_sections.h"

#include <algorithm>
#include <optional>

#include "base/numbers.h"
#include "model/lexer.h"
#include "model/model_scanner.h"
#include "model/model_text.h"

namespace corvane {

namespace {

constexpr std::string_view kTangents = "Tangents";
constexpr std::size_t kSkinColumns = 8;     // four bones, then their four weights
constexpr std::size_t kTangentColumns = 4;  // a direction and the side of the binormal
constexpr std::size_t kTextureColumns = 2;

std::size_t columnsOf(const RowSection& section) {
    if (section.keyword == kSkinWeights) return kSkinColumns;
    if (section.keyword == kTangents) return kTangentColumns;
    return kTextureColumns;
}

// Reads the rows of a section's text into it.
class RowReader {
public:
    RowReader(RowSection& section, std::size_t bodyEnd)
        : section_(section), lexer_(section.text, section.rowsBegin, bodyEnd), bodyEnd_(bodyEnd) {}

    // The offset of what is wrong, and the reason in `reason_`; nothing where all is well.
    std::optional<std::size_t> read();
    const std::string& reason() const { return reason_; }

private:
    std::optional<std::size_t> readBraced();
    std::optional<std::size_t> readNumbers();
    void addRow(std::size_t dataBegin, std::size_t dataEnd);

    RowSection& section_;
    Lexer lexer_;
    std::size_t bodyEnd_;
    std::string reason_;
};

// Adds a row whose data the lexer has just passed; takes the comma after it, and the rest of the
// line where that is blank.
void RowReader::addRow(std::size_t dataBegin, std::size_t dataEnd) {
    SectionRow row;
    row.begin = static_cast<std::uint32_t>(section_.rows.empty() ? section_.rowsBegin
                                                                 : section_.rows.back().end);
    const std::string_view before = std::string_view(section_.text).substr(row.begin);
    row.ownBegin =
        row.begin + static_cast<std::uint32_t>(lineBeginOf(before, dataBegin - row.begin));
    row.dataBegin = static_cast<std::uint32_t>(dataBegin);
    row.dataEnd = static_cast<std::uint32_t>(dataEnd);
    Lexer after = lexer_;
    if (after.skipPast(',')) {
        row.hasComma = true;
        lexer_ = after;
    } else {
        lexer_.moveTo(section_.text.data() + dataEnd);
    }
    std::size_t end = lexer_.offset();
    if (isRestOfLineBlank(section_.text, end)) {
        end = std::min(lineEndOf(section_.text, end), bodyEnd_);
        lexer_.moveTo(section_.text.data() + end);
    }
    row.end = static_cast<std::uint32_t>(end);
    section_.rows.push_back(row);
}

std::optional<std::size_t> RowReader::readBraced() {
    while (lexer_.skipBlanks()) {
        const std::size_t begin = lexer_.offset();
        // The section ends behind every brace in it, so that only a row without one has no end.
        const auto brace = lexer_.skip('{') ? findBlockEnd(section_.text, begin + 1, bodyEnd_)
                                            : std::optional<std::size_t>();
        if (!brace) {
            reason_ = "a row in braces was expected here.";
            return begin;
        }
        lexer_.moveTo(section_.text.data() + *brace + 1);
        addRow(begin, *brace + 1);
    }
    return std::nullopt;
}

std::optional<std::size_t> RowReader::readNumbers() {
    const std::size_t columns = columnsOf(section_);
    std::optional<std::size_t> uneven;  // the first row that ends within a line after its first
    while (lexer_.skipBlanks()) {
        const std::size_t begin = lexer_.offset();
        std::size_t end = begin;
        for (std::size_t column = 0; column < columns; ++column) {
            const bool separated = column == 0 || lexer_.skipPast(',');
            const Token number = separated ? lexer_.next() : Token();
            if (!parseNumber(number.text)) {
                reason_ = "the row that starts here does not hold " + std::to_string(columns) +
                          " numbers.";
                return begin;
            }
            end = number.end();
        }
        addRow(begin, end);
        const std::string_view data = std::string_view(section_.text).substr(begin, end - begin);
        const bool wrapped = data.find('\n') != std::string_view::npos;
        if (wrapped && !uneven && lexer_.offset() < bodyEnd_ &&
            section_.text[lexer_.offset() - 1] != '\n') {
            uneven = begin;
        }
    }
    // Wrapped anywhere, the rows are certain only where there are as many as vertices.
    if (uneven && section_.rows.size() != section_.vertexCount) {
        reason_ = "the row that starts here does not end with a line.";
        return uneven;
    }
    return std::nullopt;
}

std::optional<std::size_t> RowReader::read() {
    const Token first = Lexer(lexer_).next();
    return first.kind == Token::Kind::Open ? readBraced() : readNumbers();
}

// What a vertex gets that no row belongs to: a direction of length 1, the first bone, no place on
// the texture.
std::string neutralData(const RowSection& section) {
    std::size_t columns = columnsOf(section);
    bool braced = section.keyword != kSkinWeights;
    if (!section.rows.empty()) {
        const SectionRow& row = section.rows.front();
        const std::string_view data =
            std::string_view(section.text).substr(row.dataBegin, row.dataEnd - row.dataBegin);
        braced = data.starts_with('{');
        columns = 0;
        Lexer lexer(data, 0, data.size());
        for (Token token = lexer.next(); token.kind != Token::Kind::End; token = lexer.next()) {
            if (token.isWord()) ++columns;
        }
    }
    std::string text;
    for (std::size_t column = 0; column < columns; ++column) {
        std::string_view value = "0";
        if (section.keyword == kSkinWeights && column == columns / 2) value = "255";
        if (section.keyword == kTangents && (column == 0 || column + 1 == columns)) value = "1";
        if (column > 0) text += ", ";
        text += value;
    }
    return braced ? "{ " + text + " }" : text;
}

// The neutral row as the section's first row is laid out, but always with a comma.
std::string neutralRow(const RowSection& section) {
    const std::string data = neutralData(section);
    if (section.rows.empty()) return "\t\t" + data + "," + section.lineBreak;
    const SectionRow& row = section.rows.front();
    const std::string_view text = section.text;
    const std::size_t indent = text.substr(0, row.dataBegin).find_last_not_of(" \t") + 1;
    const std::size_t begin = std::max<std::size_t>(indent, row.begin);
    std::string result(text.substr(begin, row.dataBegin - begin));
    result += data;
    result += ',';
    if (text.substr(row.begin, row.end - row.begin).ends_with('\n')) result += section.lineBreak;
    return result;
}

bool isUnchanged(const RowSection& section, const std::vector<std::int16_t>& fileRows) {
    if (fileRows.size() != section.vertexCount) return false;
    for (std::size_t i = 0; i < fileRows.size(); ++i) {
        if (fileRows[i] != static_cast<std::int16_t>(i)) return false;
    }
    return true;
}

// Puts the section together. With `dataOfAll` every row holds that.
std::string compose(const RowSection& section, const std::vector<std::int16_t>& fileRows,
                    std::size_t& neutralRows, const std::string* dataOfAll) {
    if (!section.problem.empty()) throw RowsCannotFollow(section.problem);

    const std::string_view text = section.text;
    std::string out(text.substr(0, section.countBegin));
    if (section.countEnd > section.countBegin) {
        appendInteger(out, static_cast<std::int64_t>(fileRows.size()));
    }
    out += text.substr(section.countEnd, section.rowsBegin - section.countEnd);
    const std::string neutral = neutralRow(section);
    std::vector<bool> written(section.rows.size());
    for (std::size_t i = 0; i < fileRows.size(); ++i) {
        const auto fileRow = static_cast<std::size_t>(fileRows[i]);
        if (fileRows[i] == kNoRow || fileRow >= section.rows.size()) {
            out += neutral;
            ++neutralRows;
            continue;
        }
        const SectionRow& row = section.rows[fileRow];
        // A copy of a row does without the comments on the lines before it.
        const std::uint32_t begin = written[fileRow] ? row.ownBegin : row.begin;
        written[fileRow] = true;
        out += text.substr(begin, row.dataBegin - begin);
        out += dataOfAll != nullptr ? std::string_view(*dataOfAll)
                                    : text.substr(row.dataBegin, row.dataEnd - row.dataBegin);
        // The last row of a file may go without the comma that it needs before another one.
        if (!row.hasComma && i + 1 < fileRows.size()) out += ',';
        out += text.substr(row.dataEnd, row.end - row.dataEnd);
    }
    const std::size_t tail = section.rows.empty() ? section.rowsBegin : section.rows.back().end;
    out += text.substr(tail);
    return out;
}

}  // namespace

RowSection readRowSection(const ModelText& text, const Section& section, int ordinal,
                          std::size_t vertexCount) {
    RowSection result;
    result.keyword = keywordIn(section);
    result.ordinal = ordinal;
    result.text = text.view().substr(section.begin, section.end - section.begin);
    result.lineBreak = section.lineBreak;
    result.rowsBegin = section.bodyBegin - section.begin;
    result.vertexCount = vertexCount;

    Lexer header(result.text, 0, section.header.size());
    header.next();  // the keyword
    const Token count = header.next();
    result.countBegin = count.offset;
    result.countEnd = count.isWord() ? count.end() : count.offset;

    RowReader reader(result, section.bodyEnd - section.begin);
    if (const std::optional<std::size_t> wrong = reader.read()) {
        result.problem = ModelTextError(text, section.begin + *wrong,
                                        "in the section " + result.keyword + ", " + reader.reason())
                             .what();
    }
    return result;
}

std::string composeRowSection(const RowSection& section, const std::vector<std::int16_t>& fileRows,
                              std::size_t& neutralRows) {
    if (isUnchanged(section, fileRows)) return section.text;
    return compose(section, fileRows, neutralRows, nullptr);
}

std::string composeForOneBone(const RowSection& section, const std::vector<std::int16_t>& fileRows,
                              std::size_t& neutralRows) {
    if (section.keyword != kSkinWeights) return composeRowSection(section, fileRows, neutralRows);
    const std::string data = neutralData(section);
    return compose(section, fileRows, neutralRows, &data);
}

}  // namespace corvane
