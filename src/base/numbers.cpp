#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/text.h"

namespace corvane {

namespace {

constexpr int kSignificantDigits = 15;
constexpr double kSmallestPlain = 1e-4;  // below, plain digits would be many

std::string_view withoutBlanks(std::string_view text) {
    return trimmed(text, [](char c) { return c == ' ' || c == '\t'; });
}

// std::from_chars takes no plus sign; files and users may write one.
std::string_view withoutPlus(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    return text;
}

// Writes a positive number with up to 15 digits into `buffer`. An exponent has a sign and two
// digits at least.
std::string_view withFewDigits(double value, std::array<char, 32>& buffer) {
    char* const begin = buffer.data();
    char* const end = begin + buffer.size();
    const auto textTo = [&](const char* stop) {
        return std::string_view(begin, static_cast<std::size_t>(stop - begin));
    };
    // So close to 0, where a double has fewer bits, fewer digits may stand for the same number.
    if (value < std::numeric_limits<double>::min()) {
        const std::string_view shortest =
            textTo(std::to_chars(begin, end, value, std::chars_format::scientific).ptr);
        constexpr std::size_t kLongestMantissa = kSignificantDigits + 1;  // and its period
        if (shortest.find('e') <= kLongestMantissa) return shortest;
    }
    return textTo(
        std::to_chars(begin, end, value, std::chars_format::general, kSignificantDigits).ptr);
}

// Whether the text of a number, which no double need be able to hold, means one between -1 and 1.
// Not every system has a wider type to ask.
bool isBelowOne(std::string_view text) {
    const std::size_t e = std::min(text.find_first_of("eE"), text.size());
    const std::string_view mantissa = text.substr(0, e);
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) return true;
    const std::size_t period = std::min(mantissa.find('.'), mantissa.size());
    // The number is 0.ddd * 10^magnitude; the digit after the period is not 0.
    auto magnitude = static_cast<std::int64_t>(period) - static_cast<std::int64_t>(first);
    if (magnitude < 0) ++magnitude;  // the period itself is no digit
    if (e == text.size()) return magnitude <= 0;
    const std::string_view digits = withoutPlus(text.substr(e + 1));
    std::int64_t exponent = 0;
    const char* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, exponent);
    if (result.ec != std::errc{}) return digits.starts_with('-');
    // Compared without a sum, which might be too large.
    return exponent <= -magnitude;
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
    text = withoutPlus(withoutBlanks(text));
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
    return isBelowOne(text) ? std::optional(0.0) : std::nullopt;
}

std::optional<std::int64_t> parseInteger(std::string_view text) {
    text = withoutPlus(withoutBlanks(text));
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
    if (value < 0) {
        out += '-';
        value = -value;
    }
    std::array<char, 32> buffer{};
    const std::string_view text = withFewDigits(value, buffer);
    const std::size_t mantissaEnd = std::min(text.find('e'), text.size());
    out += text.substr(0, mantissaEnd);
    if (mantissaEnd == text.size()) return;
    // The exponent without plus sign and leading zeros.
    out += 'e';
    std::string_view exponent = text.substr(mantissaEnd + 1);
    if (exponent.front() == '-') out += '-';
    exponent.remove_prefix(exponent.find_first_not_of("+-0"));
    out += exponent;
}

std::string formatNumber(double value) {
    std::string out;
    appendNumber(out, value);
    return out;
}

bool canBeWritten(double value) {
    constexpr double kMost = 1.797693134862315e308;  // those above become 1.79769313486232e308
    return std::abs(value) <= kMost;
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
