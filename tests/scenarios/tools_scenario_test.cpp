// Every tool of the menus through the real window: with and without a selection, with deleted
// vertices in it, before a model is loaded, and undone.

#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using ToolsScenario = ScenarioTest;
using Values = std::vector<double>;
using Lines = std::vector<std::string>;

const std::string kOpen = "answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\n";
const std::string kSelectThird = "drag pbxFront left 130 50 160 70\n";
const std::string kSelectAll = "menu mnuSelectAll\n";
// Vertices 2 and 3 of the square, on its right side.
const std::string kSelectRight = "drag pbxFront left 130 50 160 150\n";

struct Tool {
    const char* menuItem;
    const char* answers;  // to what it asks
    const char* step;     // the undo step that it leaves; empty for none
    bool needsSelection;  // leaves no step where nothing is selected
    // Changes vertices 2 and 3 of the square. They lie one above the other and are no face, so some
    // tools do not.
    bool changesRightSide = true;
};

const std::vector<Tool>& tools() {
    static const std::vector<Tool> all = {
        {"mnuSnap", "", "Snap", false},
        {"mnuWeld", "", "Weld", true},
        {"mnuDelete", "", "Delete", false},
        {"mnuDeleteFace", "", "Delete Face", false, false},
        {"mnuExpandSelection", "", "Selection", false},
        {"mnuRecalculateNormals", "", "Recalculate Normals", false},
        {"mnuSnapNormals", "", "Snap Normals", true},
        {"mnuMirrorX", "", "Mirror", false},
        {"mnuMirrorY", "", "Mirror", false},
        {"mnuMirrorZ", "", "Mirror", false},
        {"mnuAlignX", "", "Align", true, false},
        {"mnuAlignY", "", "Align", true},
        {"mnuAlignZ", "", "Align", true, false},
        {"mnuSetCoordinates",
         "answer input \"1\"\nanswer input \"x\"\nanswer input cancel\nanswer input \"2\"\n"
         "answer input \"3\"\n",
         "Set Coordinates", false},
        {"mnuAssignVertexGroup", "answer input \"x\"\nanswer input \"7\"\n", "Assign Vertex Group",
         false},
        {"mnuSelectAll", "", "Select All", false},
        {"mnuInvertSelection", "", "Invert Selection", false},
        {"mnuSelectByVertGroup", "answer input \"9\"\n", "", false},
        {"mnuVertGroupOfSel", "answer message ok\n", "", false, false},
        {"mnuViewMatrices", "answer message ok\n", "", false, false},
        {"mnuAddMatrix", "answer input \"12\"\nanswer input cancel\n", "", false, false},
    };
    return all;
}

// Everything that undoing must bring back.
void expectSameGeoset(const QJsonObject& actual, const QJsonObject& expected,
                      const std::string& what) {
    EXPECT_EQ(actual["vertices"], expected["vertices"]) << what;
    EXPECT_EQ(actual["faces"], expected["faces"]) << what;
}

TEST_F(ToolsScenario, EveryToolIsUndone) {
    folder.write("hero.mdl", squareModel());
    for (const Tool& tool : tools()) {
        const Played played = playAll(kOpen + kSelectRight + "dump\n" + tool.answers + "menu " +
                                      tool.menuItem + "\ndump\nmenu mnuUndo\ndump\n");
        const std::string step = tool.step;
        EXPECT_EQ(undoNames(played.dump(1)), step.empty() ? "Selection" : step + ", Selection")
            << tool.menuItem;
        EXPECT_EQ(played.dump(1)["vertices"] != played.dump(0)["vertices"], tool.changesRightSide)
            << tool.menuItem;
        if (step.empty()) continue;
        expectSameGeoset(played.dump(2), played.dump(0), tool.menuItem);
    }
}

TEST_F(ToolsScenario, WithNothingSelectedNoVertexMoves) {
    folder.write("hero.mdl", squareModel());
    for (const Tool& tool : tools()) {
        const std::string name = tool.menuItem;
        if (name == "mnuSelectAll" || name == "mnuInvertSelection") continue;
        const Played played =
            playAll(kOpen + "dump\n" + tool.answers + "menu " + name + "\ndump\n");
        expectSameGeoset(played.dump(1), played.dump(0), name);
        EXPECT_EQ(undoNames(played.dump(1)), tool.needsSelection ? "" : tool.step) << name;
    }
}

