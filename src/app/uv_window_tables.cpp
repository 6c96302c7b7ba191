#include "app/uv_window_tables.h"

#include <array>

#include "app/table_checks.h"
#include "uveditor/commands/model_texture.h"
#include "uveditor/commands/texture_commands.h"
#include "uveditor/uv_view.h"

namespace corvane {

namespace {

using Kind = UVMenuEntry::Kind;

constexpr std::array kFileMenu = {
    UVMenuEntry{.name = "mnuLoadImg",
                .caption = "&Load Image...",
                .shortcut = "Ctrl+O",
                .press = "cmdLoadImg"},
    UVMenuEntry{.name = "mnuLoadModelTexture",
                .caption = "Load Model's &Texture",
                .shortcut = "Ctrl+T",
                .run = [](UVCommands& window) { loadModelTexture(window.uv, window.main); }},
    UVMenuEntry{.name = "mnuSaveUVChanges",
                .caption = "&Save Changes",
                .shortcut = "Ctrl+S",
                .press = "cmdSaveUVChanges"},
    UVMenuEntry{.kind = Kind::Separator},
    UVMenuEntry{.kind = Kind::Close, .name = "mnuClose", .caption = "&Close", .shortcut = "Ctrl+W"},
};

constexpr std::array kEditMenu = {
    UVMenuEntry{.name = "mnuSelectAll",
                .caption = "Select &All",
                .shortcut = "Ctrl+A",
                .run = [](UVCommands& window) { uvSelectAll(window.uv); }},
    UVMenuEntry{.name = "mnuInvertSelection",
                .caption = "&Invert Selection",
                .shortcut = "Ctrl+I",
                .run = [](UVCommands& window) { uvInvertSelection(window.uv); }},
};

constexpr std::array<UVMenuTable, 2> kMenus = {{
    {"", "&File", Needs::Nothing, kFileMenu},
    {"", "&Edit", Needs::Nothing, kEditMenu},
}};

constexpr ButtonLook modeLook(bool on) {
    return on ? ButtonLook{Look::On, kWhite, true} : ButtonLook{};
}

ButtonLook axisLook(bool active) {
    return {active ? Look::Plain : Look::Off, axisColour(active), active};
}

template <SelectMode Mode>
void select(UVCommands& window) {
    uvSetSelectMode(window.uv, Mode);
}

template <SelectMode Mode>
ButtonLook selectLook(const UVCommands& window) {
    return modeLook(window.uv.selectMode == Mode);
}

template <TransformMode Mode>
void transform(UVCommands& window) {
    uvSetTransformMode(window.uv, Mode);
}

template <TransformMode Mode>
ButtonLook transformLook(const UVCommands& window) {
    return modeLook(window.uv.transformMode == Mode);
}

template <int Dx, int Dy>
void panBy(UVCommands& window) {
    uvPan(window.uv, Dx * kUVPanStep, Dy * kUVPanStep);
}

constexpr std::array kSelectButtons = {
    UVButton{"cmdSelect", "&Select", "Select", 0, 0, select<SelectMode::Select>,
             selectLook<SelectMode::Select>},
    UVButton{"cmdAdd", "&Add", "Add", 0, 1, select<SelectMode::Add>, selectLook<SelectMode::Add>},
    UVButton{"cmdDeselect", "&Deselect", "Deselect", 0, 2, select<SelectMode::Deselect>,
             selectLook<SelectMode::Deselect>},
};

constexpr std::array kTransformButtons = {
    UVButton{"cmdMove", "&Move", "Move", 0, 0, transform<TransformMode::Move>,
             transformLook<TransformMode::Move>},
    UVButton{"cmdRotate", "&Rotate", "Rotate", 0, 1, transform<TransformMode::Rotate>,
             transformLook<TransformMode::Rotate>},
    UVButton{"cmdScale", "S&cale", "Scale", 0, 2, transform<TransformMode::Scale>,
             transformLook<TransformMode::Scale>},
};

constexpr std::array kAxisButtons = {
    UVButton{"cmdUVX", "X", "X axis", 0, 0, [](UVCommands& window) { uvToggleX(window.uv); },
             [](const UVCommands& window) { return axisLook(window.uv.xEnabled); }},
    UVButton{"cmdUVY", "Y", "Y axis", 0, 1, [](UVCommands& window) { uvToggleY(window.uv); },
             [](const UVCommands& window) { return axisLook(window.uv.yEnabled); }},
};

constexpr std::array<UVViewButton, 6> kViewButtons = {{
    {"cmdUVZoomIn", "Zoom in", kPlus, 0, 0, [](UVCommands& window) { uvZoomIn(window.uv); }},
    {"cmdUVZoomOut", "Zoom out", kMinus, 0, 2, [](UVCommands& window) { uvZoomOut(window.uv); }},
    {"cmdUVUp", "Look up", kUp, 1, 1, panBy<0, 1>},
    {"cmdUVLeft", "Look left", kLeft, 2, 0, panBy<1, 0>},
    {"cmdUVRight", "Look right", kRight, 2, 2, panBy<-1, 0>},
    {"cmdUVDown", "Look down", kDown, 3, 1, panBy<0, -1>},
}};

constexpr std::array kPictureButtons = {
    UVButton{"cmdLoadImg", "&Load Image...", "Load Image...", 0, 0,
             [](UVCommands& window) { loadImage(window.uv, window.main); }, nullptr},
};

constexpr std::array kProjectionButtons = {
    UVButton{"cmdRemap", "Rema&p", "Remap", 1, 0,
             [](UVCommands& window) { remapSelection(window.uv, window.main, window.plane); },
             nullptr},
};

constexpr std::array kModelButtons = {
    UVButton{"cmdSaveUVChanges", "Save C&hanges", "Save Changes", 0, 0,
             [](UVCommands& window) { saveChanges(window.uv, window.main); }, nullptr},
};

constexpr std::array<UVGroup, 8> kPanel = {{
    {"Left drag selects", kSelectButtons},
    {"Right drag transforms", kTransformButtons},
    {"On the axes", kAxisButtons},
    {"View", {}, UVGroup::Top::ViewButtons},
    {"Picture", kPictureButtons},
    {"Projection", kProjectionButtons, UVGroup::Top::Planes},
    {"Under the mouse", {}, UVGroup::Top::Readouts},
    {"Model", kModelButtons, UVGroup::Top::Nothing, true},
}};

constexpr std::array<UVPlane, 3> kPlanes = {{
    {"Top", RemapPlane::Top},
    {"Front", RemapPlane::Front},
    {"Left", RemapPlane::Left},
}};

constexpr std::array kViews = {std::span<const UVViewButton>(kViewButtons)};

constexpr std::span<const UVMenuTable> kAllMenus = kMenus;
constexpr std::span<const UVGroup> kAllGroups = kPanel;
constexpr std::span<const std::span<const UVViewButton>> kAllViews = kViews;
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

std::span<const UVMenuTable> uvMenus() { return kAllMenus; }

std::span<const UVGroup> uvPanel() { return kAllGroups; }

std::span<const UVViewButton> uvViewButtons() { return kViewButtons; }

std::span<const UVPlane> uvPlanes() { return kPlanes; }

}  // namespace corvane
