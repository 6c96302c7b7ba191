#include "base/numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace corvane {
namespace {

TEST(ParseNumber, ReadsPlainNumbers) {
    EXPECT_EQ(parseNumber("0"), 0.0);
    EXPECT_EQ(parseNumber("15"), 15.0);
    EXPECT_EQ(parseNumber("-2"), -2.0);
    EXPECT_EQ(parseNumber("0.03"), 0.03);
    EXPECT_EQ(parseNumber("1.5"), 1.5);
    EXPECT_EQ(parseNumber(".5"), 0.5);
    EXPECT_EQ(parseNumber("5."), 5.0);
    EXPECT_EQ(parseNumber("007.25"), 7.25);
}

TEST(ParseNumber, ReadsMinusZero) {
    const auto value = parseNumber("-0.000000");
    ASSERT_TRUE(value);
    EXPECT_EQ(*value, 0.0);
}

TEST(ParseNumber, ReadsExponentsOfEitherCaseAndSign) {
    EXPECT_EQ(parseNumber("8.32939e-004"), 0.000832939);
    EXPECT_EQ(parseNumber("1.044562E-08"), 1.044562e-8);
    EXPECT_EQ(parseNumber("2e3"), 2000.0);
    EXPECT_EQ(parseNumber("2E+3"), 2000.0);
    EXPECT_EQ(parseNumber("-1.5e+002"), -150.0);
}

TEST(ParseNumber, ReadsMoreDecimalsThanADoubleHolds) {
    EXPECT_EQ(parseNumber("0.1234567890123456789"), 0.12345678901234568);
    EXPECT_EQ(parseNumber("-33.3333333333333333333"), -33.333333333333336);
}

TEST(ParseNumber, TakesOnePlusSign) {
    EXPECT_EQ(parseNumber("+1.5"), 1.5);
    EXPECT_EQ(parseNumber("+.5"), 0.5);
    for (const char* text : {"+", "++1", "+-1", "-+1", "--1", "- 1", "+ 1"}) {
        EXPECT_EQ(parseNumber(text), std::nullopt) << text;
    }
}

TEST(ParseNumber, IgnoresBlanksAndTabsAround) {
    EXPECT_EQ(parseNumber(" 1.5"), 1.5);
    EXPECT_EQ(parseNumber("1.5  "), 1.5);
    EXPECT_EQ(parseNumber("\t -1.5 \t"), -1.5);
    EXPECT_EQ(parseNumber(" +3 "), 3.0);
}

TEST(ParseNumber, RefusesWhatIsNoNumber) {
    for (const char* text : {"", " ", "\t", "abc", "1,5", "1.2.3", "1 2", "1.5x", "x1.5", "1e",
                             "1e+", "e5", ".", "-", "0x10", "1.5 }", "--", "1.5\r", "\n1"}) {
        EXPECT_EQ(parseNumber(text), std::nullopt) << '"' << text << '"';
    }
}

TEST(ParseNumber, RefusesWhatIsNotFinite) {
    for (const char* text :
         {"nan", "NaN", "-nan", "nan(1)", "inf", "INF", "-inf", "+inf", "infinity", "Infinity"}) {
        EXPECT_EQ(parseNumber(text), std::nullopt) << text;
    }
}

TEST(ParseNumber, RefusesWhatIsTooLargeForADouble) {
    EXPECT_EQ(parseNumber("1e999"), std::nullopt);
    EXPECT_EQ(parseNumber("-1e999"), std::nullopt);
    EXPECT_EQ(parseNumber("1e309"), std::nullopt);
    EXPECT_EQ(parseNumber("1e99999"), std::nullopt);
    EXPECT_EQ(parseNumber("1" + std::string(400, '0')), std::nullopt);
    EXPECT_EQ(parseNumber("1e308"), 1e308);
}

TEST(ParseNumber, TakesWhatIsTooSmallForADoubleAsZero) {
    EXPECT_EQ(parseNumber("1e-999"), 0.0);
    EXPECT_EQ(parseNumber("-1e-999"), 0.0);
    EXPECT_EQ(parseNumber("4e-330"), 0.0);
    EXPECT_EQ(parseNumber("0." + std::string(400, '0') + "1"), 0.0);
}

TEST(ParseNumber, TakesWhatIsTooSmallForAnyTypeAsZero) {
    EXPECT_EQ(parseNumber("1e-9999"), 0.0);
    EXPECT_EQ(parseNumber("-1e-99999"), 0.0);
    EXPECT_EQ(parseNumber("1e-99999999999999999999"), 0.0);
    EXPECT_EQ(parseNumber("0." + std::string(9999, '0') + "1"), 0.0);
}

// Digits before the period, zeros behind it and the exponent count together.
TEST(ParseNumber, LooksAtNothingBehindItsText) {
    const std::string text = "1" + std::string(399, '0') + "e-400";
    EXPECT_EQ(parseNumber(text), 0.1);
    EXPECT_EQ(parseNumber(std::string_view(text).substr(0, text.size() - 1)), std::nullopt);
}

TEST(ParseNumber, TellsWhatIsTooSmallFromWhatIsTooLarge) {
    const std::string zeros(400, '0');
    EXPECT_EQ(parseNumber("1" + zeros), std::nullopt);
    EXPECT_EQ(parseNumber("-1" + zeros + ".5"), std::nullopt);
    EXPECT_EQ(parseNumber("1" + zeros + "e-10"), std::nullopt);
    EXPECT_EQ(parseNumber("1" + zeros + "e-800"), 0.0);
    EXPECT_EQ(parseNumber("-0." + zeros + "1e10"), 0.0);
    EXPECT_EQ(parseNumber("0." + zeros + "1e800"), std::nullopt);
    EXPECT_EQ(parseNumber("." + zeros + "1E+800"), std::nullopt);
    EXPECT_EQ(parseNumber("1e99999999999999999999"), std::nullopt);
    EXPECT_EQ(parseNumber("1" + zeros + "e9223372036854775807"), std::nullopt);
}

TEST(ParseNumber, KeepsTheSmallestDoubles) {
    EXPECT_EQ(parseNumber("1e-310"), 1e-310);
    EXPECT_EQ(parseNumber("5e-324"), std::numeric_limits<double>::denorm_min());
}

TEST(ParseInteger, ReadsWholeNumbersWithBlanksAround) {
    EXPECT_EQ(parseInteger("0"), 0);
    EXPECT_EQ(parseInteger(" 36 "), 36);
    EXPECT_EQ(parseInteger("\t-1"), -1);
    EXPECT_EQ(parseInteger("+7"), 7);
    EXPECT_EQ(parseInteger("0012"), 12);
    EXPECT_EQ(parseInteger("9223372036854775807"), INT64_MAX);
}

TEST(ParseInteger, RefusesEverythingElse) {
    for (const char* text : {"", " ", "abc", "1.0", "1.", "1e3", "1,5", "1 2", "-", "+", "+-1",
                             "0x1", "None", "Multiple", "9223372036854775808"}) {
        EXPECT_EQ(parseInteger(text), std::nullopt) << '"' << text << '"';
    }
}

TEST(FormatNumber, WritesWholeNumbersWithoutAPoint) {
    EXPECT_EQ(formatNumber(0), "0");
    EXPECT_EQ(formatNumber(1), "1");
    EXPECT_EQ(formatNumber(-20), "-20");
    EXPECT_EQ(formatNumber(1000000), "1000000");
    EXPECT_EQ(formatNumber(123456789012345), "123456789012345");
}

TEST(FormatNumber, WritesNoTrailingZeros) {
    EXPECT_EQ(formatNumber(1.5), "1.5");
    EXPECT_EQ(formatNumber(-0.25), "-0.25");
    EXPECT_EQ(formatNumber(100.5), "100.5");
    EXPECT_EQ(formatNumber(0.03), "0.03");
    EXPECT_EQ(formatNumber(1.23456789012), "1.23456789012");
    EXPECT_EQ(formatNumber(1.23456789012e5), "123456.789012");
}

TEST(FormatNumber, NeverWritesMinusZero) {
    EXPECT_EQ(formatNumber(-0.0), "0");
    EXPECT_EQ(formatNumber(roundToDecimals(-1e-9, 6)), "0");
}

TEST(FormatNumber, WritesUpTo15SignificantDigits) {
    EXPECT_EQ(formatNumber(0.1 + 0.2), "0.3");  // 0.30000000000000004
    EXPECT_EQ(formatNumber(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(formatNumber(2.0 / 3), "0.666666666666667");
    EXPECT_EQ(formatNumber(-200.0 / 3), "-66.6666666666667");
    EXPECT_EQ(formatNumber(0.123456789012345), "0.123456789012345");
    EXPECT_EQ(formatNumber(0.00123456789012345678), "0.00123456789012346");
    EXPECT_EQ(formatNumber(123456789.0123456789), "123456789.012346");
}

TEST(FormatNumber, CarriesThroughNines) {
    EXPECT_EQ(formatNumber(0.9999999999999999), "1");
    EXPECT_EQ(formatNumber(9.9999999999999999), "10");
    EXPECT_EQ(formatNumber(99.999999999999986), "100");
    EXPECT_EQ(formatNumber(-1.9999999999999998), "-2");
    EXPECT_EQ(formatNumber(0.99999999999999), "0.99999999999999");
    EXPECT_EQ(formatNumber(9.9999999999999995e-8), "1e-7");
    EXPECT_EQ(formatNumber(9.9999999999999992e22), "1e23");
}

TEST(FormatNumber, UsesTheExponentFormBelowOneTenThousandth) {
    EXPECT_EQ(formatNumber(0.0001), "0.0001");
    EXPECT_EQ(formatNumber(0.00012), "0.00012");
    EXPECT_EQ(formatNumber(0.000099), "9.9e-5");
    EXPECT_EQ(formatNumber(-0.00001), "-1e-5");
    EXPECT_EQ(formatNumber(1.044562e-8), "1.044562e-8");
    EXPECT_EQ(formatNumber(1e-10), "1e-10");
    EXPECT_EQ(formatNumber(-2.5e-123), "-2.5e-123");
}

TEST(FormatNumber, UsesTheExponentFormWithoutPlusFromTenToThe15On) {
    EXPECT_EQ(formatNumber(999999999999999), "999999999999999");
    EXPECT_EQ(formatNumber(100000000000000), "100000000000000");
    EXPECT_EQ(formatNumber(1e15), "1e15");
    EXPECT_EQ(formatNumber(-1.25e15), "-1.25e15");
    EXPECT_EQ(formatNumber(1.5e20), "1.5e20");
    EXPECT_EQ(formatNumber(1.7976931348623157e308), "1.79769313486232e308");
}

TEST(CanBeWritten, IsWhetherTheTextCanBeReadAgain) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (double value = 1.79769313486231e308; value < kInfinity;
         value = std::nextafter(value, kInfinity)) {
        const std::string text = formatNumber(value);
        double read = 0;
        const auto result = std::from_chars(text.data(), text.data() + text.size(), read);
        EXPECT_EQ(canBeWritten(value), result.ec == std::errc()) << text;
        EXPECT_EQ(canBeWritten(-value), result.ec == std::errc()) << text;
    }
    EXPECT_TRUE(canBeWritten(0));
    EXPECT_FALSE(canBeWritten(kInfinity));
    EXPECT_FALSE(canBeWritten(std::numeric_limits<double>::quiet_NaN()));
}

// Where rounding to 15 digits crosses a limit of the exponent form, what is written counts: the
// same text comes out when it is read and written again.
TEST(FormatNumber, ChoosesTheFormByTheRoundedNumber) {
    EXPECT_EQ(formatNumber(999999999999999.9), "1e15");
    EXPECT_EQ(formatNumber(-999999999999999.9), "-1e15");
    EXPECT_EQ(formatNumber(0.000099999999999999999), "0.0001");
    EXPECT_EQ(formatNumber(std::nextafter(0.0001, 0)), "0.0001");
}

TEST(FormatNumber, WritesAnyNumberOfDecimals) {
    EXPECT_EQ(formatNumber(0.1), "0.1");
    EXPECT_EQ(formatNumber(-12345.6789), "-12345.6789");
    EXPECT_EQ(formatNumber(0.100001), "0.100001");
    EXPECT_EQ(formatNumber(-0.000101), "-0.000101");
    EXPECT_EQ(formatNumber(0.1234567), "0.1234567");
    EXPECT_EQ(formatNumber(100.0000001), "100.0000001");
    EXPECT_EQ(formatNumber(0.0000015), "1.5e-6");
    EXPECT_EQ(formatNumber(999999999.999999), "999999999.999999");
    EXPECT_EQ(formatNumber(1000000000.000001), "1000000000");
    EXPECT_EQ(formatNumber(9999999999.99999), "9999999999.99999");
}

// Whatever the number, its text stands for the same one as the C library's text of 15 digits.
TEST(FormatNumber, ReadsBackToTheSame15Digits) {
    std::mt19937_64 random(1);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers every time
    std::uniform_real_distribution<double> mantissa(-10, 10);
    std::uniform_int_distribution<int> exponent(-12, 18);
    std::uniform_int_distribution<int> decimals(0, 9);
    for (int i = 0; i < 20000; ++i) {
        double value = mantissa(random) * std::pow(10, exponent(random));
        if (i % 2 == 0) value = roundToDecimals(value, decimals(random));
        std::array<char, 64> expected{};
        std::snprintf(expected.data(), expected.size(), "%.15g", value);
        const std::string text = formatNumber(value);
        ASSERT_EQ(std::stod(text), std::stod(expected.data())) << text;
        ASSERT_LE(text.size(), std::string_view(expected.data()).size()) << text;
    }
}

// The text of a number by the rules alone: the fewest digits up to 15 that read back to it, or else
// 15 digits.
std::string plainText(double value) {
    if (value == 0) return "0";
    std::array<char, 64> buffer{};
    for (int digits = 1; digits <= 15; ++digits) {
        std::snprintf(buffer.data(), buffer.size(), "%.*e", digits - 1, std::fabs(value));
        if (std::strtod(buffer.data(), nullptr) == std::fabs(value)) break;
    }
    const std::string text = buffer.data();
    const std::size_t e = text.find('e');
    std::string digits = text.substr(0, 1);
    if (e > 1) digits += text.substr(2, e - 2);
    digits.erase(digits.find_last_not_of('0') + 1);
    const int exponent = std::stoi(text.substr(e + 1));
    const std::string sign = value < 0 ? "-" : "";
    if (exponent < -4 || exponent >= 15) {
        if (digits.size() > 1) digits.insert(1, ".");
        return sign + digits + "e" + std::to_string(exponent);
    }
    if (exponent < 0) {
        return sign + "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    }
    const std::size_t whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= whole) return sign + digits + std::string(whole - digits.size(), '0');
    return sign + digits.insert(whole, ".");
}

TEST(FormatNumber, IsThePlainTextOfAnyDouble) {
    std::mt19937_64 random(2);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers every time
    for (int i = 0; i < 20000; ++i) {
        auto bits = static_cast<std::uint64_t>(random());
        constexpr std::uint64_t kExponentBits = std::uint64_t{0x7FF} << 52U;
        if (i % 4 == 0) bits &= ~kExponentBits;  // a double of the smallest kind
        if (i % 8 == 0) bits &= ~((~std::uint64_t{0} >> 12U) << (1 + random() % 51));
        if (i % 4 == 1) bits &= ~std::uint64_t{0} << (random() % 52);  // few bits set
        const auto value = std::bit_cast<double>(bits);
        if (!std::isfinite(value)) continue;
        ASSERT_EQ(formatNumber(value), plainText(value)) << std::hexfloat << value;
    }
}

TEST(FormatNumber, IsThePlainTextOfNumbersAsModelsHaveThem) {
    std::mt19937_64 random(3);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers every time
    std::uniform_real_distribution<double> mantissa(-10, 10);
    for (int i = 0; i < 20000; ++i) {
        const double any = mantissa(random) * std::pow(10, static_cast<int>(random() % 24) - 7);
        const double value = i % 2 == 0 ? any : static_cast<double>(static_cast<float>(any));
        ASSERT_EQ(formatNumber(value), plainText(value)) << std::hexfloat << value;
    }
}

TEST(FormatNumber, IsThePlainTextAroundEveryPowerOfTen) {
    for (int exponent = -324; exponent <= 308; ++exponent) {
        double value = std::strtod(("1e" + std::to_string(exponent)).c_str(), nullptr);
        for (int step = 0; step < 4; ++step) value = std::nextafter(value, 0);
        for (int step = 0; step < 9; ++step) {
            ASSERT_EQ(formatNumber(value), plainText(value)) << std::hexfloat << value;
            ASSERT_EQ(formatNumber(-value), plainText(-value)) << std::hexfloat << value;
            value = std::nextafter(value, std::numeric_limits<double>::infinity());
        }
    }
}

TEST(FormatNumber, WritesTheSmallestAndTheLargestDoubles) {
    using Limits = std::numeric_limits<double>;
    EXPECT_EQ(formatNumber(Limits::denorm_min()), "5e-324");
    EXPECT_EQ(formatNumber(-Limits::denorm_min()), "-5e-324");
    EXPECT_EQ(formatNumber(1e-310), "1e-310");
    EXPECT_EQ(formatNumber(Limits::min()), "2.2250738585072e-308");
    EXPECT_EQ(formatNumber(std::nextafter(Limits::min(), 0)), "2.2250738585072e-308");
    EXPECT_EQ(formatNumber(Limits::max()), "1.79769313486232e308");
    EXPECT_EQ(formatNumber(-Limits::max()), "-1.79769313486232e308");
}

TEST(AppendNumber, AppendsToWhatIsThere) {
    std::string out = "{ ";
    appendNumber(out, 1.5);
    out += ", ";
    appendInteger(out, -32768);
    out += ", ";
    appendInteger(out, 0);
    EXPECT_EQ(out, "{ 1.5, -32768, 0");
}

TEST(RoundToDecimals, RoundsTiesToEven) {
    EXPECT_EQ(roundToDecimals(0.0078125, 6), 0.007812);
    EXPECT_EQ(roundToDecimals(0.0234375, 6), 0.023438);
    EXPECT_EQ(roundToDecimals(-0.0078125, 6), -0.007812);
    EXPECT_EQ(roundToDecimals(0.1234565, 6), 0.123456);
    EXPECT_EQ(roundToDecimals(0.5, 0), 0.0);
    EXPECT_EQ(roundToDecimals(1.5, 0), 2.0);
    EXPECT_EQ(roundToDecimals(2.5, 0), 2.0);
    EXPECT_EQ(roundToDecimals(0.125, 2), 0.12);
    EXPECT_EQ(roundToDecimals(0.375, 2), 0.38);
}

TEST(RoundToDecimals, RoundsEverythingElseToTheNearest) {
    EXPECT_EQ(roundToDecimals(0.12345678, 6), 0.123457);
    EXPECT_EQ(roundToDecimals(0.1234564, 6), 0.123456);
    EXPECT_EQ(roundToDecimals(-0.1234567, 6), -0.123457);
    EXPECT_EQ(roundToDecimals(0.9999996, 6), 1.0);
    EXPECT_EQ(roundToDecimals(12.3456789, 2), 12.35);
    EXPECT_EQ(formatNumber(roundToDecimals(0.12345678, 6)), "0.123457");
    EXPECT_EQ(formatNumber(roundToDecimals(0.7071067811865476, 6)), "0.707107");
}

TEST(RoundToDecimals, RoundsToAnyOf0To9Places) {
    const std::array rounded = {5.0,     4.5,      4.55,      4.545,      4.5455,
                                4.54545, 4.545455, 4.5454545, 4.54545455, 4.545454545};
    for (int decimals = 0; decimals < 10; ++decimals) {
        EXPECT_EQ(roundToDecimals(4.5454545454, decimals),
                  rounded[static_cast<std::size_t>(decimals)])
            << decimals;
    }
}

TEST(RoundToDecimals, LeavesNumbersWithoutAFractionToRound) {
    EXPECT_EQ(roundToDecimals(3, 6), 3.0);
    EXPECT_EQ(roundToDecimals(1e300, 6), 1e300);
    EXPECT_EQ(roundToDecimals(68643367545.04867, 6), 68643367545.04867);
    EXPECT_EQ(roundToDecimals(-9007199254740993.0, 6), -9007199254740993.0);
}

TEST(RoundToInt32, RoundsTiesToEvenAndStaysInRange) {
    EXPECT_EQ(roundToInt32(2.5), 2);
    EXPECT_EQ(roundToInt32(3.5), 4);
    EXPECT_EQ(roundToInt32(-2.5), -2);
    EXPECT_EQ(roundToInt32(-0.4), 0);
    EXPECT_EQ(roundToInt32(2147483647.0), 2147483647);
    EXPECT_EQ(roundToInt32(1e10), 2147483647);
    EXPECT_EQ(roundToInt32(-1e10), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(roundToInt32(std::numeric_limits<double>::infinity()), 2147483647);
    EXPECT_EQ(roundToInt32(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(UserNumbers, FollowTheUsersDecimalComma) {
    const UserNumberFormat comma{","};
    EXPECT_EQ(parseUserNumber("1,5", comma), 1.5);
    EXPECT_EQ(parseUserNumber(" -0,25 ", comma), -0.25);
    EXPECT_EQ(parseUserNumber("12", comma), 12.0);
    EXPECT_EQ(parseUserNumber("1,5e3", comma), 1500.0);
    EXPECT_EQ(parseUserNumber("1.5", comma), std::nullopt);
    EXPECT_EQ(parseUserNumber("1.000,5", comma), std::nullopt);
    EXPECT_EQ(parseUserNumber("1,2,3", comma), std::nullopt);
    EXPECT_EQ(parseUserNumber("", comma), std::nullopt);
    EXPECT_EQ(formatUserNumber(1.23, comma), "1,23");
    EXPECT_EQ(formatUserNumber(-0.5, comma), "-0,5");
    EXPECT_EQ(formatUserNumber(1000, comma), "1000");
    EXPECT_EQ(formatUserNumber(1.5e-7, comma), "1,5e-7");
}

TEST(UserNumbers, UseAPeriodElsewhere) {
    const UserNumberFormat period;
    EXPECT_EQ(parseUserNumber("1.5", period), 1.5);
    EXPECT_EQ(parseUserNumber("1,5", period), std::nullopt);
    EXPECT_EQ(parseUserNumber("x", period), std::nullopt);
    EXPECT_EQ(formatUserNumber(1.23, period), "1.23");
}

// Some locales have a decimal separator of several bytes.
TEST(UserNumbers, FollowASeparatorOfSeveralBytes) {
    const UserNumberFormat arabic{"\xD9\xAB"};
    EXPECT_EQ(parseUserNumber("1\xD9\xAB"
                              "5",
                              arabic),
              1.5);
    EXPECT_EQ(formatUserNumber(2.25, arabic),
              "2\xD9\xAB"
              "25");
}

// Model text has nothing to do with the user's locale.
TEST(UserNumbers, DoNotChangeModelNumbers) {
    EXPECT_EQ(parseNumber("1,5"), std::nullopt);
    EXPECT_EQ(parseNumber("1.5"), 1.5);
    EXPECT_EQ(formatNumber(1.5), "1.5");
}

}  // namespace
}  // namespace corvane