TEST_F(ToolsScenario, UndoBringsBackASelectionWithDeletedVertices) {
    folder.write("hero.mdl", squareModel());
    for (const Tool& tool : tools()) {
        const std::string name = tool.menuItem;
        if (name == "mnuDelete") continue;   // undoing it brings back whatever is selected
        if (tool.step[0] == '\0') continue;  // nothing of it to undo
        const Played played = playAll(kOpen + kSelectThird + "press cmdDelete\npress cmdAdd\n" +
                                      kSelectAll + "dump\n" + tool.answers + "menu " + name +
                                      "\nmenu mnuUndo\ndump\nmenu mnuUndo\nmenu mnuUndo\ndump\n");
        expectSameGeoset(played.dump(1), played.dump(0), name);
        EXPECT_EQ(selected(played.dump(2)), "3") << name;
        EXPECT_FALSE(played.dump(2)["vertices"].toArray()[2].toObject()["deleted"].toBool());
    }
}

TEST_F(ToolsScenario, BeforeAModelIsLoadedTheToolsMenuIsClosed) {
    for (const Tool& tool : tools()) {
        const std::string name = tool.menuItem;
        if (name == "mnuSelectAll" || name == "mnuInvertSelection") {
            EXPECT_EQ(undoNames(playAll("menu " + name + "\ndump\n").dump()), "");
        } else {
            EXPECT_EQ(play("menu " + name + "\n").error(), name + " is disabled");
        }
    }
    const Played played = playAll(R"(
answer message ok
menu mnuSelVertCount
answer message ok
menu mnuSelFaceCount
answer message ok
menu mnuViewCoM
menu mnuCopyCoM
menu mnuShowNormals
press cmdActivateX
press Command1
dump
)");
    EXPECT_EQ(played.dialogs(), (Lines{"message|Selected vertex counter|No model loaded.|ok",
                                       "message|Selected face counter|No model loaded.|ok",
                                       "message|Center of mass|No model loaded.|ok"}));
    EXPECT_EQ(undoNames(played.dump()), "");
    EXPECT_EQ(played.dump()["clipboard"].toString(), "");
}

TEST_F(ToolsScenario, WeldMakesOneVertexOfTheSelection) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kSelectRight + "menu mnuWeld\ndump\nmenu mnuSave\n");
    EXPECT_EQ(position(played.dump(), 2), (Values{30, 0, 0}));
    EXPECT_EQ(selected(played.dump()), "2");
    EXPECT_EQ(played.dump()["faces"].toArray()[0].toObject()["corner"].toArray(),
              (QJsonArray{0, 1, 1}));
    const std::string saved = readFile(folder.path("hero.mdl"));
    EXPECT_NE(saved.find("\tVertices 3 {\n\t\t{ 0, -30, -30 },\n\t\t{ 0, 30, 0 },\n"),
              std::string::npos);
    EXPECT_NE(saved.find("{ 0, 1, 1, 0, 1, 2 },"), std::string::npos);
}

TEST_F(ToolsScenario, DeleteFaceKeepsTheVerticesAndTheHeadersCount) {
    folder.write("hero.mdl", squareModel());
    // Vertices 1, 2 and 3 are the corners of the first face.
    const Played played = playAll(kOpen + kSelectRight + R"(
press cmdAdd
drag pbxFront left 50 130 80 150
menu mnuDeleteFace
dump
menu mnuSave
)");
    EXPECT_TRUE(played.dump()["faces"].toArray()[0].toObject()["deleted"].toBool());
    EXPECT_FALSE(played.dump()["faces"].toArray()[1].toObject()["deleted"].toBool());
    const std::string saved = readFile(folder.path("hero.mdl"));
    EXPECT_NE(saved.find("\tVertices 4 {\n"), std::string::npos);
    EXPECT_NE(saved.find("\tFaces 1 6 {\n\t\tTriangles {\n\t\t\t{ 0, 2, 3 },\n"),
              std::string::npos);
}

