#include "views/tool_modes.h"

namespace corvane {

ActiveSlots activeSlots(const ToolModes& modes) {
    return {modes.activeX, modes.activeY, modes.activeZ};
}

void setActiveSlots(ToolModes& modes, const ActiveSlots& active) {
    modes.activeX = active[slotOf(Axis::X)];
    modes.activeY = active[slotOf(Axis::Y)];
    modes.activeZ = active[slotOf(Axis::Z)];
}

Colour colourOf(const ToolModes& modes, SelectMode button) {
    return modes.selectMode == button ? kWhite : kButtonFace;
}

Colour colourOf(const ToolModes& modes, TransformMode button) {
    return modes.transformMode == button ? kWhite : kButtonFace;
}

Colour cloneColour(const ToolModes& modes) { return modes.cloneMode ? kCloneColour : kButtonFace; }

Colour axisColour(bool active) { return active ? kButtonFace : kInactiveAxisColour; }

}  // namespace corvane
