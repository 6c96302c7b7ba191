#include <algorithm>
#include <limits>

#include "model/files.h"
#include "model/native_path_windows.h"

namespace corvane::files {

namespace {

// Programs that look at every new file, such as indexers and virus scanners, hold it for a moment.
constexpr int kMostTries = 40;
constexpr DWORD kBetweenTries = 50;  // milliseconds

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// Those that users see the effect of, and those that a file keeps.
constexpr DWORD kSeenAttributes =
    FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
constexpr DWORD kKeptAttributes =
    kSeenAttributes | FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

std::error_code lastError() noexcept { return errorFrom(::GetLastError()); }

std::error_code errorUnless(bool done) noexcept { return done ? std::error_code() : lastError(); }

HANDLE handleOf(std::intptr_t handle) noexcept {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): that is what a handle is
    return reinterpret_cast<HANDLE>(handle);
}

bool isHeldByAnother(DWORD code) noexcept {
    return code == ERROR_SHARING_VIOLATION || code == ERROR_LOCK_VIOLATION ||
           code == ERROR_USER_MAPPED_FILE;
}

// Repeats a call while another program holds the file. `call` returns what the system says.
template <class Call>
DWORD patiently(Call call) noexcept {
    for (int tries = 1;; ++tries) {
        const DWORD code = call();
        if (!isHeldByAnother(code) || tries == kMostTries) return code;
        ::Sleep(kBetweenTries);
    }
}

DWORD codeUnless(bool done) noexcept { return done ? ERROR_SUCCESS : ::GetLastError(); }

std::intptr_t open(const std::string& path, DWORD access, DWORD how, DWORD flags,
                   std::error_code& error) noexcept {
    const NativePath native(path);
    HANDLE handle = INVALID_HANDLE_VALUE;
    const DWORD code = patiently([&] {
        handle = ::CreateFileW(native.get(), access, kShareAll, nullptr, how, flags, nullptr);
        return codeUnless(handle != INVALID_HANDLE_VALUE);
    });
    error = code == ERROR_SUCCESS ? std::error_code() : native.errorFrom(code);
    return reinterpret_cast<std::intptr_t>(handle);
}

std::uint64_t joined(DWORD high, DWORD low) noexcept {
    return (static_cast<std::uint64_t>(high) << 32U) | low;
}

// Whether an open file is a link itself. Files that are stored in another way, such as those that a
// cloud holds, have the same attribute.
bool isLink(HANDLE handle) noexcept {
    FILE_ATTRIBUTE_TAG_INFO info{};
    return ::GetFileInformationByHandleEx(handle, FileAttributeTagInfo, &info, sizeof info) != 0 &&
           (info.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           IsReparseTagNameSurrogate(info.ReparseTag);
}

std::optional<Status> statusOfHandle(HANDLE handle, std::error_code& error) noexcept {
    error.clear();
    if (::GetFileType(handle) != FILE_TYPE_DISK) return Status{};  // a device, or a pipe
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
    if (!isLink(handle)) status.kind = isFolder ? Kind::Folder : Kind::Regular;
    status.names = info.nNumberOfLinks;
    status.permissions = info.dwFileAttributes & kKeptAttributes;
    return status;
}

bool setAttributes(const wchar_t* path, DWORD attributes) noexcept {
    return ::SetFileAttributesW(path, attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes) != 0;
}

// Why a file cannot be replaced; success where nothing is known to keep it from that.
DWORD whyNotReplaced(const NativePath& path) noexcept {
    HANDLE file = ::CreateFileW(path.get(), DELETE, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return ::GetLastError();
    ::CloseHandle(file);
    return ERROR_SUCCESS;
}

DWORD move(const NativePath& from, const NativePath& to) noexcept {
    constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    const auto tried = [&] { return codeUnless(::MoveFileExW(from.get(), to.get(), kFlags) != 0); };
    DWORD code = tried();
    if (code != ERROR_ACCESS_DENIED) return code;
    // That is what it says while another program has the target open, too, whatever the other one
    // shares of it; by now it may have let go.
    const DWORD reason = whyNotReplaced(to);
    if (isHeldByAnother(reason)) return ERROR_SHARING_VIOLATION;
    code = tried();
    const bool mayBeReplaced = reason == ERROR_SUCCESS;
    return mayBeReplaced && code == ERROR_ACCESS_DENIED ? ERROR_SHARING_VIOLATION : code;
}

}  // namespace

std::optional<Status> statusOf(const std::string& path, std::error_code& error,
                               Links links) noexcept {
    const DWORD flags = FILE_FLAG_BACKUP_SEMANTICS |  // folders, too
                        (links == Links::Stay ? FILE_FLAG_OPEN_REPARSE_POINT : 0);
    const std::intptr_t handle = open(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING, flags, error);
    if (error) {
        const bool isMissing =
            error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
        if (isMissing) error.clear();
        return std::nullopt;
    }
    std::optional<Status> status = statusOfHandle(handleOf(handle), error);
    ::CloseHandle(handleOf(handle));
    return status;
}

// The whole path of what it leads to in the end.
std::optional<std::string> linkTarget(const std::string& path, std::error_code& error) {
    const std::intptr_t link =
        open(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING,
             FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, error);
    const bool leadsOn = !error && isLink(handleOf(link));
    if (!error) ::CloseHandle(handleOf(link));
    error.clear();
    if (!leadsOn) return std::nullopt;
    std::wstring whole(kLongestPath, L'\0');
    const std::intptr_t target =
        open(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, error);
    if (error) return std::nullopt;
    whole.resize(::GetFinalPathNameByHandleW(handleOf(target), whole.data(),
                                             static_cast<DWORD>(kLongestPath), 0));
    error = errorUnless(!whole.empty());
    ::CloseHandle(handleOf(target));
    if (error) return std::nullopt;
    return withoutMark(fromNative(whole));
}

std::error_code whyNotWritable(const std::string& path) noexcept {
    const DWORD attributes = ::GetFileAttributesW(NativePath(path).get());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        return std::make_error_code(std::errc::permission_denied);
    }
    std::error_code error;
    const std::intptr_t handle = open(path, GENERIC_WRITE, OPEN_EXISTING, 0, error);
    if (!error) ::CloseHandle(handleOf(handle));
    return error;
}

std::error_code rename(const std::string& from, const std::string& to) noexcept {
    const NativePath old(from);
    const NativePath target(to);
    const DWORD attributes = ::GetFileAttributesW(target.get());
    const bool isThere = attributes != INVALID_FILE_ATTRIBUTES;
    if (isThere && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return std::make_error_code(std::errc::is_a_directory);
    }
    // The attribute is a file's, and says nothing of who may put another one in its place.
    const bool isReadOnly = isThere && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (isReadOnly) setAttributes(target.get(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    const DWORD code = patiently([&] { return move(old, target); });
    if (code == ERROR_SUCCESS) return {};
    if (isReadOnly) setAttributes(target.get(), attributes);
    return target.errorFrom(code);
}

std::error_code remove(const std::string& path) noexcept {
    const NativePath native(path);
    const DWORD attributes = ::GetFileAttributesW(native.get());
    if (attributes == INVALID_FILE_ATTRIBUTES) return lastError();
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return std::make_error_code(std::errc::is_a_directory);
    }
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        setAttributes(native.get(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    }
    const DWORD code = patiently([&] { return codeUnless(::DeleteFileW(native.get()) != 0); });
    return code == ERROR_SUCCESS ? std::error_code() : errorFrom(code);
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
    const DWORD attributes = ::GetFileAttributesW(native.get());
    const bool isThere = attributes != INVALID_FILE_ATTRIBUTES;
    if (isThere && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return {};
    if (isThere) return std::make_error_code(std::errc::not_a_directory);
    return native.errorFrom(code);
}

// From the top down. What cannot be made there need not be: the drive, or the share of a server.
std::error_code makeFolders(const std::string& path) {
    std::error_code error;
    for (std::size_t end = 0; end != std::string::npos;) {
        end = path.find_first_of("/\\", end + 1);
        error = makePrivateFolder(path.substr(0, end));
    }
    return error;
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
    return home == nullptr ? std::string() : withSlashes(fromNative(home));
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
    if (::SetFileInformationByHandle(handleOf(handle_), FileBasicInfo, &info, sizeof info) != 0) {
        return {};
    }
    // Some file systems take no attributes, which is no harm where none are asked for.
    const std::error_code refused = lastError();
    BY_HANDLE_FILE_INFORMATION now{};
    const bool isKnown = ::GetFileInformationByHandle(handleOf(handle_), &now) != 0;
    const bool isAsWanted = ((now.dwFileAttributes ^ wanted) & kSeenAttributes) == 0;
    return isKnown && isAsWanted ? std::error_code() : refused;
}

std::error_code File::close() noexcept {
    if (handle_ == kNone) return {};
    return errorUnless(::CloseHandle(handleOf(std::exchange(handle_, kNone))) != 0);
}

}  // namespace corvane::files