TEST_F(ToolsScenario, CloneLeavesACopyBehindARotationAndAScale) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kSelectAll + R"(
press cmdRotate
press cmdClone
drag pbxFront right 100 160 100 40
dump
menu mnuUndo
menu mnuScale
menu mnuClone
drag pbxFront right 60 100 124 100
dump
menu mnuUndo
dump
)");
    EXPECT_EQ(played.dump(0)["vertices"].toArray().size(), 8);
    EXPECT_EQ(played.dump(0)["faces"].toArray().size(), 4);
    EXPECT_EQ(selected(played.dump(0)), "5 6 7 8");
    EXPECT_EQ(position(played.dump(0), 3), (Values{30, 30, 0}));
    EXPECT_EQ(undoNames(played.dump(1)), "Clone, Select All");
    EXPECT_EQ(played.dump(1)["faces"].toArray()[3].toObject()["corner"].toArray(),
              (QJsonArray{4, 6, 7}));
    EXPECT_EQ(played.dump(2)["vertices"].toArray().size(), 4);
    EXPECT_EQ(selected(played.dump(2)), "1 2 3 4");
}

TEST_F(ToolsScenario, CountersAndCentreOfMass) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
answer message ok
menu mnuViewCoM
menu mnuCopyCoM
)" + kSelectRight + R"(
answer message ok
menu mnuSelVertCount
answer message ok
menu mnuSelFaceCount
answer input cancel
menu mnuViewCoM
menu mnuCopyCoM
dump
)" + kSelectAll + R"(
answer message ok
menu mnuSelFaceCount
menu mnuCopyCoM
dump
)");
    const std::vector<std::string> dialogs = played.dialogs();
    ASSERT_EQ(dialogs.size(), 6U);
    EXPECT_EQ(dialogs[1], "message|Error|No vertices selected,|ok");
    EXPECT_EQ(dialogs[2], "message|Selected vertex counter|2 vertices selected.|ok");
    EXPECT_EQ(dialogs[3], "message|Selected face counter|0 faces selected.|ok");
    EXPECT_EQ(dialogs[4], "input|Center of mass|Center of mass:|cancel");
    EXPECT_EQ(played.events[4]["default"].toString(), "{ 0, 30, 0 }");
    EXPECT_EQ(dialogs[5], "message|Selected face counter|2 faces selected.|ok");
    EXPECT_EQ(played.dump(0)["clipboard"].toString(), "{ 0, 30, 0 }");
    EXPECT_EQ(played.dump(1)["clipboard"].toString(), "{ 6, 0, 0 }");
    EXPECT_EQ(undoNames(played.dump(1)), "Select All, Selection");
}

TEST_F(ToolsScenario, VertexGroups) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
answer message ok
menu mnuVertGroupOfSel
)" + kSelectRight + R"(
answer message ok
menu mnuVertGroupOfSel
answer input ""
menu mnuAssignVertexGroup
answer input "40000"
answer message ok
answer input "5"
menu mnuAssignVertexGroup
answer message ok
menu mnuVertGroupOfSel
answer input "x"
answer input ""
answer input "1"
menu mnuSelectByVertGroup
dump
press cmdAdd
answer input "5"
menu mnuSelectByVertGroup
dump
press cmdDeselect
answer input "1"
menu mnuSelectByVertGroup
dump
answer input cancel
menu mnuSelectByVertGroup
dump
menu mnuSave
)");
    const std::vector<std::string> dialogs = played.dialogs();
    EXPECT_NE(dialogs[1].find("No vertex groups in selection"), std::string::npos);
    EXPECT_NE(dialogs[2].find("Vertex group(s) 0, and 1 were selected."), std::string::npos);
    EXPECT_EQ(dialogs[4], "input|Assign Vertex Group|Vertex group|40000");
    EXPECT_EQ(dialogs[5],
              "message|Error|A vertex group is a whole number from -32768 to 32767.|ok");
    EXPECT_NE(dialogs[7].find("Vertex group(s) 5 were selected."), std::string::npos);
    EXPECT_EQ(selected(played.dump(0)), "4");
    EXPECT_EQ(selected(played.dump(1)), "2 3 4");
    EXPECT_EQ(selected(played.dump(2)), "2 3");
    EXPECT_EQ(selected(played.dump(3)), "2 3");
    EXPECT_EQ(undoNames(played.dump(3)), "Assign Vertex Group, Selection");
    EXPECT_NE(readFile(folder.path("hero.mdl"))
                  .find("\tVertexGroup {\n\t\t0,\n\t\t5,\n\t\t5,\n\t\t1,\n\t}\n"),
              std::string::npos);
}

