#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>

#include "model/files.h"

namespace corvane::files {

namespace {

// The longest path that the system takes, with its end, in UTF-16.
constexpr std::size_t kLongestPath = 32768;

// Programs that look at every new file, such as indexers and virus scanners, hold it for a moment.
constexpr int kMostTries = 40;
constexpr DWORD kBetweenTries = 50;  // milliseconds

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                                  FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                                  FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

struct Meaning {
    DWORD code;
    int number;
};

constexpr std::array<Meaning, 22> kMeanings = {{
    {ERROR_FILE_NOT_FOUND, ENOENT}, {ERROR_PATH_NOT_FOUND, ENOENT},
    {ERROR_INVALID_DRIVE, ENOENT},  {ERROR_BAD_NETPATH, ENOENT},
    {ERROR_BAD_NET_NAME, ENOENT},   {ERROR_INVALID_NAME, ENOENT},
    {ERROR_BAD_PATHNAME, ENOENT},   {ERROR_ACCESS_DENIED, EACCES},
    {ERROR_CANNOT_MAKE, EACCES},    {ERROR_SHARING_VIOLATION, EBUSY},
    {ERROR_LOCK_VIOLATION, EBUSY},  {ERROR_USER_MAPPED_FILE, EBUSY},
    {ERROR_FILE_EXISTS, EEXIST},    {ERROR_ALREADY_EXISTS, EEXIST},
    {ERROR_DISK_FULL, ENOSPC},      {ERROR_HANDLE_DISK_FULL, ENOSPC},
    {ERROR_WRITE_PROTECT, EROFS},   {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
    {ERROR_DIRECTORY, ENOTDIR},     {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
    {ERROR_OUTOFMEMORY, ENOMEM},    {ERROR_TOO_MANY_OPEN_FILES, EMFILE},
}};

std::error_code errorFrom(DWORD code) noexcept {
    const auto* const known = std::ranges::find(kMeanings, code, &Meaning::code);
    return {known == kMeanings.end() ? EIO : known->number, std::generic_category()};
}

std::error_code lastError() noexcept { return errorFrom(::GetLastError()); }

std::error_code errorUnless(bool done) noexcept { return done ? std::error_code() : lastError(); }

// A path as the system takes it: in UTF-16 and, where it is long, whole and marked as such. Asks
// for no memory.
class NativePath {
public:
    explicit NativePath(const std::string& path) noexcept {
        constexpr std::size_t kShort = 240;  // beyond that the mark is needed
        const std::size_t size = convert(path.empty() ? "." : path);
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

    const wchar_t* get() const noexcept { return text_; }

private:
    // The number of its units; 0 for no path.
    std::size_t convert(std::string_view path) noexcept {
        const int most = static_cast<int>(kLongestPath) - 1;
        const int given = static_cast<int>(std::min(path.size(), kLongestPath));
        const int length =
            ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path.data(), given, text_, most);
        text_[length] = L'\0';
        std::replace(text_, text_ + length, L'/', L'\\');
        return static_cast<std::size_t>(length);
    }

    wchar_t text_[kLongestPath];
};

std::string fromNative(std::wstring_view text) {
    const int size = static_cast<int>(text.size());
    std::string utf8(text.size() * 3, '\0');
    const int length = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(),
                                             static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(std::max(length, 0)));
    return utf8;
}

HANDLE handleOf(std::intptr_t handle) noexcept {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): that is what a handle is
    return reinterpret_cast<HANDLE>(handle);
}

bool isHeldByAnother(DWORD code) noexcept {
    return code == ERROR_SHARING_VIOLATION || code == ERROR_LOCK_VIOLATION ||
           code == ERROR_USER_MAPPED_FILE;
}

// Repeats a call while another program holds the file. `call` tells whether it succeeded.
template <class Call>
std::error_code patiently(Call call, bool alsoWhereDenied = false) noexcept {
    for (int tries = 1;; ++tries) {
        if (call()) return {};
        const DWORD code = ::GetLastError();
        const bool isHeld =
            isHeldByAnother(code) || (alsoWhereDenied && code == ERROR_ACCESS_DENIED);
        if (!isHeld || tries == kMostTries) return errorFrom(code);
        ::Sleep(kBetweenTries);
    }
}

std::intptr_t open(const std::string& path, DWORD access, DWORD how, DWORD flags,
                   std::error_code& error) noexcept {
    const NativePath native(path);
    HANDLE handle = INVALID_HANDLE_VALUE;
    error = patiently([&] {
        handle = ::CreateFileW(native.get(), access, kShareAll, nullptr, how, flags, nullptr);
        return handle != INVALID_HANDLE_VALUE;
    });
    return reinterpret_cast<std::intptr_t>(handle);
}

std::uint64_t joined(DWORD high, DWORD low) noexcept {
    return (static_cast<std::uint64_t>(high) << 32U) | low;
}

std::optional<Status> statusOfHandle(HANDLE handle, std::error_code& error) noexcept {
    BY_HANDLE_FILE_INFORMATION info{};
    error = errorUnless(::GetFileInformationByHandle(handle, &info) != 0);
    if (error) return std::nullopt;
    constexpr std::int64_t kUntil1970 = 116'444'736'000'000'000;  // in steps of 100 ns, from 1601
    const auto time = static_cast<std::int64_t>(
        joined(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime));
    Status status;
    status.stamp = {info.dwVolumeSerialNumber, joined(info.nFileIndexHigh, info.nFileIndexLow),
                    static_cast<std::int64_t>(joined(info.nFileSizeHigh, info.nFileSizeLow)),
                    (time - kUntil1970) * 100};
    const bool isFolder = (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    const bool isLink = (info.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    if (isFolder) {
        status.kind = Kind::Folder;
    } else if (!isLink && ::GetFileType(handle) == FILE_TYPE_DISK) {
        status.kind = Kind::Regular;
    }
    status.names = info.nNumberOfLinks;
    status.permissions = info.dwFileAttributes & kKeptAttributes;
    return status;
}

bool setAttributes(const wchar_t* path, DWORD attributes) noexcept {
    return ::SetFileAttributesW(path, attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes) != 0;
}

}  // namespace

std::optional<Status> statusOf(const std::string& path, std::error_code& error,
                               Links links) noexcept {
    const DWORD flags = FILE_FLAG_BACKUP_SEMANTICS |  // folders, too
                        (links == Links::Stay ? FILE_FLAG_OPEN_REPARSE_POINT : 0);
    const std::intptr_t handle = open(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING, flags, error);
    if (error) {
        if (error == std::errc::no_such_file_or_directory) error.clear();
        return std::nullopt;
    }
    std::optional<Status> status = statusOfHandle(handleOf(handle), error);
    ::CloseHandle(handleOf(handle));
    return status;
}

std::error_code whyNotWritable(const std::string& path) noexcept {
    std::error_code error;
    const std::intptr_t handle = open(path, GENERIC_WRITE, OPEN_EXISTING, 0, error);
    if (!error) ::CloseHandle(handleOf(handle));
    return error;
}

// While another program holds the old file the system says that access is denied.
std::error_code rename(const std::string& from, const std::string& to) noexcept {
    const NativePath old(from);
    const NativePath target(to);
    return patiently(
        [&] {
            return ::MoveFileExW(old.get(), target.get(),
                                 MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
        },
        true);
}

std::error_code remove(const std::string& path) noexcept {
    const NativePath native(path);
    const DWORD attributes = ::GetFileAttributesW(native.get());
    const bool isReadOnly =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (isReadOnly) setAttributes(native.get(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    return patiently([&] { return ::DeleteFileW(native.get()) != 0; });
}

// The system keeps the names in a folder safe by itself.
void flushFolder(const std::string& /*folder*/) noexcept {}

std::vector<std::string> namesIn(const std::string& folder, std::string_view beginning) {
    const NativePath pattern((folder.empty() ? "." : folder) + "/*");
    std::vector<std::string> names;
    WIN32_FIND_DATAW entry{};
    HANDLE found = ::FindFirstFileW(pattern.get(), &entry);
    if (found == INVALID_HANDLE_VALUE) return names;
    const auto close = [](HANDLE open) { ::FindClose(open); };
    const std::unique_ptr<void, decltype(close)> closing(found, close);
    do {
        std::string name = fromNative(entry.cFileName);
        if (name.starts_with(beginning)) names.push_back(std::move(name));
    } while (::FindNextFileW(found, &entry) != 0);
    return names;
}

// The user's own folders are private by what they inherit.
std::error_code makePrivateFolder(const std::string& path) noexcept {
    const NativePath native(path);
    if (::CreateDirectoryW(native.get(), nullptr) != 0) return {};
    const DWORD code = ::GetLastError();
    if (code != ERROR_ALREADY_EXISTS) return errorFrom(code);
    const DWORD attributes = ::GetFileAttributesW(native.get());
    if (attributes == INVALID_FILE_ATTRIBUTES) return lastError();
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        return std::make_error_code(std::errc::not_a_directory);
    }
    return {};
}

// Files have owners here, but a user's rights do not go by them.
bool isOwnedByUser(const Status& /*status*/) noexcept { return true; }

long processId() noexcept { return static_cast<long>(::GetCurrentProcessId()); }

bool isProcessGone(long id) noexcept {
    if (id <= 0) return false;
    HANDLE process = ::OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(id));
    if (process == nullptr) return ::GetLastError() == ERROR_INVALID_PARAMETER;
    const bool hasEnded = ::WaitForSingleObject(process, 0) == WAIT_OBJECT_0;
    ::CloseHandle(process);
    return hasEnded;
}

std::string homeFolder() {
    const wchar_t* const home = ::_wgetenv(L"USERPROFILE");
    std::string folder = home == nullptr ? std::string() : fromNative(home);
    std::ranges::replace(folder, '\\', '/');
    return folder;
}

std::unique_ptr<char[]> memoryFor(std::size_t size) {
    return std::make_unique_for_overwrite<char[]>(size);
}

File File::toRead(const std::string& path, std::error_code& error) noexcept {
    // Folders can be opened, so that they are told apart by their status.
    return File(open(path, GENERIC_READ, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, error));
}

File File::toCreate(const std::string& path, Privacy /*privacy*/, std::error_code& error) noexcept {
    return File(open(path, GENERIC_WRITE, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, error));
}

File File::toRewrite(const std::string& path, std::error_code& error) noexcept {
    return File(open(path, GENERIC_WRITE, OPEN_EXISTING, 0, error));
}

File File::toLock(const std::string& path, std::error_code& error) noexcept {
    return File(
        open(path, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, error));
}

namespace {

// Far beyond the end, where no lock keeps anybody from reading.
OVERLAPPED lockedByte() noexcept {
    OVERLAPPED place{};
    place.OffsetHigh = std::numeric_limits<LONG>::max();
    return place;
}

}  // namespace

bool File::lock() noexcept {
    OVERLAPPED place = lockedByte();
    return ::LockFileEx(handleOf(handle_), LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place) != 0;
}

bool File::isLocked() noexcept {
    OVERLAPPED place = lockedByte();
    if (::LockFileEx(handleOf(handle_), LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) == 0) {
        const DWORD code = ::GetLastError();
        return code == ERROR_LOCK_VIOLATION || code == ERROR_IO_PENDING;
    }
    OVERLAPPED again = lockedByte();
    ::UnlockFileEx(handleOf(handle_), 0, 1, 0, &again);
    return false;
}

std::optional<Status> File::status(std::error_code& error) const noexcept {
    return statusOfHandle(handleOf(handle_), error);
}

std::size_t File::read(std::span<char> into, std::error_code& error) noexcept {
    constexpr std::size_t kMostAtOnce = std::size_t{1} << 30U;
    DWORD got = 0;
    const auto wanted = static_cast<DWORD>(std::min(into.size(), kMostAtOnce));
    error = errorUnless(::ReadFile(handleOf(handle_), into.data(), wanted, &got, nullptr) != 0);
    return error ? 0 : got;
}

std::error_code File::write(std::span<const std::string_view> pieces) noexcept {
    constexpr std::size_t kMostAtOnce = std::size_t{1} << 30U;
    for (std::string_view piece : pieces) {
        while (!piece.empty()) {
            DWORD written = 0;
            const auto wanted = static_cast<DWORD>(std::min(piece.size(), kMostAtOnce));
            if (::WriteFile(handleOf(handle_), piece.data(), wanted, &written, nullptr) == 0) {
                return lastError();
            }
            if (written == 0) return std::make_error_code(std::errc::io_error);
            piece.remove_prefix(written);
        }
    }
    return {};
}

std::error_code File::setSize(std::size_t size) noexcept {
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(size);
    return errorUnless(::SetFilePointerEx(handleOf(handle_), place, nullptr, FILE_BEGIN) != 0 &&
                       ::SetEndOfFile(handleOf(handle_)) != 0);
}

std::error_code File::flush() noexcept {
    return errorUnless(::FlushFileBuffers(handleOf(handle_)) != 0);
}

// Windows has no such advice.
void File::forget() noexcept {}

std::error_code File::takeOver(const Status& from, bool addWriting) noexcept {
    DWORD wanted = from.permissions;
    if (addWriting) wanted &= ~DWORD{FILE_ATTRIBUTE_READONLY};
    FILE_BASIC_INFO info{};  // times of 0 stay as they are
    info.FileAttributes = wanted == 0 ? FILE_ATTRIBUTE_NORMAL : wanted;
    return errorUnless(
        ::SetFileInformationByHandle(handleOf(handle_), FileBasicInfo, &info, sizeof info) != 0);
}

std::error_code File::close() noexcept {
    if (handle_ == kNone) return {};
    return errorUnless(::CloseHandle(handleOf(std::exchange(handle_, kNone))) != 0);
}

}  // namespace corvane::files
