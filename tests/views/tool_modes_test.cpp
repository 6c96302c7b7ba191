#include "views/tool_modes.h"

#include "editor_fixture.h"
#include "views/commands/view_commands.h"

namespace corvane {
namespace {

using ToolModesTest = EditorTest;

TEST_F(ToolModesTest, TheModesAtTheStart) {
    const ToolModes& modes = editor.modes;
    EXPECT_EQ(modes.selectMode, SelectMode::Select);
    EXPECT_EQ(modes.transformMode, TransformMode::Move);
    EXPECT_FALSE(modes.cloneMode);
    EXPECT_TRUE(modes.activeX);
    EXPECT_TRUE(modes.activeY);
    EXPECT_TRUE(modes.activeZ);
    EXPECT_TRUE(modes.selectEnabled);
    EXPECT_FALSE(modes.placingMarker);
    EXPECT_FALSE(modes.showNormals);
    EXPECT_FALSE(modes.editButtonsEnabled);
}

TEST_F(ToolModesTest, TheModesAreKnownByTheirLetters) {
    EXPECT_EQ(static_cast<char>(SelectMode::Select), 'S');
    EXPECT_EQ(static_cast<char>(SelectMode::Add), 'A');
    EXPECT_EQ(static_cast<char>(SelectMode::Deselect), 'D');
    EXPECT_EQ(static_cast<char>(TransformMode::Move), 'M');
    EXPECT_EQ(static_cast<char>(TransformMode::Rotate), 'R');
    EXPECT_EQ(static_cast<char>(TransformMode::Scale), 'S');
    EXPECT_EQ(static_cast<char>(TransformMode::Extrude), 'E');
}

TEST_F(ToolModesTest, SettingASelectionModeRefreshesTheButtons) {
    for (const SelectMode mode : {SelectMode::Add, SelectMode::Deselect, SelectMode::Select}) {
        const int before = window.buttonUpdates;
        setSelectMode(editor, mode);
        EXPECT_EQ(editor.modes.selectMode, mode);
        EXPECT_EQ(editor.modes.transformMode, TransformMode::Move);
        EXPECT_EQ(window.buttonUpdates, before + 1);
    }
}

TEST_F(ToolModesTest, SettingATransformModeRefreshesTheButtons) {
    for (const TransformMode mode : {TransformMode::Rotate, TransformMode::Scale,
                                     TransformMode::Extrude, TransformMode::Move}) {
        const int before = window.buttonUpdates;
        setTransformMode(editor, mode);
        EXPECT_EQ(editor.modes.transformMode, mode);
        EXPECT_EQ(editor.modes.selectMode, SelectMode::Select);
        EXPECT_EQ(window.buttonUpdates, before + 1);
    }
}

TEST_F(ToolModesTest, CloneTogglesAndRefreshesTheButtons) {
    bool seen = false;
    window.onUpdateButtons = [&] { seen = editor.modes.cloneMode; };
    toggleClone(editor);
    EXPECT_TRUE(editor.modes.cloneMode);
    EXPECT_TRUE(seen);
    toggleClone(editor);
    EXPECT_FALSE(editor.modes.cloneMode);
    EXPECT_FALSE(seen);
}

TEST_F(ToolModesTest, AnAxisTogglesAloneAndTheButtonsShowItsNewState) {
    const auto states = [&] {
        const ToolModes& modes = editor.modes;
        return std::vector<bool>{modes.activeX, modes.activeY, modes.activeZ};
    };
    std::vector<bool> seen;
    window.onUpdateButtons = [&] { seen = states(); };
    toggleActive(editor, Axis::X);
    EXPECT_EQ(states(), (std::vector<bool>{false, true, true}));
    EXPECT_EQ(seen, states());
    toggleActive(editor, Axis::Y);
    EXPECT_EQ(states(), (std::vector<bool>{false, false, true}));
    toggleActive(editor, Axis::Z);
    EXPECT_EQ(states(), (std::vector<bool>{false, false, false}));
    toggleActive(editor, Axis::X);
    EXPECT_EQ(states(), (std::vector<bool>{true, false, false}));
    EXPECT_EQ(seen, states());
}

TEST_F(ToolModesTest, AnAxisPressedTwiceIsBackAndLeavesOneStepWithTheStateBefore) {
    loadVertices({{0, 0, 0}});
    toggleActive(editor, Axis::X);
    toggleActive(editor, Axis::X);
    EXPECT_TRUE(editor.modes.activeX);
    EXPECT_EQ(axisColour(editor.modes.activeX), 0x8000000FU);
    EXPECT_EQ(editor.undo.slots[0].name, "Set Active Axes");
    EXPECT_EQ(editor.undo.slots[0].numbers, (Triple{1, 1, 1}));
    EXPECT_FALSE(editor.undo.slots[1].valid);
}

TEST_F(ToolModesTest, AxesToggleWithoutAModelAndRecordNothing) {
    toggleActive(editor, Axis::Z);
    EXPECT_FALSE(editor.modes.activeZ);
    EXPECT_FALSE(editor.undo.slots[0].valid);
}

TEST_F(ToolModesTest, ShowNormalsTogglesAndRedraws) {
    loadVertices({{0, 0, 0}});
    toggleShowNormals(editor);
    EXPECT_TRUE(editor.modes.showNormals);
    EXPECT_EQ(front.primitives().size(), 4U);  // two axis marks, the vertex, its normal
    EXPECT_EQ(top.primitives().size(), 4U);
    EXPECT_EQ(left.primitives().size(), 4U);
    EXPECT_GT(window.buttonUpdates, 0);  // the check mark
    toggleShowNormals(editor);
    EXPECT_FALSE(editor.modes.showNormals);
    EXPECT_EQ(front.primitives().size(), 3U);
}

TEST_F(ToolModesTest, TipsToggleAndTheItemShowsIt) {
    bool seen = true;
    window.onUpdateButtons = [&] { seen = editor.modes.tipsEnabled; };
    toggleTips(editor);
    EXPECT_FALSE(editor.modes.tipsEnabled);
    EXPECT_FALSE(seen);
    toggleTips(editor);
    EXPECT_TRUE(editor.modes.tipsEnabled);
    EXPECT_TRUE(seen);
}

TEST_F(ToolModesTest, TheButtonOfTheModeIsWhiteAndTheOthersAreButtonFace) {
    editor.modes.selectMode = SelectMode::Add;
    EXPECT_EQ(colourOf(editor.modes, SelectMode::Select), 0x8000000FU);
    EXPECT_EQ(colourOf(editor.modes, SelectMode::Add), 0xFFFFFFU);
    EXPECT_EQ(colourOf(editor.modes, SelectMode::Deselect), 0x8000000FU);
    editor.modes.transformMode = TransformMode::Scale;
    EXPECT_EQ(colourOf(editor.modes, TransformMode::Move), 0x8000000FU);
    EXPECT_EQ(colourOf(editor.modes, TransformMode::Rotate), 0x8000000FU);
    EXPECT_EQ(colourOf(editor.modes, TransformMode::Scale), 0xFFFFFFU);
    EXPECT_EQ(colourOf(editor.modes, TransformMode::Extrude), 0x8000000FU);
}

TEST_F(ToolModesTest, CloneAndAxisButtonsShowTheirStateByColour) {
    EXPECT_EQ(cloneColour(editor.modes), 0x8000000FU);
    editor.modes.cloneMode = true;
    EXPECT_EQ(cloneColour(editor.modes), 0x8080FFU);
    EXPECT_EQ(axisColour(true), 0x8000000FU);
    EXPECT_EQ(axisColour(false), 0x808080U);
}

}  // namespace
}  // namespace corvane
