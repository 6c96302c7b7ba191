#include "model/section_text.h"

#include <limits>
#include <optional>

#include "base/numbers.h"
#include "base/text.h"

namespace corvane {

std::string quoted(std::string_view text) {
    constexpr std::size_t kLongest = 60;  // bytes of a line that a message shows
    if (text.size() <= kLongest) return "\"" + std::string(text) + "\"";
    return "\"" + std::string(text.substr(0, kLongest)) + "...\"";
}

std::string_view withoutBlanks(std::string_view field) { return trimmed(field, Lexer::isBlank); }

std::string SectionText::quotedLine(std::size_t offset) const {
    return quoted(lineAt(text_.view(), offset));
}

std::optional<std::int64_t> SectionText::countInHeader(int words) const {
    Lexer header(section_.header, 0, section_.header.size());
    for (int i = 0; i < words; ++i) header.next();
    const std::optional<std::int64_t> value = parseInteger(header.next().text);
    return value && *value >= 0 ? value : std::nullopt;
}

std::int64_t SectionText::headerCount(int words) const {
    const std::optional<std::int64_t> value = countInHeader(words);
    if (!value) {
        failAtHeader("the header " + quotedLine(section_.bodyBegin - 1) + " holds no count.");
    }
    return *value;
}

std::int16_t SectionText::int16(std::string_view field, const char* what) const {
    const std::optional<std::int64_t> value = parseInteger(field);
    if (!value) fail(field, quoted(field) + " is not a whole number.");
    if (*value < std::numeric_limits<std::int16_t>::min() ||
        *value > std::numeric_limits<std::int16_t>::max()) {
        fail(field,
             std::string(what) + " " + std::to_string(*value) + " is outside -32768 to 32767.");
    }
    return static_cast<std::int16_t>(*value);
}

void SectionText::failAt(std::size_t offset, const std::string& reason) const {
    throw ModelTextError(text_, offset, reason);
}

void SectionText::fail(std::string_view piece, const std::string& reason) const {
    failAt(offsetOf(piece), reason);
}

void SectionText::failAtHeader(const std::string& reason) const { failAt(section_.begin, reason); }

void SectionText::failTooLarge(std::size_t count, const char* things, int limit) const {
    throw GeosetTooLarge(text_, section_.begin,
                         "the geoset has " + std::to_string(count) + " " + things + "; at most " +
                             std::to_string(limit) + " can be edited.");
}

}  // namespace corvane
