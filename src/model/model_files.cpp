#include "model/model_files.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <filesystem>
#include <utility>

namespace corvane {

namespace {

namespace fs = std::filesystem;

constexpr const char* kSidePrefix = ".corvane-";
constexpr const char* kSideEnding = ".tmp";
constexpr const char* kFormerEnding = ".former";

// Between paths of the library and UTF-8, whatever the system's own encoding is.
fs::path pathOf(const std::string& text) { return {std::u8string(text.begin(), text.end())}; }

std::string textOf(const fs::path& path) {
    // Not the generic one: it makes one slash of the two that a share's path begins with.
    const std::u8string text = path.u8string();
    return files::withSlashes({text.begin(), text.end()});
}

// Follows symbolic links to the file that is really meant, which need not exist.
std::string resolvedTarget(const std::string& path) {
    constexpr int kMostLinks = 40;  // as the kernel has it; more than that is a loop
    std::string target = path;
    std::error_code error;
    for (int links = 0; const auto leadsTo = files::linkTarget(target, error); ++links) {
        if (links == kMostLinks) {
            throw FileError(path, std::make_error_code(std::errc::too_many_symbolic_link_levels));
        }
        const fs::path next = pathOf(*leadsTo);
        // The library does not know that what a share's path begins with is no folder.
        const bool isWhole = next.is_absolute() || leadsTo->starts_with("//");
        target = textOf(isWhole ? next : pathOf(target).parent_path() / next);
    }
    if (error) throw FileError(path, error);
    return target;
}

void check(const std::string& path, std::error_code error) {
    if (error) throw FileError(path, error);
}

// Copies one file over another one in place, and waits until the disk holds it.
std::error_code copyInPlace(const std::string& from, const std::string& to,
                            FileStamp* stamp) noexcept {
    std::error_code error;
    files::File source = files::File::toRead(from, error);
    if (error) return error;
    files::File target = files::File::toRewrite(to, error);
    if (error) return error;
    std::array<char, std::size_t{64} << 10U> buffer;  // no memory: it may be what has run out
    std::size_t size = 0;
    while (const std::size_t got = source.read(buffer, error)) {
        const std::string_view piece(buffer.data(), got);
        error = target.write({&piece, 1});
        if (error) return error;
        size += got;
    }
    if (!error) error = target.setSize(size);
    if (!error) error = target.flush();
    if (error) return error;
    const std::optional<files::Status> status = target.status(error);
    if (status && stamp != nullptr) *stamp = status->stamp;
    return error ? error : target.close();
}

// The process that a file beside a model has in its name; 0 for a name of another kind.
long processIn(std::string_view name, std::string_view ending) {
    const std::string_view prefix = kSidePrefix;
    if (!name.starts_with(prefix) || !name.ends_with(ending)) return 0;
    const char* const end = name.data() + name.size() - ending.size();
    long process = 0;
    const auto first = std::from_chars(name.data() + prefix.size(), end, process);
    if (first.ec != std::errc() || first.ptr == end || *first.ptr != '-') return 0;
    unsigned number = 0;
    const auto second = std::from_chars(first.ptr + 1, end, number);
    return second.ec == std::errc() && second.ptr == end ? process : 0;
}

bool isOld(const FileStamp& stamp) {
    constexpr std::chrono::nanoseconds kLongEnough = std::chrono::minutes(1);
    const std::chrono::nanoseconds now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::nanoseconds(stamp.modified) < now - kLongEnough;
}

// Calls with the user's files in a folder that processes have made beside a model, with that
// ending: the path, whether the process is gone, and whether the file is more than a minute old.
// The names are the system's own, not the standard library's: its folders end the program where
// memory runs out.
template <class Call>
void forEachLeftover(const std::string& folder, const char* ending, Call call) {
    for (const std::string& name : files::namesIn(folder, kSidePrefix)) {
        const long process = processIn(name, ending);
        if (process <= 0) continue;
        const std::string path = textOf(pathOf(folder) / pathOf(name));
        std::error_code ignored;
        const auto status = files::statusOf(path, ignored, files::Links::Stay);
        if (!status || status->kind != files::Kind::Regular) continue;
        if (!files::isOwnedByUser(*status)) continue;
        call(path, files::isProcessGone(process), isOld(status->stamp));
    }
}

// The stamp of a file that has just been renamed, of which the one from before is known. Some file
// systems number a file anew under its new name. What another program has written there since is of
// another size or time.
FileStamp stampInPlace(const std::string& path, const FileStamp& before) noexcept {
    std::error_code ignored;
    const std::optional<files::Status> status = files::statusOf(path, ignored);
    const bool isOwn =
        status && status->stamp.size == before.size && status->stamp.modified == before.modified;
    return isOwn ? status->stamp : before;
}

// The folder that a model is named in, and that of the file that it leads to, if it is another.
std::vector<std::string> foldersOf(const std::string& modelPath) {
    std::vector<std::string> folders = {folderOf(modelPath)};
    std::string target = folderOf(resolvedTarget(modelPath));
    if (target != folders.front()) folders.push_back(std::move(target));
    return folders;
}

}  // namespace

FileError::FileError(const std::string& path, const std::string& reason)
    : std::runtime_error(path + ": " + reason) {}

FileError::FileError(const std::string& path, std::error_code code)
    : std::runtime_error(path + ": " + files::wordsFor(code)), code_(code) {}

FileError::FileError(const std::string& path, int errorNumber)
    : FileError(path, std::error_code(errorNumber, std::generic_category())) {}

ModelText readModelFile(const std::string& path, FileStamp* stamp) {
    std::error_code error;
    files::File file = files::File::toRead(path, error);
    check(path, error);
    const std::optional<files::Status> status = file.status(error);
    if (!status) throw FileError(path, error);
    if (status->kind == files::Kind::Folder) {
        throw FileError(path, std::make_error_code(std::errc::is_a_directory));
    }
    if (status->kind != files::Kind::Regular) throw FileError(path, "not a regular file");
    if (status->stamp.size > kLargestFile) {
        throw FileError(path, "larger than " + std::to_string(kLargestFile >> 20) + " MiB");
    }
    if (stamp != nullptr) *stamp = status->stamp;

    // One byte more than the file had, to notice if it grows meanwhile.
    const auto expected = static_cast<std::size_t>(status->stamp.size);
    auto bytes = files::memoryFor(expected + 1);
    std::size_t size = 0;
    while (size <= expected) {
        const std::size_t got = file.read({bytes.get() + size, expected + 1 - size}, error);
        check(path, error);
        if (got == 0) break;
        size += got;
    }
    if (size != expected) throw FileError(path, "changed while it was read");
    return {path, std::move(bytes), size};
}

ModelText joinedText(const std::string& path, std::span<const std::string_view> pieces) {
    std::size_t size = 0;
    for (const std::string_view piece : pieces) size += piece.size();
    auto bytes = files::memoryFor(size);
    char* to = bytes.get();
    for (const std::string_view piece : pieces) to = std::copy(piece.begin(), piece.end(), to);
    return {path, std::move(bytes), size};
}

PendingFile::PendingFile(std::string path, std::span<const std::string_view> pieces,
                         const ReplaceOptions& options)
    : path_(std::move(path)), flushToDisk_(options.flushToDisk), readSoon_(options.readSoon) {
    try {
        prepare(pieces, options);
    } catch (const FileError& error) {
        discard();
        const bool tooLong = error.code() == std::errc::filename_too_long;
        if (!tooLong || !options.skipTooLongName) throw;
    } catch (...) {
        discard();
        throw;
    }
}

PendingFile::~PendingFile() { discard(); }

void PendingFile::prepare(std::span<const std::string_view> pieces, const ReplaceOptions& options) {
    const bool own = !options.permissionsOf.empty();
    target_ = own ? path_ : resolvedTarget(path_);
    folder_ = folderOf(target_);
    std::error_code error;
    const std::optional<files::Status> old = files::statusOf(target_, error);
    check(path_, error);
    if (old && old->kind == files::Kind::Folder) {
        throw FileError(path_, std::make_error_code(std::errc::is_a_directory));
    }
    if (old && old->kind != files::Kind::Regular) throw FileError(path_, "not a regular file");
    if (old && !own) check(path_, files::whyNotWritable(target_));
    inPlace_ = old && !own && old->names > 1;

    const std::optional<files::Status> like =
        own ? files::statusOf(options.permissionsOf, error) : old;
    check(path_, error);
    files::File file = createBeside(kSideEnding, like.has_value(), side_);
    if (like) check(path_, file.takeOver(*like, own));
    stamp_ = write(pieces, file);
}

// Makes a file beside the target, whose name goes into `name`.
files::File PendingFile::createBeside(const char* ending, bool secret, std::string& name) {
    constexpr int kMostTries = 1000;  // names may be left over from killed processes
    const auto privacy = secret ? files::Privacy::OwnerOnly : files::Privacy::Usual;
    std::error_code error;
    for (int i = 0; i < kMostTries; ++i) {
        std::string candidate =
            textOf(pathOf(folder_) / (kSidePrefix + std::to_string(files::processId()) + "-" +
                                      std::to_string(i) + ending));
        files::File file = files::File::toCreate(candidate, privacy, error);
        if (file.isOpen()) {
            name = std::move(candidate);
            return file;
        }
        if (error != std::errc::file_exists) break;
    }
    throw FileError(path_, error);
}

FileStamp PendingFile::write(std::span<const std::string_view> pieces, files::File& file) {
    check(path_, file.write(pieces));
    if (flushToDisk_) check(path_, file.flush());
    if (!readSoon_) file.forget();
    std::error_code error;
    const std::optional<files::Status> status = file.status(error);
    if (!status) throw FileError(path_, error);
    check(path_, file.close());
    return status->stamp;
}

void PendingFile::commit() {
    if (side_.empty()) return;  // skipped
    if (inPlace_) {
        writeInPlace();
    } else {
        // Some file systems give a file its time only when it is closed.
        if (const std::optional<FileStamp> closed = stampOf(side_)) stamp_ = *closed;
        check(path_, files::rename(side_, target_));
        side_.clear();
        stamp_ = stampInPlace(target_, stamp_);
    }
    if (flushToDisk_) files::flushFolder(folder_);
}

// Puts what the target holds into a file beside it.
void PendingFile::keepFormer() {
    std::error_code error;
    const std::optional<files::Status> like = files::statusOf(target_, error);
    files::File file = createBeside(kFormerEnding, true, former_);
    if (like) check(path_, file.takeOver(*like, true));
    check(path_, file.close());
    check(path_, copyInPlace(target_, former_, nullptr));
    files::flushFolder(folder_);
}

void PendingFile::writeInPlace() {
    keepFormer();
    const std::error_code error = copyInPlace(side_, target_, &stamp_);
    if (error && copyInPlace(former_, target_, nullptr)) {
        const std::string kept = std::exchange(former_, {});  // stays
        throw FileDamagedError(path_, files::wordsFor(error) +
                                          ". The file is only partly written now. What it held "
                                          "before is whole in " +
                                          kept);
    }
    discard();
    check(path_, error);
}

void PendingFile::discard() {
    for (std::string* const file : {&side_, &former_}) {
        if (!file->empty()) files::remove(*file);
        file->clear();
    }
}

FileStamp replaceFile(const std::string& path, std::span<const std::string_view> pieces,
                      const ReplaceOptions& options) {
    PendingFile file(path, pieces, options);
    file.commit();
    return file.stamp();
}

std::optional<FileStamp> stampOf(const std::string& path) {
    std::error_code ignored;
    const std::optional<files::Status> status = files::statusOf(path, ignored);
    if (!status) return std::nullopt;
    return status->stamp;
}

void deleteFile(const std::string& path) { files::remove(path); }

void deleteLeftovers(const std::string& modelPath) {
    for (const std::string& folder : foldersOf(modelPath)) {
        forEachLeftover(folder, kSideEnding, [](const std::string& path, bool gone, bool old) {
            if (gone && old) files::remove(path);
        });
    }
}

std::vector<std::string> formerTextsBeside(const std::string& modelPath) {
    std::vector<std::string> paths;
    for (const std::string& folder : foldersOf(modelPath)) {
        // No save takes a minute: the number of an old file's process may be another one's by now.
        forEachLeftover(folder, kFormerEnding, [&](const std::string& path, bool gone, bool old) {
            if (gone || old) paths.push_back(path);
        });
    }
    return paths;
}

bool isSameFile(const std::string& a, const std::string& b) {
    const std::optional<FileStamp> stamp = stampOf(a);
    const std::optional<FileStamp> other = stampOf(b);
    return stamp && other && stamp->isSameFileAs(*other);
}

std::string freePath(const std::string& folder, const std::string& stem,
                     const std::string& extension) {
    for (int number = 1;; ++number) {
        std::string name = stem;
        if (number > 1) name.append("-").append(std::to_string(number));
        std::string path = textOf(pathOf(folder) / pathOf(name.append(extension)));
        std::error_code ignored;
        if (!files::statusOf(path, ignored, files::Links::Stay)) return path;
    }
}

void makeFoldersAbove(const std::string& path) {
    const std::string folder = folderOf(path);
    check(folder, files::makeFolders(folder));
}

std::string folderOf(const std::string& path) {
    return files::isShare(path) ? path : textOf(pathOf(path).parent_path());
}

std::string nameOf(const std::string& path) { return textOf(pathOf(path).filename()); }

std::string stemOf(const std::string& path) { return textOf(pathOf(path).stem()); }

std::string workPathFor(const std::string& modelPath) {
    constexpr int kCutCharacters = 4;  // of an extension such as ".mdl"
    std::size_t end = modelPath.size();
    for (int cut = 0; cut < kCutCharacters && end > 0; ++cut) {
        // One character of UTF-8: back over its continuation bytes.
        do {
            --end;
        } while (end > 0 && (static_cast<unsigned char>(modelPath[end]) & 0xC0U) == 0x80U);
    }
    return modelPath.substr(0, end) + "_TMP.tdl";
}

}  // namespace corvane
