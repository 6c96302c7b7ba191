#include "groups/group_number.h"

#include <limits>

namespace corvane {

std::optional<std::int16_t> toInt16(std::string_view answer, const UserNumberFormat& format) {
    using Limits = std::numeric_limits<std::int16_t>;
    const std::optional<double> number = parseUserNumber(answer, format);
    if (!number) return std::nullopt;
    const std::int32_t whole = roundToInt32(*number);
    if (whole < Limits::min() || whole > Limits::max()) return std::nullopt;
    return static_cast<std::int16_t>(whole);
}

}  // namespace corvane
