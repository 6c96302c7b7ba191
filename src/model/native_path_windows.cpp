#include "model/native_path_windows.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cwchar>
#include <utility>

#include "base/text.h"
#include "model/files.h"

namespace corvane::files {

namespace {

struct Meaning {
    DWORD code;
    int number;
};

// Numbers that the headers of the compiler lack.
constexpr DWORD kVirusInfected = 225;
constexpr DWORD kVirusDeleted = 226;
constexpr DWORD kQuotaExceeded = 1295;
constexpr DWORD kCloudProviderNotRunning = 362;
constexpr DWORD kCloudReadOnly = 381;
constexpr DWORD kCloudNotSignedIn = 386;
constexpr DWORD kCloudBusy = 387;  // its provider has no means left
constexpr DWORD kCloudNetworkUnavailable = 388;
constexpr DWORD kCloudUnsuccessful = 389;
constexpr DWORD kCloudFileInUse = 391;
constexpr DWORD kCloudAborted = 393;
constexpr DWORD kCloudAccessDenied = 395;
constexpr DWORD kCloudCanceled = 398;
constexpr DWORD kCloudProviderEnded = 404;
constexpr DWORD kCloudTimeout = 426;

constexpr auto kMeanings = std::to_array<Meaning>({
    {ERROR_FILE_NOT_FOUND, ENOENT},
    {ERROR_PATH_NOT_FOUND, ENOENT},
    {ERROR_INVALID_DRIVE, ENOENT},
    {ERROR_BAD_NET_NAME, ENOENT},
    {ERROR_INVALID_NAME, EINVAL},
    {ERROR_BAD_PATHNAME, EINVAL},
    {ERROR_ACCESS_DENIED, EACCES},
    {ERROR_CANNOT_MAKE, EACCES},
    {ERROR_SHARING_VIOLATION, EBUSY},
    {ERROR_LOCK_VIOLATION, EBUSY},
    {ERROR_USER_MAPPED_FILE, EBUSY},
    {ERROR_FILE_EXISTS, EEXIST},
    {ERROR_ALREADY_EXISTS, EEXIST},
    {ERROR_DISK_FULL, ENOSPC},
    {ERROR_HANDLE_DISK_FULL, ENOSPC},
    {ERROR_WRITE_PROTECT, EROFS},
    {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
    {ERROR_DIRECTORY, ENOTDIR},
    {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
    {ERROR_OUTOFMEMORY, ENOMEM},
    {ERROR_TOO_MANY_OPEN_FILES, EMFILE},
    {ERROR_CANT_RESOLVE_FILENAME, ELOOP},
    {kQuotaExceeded, ENOSPC},
    {ERROR_NOT_READY, ENETUNREACH},
    {ERROR_BAD_NETPATH, ENETUNREACH},
    {ERROR_REM_NOT_LIST, ENETUNREACH},
    {ERROR_DEV_NOT_EXIST, ENETUNREACH},
    {ERROR_BAD_NET_RESP, ENETUNREACH},
    {ERROR_UNEXP_NET_ERR, ENETUNREACH},
    {ERROR_NETNAME_DELETED, ENETUNREACH},
    {ERROR_SEM_TIMEOUT, ENETUNREACH},
    {ERROR_NO_NETWORK, ENETUNREACH},
    {ERROR_NETWORK_UNREACHABLE, ENETUNREACH},
    {ERROR_HOST_UNREACHABLE, ENETUNREACH},
    {kVirusInfected, EPERM},
    {kVirusDeleted, EPERM},
    {kCloudProviderNotRunning, EHOSTUNREACH},
    {kCloudNotSignedIn, EHOSTUNREACH},
    {kCloudBusy, EHOSTUNREACH},
    {kCloudNetworkUnavailable, EHOSTUNREACH},
    {kCloudUnsuccessful, EHOSTUNREACH},
    {kCloudAborted, EHOSTUNREACH},
    {kCloudCanceled, EHOSTUNREACH},
    {kCloudProviderEnded, EHOSTUNREACH},
    {kCloudTimeout, EHOSTUNREACH},
    {kCloudReadOnly, EROFS},
    {kCloudFileInUse, EBUSY},
    {kCloudAccessDenied, EACCES},
});

struct Words {
    int number;
    const char* words;
};

// What the system's library has no words for, or none that help.
constexpr auto kWords = std::to_array<Words>({
    {EBUSY, "Another program holds the file"},
    {EHOSTUNREACH, "The file is only in the cloud, which does not answer now"},
    {EINVAL, "The name has characters that names of files cannot have"},
    {ELOOP, "Too many levels of symbolic links"},
    {ENAMETOOLONG, "File name too long"},
    {ENETUNREACH, "The drive or the network does not answer"},
    {EPERM, "A virus scanner refuses the file"},
    {EROFS, "The disk is write-protected"},
});

}  // namespace

std::error_code errorFrom(DWORD code) noexcept {
    const auto* const known = std::ranges::find(kMeanings, code, &Meaning::code);
    return {known == kMeanings.end() ? EIO : known->number, std::generic_category()};
}

std::string wordsFor(std::error_code error) {
    const auto* const better = std::ranges::find(kWords, error.value(), &Words::number);
    return better == kWords.end() ? error.message() : better->words;
}

std::string withSlashes(std::string path) {
    std::ranges::replace(path, '\\', '/');
    return path;
}

// "//COMPUTER/SHARE", and likewise what is marked as whole: "//?/C:", "//?/UNC/COMPUTER/SHARE".
bool isShare(const std::string& path) {
    constexpr std::string_view kSlashes = "//";
    constexpr std::string_view kMarked = "//?/UNC/";
    const std::string slashed = withSlashes(path);
    std::string_view rest = slashed;
    if (!rest.starts_with(kSlashes)) return false;
    const bool isMarked = isSameIgnoringCase(rest.substr(0, kMarked.size()), kMarked);
    rest.remove_prefix(isMarked ? kMarked.size() : kSlashes.size());
    if (rest.ends_with('/')) rest.remove_suffix(1);
    return std::ranges::count(rest, '/') <= 1;
}

NativePath::NativePath(const std::string& path) noexcept {
    constexpr std::size_t kShort = 240;  // beyond that the mark is needed
    const std::size_t size = convert(path);
    if (size == 0 || size < kShort || std::wstring_view(text_).starts_with(L"\\\\?\\")) return;
    std::array<wchar_t, kLongestPath> whole;
    const DWORD length =
        ::GetFullPathNameW(text_, static_cast<DWORD>(kLongestPath), whole.data(), nullptr);
    std::wstring_view rest(whole.data(), length);
    if (length == 0 || length + 8 >= kLongestPath) return;  // it stays as it was given
    std::wstring_view mark = L"\\\\?\\";
    if (rest.starts_with(L"\\\\")) {
        mark = L"\\\\?\\UNC\\";
        rest.remove_prefix(2);
    }
    wchar_t* const end = std::ranges::copy(rest, std::ranges::copy(mark, text_).out).out;
    *end = L'\0';
}

// Whether one of its names is longer than file systems take. They call that an invalid name.
bool NativePath::hasTooLongName() const noexcept {
    constexpr std::size_t kLongestName = 255;
    std::wstring_view rest = text_;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(L'\\'), rest.size());
        if (end > kLongestName) return true;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return isTooLong_;
}

// Whether what stands in a folder's place is a file. The system says of that, too, that there is no
// such path.
bool NativePath::hasFileAbove() const noexcept {
    NativePath above(*this);
    while (wchar_t* const end = std::wcsrchr(above.text_, L'\\')) {
        *end = L'\0';
        const DWORD attributes = ::GetFileAttributesW(above.text_);
        if (attributes != INVALID_FILE_ATTRIBUTES) {
            return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
        }
    }
    return false;
}

std::error_code NativePath::errorFrom(DWORD code) const noexcept {
    if (hasTooLongName()) return std::make_error_code(std::errc::filename_too_long);
    if (code == ERROR_PATH_NOT_FOUND && hasFileAbove()) {
        return std::make_error_code(std::errc::not_a_directory);
    }
    return files::errorFrom(code);
}

// The number of its units; 0 for no path.
std::size_t NativePath::convert(std::string_view path) noexcept {
    const int most = static_cast<int>(kLongestPath) - 1;
    constexpr std::size_t kMostBytes = 3;  // of UTF-8, for a unit
    const int given = static_cast<int>(std::min(path.size(), kLongestPath * kMostBytes));
    const int length =
        ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path.data(), given, text_, most);
    isTooLong_ = length == 0 && ::GetLastError() == ERROR_INSUFFICIENT_BUFFER;
    text_[length] = L'\0';
    std::replace(text_, text_ + length, L'/', L'\\');
    return static_cast<std::size_t>(length);
}

std::string fromNative(std::wstring_view text) {
    const int size = static_cast<int>(text.size());
    std::string utf8(text.size() * 3, '\0');
    const int length = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(),
                                             static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(std::max(length, 0)));
    return utf8;
}

std::string withoutMark(std::string path) {
    constexpr std::string_view kServer = "\\\\?\\UNC\\";
    constexpr std::string_view kDrive = "\\\\?\\";
    if (path.starts_with(kServer)) {
        path.replace(0, kServer.size(), "\\\\");
    } else if (path.starts_with(kDrive)) {
        path.erase(0, kDrive.size());
    }
    return withSlashes(std::move(path));
}

}  // namespace corvane::files
