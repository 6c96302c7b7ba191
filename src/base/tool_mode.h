// What a drag does. The values are the letters that stand for the modes.
#pragma once

namespace corvane {

/// With the left button, to the selection.
enum class SelectMode : char { Select = 'S', Add = 'A', Deselect = 'D' };

/// With another button, to what is selected.
enum class TransformMode : char { Move = 'M', Rotate = 'R', Scale = 'S', Extrude = 'E' };

}  // namespace corvane
