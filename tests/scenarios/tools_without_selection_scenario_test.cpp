// Tools through the real window where there is little to work on: nothing selected, deleted
// vertices in the selection, no model yet, or no room for more.

#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using ToolsWithoutSelectionScenario = ScenarioTest;
using Values = std::vector<double>;
using Lines = std::vector<std::string>;

const std::string kOpen = "answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\n";
// By 15 to the right and 6 up, in model units.
const std::string kDrag = "drag pbxFront right 100 100 120 92\n";
// Deletes vertex 3, where both faces meet, and leaves it selected.
const std::string kDeleteThird = "drag pbxFront left 130 50 160 70\npress cmdDelete\n";
// Deletes vertex 4, a corner of the second face only, and selects all.
const std::string kDeleteFourthSelectAll =
    "drag pbxFront left 50 50 80 70\npress cmdDelete\nmenu mnuSelectAll\n";

// The numbers of the deleted vertices, 1-based, as in "1 3".
std::string deleted(const QJsonObject& dump) {
    std::string numbers;
    int number = 0;
    for (const QJsonValue& vertex : dump["vertices"].toArray()) {
        ++number;
        if (!vertex["deleted"].toBool()) continue;
        numbers += (numbers.empty() ? "" : " ") + std::to_string(number);
    }
    return numbers;
}

// The corners of all faces, as stored.
QJsonArray corners(const QJsonObject& dump) {
    QJsonArray all;
    for (const QJsonValue& face : dump["faces"].toArray()) all.append(face["corner"]);
    return all;
}

void expectSameGeoset(const QJsonObject& actual, const QJsonObject& expected) {
    EXPECT_EQ(actual["vertices"], expected["vertices"]);
    EXPECT_EQ(actual["faces"], expected["faces"]);
}

// The square with normals that cancel each other out.
std::string modelWithOpposedNormals() {
    std::string text = squareModel();
    const std::string last = "\t\t{ 0, 1, 0 },\n\t\t{ 0, 0, 1 },\n";
    text.replace(text.find(last), last.size(), "\t\t{ -1, 0, 0 },\n\t\t{ -1, 0, 0 },\n");
    return text;
}

// 16384 vertices: twice as many are one more than a geoset can hold. One face.
std::string largeModel() {
    constexpr int kCount = 16384;
    const std::string count = " " + std::to_string(kCount) + " {\n";
    std::string vertices = "\tVertices" + count;
    std::string normals = "\tNormals" + count;
    std::string texture = "\tTVertices" + count;
    std::string groups = "\tVertexGroup {\n";
    for (int i = 0; i < kCount; ++i) {
        vertices +=
            "\t\t{ 0, " + std::to_string(i % 128) + ", " + std::to_string(i / 128) + " },\n";
        normals += "\t\t{ 0, 0, 1 },\n";
        texture += "\t\t{ 0, 0 },\n";
        groups += "\t\t0,\n";
    }
    return modelHead() + "Geoset {\n" + vertices + "\t}\n" + normals + "\t}\n" + texture + "\t}\n" +
           groups +
           "\t}\n"
           "\tFaces 1 3 {\n\t\tTriangles {\n\t\t\t{ 0, 1, 128 },\n\t\t}\n\t}\n"
           "\tGroups 1 1 {\n\t\tMatrices { 0 },\n\t}\n"
           "\tMaterialID 0,\n"
           "}\n" +
           bone("Root", "0", "None");
}

TEST_F(ToolsWithoutSelectionScenario, ExtrudeWithNothingSelectedIsAStepOnly) {
    folder.write("hero.mdl", squareModel());
    const Played played =
        playAll(kOpen + "press cmdExtrude\ndump\n" + kDrag + "dump\nmenu mnuUndo\ndump\n");
    EXPECT_EQ(undoNames(played.dump(1)), "Extrude");
    expectSameGeoset(played.dump(1), played.dump(0));
    EXPECT_EQ(undoNames(played.dump(2)), "");
    expectSameGeoset(played.dump(2), played.dump(0));
}

