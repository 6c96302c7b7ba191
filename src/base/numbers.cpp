#include "base/numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace corvane {

namespace {

constexpr int kSignificantDigits = 15;
// Decimal exponent from which on a number is written in plain digits; below they would be many.
constexpr int kLeastPlainExponent = -4;
constexpr double kSmallestPlain = 1e-4;

std::string_view trimmed(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

// std::from_chars takes no plus sign; files and users may write one.
std::string_view withoutPlus(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    return text;
}

int countDigits(std::string_view mantissa) {
    int digits = 0;
    for (const char c : mantissa) {
        if (c >= '0' && c <= '9') ++digits;
    }
    return digits;
}

// Writes `value` in scientific form, with at most 15 digits, into `buffer`.
std::string_view scientific(double value, std::array<char, 64>& buffer) {
    char* const begin = buffer.data();
    char* const end = begin + buffer.size();
    auto result = std::to_chars(begin, end, value, std::chars_format::scientific);
    const std::string_view shortest(begin, static_cast<std::size_t>(result.ptr - begin));
    if (countDigits(shortest.substr(0, shortest.find('e'))) > kSignificantDigits) {
        result =
            std::to_chars(begin, end, value, std::chars_format::scientific, kSignificantDigits - 1);
    }
    return {begin, static_cast<std::size_t>(result.ptr - begin)};
}

// Appends a number that has no more than six decimals and needs no exponent; false for others.
// Nearly all numbers of a model are of this kind, and this is several times as fast as
// std::to_chars. No other number of up to 15 digits stands for the same double, so the text is the
// shortest one.
bool appendSixDecimals(std::string& out, double value) {
    constexpr std::size_t kDecimals = 6;
    constexpr std::int64_t kScale = 1'000'000;
    const double scaled = std::nearbyint(value * kScale);
    const double magnitude = std::fabs(scaled);
    if (scaled / kScale != value || magnitude < kSmallestPlain * kScale || magnitude >= 1e15) {
        return false;
    }
    const auto whole = static_cast<std::int64_t>(magnitude);
    if (value < 0) out += '-';
    appendInteger(out, whole / kScale);
    std::int64_t fraction = whole % kScale;
    if (fraction == 0) return true;
    std::array<char, kDecimals> digits{};
    for (std::size_t i = kDecimals; i-- > 0; fraction /= 10) {
        digits[i] = static_cast<char>('0' + fraction % 10);
    }
    std::size_t count = kDecimals;
    while (digits[count - 1] == '0') --count;
    out += '.';
    out.append(digits.data(), count);
    return true;
}

}  // namespace

std::optional<double> parseNumber(std::string_view text) {
    text = withoutPlus(trimmed(text));
    const char* const end = text.data() + text.size();
    double value = 0;
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (stop != end) return std::nullopt;
    if (error == std::errc{}) {
        // "nan" and "inf" are no numbers to a model.
        return std::isfinite(value) ? std::optional(value) : std::nullopt;
    }
    if (error != std::errc::result_out_of_range) return std::nullopt;
    // Too small for a double is as good as 0; too large is an error.
    long double wide = 0;
    const auto wideResult = std::from_chars(text.data(), end, wide);
    if (wideResult.ec == std::errc{} && std::fabs(wide) < 1) return static_cast<double>(wide);
    // Even that has its limits.
    const std::size_t e = text.find_first_of("eE");
    if (e != std::string_view::npos && text.substr(e + 1).starts_with('-')) return 0.0;
    return std::nullopt;
}

std::optional<std::int64_t> parseInteger(std::string_view text) {
    text = withoutPlus(trimmed(text));
    const char* const end = text.data() + text.size();
    std::int64_t value = 0;
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (stop != end || error != std::errc{}) return std::nullopt;
    return value;
}

void appendNumber(std::string& out, double value) {
    if (value == 0) {
        out += '0';
        return;
    }
    if (appendSixDecimals(out, value)) return;
    std::array<char, 64> buffer{};
    const std::string_view text = scientific(value, buffer);
    const std::size_t e = text.find('e');
    if (e == std::string_view::npos) {  // not finite: nothing shorter to make of it
        out += text;
        return;
    }

    // Take it apart: sign, digits without trailing zeros, exponent of the first digit.
    std::array<char, 20> digits{};
    std::size_t count = 0;
    for (const char c : text.substr(0, e)) {
        if (c >= '0' && c <= '9') digits[count++] = c;
    }
    while (count > 1 && digits[count - 1] == '0') --count;
    int exponent = 0;
    const char* exponentBegin = text.data() + e + 1;
    if (*exponentBegin == '+') ++exponentBegin;
    std::from_chars(exponentBegin, text.data() + text.size(), exponent);

    if (value < 0) out += '-';
    const auto put = [&](std::size_t from, std::size_t to) {
        out.append(digits.data() + from, to - from);
    };
    if (exponent < kLeastPlainExponent || exponent >= kSignificantDigits) {
        put(0, 1);
        if (count > 1) {
            out += '.';
            put(1, count);
        }
        out += 'e';
        appendInteger(out, exponent);
        return;
    }
    if (exponent < 0) {
        out += "0.";
        out.append(static_cast<std::size_t>(-exponent - 1), '0');
        put(0, count);
        return;
    }
    const std::size_t whole = static_cast<std::size_t>(exponent) + 1;
    if (count <= whole) {
        put(0, count);
        out.append(whole - count, '0');
        return;
    }
    put(0, whole);
    out += '.';
    put(whole, count);
}

std::string formatNumber(double value) {
    std::string out;
    appendNumber(out, value);
    return out;
}

void appendInteger(std::string& out, std::int64_t value) {
    std::array<char, 24> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    out.append(buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data()));
}

double roundToDecimals(double value, int decimals) {
    static constexpr std::array<double, 10> kPowers = {1e0, 1e1, 1e2, 1e3, 1e4,
                                                       1e5, 1e6, 1e7, 1e8, 1e9};
    const double scale = kPowers[static_cast<std::size_t>(decimals)];
    const double scaled = value * scale;
    // Beyond 2^53 a double holds no fraction that could be rounded.
    if (!(std::fabs(scaled) < 9007199254740992.0)) return value;
    return std::nearbyint(scaled) / scale;
}

std::int32_t roundToInt32(double value) {
    constexpr double kLow = std::numeric_limits<std::int32_t>::min();
    constexpr double kHigh = std::numeric_limits<std::int32_t>::max();
    const double rounded = std::nearbyint(value);
    if (rounded >= kHigh) return std::numeric_limits<std::int32_t>::max();
    if (rounded > kLow) return static_cast<std::int32_t>(rounded);
    // NaN, which no comparison holds for, has no place on a screen; 0 is as good as any.
    return std::isnan(rounded) ? 0 : std::numeric_limits<std::int32_t>::min();
}

std::optional<double> parseUserNumber(std::string_view text, const UserNumberFormat& format) {
    if (format.decimalPoint == ".") return parseNumber(text);
    if (text.find('.') != std::string_view::npos) return std::nullopt;
    std::string modelText(text);
    const std::size_t at = modelText.find(format.decimalPoint);
    if (at != std::string::npos) modelText.replace(at, format.decimalPoint.size(), ".");
    return parseNumber(modelText);
}

std::string formatUserNumber(double value, const UserNumberFormat& format) {
    std::string text = formatNumber(value);
    const std::size_t at = text.find('.');
    if (at != std::string::npos) text.replace(at, 1, format.decimalPoint);
    return text;
}

}  // namespace corvane
