// Paths and errors between the program and the calls of Windows: UTF-8 and std::generic_category()
// here, UTF-16 and the system's numbers there. For files_windows.cpp only.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace corvane::files {

// The longest path that the system takes, with its end, in UTF-16.
constexpr std::size_t kLongestPath = 32768;

/// What a number of the system means.
std::error_code errorFrom(DWORD code) noexcept;

/// A path as the system takes it: in UTF-16 and, where it is long, whole and marked as such. Asks
/// for no memory.
class NativePath {
public:
    explicit NativePath(const std::string& path) noexcept;

    const wchar_t* get() const noexcept { return text_; }

    /// What a number means that a call with this path has left.
    std::error_code errorFrom(DWORD code) const noexcept;

private:
    std::size_t convert(std::string_view path) noexcept;
    bool hasTooLongName() const noexcept;
    bool hasFileAbove() const noexcept;

    wchar_t text_[kLongestPath];
    bool isTooLong_ = false;
};

/// In UTF-8. Throws std::bad_alloc.
std::string fromNative(std::wstring_view text);

/// A whole path as the system tells it, without the mark of a long one and with "/".
std::string withoutMark(std::string path);

}  // namespace corvane::files
