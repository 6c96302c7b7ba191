// Dragging with the other buttons, locks, and undoing it.

#include <cmath>

#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using TransformScenario = ScenarioTest;
using Values = std::vector<double>;

// Opens the square and selects vertex 3, at x = 30, y = 30, z = 0 (slot order).
const std::string kOpen = "answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\n";
const std::string kSelectThird = "drag pbxFront left 130 50 160 70\n";
const std::string kSelectAll = "drag pbxFront left 10 10 200 190\n";

// One pixel is 15 twips, 0.75 model units at the zoom of 20 that views start with.
TEST_F(TransformScenario, MoveFollowsTheMouseInEachView) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kSelectThird + R"(
drag pbxFront right 100 100 120 92
dump
drag pbxTop right 100 100 104 80
dump
drag pbxLeft middle 100 100 108 112
dump
)");
    EXPECT_EQ(position(played.dump(0), 3), (Values{45, 36, 0}));
    EXPECT_EQ(position(played.dump(0), 2), (Values{30, -30, 0})) << "not selected";
    EXPECT_EQ(position(played.dump(1), 3), (Values{48, 36, 15}));
    EXPECT_EQ(position(played.dump(2), 3), (Values{48, 27, 21}));
    EXPECT_EQ(undoNames(played.dump(2)), "Move, Move, Move, Selection");
    const QJsonObject step = played.dump(2)["undo"].toArray()[0].toObject();
    EXPECT_EQ(step["a"].toDouble(), 0);
    EXPECT_EQ(step["b"].toDouble(), -9);
    EXPECT_EQ(step["c"].toDouble(), 6);
}

TEST_F(TransformScenario, LockedAxesStayAndOneRunOfTogglesIsOneStep) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kSelectThird + R"(
press cmdActivateX
drag pbxFront right 100 100 120 92
dump
menu mnuYEnabled
press cmdActivateX
drag pbxFront right 100 100 120 92
dump
press cmdActivateX
press cmdActivateZ
drag pbxFront right 100 100 120 92
dump
menu mnuUndo
menu mnuUndo
dump
)");
    EXPECT_EQ(position(played.dump(0), 3), (Values{30, 36, 0}));
    EXPECT_EQ(at(played.dump(0), "buttons.cmdActivateX.color").toString(), "#808080");
    EXPECT_FALSE(at(played.dump(0), "menus.mnuXEnabled.checked").toBool());
    EXPECT_EQ(position(played.dump(1), 3), (Values{45, 36, 0}));
    EXPECT_EQ(position(played.dump(2), 3), (Values{45, 36, 0})) << "no axis is active";
    EXPECT_EQ(undoNames(played.dump(2)),
              "Move, Set Active Axes, Move, Set Active Axes, Move, Set Active Axes, Selection");
    EXPECT_EQ(position(played.dump(3), 3), (Values{45, 36, 0}));
    EXPECT_TRUE(at(played.dump(3), "modes.activeX").toBool());
    EXPECT_FALSE(at(played.dump(3), "modes.activeY").toBool());
    EXPECT_TRUE(at(played.dump(3), "modes.activeZ").toBool());
}

// A drag up by 120 pixels is 90 model units: a turn by 45 degrees, halved from 90.
TEST_F(TransformScenario, RotateTurnsAboutTheViewsDepthAxis) {
    folder.write("hero.mdl", squareModel());
    const double half = 30 * std::sqrt(2.0);
    const Played played = playAll(kOpen + kSelectAll + R"(
press cmdRotate
drag pbxFront right 100 160 100 40
dump
menu mnuUndo
dump
drag pbxTop right 100 160 100 40
dump
menu mnuUndo
drag pbxLeft right 100 160 130 40
dump
)");
    // The centre is (0, 0, 6). Vertex 3 at (30, 30) lies at 45 degrees and comes to 90.
    expectNear(position(played.dump(0), 3), {0, half, 0});
    expectNear(position(played.dump(0), 2), {half, 0, 0});
    expectNear(normal(played.dump(0), 3), {std::sqrt(0.5), std::sqrt(0.5), 0});
    EXPECT_EQ(undoNames(played.dump(0)), "Rotate z, Selection");
    expectNear(position(played.dump(1), 3), {30, 30, 0});
    expectNear(normal(played.dump(1), 3), {1, 0, 0});
    // About y: z - 6 is the sine part, x the cosine part. Vertex 4: x = -30, z - 6 = 18.
    const double c = std::sqrt(0.5);
    expectNear(position(played.dump(2), 4), {(-30 - 18) * c, 30, 6 + (18 - 30) * c});
    EXPECT_EQ(undoNames(played.dump(2)), "Rotate y, Selection");
    // About x: y is the sine part, z - 6 the cosine part. Vertex 4: y = 30, z - 6 = 18.
    expectNear(position(played.dump(3), 4), {-30, (30 + 18) * c, 6 + (18 - 30) * c});
    EXPECT_EQ(undoNames(played.dump(3)), "Rotate x, Selection");
}

