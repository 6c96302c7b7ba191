// Numbers and text. Model text always uses a period; what the user types or reads follows the
// locale of the user.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// Reads the whole of `text` (blanks and tabs around it ignored) as a finite number with a
/// period. Nothing when it is not one or lies outside the range of a double.
std::optional<double> parseNumber(std::string_view text);

/// Reads the whole of `text` (blanks and tabs around it ignored) as a decimal integer.
std::optional<std::int64_t> parseInteger(std::string_view text);

/// Appends the shortest text with up to 15 significant digits: a period, no trailing zeros, no
/// plus sign, never "-0"; exponent form below 1e-4 and from 1e15 on.
void appendNumber(std::string& out, double value);
std::string formatNumber(double value);

/// Whether formatNumber() gives a text that can be read again: not for what is no number, and not
/// for the few that 15 digits round up to one that is too large.
bool canBeWritten(double value);

/// Appends a whole number.
void appendInteger(std::string& out, std::int64_t value);

/// Rounds to `decimals` (0 to 9) places, ties to even.
double roundToDecimals(double value, int decimals);

/// Rounds to a whole number, ties to even, within 32 signed bits.
std::int32_t roundToInt32(double value);

/// How the user writes numbers.
struct UserNumberFormat {
    std::string decimalPoint = ".";
};

/// Reads a number that the user typed; nothing when it is not one.
std::optional<double> parseUserNumber(std::string_view text, const UserNumberFormat& format);

/// formatNumber with the user's decimal separator.
std::string formatUserNumber(double value, const UserNumberFormat& format);

}  // namespace corvane
