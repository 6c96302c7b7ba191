#include "views/help_texts.h"

#include <map>

#include "model/commands/open_model.h"
#include "tool_fixture.h"
#include "views/commands/mouse.h"
#include "views/commands/view_commands.h"

namespace corvane {
namespace {

class HelpTextsTest : public ToolTest {
protected:
    /// The tip of a control; a text that no tip has where there is none.
    static std::string tipOf(const std::string& control) {
        for (const Tip& tip : controlTips()) {
            if (tip.control == control) return tip.text;
        }
        return "(no tip)";
    }

    /// Shows a box of the Help menu and expects it whole, and that nothing else happens.
    void expectBox(const std::string& menuItem, const std::string& title, const std::string& text,
                   bool rightToLeft = false) {
        dialogs.asked.clear();
        window.tip = "as before";
        showHelp(editor, menuItem);
        expectMessage(title, text);
        ASSERT_FALSE(dialogs.asked.empty());
        EXPECT_EQ(dialogs.last().defaultText, rightToLeft ? "right to left" : "");
        EXPECT_EQ(window.tip, "as before");
        expectGeoset({});
        expectNoStep();
        expectNotDrawn();
    }
};

TEST_F(HelpTextsTest, TheTipsOfTheEditButtons) {
    EXPECT_EQ(tipOf("cmdSnap"), "Brings all selected vertices together into one point.");
    EXPECT_EQ(tipOf("cmdDelete"), "Deletes the selection.");
    EXPECT_EQ(tipOf("cmdClone"),
              "Activates clone mode, where a duplicate is left behind after a transformation.");
}

TEST_F(HelpTextsTest, TheTipsOfTheAxisButtons) {
    EXPECT_EQ(tipOf("cmdActivateX"),
              "Toggles movement, rotation, and scaling to be allowed along the X axis.");
    EXPECT_EQ(tipOf("cmdActivateY"),
              "Toggles movement, rotation, and scaling to be allowed along the Y axis.");
    EXPECT_EQ(tipOf("cmdActivateZ"),
              "Toggles movement, rotation, and scaling to be allowed along the Z axis.");
}

TEST_F(HelpTextsTest, TheTipsOfTheTransformButtons) {
    EXPECT_EQ(tipOf("cmdMove"),
              "Right click and drag to move your selection the same way as your mouse moves.");
    EXPECT_EQ(
        tipOf("cmdRotate"),
        "Right click and drag up to rotate the selection one way and down to rotate the other.");
    EXPECT_EQ(tipOf("cmdScale"),
              "Right click and drag right/down to increase size and up/left to decrease size.");
    EXPECT_EQ(
        tipOf("cmdExtrude"),
        "Right click and drag to extend selected faces in the direction of the mouse movement.");
}

// "to your selection" at the end of the last one is the program's own wording.
TEST_F(HelpTextsTest, TheTipsOfTheSelectionButtons) {
    EXPECT_EQ(tipOf("cmdSelect"),
              "Left click and drag to set your selection to the contents of the drawn box.");
    EXPECT_EQ(tipOf("cmdAdd"),
              "Left click and drag to add the contents of the drawn box to your selection.");
    EXPECT_EQ(tipOf("cmdDeselect"),
              "Left click and drag to remove the contents of the drawn box to your selection.");
}

TEST_F(HelpTextsTest, TheTipsOfTheReadouts) {
    EXPECT_EQ(tipOf("txtX"), "Shows the X coordinate the mouse is hovering over in a viewport.");
    EXPECT_EQ(tipOf("txtY"), "Shows the Y coordinate the mouse is hovering over in a viewport.");
    EXPECT_EQ(tipOf("txtZ"), "Shows the Z coordinate the mouse is hovering over in a viewport.");
}

TEST_F(HelpTextsTest, EachControlHasOneTipAndThereAreNoOthers) {
    std::map<std::string, int> uses;
    for (const Tip& tip : controlTips()) ++uses[tip.control];
    const std::map<std::string, int> expected = {
        {"cmdSnap", 1},      {"cmdDelete", 1},    {"cmdClone", 1},  {"cmdActivateX", 1},
        {"cmdActivateY", 1}, {"cmdActivateZ", 1}, {"cmdMove", 1},   {"cmdRotate", 1},
        {"cmdScale", 1},     {"cmdExtrude", 1},   {"cmdSelect", 1}, {"cmdAdd", 1},
        {"cmdDeselect", 1},  {"txtX", 1},         {"txtY", 1},      {"txtZ", 1}};
    EXPECT_EQ(uses, expected);
}

TEST_F(HelpTextsTest, TheTipsOfTheViewsComeWithTheMouse) {
    const auto tipIn = [&](View view) {
        window.tip.clear();
        mouseMove(editor, view, 100, 100);
        return window.tip;
    };
    EXPECT_EQ(tipIn(View::Front), "Front viewport");
    EXPECT_EQ(tipIn(View::Top), "Top viewport");
    EXPECT_EQ(tipIn(View::Left), "Left viewport");
}

TEST_F(HelpTextsTest, TheFirstTipWelcomesTheUserWithTheVersion) {
    startUp(editor);
    EXPECT_EQ(window.tip, "Welcome to Corvane 1.14");
}

TEST_F(HelpTextsTest, TheBoxNavigation) {
    expectBox("mnuNavigation", "Navigation",
              "The three viewports here are front, top, and left. The set of controls next to "
              "each one controls what section of the model you are looking at. The + and - "
              "buttons zoom in and out. The unlabeled buttons pointing in four directions shift "
              "the view in their indicated direction.");
}

// "bounded are" is the program's own wording.
TEST_F(HelpTextsTest, TheBoxSelection) {
    expectBox(
        "mnuSelection", "Selection",
        "To activate any of the three selection options, simply click on its button. You can then "
        "click and drag with the left mouse button in any of the viewports to manipulate your "
        "selection.\r\n"
        "\r\n"
        "'Select' clears your current selection and adds the vertices in the bounded are to the "
        "selection. 'Add' doesn't clear it and adds what you have bounded. 'Deselect' deselects "
        "everything you bound and leaves the rest selected.\r\n"
        "\r\n"
        "There are also some features available in the Tools and Edit menus to help with "
        "selection.\r\n"
        " - Edit->Select All: Selects everything.\r\n"
        " - Edit->Invert Selection: If a vertex was selected before, it is deselected. If it "
        "wasn't selected, it is selected.\r\n"
        " - Tools->Expand Selection: Vertices connected by edges to the currently selected ones "
        "are selected.\r\n");
}

TEST_F(HelpTextsTest, TheBoxTransformations) {
    expectBox(
        "mnuTransformations", "Transformations",
        "There are three transformation options: move, rotate, and scale. Right click and drag to "
        "use any of them.\r\n"
        "\r\n"
        "'Move' just moves the selection however much you moved the map. 'Rotate' rotates, based "
        "on how far up or down you drag your mouse. 'Scale' scales depending on how far up/left "
        "(smaller) or down/right (larger). Extrude extends the selection polygons in the "
        "direction you drag your mouse. Delete deletes the vertex and the associated faces.\r\n"
        "\r\n"
        "You can enable/disable transformations on an axis by clicking the X, Y, or Z buttons.");
}

TEST_F(HelpTextsTest, TheBoxSummary) {
    expectBox(
        "mnuSummary", "Summary",
        "This program edits MDLs at the vertex level. Simply go to File->Open and choose an MDL. "
        "If there is more than one geoset in the model, it will ask you about which you want to "
        "choose. You may want to use Warcraft 3 Viewer to choose which geoset you want to use "
        "beforehand. To save, just go to File->Save as and choose where to save it. You can "
        "choose File->Save Geoset to make it save a single, unanimated geoset. This can be useful "
        "for geoset merging. No manual MDL editing is required.");
}

TEST_F(HelpTextsTest, TheBoxMarkers) {
    expectBox(
        "mnuMarkers", "Markers",
        "Markers are simply marks on the viewports that can be used to keep track of spots that "
        "you want to line things up on. For example, if you were merging a head onto a body, you "
        "might want to make a mark on the neck in order to perfectly line the head up.\r\n"
        "\r\n"
        "There are three ways to add markers, each of which is available in the View menu.\r\n"
        " - Coordinate input: Manually type in the three coordinates.\r\n"
        " - Graphical placement: Choose it in the menu to activate and then click in any of the "
        "three viewports to place.\r\n"
        " - Center of selection: Adds it at the center of the selected vertices.");
}

// "to active it" and "The a new version" are the program's own wording.
TEST_F(HelpTextsTest, TheBoxCloningReadsFromRightToLeft) {
    expectBox("mnuCloning", "Cloning",
              "Cloning allows you to duplicate sections of the model. Just click the clone button "
              "to active it and then use any of the transformations. The button will turn reddish "
              "to indicate that it is active. The a new version, identical to what you had "
              "selected, will be created and transformed.",
              true);
}

TEST_F(HelpTextsTest, TheBoxAboutNamesTheVersionAndItsDevelopers) {
    expectBox("mnuAbout", "About",
              "MDL Corvane 1.14\r\n"
              "\r\n"
              "Made by the Corvane developers");
}

TEST_F(HelpTextsTest, EachMenuItemHasOneBoxAndThereAreNoOthers) {
    std::map<std::string, int> uses;
    for (const HelpBox& box : helpBoxes()) ++uses[box.menuItem];
    const std::map<std::string, int> expected = {
        {"mnuSummary", 1}, {"mnuNavigation", 1}, {"mnuSelection", 1}, {"mnuTransformations", 1},
        {"mnuMarkers", 1}, {"mnuCloning", 1},    {"mnuAbout", 1}};
    EXPECT_EQ(uses, expected);
}

TEST_F(HelpTextsTest, AnotherMenuItemShowsNoBox) {
    showHelp(editor, "mnuOpen");
    showHelp(editor, "");
    EXPECT_TRUE(dialogs.asked.empty());
}

}  // namespace
}  // namespace corvane
