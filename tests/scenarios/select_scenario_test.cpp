// Box selection, modes, navigation and the mouse readout.

#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using SelectScenario = ScenarioTest;

// Opens the square and waits until a box selects.
const std::string kOpen = "answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\n";

TEST_F(SelectScenario, SelectAddAndDeselectInTheFrontView) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
drag pbxFront left 130 50 160 70
dump
press cmdAdd
drag pbxFront left 80 150 50 130
dump
menu mnuDeselect
drag pbxFront left 130 70 160 50
dump
drag pbxFront left 100 100 100 100
dump
menu mnuAdd
drag pbxFront left 100 100 100 100
dump
press cmdSelect
drag pbxFront left 50 50 160 70
dump
drag pbxFront left 100 100 100 100
dump
)");
    EXPECT_EQ(selected(played.dump(0)), "3");
    EXPECT_EQ(selected(played.dump(1)), "1 3") << "dragged from the lower right to the upper left";
    EXPECT_EQ(selected(played.dump(2)), "1");
    EXPECT_EQ(selected(played.dump(3)), "1") << "an empty box deselects nothing";
    EXPECT_EQ(selected(played.dump(4)), "1") << "nor does it add";
    EXPECT_EQ(selected(played.dump(5)), "3 4");
    EXPECT_EQ(selected(played.dump(6)), "") << "but in Select mode it clears";
    EXPECT_EQ(undoNames(played.dump(6)),
              "Selection, Selection, Selection, Selection, Selection, Selection, Selection");
    EXPECT_EQ(at(played.dump(1), "buttons.cmdAdd.color").toString(), "#ffffff");
    EXPECT_EQ(at(played.dump(1), "buttons.cmdSelect.color").toString(), "face");
    EXPECT_EQ(at(played.dump(1), "modes.selectMode").toString(), "A");
    EXPECT_EQ(at(played.dump(2), "modes.selectMode").toString(), "D");
}

// In the top view vertices 1 to 3 lie on the line z = 0 (pixel 100.5 from the top), vertex 4 at
// z = 24 (pixel 68.5); 1 and 4 at the left (pixel 64.5), 2 and 3 at the right, one behind the
// other.
TEST_F(SelectScenario, TheTopViewTakesWhatStandsBehindToo) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
drag pbxTop left 130 90 160 110
dump
press cmdAdd
drag pbxTop left 50 60 80 80
dump
)");
    EXPECT_EQ(selected(played.dump(0)), "2 3");
    EXPECT_EQ(selected(played.dump(1)), "2 3 4");
}

// In the left view z runs to the right (vertex 4 at pixel 136.5), y up.
TEST_F(SelectScenario, TheLeftViewShowsZAndY) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
drag pbxLeft left 130 50 145 70
dump
drag pbxLeft left 90 150 120 50
dump
press cmdDeselect
drag pbxLeft left 90 130 120 150
dump
)");
    EXPECT_EQ(selected(played.dump(0)), "4");
    EXPECT_EQ(selected(played.dump(1)), "1 2 3");
    EXPECT_EQ(selected(played.dump(2)), "3");
}

TEST_F(SelectScenario, ReadoutsFollowTheMouseInEachView) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
hover pbxFront 114 80
dump
hover pbxTop 114 80
dump
hover pbxLeft 114 80
dump
)");
    // (114 * 15 - 1567.5) / 20 = 7.125 and -(80 * 15 - 1507.5) / 20 = 15.375.
    const auto readout = [](const QJsonObject& dump) {
        return at(dump, "texts.txtX").toString().toStdString() + ' ' +
               at(dump, "texts.txtY").toString().toStdString() + ' ' +
               at(dump, "texts.txtZ").toString().toStdString() + ' ' +
               at(dump, "texts.txtTips").toString().toStdString();
    };
    EXPECT_EQ(readout(played.dump(0)), "0 7.125 15.375 Front viewport");
    EXPECT_EQ(readout(played.dump(1)), "15.375 7.125 0 Top viewport");
    EXPECT_EQ(readout(played.dump(2)), "7.125 0 15.375 Left viewport");
}

