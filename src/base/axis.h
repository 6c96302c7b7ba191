// The editor's axes and coordinate triples.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace corvane {

/// An axis of the editor, which is also the slot of a coordinate triple. The file orders its
/// triples differently: slot X holds the file's second number, Y its third and Z its first.
enum class Axis : std::uint8_t { X = 0, Y = 1, Z = 2 };

/// The slot that an axis names, 0 to 2.
constexpr std::size_t slotOf(Axis axis) { return static_cast<std::size_t>(axis); }

/// The lower-case letter of an axis.
constexpr char letterOf(Axis axis) { return static_cast<char>('x' + static_cast<int>(axis)); }

/// Three coordinates in slot order (editor X, Y, Z), model units.
using Triple = std::array<double, 3>;

/// The slots in the order in which a file writes a triple.
inline constexpr std::array<std::size_t, 3> kFileSlotOrder = {2, 0, 1};

/// For each slot whether Move and Scale may change it.
using ActiveSlots = std::array<bool, 3>;

}  // namespace corvane