TEST_F(ToolsWithoutSelectionScenario, ExtrudeTakesDeletedVerticesAlongAndTheyStayDeleted) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kDeleteFourthSelectAll + "press cmdExtrude\ndump\n" +
                                  kDrag + "dump\nmenu mnuUndo\ndump\n" + kDrag + "menu mnuSave\n");
    const QJsonObject extruded = played.dump(1);
    EXPECT_EQ(undoNames(extruded), "Extrude, Select All, Delete, Selection");
    EXPECT_EQ(extruded["vertices"].toArray().size(), 8);
    EXPECT_EQ(selected(extruded), "5 6 7 8");
    EXPECT_EQ(deleted(extruded), "4 8");
    EXPECT_EQ(position(extruded, 4), (Values{-30, 30, 24}));
    EXPECT_EQ(position(extruded, 7), (Values{45, 36, 0}));
    EXPECT_EQ(position(extruded, 8), (Values{-15, 36, 24}));
    // The two faces became the cap; four walls, none along the edge that both faces share.
    EXPECT_EQ(corners(extruded),
              (QJsonArray{QJsonArray{4, 5, 6}, QJsonArray{4, 6, 7}, QJsonArray{0, 1, 4},
                          QJsonArray{5, 4, 1}, QJsonArray{1, 2, 5}, QJsonArray{6, 5, 2},
                          QJsonArray{2, 3, 6}, QJsonArray{7, 6, 3}, QJsonArray{3, 0, 7},
                          QJsonArray{4, 7, 0}}));
    EXPECT_EQ(undoNames(played.dump(2)), "Select All, Delete, Selection");
    EXPECT_EQ(deleted(played.dump(2)), "4");
    expectSameGeoset(played.dump(2), played.dump(0));
    // Saved without vertices 4 and 8 and without the faces that use them.
    const std::string saved = readFile(folder.path("hero.mdl"));
    EXPECT_NE(saved.find("\tVertices 6 {\n"), std::string::npos);
    EXPECT_NE(saved.find("\tFaces 1 15 {\n"), std::string::npos);
    EXPECT_NE(saved.find("{ 3, 4, 5, 0, 1, 3, 4, 3, 1, 1, 2, 4, 5, 4, 2 },"), std::string::npos);
}

TEST_F(ToolsWithoutSelectionScenario, ExtrudeOfADeletedVertexAloneAddsNoFace) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kDeleteThird + "press cmdExtrude\ndump\n" + kDrag +
                                  "dump\nmenu mnuUndo\ndump\n");
    EXPECT_EQ(selected(played.dump(1)), "5");
    EXPECT_EQ(deleted(played.dump(1)), "3 5");
    EXPECT_EQ(position(played.dump(1), 3), (Values{30, 30, 0}));
    EXPECT_EQ(position(played.dump(1), 5), (Values{45, 36, 0}));
    EXPECT_EQ(corners(played.dump(1)), (QJsonArray{QJsonArray{0, 1, 2}, QJsonArray{0, 2, 3}}));
    expectSameGeoset(played.dump(2), played.dump(0));
}

TEST_F(ToolsWithoutSelectionScenario, CloneWithNothingSelectedIsAStepOnly) {
    folder.write("hero.mdl", squareModel());
    for (const std::string mode : {"cmdMove", "cmdRotate", "cmdScale"}) {
        const Played played = playAll(kOpen + "press " + mode + "\npress cmdClone\ndump\n" + kDrag +
                                      "dump\nmenu mnuUndo\ndump\n");
        EXPECT_TRUE(at(played.dump(0), "modes.cloneMode").toBool()) << mode;
        EXPECT_FALSE(at(played.dump(1), "modes.cloneMode").toBool()) << mode;
        EXPECT_EQ(undoNames(played.dump(1)), "Clone") << mode;
        expectSameGeoset(played.dump(1), played.dump(0));
        EXPECT_EQ(undoNames(played.dump(2)), "") << mode;
        expectSameGeoset(played.dump(2), played.dump(0));
    }
}

