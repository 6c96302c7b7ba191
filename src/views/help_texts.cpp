#include "views/help_texts.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

constexpr std::array<Tip, 16> kTips = {{
    {"cmdSnap", "Brings all selected vertices together into one point."},
    {"cmdDelete", "Deletes the selection."},
    {"cmdClone", "Activates clone mode, where a duplicate is left behind after a transformation."},
    {"cmdActivateX", "Toggles movement, rotation, and scaling to be allowed along the X axis."},
    {"cmdActivateY", "Toggles movement, rotation, and scaling to be allowed along the Y axis."},
    {"cmdActivateZ", "Toggles movement, rotation, and scaling to be allowed along the Z axis."},
    {"cmdMove", "Right click and drag to move your selection the same way as your mouse moves."},
    {"cmdRotate",
     "Right click and drag up to rotate the selection one way and down to rotate the other."},
    {"cmdScale", "Right click and drag right/down to increase size and up/left to decrease size."},
    {"cmdExtrude",
     "Right click and drag to extend selected faces in the direction of the mouse movement."},
    {"cmdSelect", "Left click and drag to set your selection to the contents of the drawn box."},
    {"cmdAdd", "Left click and drag to add the contents of the drawn box to your selection."},
    {"cmdDeselect",
     "Left click and drag to remove the contents of the drawn box to your selection."},
    {"txtX", "Shows the X coordinate the mouse is hovering over in a viewport."},
    {"txtY", "Shows the Y coordinate the mouse is hovering over in a viewport."},
    {"txtZ", "Shows the Z coordinate the mouse is hovering over in a viewport."},
}};

constexpr const char* kNavigationText =
    "The three viewports here are front, top, and left. The set of controls next to each one "
    "controls what section of the model you are looking at. The + and - buttons zoom in and out. "
    "The unlabeled buttons pointing in four directions shift the view in their indicated "
    "direction.";

constexpr const char* kSelectionText =
    "To activate any of the three selection options, simply click on its button. You can then "
    "click and drag with the left mouse button in any of the viewports to manipulate your "
    "selection.\r\n\r\n"
    "'Select' clears your current selection and adds the vertices in the bounded are to the "
    "selection. 'Add' doesn't clear it and adds what you have bounded. 'Deselect' deselects "
    "everything you bound and leaves the rest selected.\r\n\r\n"
    "There are also some features available in the Tools and Edit menus to help with "
    "selection.\r\n"
    " - Edit->Select All: Selects everything.\r\n"
    " - Edit->Invert Selection: If a vertex was selected before, it is deselected. If it wasn't "
    "selected, it is selected.\r\n"
    " - Tools->Expand Selection: Vertices connected by edges to the currently selected ones are "
    "selected.\r\n";

constexpr const char* kTransformationsText =
    "There are three transformation options: move, rotate, and scale. Right click and drag to use "
    "any of them.\r\n\r\n"
    "'Move' just moves the selection however much you moved the map. 'Rotate' rotates, based on "
    "how far up or down you drag your mouse. 'Scale' scales depending on how far up/left (smaller) "
    "or down/right (larger). Extrude extends the selection polygons in the direction you drag your "
    "mouse. Delete deletes the vertex and the associated faces.\r\n\r\n"
    "You can enable/disable transformations on an axis by clicking the X, Y, or Z buttons.";

constexpr const char* kSummaryText =
    "This program edits MDLs at the vertex level. Simply go to File->Open and choose an MDL. If "
    "there is more than one geoset in the model, it will ask you about which you want to choose. "
    "You may want to use Warcraft 3 Viewer to choose which geoset you want to use beforehand. To "
    "save, just go to File->Save as and choose where to save it. You can choose File->Save Geoset "
    "to make it save a single, unanimated geoset. This can be useful for geoset merging. No manual "
    "MDL editing is required.";

constexpr const char* kMarkersText =
    "Markers are simply marks on the viewports that can be used to keep track of spots that you "
    "want to line things up on. For example, if you were merging a head onto a body, you might "
    "want to make a mark on the neck in order to perfectly line the head up.\r\n\r\n"
    "There are three ways to add markers, each of which is available in the View menu.\r\n"
    " - Coordinate input: Manually type in the three coordinates.\r\n"
    " - Graphical placement: Choose it in the menu to activate and then click in any of the three "
    "viewports to place.\r\n"
    " - Center of selection: Adds it at the center of the selected vertices.";

constexpr const char* kCloningText =
    "Cloning allows you to duplicate sections of the model. Just click the clone button to active "
    "it and then use any of the transformations. The button will turn reddish to indicate that it "
    "is active. The a new version, identical to what you had selected, will be created and "
    "transformed.";

constexpr const char* kAboutText =
    "MDL Corvane " CORVANE_VERSION "\r\n\r\nMade by the Corvane developers";

constexpr std::array<HelpBox, 7> kHelpBoxes = {{
    {"mnuSummary", "Summary", kSummaryText},
    {"mnuNavigation", "Navigation", kNavigationText},
    {"mnuSelection", "Selection", kSelectionText},
    {"mnuTransformations", "Transformations", kTransformationsText},
    {"mnuMarkers", "Markers", kMarkersText},
    {"mnuCloning", "Cloning", kCloningText, true},
    {"mnuAbout", "About", kAboutText},
}};

}  // namespace

std::span<const Tip> controlTips() { return kTips; }

std::span<const HelpBox> helpBoxes() { return kHelpBoxes; }

const HelpBox* helpBoxOf(std::string_view menuItem) {
    const auto* const box = std::ranges::find_if(
        kHelpBoxes, [&](const HelpBox& candidate) { return candidate.menuItem == menuItem; });
    return box == kHelpBoxes.end() ? nullptr : box;
}

}  // namespace corvane