TEST_F(ToolsScenario, Matrices) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
answer input cancel
menu mnuAddMatrix
answer input "x"
answer input "40000"
answer message ok
answer input "12"
answer input "13"
answer input ""
menu mnuAddMatrix
answer input "1"
answer input "2"
answer input "3"
answer input "4"
answer input "5"
menu mnuAddMatrix
answer message ok
menu mnuViewMatrices
dump
menu mnuSave
)");
    EXPECT_EQ(played.dialogs().back(),
              "message|Matrices|0: 0\r\n1: 0, 1\r\n2: 12, 13\r\n3: 1, 2, 3, 4\r\n|ok");
    EXPECT_EQ(played.dialogs()[1],
              "input|New Matrix|Control bone 1\r\nClick cancel to stop adding control "
              "bones.|cancel");
    EXPECT_EQ(undoNames(played.dump()), "");
    EXPECT_NE(readFile(folder.path("hero.mdl"))
                  .find("\tGroups 4 9 {\n\t\tMatrices { 0 },\n\t\tMatrices { 0, 1 },\n"
                        "\t\tMatrices { 12, 13 },\n\t\tMatrices { 1, 2, 3, 4 },\n\t}\n"),
              std::string::npos);
}

TEST_F(ToolsScenario, MarkersInThreeWaysAndRemoved) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kSelectThird + R"(
answer input "1"
answer input "2"
answer input "3.5"
menu mnuAddMarker
answer input "1"
answer input cancel
menu mnuAddMarker
answer input "east"
answer message ok
answer input cancel
menu mnuAddMarker
menu mnuAddMarkerAtSelection
menu mnuAddMarkerGraphically
dump
drag pbxTop left 10 10 120 92
dump
drag pbxFront left 10 10 20 20
drawn pbxTop
menu mnuRemoveLastMarker
dump
menu mnuRemoveAllMarkers
dump
)");
    EXPECT_TRUE(at(played.dump(0), "menus.mnuAddMarkerGraphically.checked").toBool());
    EXPECT_TRUE(at(played.dump(0), "modes.placingMarker").toBool());
    // (120 * 15 - 1567.5) / 20 = 11.625 and -(92 * 15 - 1507.5) / 20 = 6.375.
    EXPECT_EQ(played.dump(1)["markers"].toArray(),
              (QJsonArray{QJsonObject{{"slot", 1}, {"x", 2}, {"y", 3.5}, {"z", 1}},
                          QJsonObject{{"slot", 2}, {"x", 30}, {"y", 30}, {"z", 0}},
                          QJsonObject{{"slot", 3}, {"x", 11.625}, {"y", 0}, {"z", 6.375}}}));
    EXPECT_FALSE(at(played.dump(1), "menus.mnuAddMarkerGraphically.checked").toBool());
    EXPECT_EQ(selected(played.dump(1)), "3") << "the release placed a marker and selected nothing";
    int circles = 0;
    for (const QJsonObject& event : played.events) {
        for (const QJsonValue& item : event["items"].toArray()) {
            if (item.toObject()["op"] == "circle") ++circles;
        }
    }
    EXPECT_EQ(circles, 3);
    EXPECT_EQ(played.dump(2)["markers"].toArray().size(), 2);
    EXPECT_EQ(played.dump(3)["markers"].toArray().size(), 0);
}