TEST_F(ToolsWithoutSelectionScenario, CloneCopiesDeletedVerticesAsDeleted) {
    folder.write("hero.mdl", squareModel());
    const Played played =
        playAll(kOpen + kDeleteFourthSelectAll + "press cmdClone\ndump\n" + kDrag +
                "dump\nmenu mnuUndo\ndump\npress cmdClone\n" + kDrag + "menu mnuSave\n");
    const QJsonObject cloned = played.dump(1);
    EXPECT_EQ(undoNames(cloned), "Clone, Select All, Delete, Selection");
    EXPECT_EQ(cloned["vertices"].toArray().size(), 8);
    EXPECT_EQ(selected(cloned), "5 6 7 8");
    EXPECT_EQ(deleted(cloned), "4 8");
    EXPECT_EQ(position(cloned, 3), (Values{30, 30, 0}));
    EXPECT_EQ(position(cloned, 7), (Values{45, 36, 0}));
    EXPECT_EQ(position(cloned, 8), (Values{-15, 36, 24}));
    EXPECT_EQ(corners(cloned), (QJsonArray{QJsonArray{0, 1, 2}, QJsonArray{0, 2, 3},
                                           QJsonArray{4, 5, 6}, QJsonArray{4, 6, 7}}));
    EXPECT_EQ(undoNames(played.dump(2)), "Select All, Delete, Selection");
    EXPECT_EQ(deleted(played.dump(2)), "4");
    expectSameGeoset(played.dump(2), played.dump(0));
    const std::string saved = readFile(folder.path("hero.mdl"));
    EXPECT_NE(saved.find("\tVertices 6 {\n"), std::string::npos);
    EXPECT_NE(saved.find("{ 0, 1, 2, 3, 4, 5 },"), std::string::npos);
}

// Without vertex 4 the centre is (10, -10, 0). A drag of 64 pixels, 48 units, to the left shrinks
// to 1 / (1 + sqrt(48 / 4) / 12) = 0.776 of the size.
TEST_F(ToolsWithoutSelectionScenario, AClonesCentreLeavesDeletedVerticesOut) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kDeleteFourthSelectAll + R"(
press cmdClone
press cmdScale
dump
drag pbxFront right 124 100 60 100
dump
menu mnuUndo
dump
)");
    const double s = 0.7759907622602041;
    EXPECT_EQ(position(played.dump(1), 4), (Values{-30, 30, 24}));
    expectNear(position(played.dump(1), 7), {10 + 20 * s, -10 + 40 * s, 0});
    expectNear(position(played.dump(1), 8), {10 - 40 * s, -10 + 40 * s, 24 * s});
    EXPECT_EQ(deleted(played.dump(1)), "4 8");
    expectSameGeoset(played.dump(2), played.dump(0));
}

// Undoing a Delete brings back every vertex that is selected then, whichever step deleted it.
TEST_F(ToolsWithoutSelectionScenario, DeleteWithADeletedVertexSelectedIsUndone) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kDeleteThird + R"(
press cmdAdd
drag pbxFront left 50 50 80 70
dump
menu mnuDelete
dump
menu mnuUndo
dump
menu mnuUndo
menu mnuUndo
dump
)");
    EXPECT_EQ(selected(played.dump(0)), "3 4");
    EXPECT_EQ(deleted(played.dump(0)), "3");
    EXPECT_EQ(deleted(played.dump(1)), "3 4");
    EXPECT_EQ(selected(played.dump(1)), "3 4");
    EXPECT_EQ(undoNames(played.dump(1)), "Delete, Selection, Delete, Selection");
    EXPECT_EQ(deleted(played.dump(2)), "");
    EXPECT_EQ(selected(played.dump(2)), "3 4");
    EXPECT_EQ(undoNames(played.dump(2)), "Selection, Delete, Selection");
    EXPECT_EQ(deleted(played.dump(3)), "");
    EXPECT_EQ(selected(played.dump(3)), "3");
}

