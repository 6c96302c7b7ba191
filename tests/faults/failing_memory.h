// Makes allocations fail. All others go through to the system.
#pragma once

#include <cstddef>

namespace corvane::faults {

/// While it lives, an allocation fails: the one with this number, counted from 1.
class FailingMemory {
public:
    explicit FailingMemory(std::size_t number);
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;
    ~FailingMemory();

    /// Whether it has come to that.
    static bool hasFailed();
};

}  // namespace corvane::faults
