// Texts, whatever they say.
#pragma once

#include <algorithm>
#include <string_view>

namespace corvane {

/// `text` without the characters at both its ends that `isBlank` is true for.
template <typename IsBlank>
constexpr std::string_view trimmed(std::string_view text, IsBlank isBlank) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

/// Whether two texts are the same but for the case of the letters A to Z.
constexpr bool isSameIgnoringCase(std::string_view a, std::string_view b) {
    const auto lower = [](char ch) {
        return ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch;
    };
    return std::ranges::equal(a, b, {}, lower, lower);
}

}  // namespace corvane