// Vertex 3 is deleted, all are selected: the counters count it, the centre leaves it out, which is
// then x = (-30 + 30 - 30) / 3, y = (-30 - 30 + 30) / 3, z = 24 / 3.
TEST_F(ToolsWithoutSelectionScenario, CountersCentreAndMarkerWithADeletedVertexInTheSelection) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kDeleteThird + R"(
menu mnuSelectAll
answer message ok
menu mnuSelVertCount
answer message ok
menu mnuSelFaceCount
answer input default
menu mnuViewCoM
menu mnuCopyCoM
menu mnuAddMarkerAtSelection
dump
)");
    const Lines dialogs = played.dialogs();
    ASSERT_EQ(dialogs.size(), 4U);
    EXPECT_EQ(dialogs[1], "message|Selected vertex counter|4 vertices selected.|ok");
    EXPECT_EQ(dialogs[2], "message|Selected face counter|2 faces selected.|ok");
    EXPECT_EQ(dialogs[3], "input|Center of mass|Center of mass:|default");
    EXPECT_EQ(played.events[3]["default"].toString(), "{ 8, -10, -10 }");
    EXPECT_EQ(played.dump()["clipboard"].toString(), "{ 8, -10, -10 }");
    EXPECT_EQ(played.dump()["markers"].toArray(),
              (QJsonArray{QJsonObject{{"slot", 1}, {"x", -10}, {"y", -10}, {"z", 8}}}));
    EXPECT_EQ(undoNames(played.dump()), "Select All, Delete, Selection");
}

TEST_F(ToolsWithoutSelectionScenario, CountersCentreAndMarkerWithOnlyADeletedVertexSelected) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kDeleteThird + R"(
answer message ok
menu mnuSelVertCount
answer message ok
menu mnuSelFaceCount
answer input default
menu mnuViewCoM
menu mnuCopyCoM
menu mnuAddMarkerAtSelection
dump
)");
    const Lines dialogs = played.dialogs();
    ASSERT_EQ(dialogs.size(), 4U);
    EXPECT_EQ(dialogs[1], "message|Selected vertex counter|1 vertices selected.|ok");
    EXPECT_EQ(dialogs[2], "message|Selected face counter|0 faces selected.|ok");
    EXPECT_EQ(dialogs[3], "input|Center of mass|Center of mass:|default");
    EXPECT_EQ(played.events[3]["default"].toString(), "{ 0, 0, 0 }");
    EXPECT_EQ(played.dump()["clipboard"].toString(), "{ 0, 0, 0 }");
    EXPECT_EQ(played.dump()["markers"].toArray(),
              (QJsonArray{QJsonObject{{"slot", 1}, {"x", 0}, {"y", 0}, {"z", 0}}}));
}

TEST_F(ToolsWithoutSelectionScenario, AMarkerAtNoSelectionStandsAtTheOrigin) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + "menu mnuAddMarkerAtSelection\ndump\n");
    EXPECT_EQ(played.dump()["markers"].toArray(),
              (QJsonArray{QJsonObject{{"slot", 1}, {"x", 0}, {"y", 0}, {"z", 0}}}));
    EXPECT_EQ(undoNames(played.dump()), "");
}

// Vertex 3 is of group 1, as vertex 4 is.
TEST_F(ToolsWithoutSelectionScenario, GroupsOfDeletedVerticesAreNamedButNotSelected) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kDeleteThird + R"(
answer message ok
menu mnuVertGroupOfSel
press cmdAdd
answer input "1"
menu mnuSelectByVertGroup
dump
press cmdDeselect
answer input "1"
menu mnuSelectByVertGroup
dump
press cmdSelect
answer input "1"
menu mnuSelectByVertGroup
dump
press cmdAdd
answer input "1"
menu mnuSelectByVertGroup
dump
)");
    const Lines dialogs = played.dialogs();
    ASSERT_EQ(dialogs.size(), 6U);
    EXPECT_NE(dialogs[1].find("Vertex group(s) 1 were selected."), std::string::npos);
    EXPECT_EQ(selected(played.dump(0)), "3 4");
    EXPECT_EQ(selected(played.dump(1)), "3") << "a deleted vertex stays as it was";
    EXPECT_EQ(selected(played.dump(2)), "4") << "but in Select mode all others are cleared";
    EXPECT_EQ(selected(played.dump(3)), "4") << "nor is it added";
    EXPECT_EQ(deleted(played.dump(3)), "3");
    EXPECT_EQ(undoNames(played.dump(3)), "Delete, Selection");
}

