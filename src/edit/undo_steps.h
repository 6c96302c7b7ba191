// The table of the steps that Undo knows: what they are called, what is kept of the geoset when
// they are recorded, and how they are reversed.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace corvane {

/// Which copies a step keeps.
struct UndoCopies {
    bool keepFaces = false;
    bool keepVertices = false;
    bool keepSelection = false;
};

/// How a step is reversed.
enum class UndoneBy : std::uint8_t {
    Copies,  ///< what was kept is put back
    Moving,  ///< the same transforms with negated numbers
    Scaling,
    Rotating,
    Undeleting,  ///< what is selected now is deleted no more
    AxisStates,  ///< the numbers are the states of the axes
};

/// A kind of step.
struct StepKind {
    std::string_view name;  ///< as the Undo item shows it
    UndoneBy undoneBy = UndoneBy::Copies;
    UndoCopies keeps{};
    bool changesModel = true;     ///< whether it changes what a save writes
    bool needsSelection = false;  ///< without a selected vertex there is nothing to do
};

inline constexpr UndoCopies kKeepSelection = {.keepSelection = true};
inline constexpr UndoCopies kKeepVertices = {.keepVertices = true};
inline constexpr UndoCopies kKeepFaces = {.keepFaces = true};
inline constexpr UndoCopies kKeepMesh = {.keepFaces = true, .keepVertices = true};

inline constexpr std::array kStepKinds = {
    StepKind{.name = "Selection", .keeps = kKeepSelection, .changesModel = false},
    StepKind{.name = "Select All", .keeps = kKeepSelection, .changesModel = false},
    StepKind{.name = "Invert Selection", .keeps = kKeepSelection, .changesModel = false},
    StepKind{.name = "Move", .undoneBy = UndoneBy::Moving},
    StepKind{.name = "Scale", .undoneBy = UndoneBy::Scaling},
    StepKind{.name = "Rotate", .undoneBy = UndoneBy::Rotating},
    StepKind{.name = "Clone", .keeps = kKeepMesh},
    StepKind{.name = "Extrude", .keeps = kKeepMesh},
    StepKind{.name = "Merge", .keeps = kKeepMesh},
    StepKind{.name = "Weld", .keeps = kKeepMesh, .needsSelection = true},
    StepKind{.name = "Snap", .keeps = kKeepVertices},
    StepKind{.name = "Mirror", .keeps = kKeepVertices},
    StepKind{.name = "Align", .keeps = kKeepVertices, .needsSelection = true},
    StepKind{.name = "Set Coordinates", .keeps = kKeepVertices},
    StepKind{.name = "Recalculate Normals", .keeps = kKeepVertices},
    StepKind{.name = "Snap Normals", .keeps = kKeepVertices, .needsSelection = true},
    StepKind{.name = "Assign Vertex Group", .keeps = kKeepVertices},
    StepKind{.name = "Delete", .undoneBy = UndoneBy::Undeleting},
    StepKind{.name = "Delete Face", .keeps = kKeepFaces},
    StepKind{.name = "Set Active Axes", .undoneBy = UndoneBy::AxisStates, .changesModel = false},
};

/// A step of the table, named where the program is compiled: a name that is not in the table does
/// not compile.
class Step {
public:
    // NOLINTNEXTLINE(google-explicit-constructor): a name is how a step is written
    consteval Step(const char* name) {
        while (kStepKinds.at(index).name != name) ++index;
    }
    constexpr const StepKind& kind() const { return kStepKinds[index]; }

    constexpr bool operator==(const Step&) const = default;

    /// Place in the table. Public so that a step can be a template's argument.
    std::size_t index = 0;
};

}  // namespace corvane
