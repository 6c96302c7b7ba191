// Numbers that tell one state of the mesh in memory from another.
#pragma once

#include <cstdint>

namespace corvane {

/// Counts geosets read and their changes. A number is never given twice, so that equal numbers mean
/// the same state.
class Revisions {
public:
    /// The geoset that was read last; 0 before the first. The same geoset read again is another.
    std::uint64_t mesh() const { return mesh_; }

    /// The state of what a save writes.
    std::uint64_t current() const { return current_; }

    /// The state that the file holds.
    std::uint64_t saved() const { return saved_; }

    /// Whether something was changed that no save has written.
    bool isModified() const { return current_ != saved_; }

    void noteRead() {
        mesh_ = ++latest_;
        current_ = saved_ = ++latest_;
    }
    void noteChanged() { current_ = ++latest_; }
    void noteSaved() { saved_ = current_; }
    /// The state is the one that the file holds again.
    void noteBackToSaved() { current_ = saved_; }

private:
    std::uint64_t latest_ = 0;
    std::uint64_t mesh_ = 0;
    std::uint64_t current_ = 0;
    std::uint64_t saved_ = 0;
};

}  // namespace corvane