TEST_F(ToolsWithoutSelectionScenario, MarkersDoNotNeedAModel) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(R"(
menu mnuRemoveLastMarker
menu mnuRemoveAllMarkers
dump
answer input "1"
answer input "2"
answer input "3.5"
menu mnuAddMarker
menu mnuAddMarkerAtSelection
dump
menu mnuRemoveLastMarker
dump
menu mnuRemoveAllMarkers
menu mnuAddMarkerGraphically
dump
)" + kOpen + "drag pbxTop left 10 10 120 92\ndump\n");
    EXPECT_TRUE(played.dump(0)["markers"].toArray().isEmpty());
    const QJsonObject typed = {{"slot", 1}, {"x", 2}, {"y", 3.5}, {"z", 1}};
    const QJsonObject atOrigin = {{"slot", 2}, {"x", 0}, {"y", 0}, {"z", 0}};
    EXPECT_EQ(played.dump(1)["markers"].toArray(), (QJsonArray{typed, atOrigin}));
    EXPECT_FALSE(played.dump(1)["modelLoaded"].toBool());
    EXPECT_EQ(played.dump(2)["markers"].toArray(), (QJsonArray{typed}));
    EXPECT_TRUE(played.dump(3)["markers"].toArray().isEmpty());
    EXPECT_TRUE(at(played.dump(3), "modes.placingMarker").toBool());
    EXPECT_TRUE(at(played.dump(3), "menus.mnuAddMarkerGraphically.checked").toBool());
    EXPECT_EQ(undoNames(played.dump(3)), "");
    // Once there are views to release in: (120 * 15 - 1567.5) / 20 and -(92 * 15 - 1507.5) / 20.
    EXPECT_EQ(played.dump(4)["markers"].toArray(),
              (QJsonArray{QJsonObject{{"slot", 1}, {"x", 11.625}, {"y", 0}, {"z", 6.375}}}));
    EXPECT_FALSE(at(played.dump(4), "modes.placingMarker").toBool());
    EXPECT_EQ(undoNames(played.dump(4)), "") << "no box selection";
}

TEST_F(ToolsWithoutSelectionScenario, SnapNormalsSaysThatOpposedNormalsHaveNoMean) {
    folder.write("hero.mdl", modelWithOpposedNormals());
    const Played played = playAll(kOpen + R"(
menu mnuSelectAll
dump
answer message ok
menu mnuSnapNormals
dump
)");
    EXPECT_EQ(normal(played.dump(0), 1), (Values{0, 0, 1}));
    EXPECT_EQ(normal(played.dump(0), 4), (Values{0, 0, -1}));
    EXPECT_EQ(played.dialogs().back(),
              "message|Error|The normals of the selected vertices cancel each other out, so they "
              "have no common direction. Nothing was changed; select fewer vertices, or "
              "recalculate the normals first.|ok");
    EXPECT_EQ(undoNames(played.dump(1)), "Select All");
    expectSameGeoset(played.dump(1), played.dump(0));
}

TEST_F(ToolsWithoutSelectionScenario, CloneAndExtrudePastTheLimitSaySoAndChangeNothing) {
    folder.write("hero.mdl", largeModel());
    const Played played =
        playAll(kOpen + "menu mnuSelectAll\ndump\npress cmdClone\n" + "answer message ok\n" +
                kDrag + "dump\npress cmdExtrude\nanswer message ok\n" + kDrag + "dump\n");
    const Lines dialogs = played.dialogs();
    ASSERT_EQ(dialogs.size(), 3U);
    EXPECT_EQ(dialogs[1],
              "message|Error|The cloned geoset would be too large: 16384 + 16384 = 32768 vertices "
              "(at most 32767), 1 + 1 = 2 faces (at most 32767). Nothing was changed.|ok");
    // Two triangles to each of the three walls.
    EXPECT_EQ(dialogs[2],
              "message|Error|The extruded geoset would be too large: 16384 + 16384 = 32768 "
              "vertices (at most 32767), 1 + 6 = 7 faces (at most 32767). Nothing was changed.|ok");
    EXPECT_EQ(played.dump(0)["vertices"].toArray().size(), 16384);
    expectSameGeoset(played.dump(1), played.dump(0));
    expectSameGeoset(played.dump(2), played.dump(0));
    EXPECT_EQ(undoNames(played.dump(2)), "Select All");
}

}  // namespace
}  // namespace corvane
