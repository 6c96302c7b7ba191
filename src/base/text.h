// Texts, whatever they say.
#pragma once

#include <string_view>

namespace corvane {

/// `text` without the characters at both its ends that `isBlank` is true for.
template <typename IsBlank>
constexpr std::string_view trimmed(std::string_view text, IsBlank isBlank) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace corvane
