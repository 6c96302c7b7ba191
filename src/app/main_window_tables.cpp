#include "app/main_window_tables.h"

#include <array>

#include "app/table_checks.h"
#include "edit/commands/tools.h"
#include "edit/deletion.h"
#include "edit/normals.h"
#include "edit/placement.h"
#include "edit/selection.h"
#include "edit/weld.h"
#include "editor/run_edit.h"
#include "groups/commands/group_commands.h"
#include "model/commands/delete_geoset.h"
#include "model/commands/merge_geoset.h"
#include "model/commands/new_model.h"
#include "model/commands/open_model.h"
#include "model/commands/recover_model.h"
#include "model/commands/save_model.h"
#include "uveditor/commands/exchange.h"
#include "views/commands/marker_commands.h"
#include "views/commands/view_commands.h"
#include "views/navigation.h"

namespace corvane {

namespace {

using Kind = MenuEntry::Kind;

constexpr MenuEntry kSeparator = {.kind = Kind::Separator};
constexpr MenuEntry kSubmenuEnd = {.kind = Kind::SubmenuEnd};

constexpr MenuEntry submenu(const char* name, const char* caption) {
    return {.kind = Kind::Submenu, .name = name, .caption = caption};
}

constexpr MenuEntry item(const char* name, const char* caption, void (*run)(Editor&),
                         const char* shortcut = "") {
    return {.name = name, .caption = caption, .shortcut = shortcut, .run = run};
}

// Whether a mode is the current one.
template <auto ToolModes::*Current, auto Mode>
bool isMode(const Editor& editor) {
    return editor.modes.*Current == Mode;
}

template <SelectMode Mode>
constexpr auto kIsSelect = isMode<&ToolModes::selectMode, Mode>;

template <TransformMode Mode>
constexpr auto kIsTransform = isMode<&ToolModes::transformMode, Mode>;

// An item that presses the button of the same name.
constexpr MenuEntry pressing(const char* name, const char* caption, const char* button,
                             const char* shortcut = "") {
    return {.name = name, .caption = caption, .shortcut = shortcut, .press = button};
}

// The same with a check mark.
constexpr MenuEntry checking(const char* name, const char* caption, const char* button,
                             bool (*checked)(const Editor&)) {
    return {.name = name, .caption = caption, .press = button, .checked = checked};
}

// An item that shows the help box of the same name.
constexpr MenuEntry helpItem(const char* name, const char* caption) {
    return {.name = name, .caption = caption, .runNamed = showHelp};
}

constexpr std::array kFileMenu = {
    MenuEntry{.name = "mnuNew", .caption = "&New...", .shortcut = "Ctrl+N", .run = newModel},
    MenuEntry{.name = "mnuOpen", .caption = "&Open...", .shortcut = "Ctrl+O", .run = openCommand},
    kSeparator,
    MenuEntry{.name = "mnuSave",
              .caption = "&Save",
              .shortcut = "Ctrl+S",
              .run = save,
              .needs = Needs::Model},
    MenuEntry{.name = "mnuSaveAs",
              .caption = "Save &As...",
              .shortcut = "Ctrl+Shift+S",
              .run = saveAs,
              .needs = Needs::Model},
    MenuEntry{.name = "mnuSaveGeoset",
              .caption = "Save &Geoset...",
              .run = saveGeoset,
              .needs = Needs::Model},
    MenuEntry{.name = "mnuRecover", .caption = "&Recover...", .run = showRecover},
    kSeparator,
    MenuEntry{.name = "mnuSwitchGeoset",
              .caption = "S&witch Geoset...",
              .shortcut = "Ctrl+G",
              .run = switchGeoset,
              .needs = Needs::Model},
    MenuEntry{.name = "mnuMergeGeoset",
              .caption = "&Merge Geoset...",
              .run = mergeGeoset,
              .needs = Needs::Model},
    MenuEntry{.name = "mnuDelCurrentGeoset",
              .caption = "&Delete Current Geoset...",
              .run = deleteCurrentGeoset,
              .needs = Needs::Model},
    kSeparator,
    MenuEntry{.kind = Kind::Close, .name = "mnuExit", .caption = "E&xit", .shortcut = "Ctrl+Q"},
};

constexpr std::array kEditMenu = {
    MenuEntry{.name = "mnuUndo",
              .caption = "&Undo",
              .shortcut = "Ctrl+Z",
              .run = undoLast,
              .needs = Needs::UndoStep,
              .captionNow = [](const Editor& editor) { return '&' + undoCaption(editor.undo); }},
    kSeparator,
    MenuEntry{.name = "mnuSelectAll",
              .caption = "Select &All",
              .shortcut = "Ctrl+A",
              .run = edit<"Select All", selectAll>},
    MenuEntry{.name = "mnuInvertSelection",
              .caption = "&Invert Selection",
              .shortcut = "Ctrl+I",
              .run = edit<"Invert Selection", invertSelection>},
    kSeparator,
    submenu("mnuSelectionMode", "&Selection Mode"),
    checking("mnuSelect", "&Select", "cmdSelect", kIsSelect<SelectMode::Select>),
    checking("mnuAdd", "&Add", "cmdAdd", kIsSelect<SelectMode::Add>),
    checking("mnuDeselect", "&Deselect", "cmdDeselect", kIsSelect<SelectMode::Deselect>),
    kSubmenuEnd,
    submenu("mnuTransformMode", "&Transform Mode"),
    checking("mnuMove", "&Move", "cmdMove", kIsTransform<TransformMode::Move>),
    checking("mnuRotate", "&Rotate", "cmdRotate", kIsTransform<TransformMode::Rotate>),
    checking("mnuScale", "&Scale", "cmdScale", kIsTransform<TransformMode::Scale>),
    checking("mnuExtrude", "&Extrude", "cmdExtrude", kIsTransform<TransformMode::Extrude>),
    kSeparator,
    checking("mnuClone", "&Clone", "cmdClone", isMode<&ToolModes::cloneMode, true>),
    kSubmenuEnd,
    submenu("mnuActiveAxes", "Active A&xes"),
    checking("mnuXEnabled", "&X Enabled", "cmdActivateX", isMode<&ToolModes::activeX, true>),
    checking("mnuYEnabled", "&Y Enabled", "cmdActivateY", isMode<&ToolModes::activeY, true>),
    checking("mnuZEnabled", "&Z Enabled", "cmdActivateZ", isMode<&ToolModes::activeZ, true>),
    kSubmenuEnd,
};

constexpr std::array kToolsMenu = {
    pressing("mnuSnap", "&Snap", "cmdSnap"),
    item("mnuWeld", "&Weld", edit<"Weld", weldSelected>),
    pressing("mnuDelete", "&Delete", "cmdDelete", "Del"),
    item("mnuDeleteFace", "Delete &Face", edit<"Delete Face", deleteSelectedFaces>),
    kSeparator,
    item("mnuExpandSelection", "&Expand Selection", edit<"Selection", expandSelection>, "Ctrl+E"),
    kSeparator,
    item("mnuRecalculateNormals", "&Recalculate Normals",
         edit<"Recalculate Normals", recalculateNormals>),
    item("mnuSnapNormals", "Snap &Normals", snapNormals),
    kSeparator,
    submenu("mnuMirror", "&Mirror"),
    item("mnuMirrorX", "Mirror &X", editAxis<"Mirror", mirrorSelected, Axis::X>),
    item("mnuMirrorY", "Mirror &Y", editAxis<"Mirror", mirrorSelected, Axis::Y>),
    item("mnuMirrorZ", "Mirror &Z", editAxis<"Mirror", mirrorSelected, Axis::Z>),
    kSubmenuEnd,
    submenu("mnuAlign", "&Align"),
    item("mnuAlignX", "Align &X", editAxis<"Align", alignSelected, Axis::X>),
    item("mnuAlignY", "Align &Y", editAxis<"Align", alignSelected, Axis::Y>),
    item("mnuAlignZ", "Align &Z", editAxis<"Align", alignSelected, Axis::Z>),
    kSubmenuEnd,
    item("mnuSetCoordinates", "Set &Coordinates...", setCoordinates),
    kSeparator,
    submenu("mnuVertexGroups", "&Vertex Groups"),
    item("mnuAssignVertexGroup", "&Assign Vertex Group...", assignVertexGroup),
    item("mnuSelectByVertGroup", "&Select by Vertex Group...", selectByVertexGroup),
    item("mnuVertGroupOfSel", "&Groups of the Selection", showVertexGroups),
    kSubmenuEnd,
    submenu("mnuMatrices", "Ma&trices"),
    item("mnuViewMatrices", "&View Matrices", viewMatrices),
    item("mnuAddMatrix", "&Add Matrix...", addMatrix),
    kSubmenuEnd,
};

constexpr std::array kViewMenu = {
    MenuEntry{.name = "mnuShowNormals",
              .caption = "Show &Normals",
              .shortcut = "Ctrl+Shift+N",
              .run = toggleShowNormals,
              .checked = [](const Editor& editor) { return editor.modes.showNormals; }},
    kSeparator,
    submenu("mnuMarkerTools", "&Markers"),
    item("mnuAddMarker", "&Add Marker...", addMarker),
    item("mnuAddMarkerAtSelection", "Add Marker at &Selection", addMarkerAtSelection),
    MenuEntry{.name = "mnuAddMarkerGraphically",
              .caption = "Add Marker &Graphically",
              .run = addMarkerGraphically,
              .checked = [](const Editor& editor) { return editor.modes.placingMarker; }},
    kSeparator,
    item("mnuRemoveLastMarker", "Remove &Last Marker", removeLastMarker),
    item("mnuRemoveAllMarkers", "&Remove All Markers", removeAllMarkers),
    kSubmenuEnd,
    kSeparator,
    item("mnuSelVertCount", "Selected &Vertex Count", showVertexCount),
    item("mnuSelFaceCount", "Selected &Face Count", showFaceCount),
    kSeparator,
    item("mnuViewCoM", "View &Center of Mass...", viewCentreOfMass),
    item("mnuCopyCoM", "Co&py Center of Mass", copyCentreOfMass),
    kSeparator,
    item("mnuUVMapping", "&UV Mapping...", openTextureEditor, "Ctrl+U"),
};

constexpr std::array kHelpMenu = {
    item("mnuUserGuide", "&User Guide", showUserGuide, "F1"),
    kSeparator,
    helpItem("mnuSummary", "&Summary"),
    helpItem("mnuNavigation", "&Navigation"),
    helpItem("mnuSelection", "S&election"),
    helpItem("mnuTransformations", "&Transformations"),
    helpItem("mnuMarkers", "&Markers"),
    helpItem("mnuCloning", "&Cloning"),
    kSeparator,
    MenuEntry{.name = "mnuEnableTips",
              .caption = "Enable T&ips",
              .run = toggleTips,
              .checked = [](const Editor& editor) { return editor.modes.tipsEnabled; }},
    kSeparator,
    helpItem("mnuAbout", "&About"),
};

constexpr std::array<MenuTable, 5> kMenus = {{
    {"mnuFile", "&File", Needs::Nothing, kFileMenu},
    {"mnuEdit", "&Edit", Needs::Nothing, kEditMenu},
    {"mnuTools", "&Tools", Needs::Model, kToolsMenu},
    {"mnuView", "&View", Needs::Nothing, kViewMenu},
    {"mnuHelp", "&Help", Needs::Nothing, kHelpMenu},
}};

template <SelectMode Mode>
ButtonLook selectLook(const Editor& editor) {
    const bool on = editor.modes.selectMode == Mode;
    return {on ? Look::On : Look::Plain, colourOf(editor.modes, Mode), on};
}

template <TransformMode Mode>
ButtonLook transformLook(const Editor& editor) {
    const bool on = editor.modes.transformMode == Mode;
    return {on ? Look::On : Look::Plain, colourOf(editor.modes, Mode), on};
}

template <bool ToolModes::*Active>
ButtonLook axisLook(const Editor& editor) {
    const bool active = editor.modes.*Active;
    return {active ? Look::Plain : Look::Off, axisColour(active), active};
}

ButtonLook cloneLook(const Editor& editor) {
    const bool on = editor.modes.cloneMode;
    return {on ? Look::On : Look::Plain, cloneColour(editor.modes), on};
}

constexpr std::array kSelectButtons = {
    ButtonEntry{"cmdSelect", "&Select", "Select mode", 0, 0,
                [](Editor& editor) { setSelectMode(editor, SelectMode::Select); },
                selectLook<SelectMode::Select>},
    ButtonEntry{"cmdAdd", "&Add", "Add to selection mode", 1, 0,
                [](Editor& editor) { setSelectMode(editor, SelectMode::Add); },
                selectLook<SelectMode::Add>},
    ButtonEntry{"cmdDeselect", "&Deselect", "Deselect mode", 2, 0,
                [](Editor& editor) { setSelectMode(editor, SelectMode::Deselect); },
                selectLook<SelectMode::Deselect>},
};

constexpr std::array kTransformButtons = {
    ButtonEntry{"cmdMove", "&Move", "Move mode", 0, 0,
                [](Editor& editor) { setTransformMode(editor, TransformMode::Move); },
                transformLook<TransformMode::Move>},
    ButtonEntry{"cmdRotate", "&Rotate", "Rotate mode", 1, 0,
                [](Editor& editor) { setTransformMode(editor, TransformMode::Rotate); },
                transformLook<TransformMode::Rotate>},
    ButtonEntry{"cmdScale", "S&cale", "Scale mode", 2, 0,
                [](Editor& editor) { setTransformMode(editor, TransformMode::Scale); },
                transformLook<TransformMode::Scale>},
    ButtonEntry{"cmdExtrude", "E&xtrude", "Extrude mode", 3, 0,
                [](Editor& editor) { setTransformMode(editor, TransformMode::Extrude); },
                transformLook<TransformMode::Extrude>},
    ButtonEntry{"cmdClone", "Clo&ne", "Clone mode", 4, 0, toggleClone, cloneLook},
};

constexpr std::array kAxisButtons = {
    ButtonEntry{"cmdActivateX", "X", "X axis", 0, 0,
                [](Editor& editor) { toggleActive(editor, Axis::X); },
                axisLook<&ToolModes::activeX>},
    ButtonEntry{"cmdActivateY", "Y", "Y axis", 0, 1,
                [](Editor& editor) { toggleActive(editor, Axis::Y); },
                axisLook<&ToolModes::activeY>},
    ButtonEntry{"cmdActivateZ", "Z", "Z axis", 0, 2,
                [](Editor& editor) { toggleActive(editor, Axis::Z); },
                axisLook<&ToolModes::activeZ>},
};

constexpr std::array kEditButtons = {
    ButtonEntry{"cmdSnap", "Sna&p", "Snap the selection together", 0, 0, edit<"Snap", snapSelected>,
                nullptr},
    ButtonEntry{"cmdDelete", "De&lete", "Delete the selection", 0, 1, deleteSelection, nullptr},
};

constexpr std::array<ButtonGroup, 4> kToolPanel = {{
    {"Left drag selects", kSelectButtons},
    {"Right drag transforms", kTransformButtons},
    {"On the axes", kAxisButtons},
    {"Selection", kEditButtons},
}};

template <View Which, int Dx, int Dy>
void panBy(Editor& editor) {
    pan(editor, Which, Dx * kPanStep, Dy * kPanStep);
}

constexpr std::array<ViewButton, 6> kFrontButtons = {{
    {"cmdZoomInFront", "Zoom in, front view", kPlus, 0, 0,
     [](Editor& editor) { zoomIn(editor, View::Front); }},
    {"cmdZoomOutFront", "Zoom out, front view", kMinus, 0, 2,
     [](Editor& editor) { zoomOut(editor, View::Front); }},
    {"cmdPanUF", "Look up, front view", kUp, 1, 1, panBy<View::Front, 0, 1>},
    {"cmdPanLF", "Look left, front view", kLeft, 2, 0, panBy<View::Front, 1, 0>},
    {"cmdPanRF", "Look right, front view", kRight, 2, 2, panBy<View::Front, -1, 0>},
    {"cmdPanDF", "Look down, front view", kDown, 3, 1, panBy<View::Front, 0, -1>},
}};

constexpr std::array<ViewButton, 6> kTopButtons = {{
    {"cmdZoomInTop", "Zoom in, top view", kPlus, 0, 0,
     [](Editor& editor) { zoomIn(editor, View::Top); }},
    {"cmdZoomOutTop", "Zoom out, top view", kMinus, 0, 2,
     [](Editor& editor) { zoomOut(editor, View::Top); }},
    {"cmdPanUT", "Look up, top view", kUp, 1, 1, panBy<View::Top, 0, 1>},
    {"cmdPanLT", "Look left, top view", kLeft, 2, 0, panBy<View::Top, 1, 0>},
    {"cmdPanRT", "Look right, top view", kRight, 2, 2, panBy<View::Top, -1, 0>},
    {"cmdPanDT", "Look down, top view", kDown, 3, 1, panBy<View::Top, 0, -1>},
}};

constexpr std::array<ViewButton, 6> kLeftButtons = {{
    {"cmdZoomInLeft", "Zoom in, left view", kPlus, 0, 0,
     [](Editor& editor) { zoomIn(editor, View::Left); }},
    {"cmdZoomOutLeft", "Zoom out, left view", kMinus, 0, 2,
     [](Editor& editor) { zoomOut(editor, View::Left); }},
    {"cmdPanUL", "Look up, left view", kUp, 1, 1, panBy<View::Left, 0, 1>},
    {"cmdPanLL", "Look left, left view", kLeft, 2, 0, panBy<View::Left, 1, 0>},
    {"cmdPanRL", "Look right, left view", kRight, 2, 2, panBy<View::Left, -1, 0>},
    {"cmdPanDL", "Look down, left view", kDown, 3, 1, panBy<View::Left, 0, -1>},
}};

// One press: model units for the offset and the distance, degrees for the turn.
constexpr int kPerspectiveStep = 2;
constexpr int kPerspectiveTurn = 10;

constexpr std::array<ViewButton, 5> kPerspectiveButtons = {{
    {"cmdPerspZoomIn", "Zoom in, perspective view", kPlus, 0, 0,
     [](Editor& editor) { zoomPerspective(editor, -kPerspectiveStep); }},
    {"cmdPerspZoomOut", "Zoom out, perspective view", kMinus, 0, 2,
     [](Editor& editor) { zoomPerspective(editor, kPerspectiveStep); }},
    {"cmdPerspUp", "Look up, perspective view", kUp, 1, 1,
     [](Editor& editor) { raisePerspective(editor, -kPerspectiveStep); }},
    {"Command1", "Turn, perspective view", kRight, 2, 2,
     [](Editor& editor) { turnPerspective(editor, kPerspectiveTurn); }},
    {"cmdPerspDown", "Look down, perspective view", kDown, 3, 1,
     [](Editor& editor) { raisePerspective(editor, kPerspectiveStep); }},
}};

constexpr std::array<std::span<const ViewButton>, 4> kViewButtons = {
    std::span<const ViewButton>(kFrontButtons), std::span<const ViewButton>(kTopButtons),
    std::span<const ViewButton>(kLeftButtons), std::span<const ViewButton>(kPerspectiveButtons)};

constexpr std::span<const MenuTable> kAllMenus = kMenus;
constexpr std::span<const ButtonGroup> kAllGroups = kToolPanel;
constexpr std::span<const std::span<const ViewButton>> kAllViews = kViewButtons;
static_assert(!kChecksTables || entriesAreSound(kAllMenus),
              "an entry lacks what it does, or has too much");
static_assert(!kChecksTables || pressesAreKnown(kAllMenus, kAllGroups),
              "an item presses no button");
static_assert(!kChecksTables || namesDiffer(kAllMenus, kAllGroups, kAllViews),
              "a name is there twice or missing");
static_assert(!kChecksTables || mnemonicsDiffer(kAllMenus, kAllGroups),
              "a letter is underlined twice");
static_assert(!kChecksTables || keysDiffer(kAllMenus, kAllViews), "a key is there twice");

}  // namespace

std::span<const MenuTable> mainMenus() { return kAllMenus; }

std::span<const ButtonGroup> toolPanel() { return kAllGroups; }

std::span<const std::span<const ViewButton>> viewButtons() { return kAllViews; }

}  // namespace corvane