TEST_F(SelectScenario, ZoomAndPanMoveWhatABoxCatches) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
press cmdPanLF
press cmdPanUF
dump
drag pbxFront left 150 70 180 90
dump
press cmdZoomInFront
dump
press cmdZoomOutFront
press cmdPanRF
press cmdPanDF
press cmdPanRT
press cmdPanDL
dump
)");
    EXPECT_EQ(at(played.dump(0), "views.front.panX").toInt(), 300);
    EXPECT_EQ(at(played.dump(0), "views.front.panY").toInt(), 300);
    // 300 twips are 20 pixels: vertex 3 moved from (144.5, 60.5) to (164.5, 80.5).
    EXPECT_EQ(selected(played.dump(1)), "3");
    EXPECT_EQ(at(played.dump(2), "views.front.zoom").toDouble(), 25);
    EXPECT_EQ(at(played.dump(2), "views.front.panX").toInt(), 375);
    EXPECT_EQ(at(played.dump(2), "views.top.zoom").toDouble(), 20);
    EXPECT_EQ(at(played.dump(3), "views.front.zoom").toDouble(), 20);
    EXPECT_EQ(at(played.dump(3), "views.front.panX").toInt(), 0);
    EXPECT_EQ(at(played.dump(3), "views.front.panY").toInt(), 0);
    EXPECT_EQ(at(played.dump(3), "views.top.panX").toInt(), -300);
    EXPECT_EQ(at(played.dump(3), "views.left.panY").toInt(), -300);
}

TEST_F(SelectScenario, ViewsShowTheGeosetWithItsSelection) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
drag pbxFront left 130 50 160 70
drawn pbxFront
menu mnuShowNormals
drawn pbxFront
)");
    const QJsonArray items = played.events[1]["items"].toArray();
    ASSERT_EQ(items.size(), 2 + 6 + 4);
    const QJsonObject up{{"op", "line"}, {"x1", 1567.5}, {"y1", 1507.5},
                         {"x2", 1567.5}, {"y2", 1307.5}, {"color", "#0000ff"}};
    EXPECT_EQ(items[0].toObject(), up);
    // Vertex 3 at h = 30, v = 30: 1567.5 + 600 = 2167.5 rounds to the even 2168, 907.5 to 908.
    const QJsonObject selectedBox{{"op", "box"}, {"x1", 2158}, {"y1", 898},
                                  {"x2", 2178},  {"y2", 918},  {"color", "#ff0000"}};
    EXPECT_EQ(items[10].toObject(), selectedBox);
    EXPECT_NE(items[9].toObject()["color"], "#ff0000");

    const QJsonArray withNormals = played.events[2]["items"].toArray();
    ASSERT_EQ(withNormals.size(), 2 + 6 + 8);
    // Vertex 3 has the normal (0, 1, 0) in the file: slot x, to the right in the front view.
    const QJsonObject normalLine{{"op", "line"}, {"x1", 2168}, {"y1", 908},
                                 {"x2", 2318},   {"y2", 908},  {"color", "#8080ff"}};
    EXPECT_EQ(withNormals[13].toObject(), normalLine);
    EXPECT_EQ(played.events.size(), 3U);
}

TEST_F(SelectScenario, ThePicturesGrowTogetherAndTheMouseFollows) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
resize 1150 838
dump
)");
    const QJsonObject dump = played.dump();
    const double width = at(dump, "views.front.width").toDouble();
    const double height = at(dump, "views.front.height").toDouble();
    EXPECT_GT(width, kPictureWidth);
    EXPECT_GT(height, kPictureHeight);
    for (const char* const view : {"views.top.", "views.left.", "perspective."}) {
        EXPECT_EQ(at(dump, std::string(view) + "width").toDouble(), width) << view;
        EXPECT_EQ(at(dump, std::string(view) + "height").toDouble(), height) << view;
    }
    // Vertex 3 now stands 600 twips right of and above the middle of the larger picture.
    const int x = static_cast<int>((width / 2 + 600) / 15);
    const int y = static_cast<int>((height / 2 - 600) / 15);
    const Played again =
        playAll(kOpen + "resize 1150 838\ndrag pbxFront left " + std::to_string(x - 10) + ' ' +
                std::to_string(y - 10) + ' ' + std::to_string(x + 10) + ' ' +
                std::to_string(y + 10) + "\ndump\n");
    EXPECT_EQ(selected(again.dump()), "3");
}

TEST_F(SelectScenario, SelectAllAndInvertSelection) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
drag pbxFront left 130 50 160 70
menu mnuInvertSelection
dump
menu mnuSelectAll
dump
menu mnuUndo
dump
menu mnuUndo
dump
)");
    EXPECT_EQ(selected(played.dump(0)), "1 2 4");
    EXPECT_EQ(selected(played.dump(1)), "1 2 3 4");
    EXPECT_EQ(at(played.dump(1), "menus.mnuUndo.caption").toString(), "Undo Select All");
    EXPECT_EQ(selected(played.dump(2)), "1 2 4");
    EXPECT_EQ(selected(played.dump(3)), "3");
}

}  // namespace
}  // namespace corvane