// 64 pixels are 48 model units: sqrt(48 / 4) / 12 + 1 = 1.288675...
TEST_F(TransformScenario, ScaleGrowsToTheRightAndShrinksToTheLeftAboutTheCentre) {
    folder.write("hero.mdl", squareModel());
    const double s = std::sqrt(12.0) / 12 + 1;
    const Played played = playAll(kOpen + kSelectAll + R"(
menu mnuScale
drag pbxFront right 60 100 124 100
dump
menu mnuUndo
dump
drag pbxTop right 100 60 100 124
dump
menu mnuUndo
press cmdActivateY
drag pbxLeft right 124 100 60 100
dump
)");
    expectNear(position(played.dump(0), 3), {30 * s, 30 * s, -6 * s + 6});
    expectNear(position(played.dump(0), 4), {-30 * s, 30 * s, 18 * s + 6});
    expectNear(normal(played.dump(0), 3), {1, 0, 0});
    expectNear(position(played.dump(1), 4), {-30, 30, 24});
    expectNear(position(played.dump(2), 4), {-30 * s, 30 * s, 18 * s + 6});
    expectNear(position(played.dump(3), 4), {-30 / s, 30, 18 / s + 6});
    EXPECT_EQ(undoNames(played.dump(3)), "Scale, Set Active Axes, Selection");
}

// With one vertex selected there is no face to copy, only the vertex.
TEST_F(TransformScenario, CloneLeavesACopyBehindOnceAndSaysSoByItsColour) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kSelectThird + R"(
press cmdClone
dump
drag pbxFront right 100 100 120 92
dump
drag pbxFront right 100 100 120 92
dump
menu mnuUndo
menu mnuUndo
dump
)");
    EXPECT_TRUE(at(played.dump(0), "modes.cloneMode").toBool());
    EXPECT_EQ(at(played.dump(0), "buttons.cmdClone.color").toString(), "#ff8080");
    EXPECT_EQ(at(played.dump(1), "buttons.cmdClone.color").toString(), "face");
    EXPECT_EQ(selected(played.dump(1)), "5");
    EXPECT_EQ(position(played.dump(1), 3), (Values{30, 30, 0}));
    EXPECT_EQ(position(played.dump(1), 5), (Values{45, 36, 0}));
    EXPECT_EQ(position(played.dump(2), 5), (Values{60, 42, 0})) << "moved, not copied again";
    EXPECT_EQ(undoNames(played.dump(2)), "Move, Clone, Selection");
    EXPECT_EQ(played.dump(3)["vertices"].toArray().size(), 4);
    EXPECT_EQ(selected(played.dump(3)), "3");
}

// A drag in each view extrudes along that view's axes.
TEST_F(TransformScenario, ExtrudePullsTheSelectedFacesOut) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kSelectAll + R"(
press cmdExtrude
drag pbxLeft right 100 100 120 92
dump
menu mnuUndo
dump
)");
    EXPECT_EQ(played.dump(0)["vertices"].toArray().size(), 8);
    EXPECT_EQ(played.dump(0)["faces"].toArray().size(), 2 + 4 * 2) << "four walls";
    EXPECT_EQ(selected(played.dump(0)), "5 6 7 8");
    EXPECT_EQ(position(played.dump(0), 5), (Values{-30, -24, 15}));
    EXPECT_EQ(undoNames(played.dump(0)), "Extrude, Selection");
    EXPECT_EQ(played.dump(1)["faces"].toArray().size(), 2);
    EXPECT_EQ(selected(played.dump(1)), "1 2 3 4");
}

