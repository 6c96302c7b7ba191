// What tells one file from another.
#pragma once

#include <cstdint>

namespace corvane {

/// What tells a file from another one, and from itself after it was written again.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;      ///< bytes
    std::int64_t modified = 0;  ///< nanoseconds since 1970

    bool operator==(const FileStamp&) const = default;
    /// Whether both are the same file, whatever was written to it.
    bool isSameFileAs(const FileStamp& other) const {
        return device == other.device && inode == other.inode;
    }
};

}  // namespace corvane