TEST_F(ToolsScenario, TheTemplateIsWrittenAndOpens) {
    const Played played = playAll(R"(
answer file cancel
menu mnuNew
answer file "$DIR/new.mdl"
menu mnuNew
dump
answer file "$DIR/new.mdl"
menu mnuOpen
dump
)");
    EXPECT_FALSE(played.dump(0)["modelLoaded"].toBool());
    EXPECT_EQ(played.dump(0)["modelPath"].toString().toStdString(), folder.path("new.mdl"));
    EXPECT_EQ(played.dump(1)["vertices"].toArray().size(), 8);
    EXPECT_EQ(played.dump(1)["faces"].toArray().size(), 0);
}

TEST_F(ToolsScenario, ThePerspectiveViewTurnsOnItsButtonsOnly) {
    folder.write("hero.mdl", squareModel());
    std::string script = kOpen + "drawn pbxPersp\n" + kSelectAll + "drawn pbxPersp\n";
    for (int i = 0; i < 36; ++i) script += "press Command1\n";
    script +=
        "drawn pbxPersp\npress cmdPerspUp\npress cmdPerspZoomOut\npress cmdPerspZoomOut\n"
        "dump\n";
    const Played played = playAll(script);
    const QJsonArray first = played.events[1]["items"].toArray();
    ASSERT_EQ(first.size(), 6 + 4) << "drawn once when the model was opened";
    EXPECT_EQ(played.events[2]["items"].toArray(), first);
    QJsonArray turned = played.events[3]["items"].toArray();
    ASSERT_EQ(turned.size(), 10);
    EXPECT_EQ(turned[0].toObject(), first[0].toObject()) << "a whole revolution";
    EXPECT_EQ(turned[9].toObject()["color"].toString(), "#ff0000") << "the selection shows now";
    for (const QJsonValue& item : turned) {
        EXPECT_EQ(item.toObject()["x1"].toDouble() + item.toObject()["x2"].toDouble(),
                  kPictureWidth);
    }
    EXPECT_EQ(at(played.dump(), "perspective.yaw").toInt(), 0);
    EXPECT_EQ(at(played.dump(), "perspective.offset").toInt(), -2);
    EXPECT_EQ(at(played.dump(), "perspective.distance").toInt(), 4);
}

TEST_F(ToolsScenario, HelpBoxesTellWhatTheyAreAbout) {
    const std::vector<std::pair<std::string, std::string>> boxes = {
        {"mnuUserGuide", "message|Error|The user guide is not installed: there is no page in "},
        {"mnuSummary", "message|Summary|This program edits MDLs at the vertex level. "},
        {"mnuNavigation", "message|Navigation|The three viewports here are front, top, and left. "},
        {"mnuSelection", "message|Selection|To activate any of the three selection options, "},
        {"mnuTransformations", "message|Transformations|There are three transformation options: "},
        {"mnuMarkers", "message|Markers|Markers are simply marks on the viewports "},
        {"mnuCloning", "message|Cloning|Cloning allows you to duplicate sections of the model. "},
        {"mnuAbout", "message|About|MDL Corvane 1.14\r\n\r\nMade by the Corvane developers|ok"},
    };
    for (const auto& [menuItem, start] : boxes) {
        const Played played = playAll("answer message ok\nmenu " + menuItem + "\n");
        EXPECT_EQ(played.dialogs().at(0).substr(0, start.size()), start);
    }
}

TEST_F(ToolsScenario, TipsFollowTheMouseUntilTheyAreSwitchedOff) {
    const Played played = playAll(R"(
hover cmdMove 3 3
dump
hover txtX 3 3
dump
hover central 1 1
dump
hover cmdAdd 3 3
menu mnuEnableTips
hover cmdMove 3 3
dump
)");
    const auto tip = [&](int n) { return at(played.dump(n), "texts.txtTips").toString(); };
    EXPECT_EQ(tip(0),
              "Right click and drag to move your selection the same way as your mouse moves.");
    EXPECT_EQ(tip(1), "Shows the X coordinate the mouse is hovering over in a viewport.");
    EXPECT_EQ(tip(2), "");
    EXPECT_EQ(tip(3),
              "Left click and drag to add the contents of the drawn box to your selection.");
    EXPECT_FALSE(at(played.dump(3), "menus.mnuEnableTips.checked").toBool());
}

}  // namespace
}  // namespace corvane