TEST_F(TransformScenario, ARightClickMovesByNothingButIsAStep) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kSelectThird + "drag pbxFront right 90 90 90 90\ndump\n");
    EXPECT_EQ(position(played.dump(), 3), (Values{30, 30, 0}));
    EXPECT_EQ(undoNames(played.dump()), "Move, Selection");
}

// The first twenty slots are pulled up by an undo and the twentieth stays, so the twentieth newest
// step is reversed again and again.
TEST_F(TransformScenario, UndoChainsPastTwentySteps) {
    folder.write("hero.mdl", squareModel());
    std::string script = kOpen + kSelectThird;
    // 45 moves to the right by 1 to 45 pixels, 0.75 units each.
    double sum = 0;
    for (int i = 1; i <= 45; ++i) {
        script += "drag pbxFront right 100 100 " + std::to_string(100 + i) + " 100\n";
        sum += i * 0.75;
    }
    script += "dump\n";
    for (int i = 0; i < 19; ++i) script += "menu mnuUndo\n";
    script += "dump\nmenu mnuUndo\ndump\nmenu mnuUndo\nmenu mnuUndo\ndump\n";
    const Played played = playAll(script);

    EXPECT_EQ(position(played.dump(0), 3), (Values{30 + sum, 30, 0}));
    const QJsonArray full = played.dump(0)["undo"].toArray();
    EXPECT_EQ(full[0].toObject()["a"].toDouble(), 45 * 0.75);
    EXPECT_EQ(full[39].toObject()["a"].toDouble(), 6 * 0.75) << "older steps fell off";

    for (int i = 45; i > 26; --i) sum -= i * 0.75;
    EXPECT_EQ(position(played.dump(1), 3), (Values{30 + sum, 30, 0}));
    const QJsonArray pulled = played.dump(1)["undo"].toArray();
    for (int slot = 0; slot < 20; ++slot) {
        EXPECT_EQ(pulled[slot].toObject()["a"].toDouble(), 26 * 0.75) << slot;
    }
    EXPECT_EQ(pulled[20].toObject()["a"].toDouble(), 25 * 0.75) << "not pulled up";
    EXPECT_FALSE(pulled[39].toObject()["valid"].toBool());

    EXPECT_EQ(position(played.dump(2), 3), (Values{30 + sum - 19.5, 30, 0}));
    EXPECT_EQ(position(played.dump(3), 3), (Values{30 + sum - 3 * 19.5, 30, 0}));
    EXPECT_TRUE(at(played.dump(3), "menus.mnuUndo.enabled").toBool());
    EXPECT_EQ(at(played.dump(3), "menus.mnuUndo.caption").toString(), "Undo Move");
}

TEST_F(TransformScenario, UndoEndsWithAnEmptyHistory) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kSelectThird + R"(
drag pbxFront right 100 100 120 92
menu mnuUndo
menu mnuUndo
dump
)");
    EXPECT_EQ(position(played.dump(), 3), (Values{30, 30, 0}));
    EXPECT_EQ(selected(played.dump()), "");
    EXPECT_FALSE(at(played.dump(), "menus.mnuUndo.enabled").toBool());
    EXPECT_EQ(at(played.dump(), "menus.mnuUndo.caption").toString(), "Undo");
    const Played again = play(kOpen + "menu mnuUndo\n");
    EXPECT_EQ(again.exitCode, 1);
    EXPECT_EQ(again.error(), "mnuUndo is disabled");
}

TEST_F(TransformScenario, SnapAndDeleteWithUndo) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kSelectAll + R"(
press cmdSnap
dump
menu mnuUndo
press cmdSelect
drag pbxFront left 50 130 80 150
menu mnuDelete
dump
drawn pbxFront
menu mnuUndo
dump
)");
    EXPECT_EQ(position(played.dump(0), 1), (Values{0, 0, 6}));
    EXPECT_EQ(position(played.dump(0), 4), (Values{0, 0, 6}));
    EXPECT_EQ(position(played.dump(1), 1), (Values{-30, -30, 0}));
    EXPECT_TRUE(played.dump(1)["vertices"].toArray()[0].toObject()["deleted"].toBool());
    // Both faces use vertex 1: what is left are the axis marks and three boxes.
    EXPECT_EQ(played.events[3]["items"].toArray().size(), 2 + 3);
    EXPECT_FALSE(played.dump(2)["vertices"].toArray()[0].toObject()["deleted"].toBool());
}

}  // namespace
}  // namespace corvane
