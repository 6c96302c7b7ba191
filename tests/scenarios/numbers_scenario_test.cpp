// Every menu item and button that changes something, by the numbers that it must come to, worked
// out by hand: an item that does what its neighbour should do is noticed.
#include <array>

#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using NumbersScenario = ScenarioTest;
using Values = std::vector<double>;

const std::string kOpen = "answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\n";
// Vertices 2, 3 and 4: (30, -30, 0), (30, 30, 0) and (-30, 30, 24), so that the centre (10, 10, 8)
// is another number on each axis. Vertex 1 lies at (-30, -30, 0).
const std::string kSelectThree =
    "drag pbxFront left 130 50 160 150\npress cmdAdd\ndrag pbxFront left 50 50 80 70\n";

// What a tool makes of that selection. What is not named stays as it is in the file.
struct Result {
    const char* press;  // the command of the scenario, with the answers to what it asks
    std::vector<Values> positions = {{30, -30, 0}, {30, 30, 0}, {-30, 30, 24}};  // 2, 3 and 4
    std::vector<Values> normals = {{0, 0, 1}, {1, 0, 0}, {0, 1, 0}};
    std::string selection = "2 3 4";
    std::vector<int> groups = {0, 1, 1};
    std::vector<bool> deleted = {false, false, false};
};

std::vector<Result> resultsOfTools() {
    // Of (1, 1, 1), the sum of the three normals.
    const double third = 0.577350269189626;
    const Values mean = {10, 10, 8};
    return {
        {.press = "menu mnuMirrorX",
         .positions = {{-10, -30, 0}, {-10, 30, 0}, {50, 30, 24}},
         .normals = {{0, 0, 1}, {-1, 0, 0}, {0, 1, 0}}},
        {.press = "menu mnuMirrorY",
         .positions = {{30, 50, 0}, {30, -10, 0}, {-30, -10, 24}},
         .normals = {{0, 0, 1}, {1, 0, 0}, {0, -1, 0}}},
        {.press = "menu mnuMirrorZ",
         .positions = {{30, -30, 16}, {30, 30, 16}, {-30, 30, -8}},
         .normals = {{0, 0, -1}, {1, 0, 0}, {0, 1, 0}}},
        {.press = "menu mnuAlignX", .positions = {{10, -30, 0}, {10, 30, 0}, {10, 30, 24}}},
        {.press = "menu mnuAlignY", .positions = {{30, 10, 0}, {30, 10, 0}, {-30, 10, 24}}},
        {.press = "menu mnuAlignZ", .positions = {{30, -30, 8}, {30, 30, 8}, {-30, 30, 8}}},
        {.press = "menu mnuSnap", .positions = {mean, mean, mean}},
        {.press = "press cmdSnap", .positions = {mean, mean, mean}},
        {.press = "menu mnuWeld",
         .positions = {mean, {30, 30, 0}, {-30, 30, 24}},
         .selection = "2",
         .deleted = {false, true, true}},
        {.press = "menu mnuDelete", .deleted = {true, true, true}},
        {.press = "press cmdDelete", .deleted = {true, true, true}},
        {.press = "menu mnuExpandSelection", .selection = "1 2 3 4"},
        // Vertex 2 is a corner of the first face, between (1, 0, 0) and (0, -1, 0); vertex 4 one of
        // the second, between (0, 60, 24) / 64.62198 and (-60, 0, 24) / 64.62198; vertex 3 of both.
        {.press = "menu mnuRecalculateNormals",
         .normals = {{0.707106781187, -0.707106781187, 0},
                     {0.692190675975, 0.713323545596, -0.109734166930},
                     {-0.615457455, 0.615457455, 0.492365964}}},
        {.press = "menu mnuSnapNormals",
         .normals = {{third, third, third}, {third, third, third}, {third, third, third}}},
        {.press = "answer input \"1.5\"\nanswer input \"-2\"\nanswer input \"7\"\n"
                  "menu mnuSetCoordinates",
         .positions = {{1.5, -2, 7}, {1.5, -2, 7}, {1.5, -2, 7}}},
        {.press = "answer input \"9\"\nmenu mnuAssignVertexGroup", .groups = {9, 9, 9}},
        {.press = "menu mnuSelectAll", .selection = "1 2 3 4"},
        {.press = "menu mnuInvertSelection", .selection = "1"},
    };
}

void expectClose(const Values& actual, const Values& expected, const std::string& what) {
    ASSERT_EQ(actual.size(), expected.size()) << what;
    for (std::size_t i = 0; i < actual.size(); ++i) {
        EXPECT_NEAR(actual[i], expected[i], 1e-8) << what << ", slot " << i;
    }
}

void expectResult(const QJsonObject& dump, const Result& expected) {
    const std::string name = expected.press;
    expectClose(position(dump, 1), {-30, -30, 0}, name + ": vertex 1");
    for (int i = 0; i < 3; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const std::string vertex = name + ": vertex " + std::to_string(i + 2);
        expectClose(position(dump, i + 2), expected.positions[at], vertex);
        expectClose(normal(dump, i + 2), expected.normals[at], vertex + ", normal");
        const QJsonObject record = dump["vertices"].toArray()[i + 1].toObject();
        EXPECT_EQ(record["group"].toInt(), expected.groups[at]) << vertex;
        EXPECT_EQ(record["deleted"].toBool(), expected.deleted[at]) << vertex;
    }
    EXPECT_EQ(selected(dump), expected.selection) << name;
}

TEST_F(NumbersScenario, ToolsOfTheMenusAndTheirUndo) {
    folder.write("hero.mdl", squareModel());
    const std::vector<Result> results = resultsOfTools();
    std::string script = kOpen + kSelectThree + "dump\n";
    for (const Result& result : results) {
        script += std::string(result.press) + "\ndump\nmenu mnuUndo\ndump\n";
    }
    const Played played = playAll(script);
    expectResult(played.dump(0), {.press = "before"});
    int at = 0;
    for (const Result& result : results) {
        expectResult(played.dump(++at), result);
        EXPECT_EQ(played.dump(++at)["vertices"], played.dump(0)["vertices"]) << result.press;
    }
}

TEST_F(NumbersScenario, FacesOfTheToolsThatChangeThem) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + kSelectThree +
                                  "menu mnuWeld\ndump\nmenu mnuUndo\nmenu mnuSelectAll\n"
                                  "menu mnuDeleteFace\ndump\nmenu mnuUndo\ndump\n");
    const auto face = [&](int dump, int number) {
        return played.dump(dump)["faces"].toArray()[number - 1].toObject();
    };
    EXPECT_EQ(face(0, 1)["corner"].toArray(), (QJsonArray{0, 1, 1}));
    EXPECT_EQ(face(0, 2)["corner"].toArray(), (QJsonArray{0, 1, 1}));
    for (int number = 1; number <= 2; ++number) {
        EXPECT_TRUE(face(1, number)["deleted"].toBool());
        EXPECT_FALSE(face(2, number)["deleted"].toBool());
    }
    EXPECT_EQ(face(2, 2)["corner"].toArray(), (QJsonArray{0, 2, 3}));
}

TEST_F(NumbersScenario, SelectionModesFromButtonsAndMenu) {
    folder.write("hero.mdl", squareModel());
    for (const bool byMenu : {false, true}) {
        const std::string press = byMenu ? "menu mnu" : "press cmd";
        const Played played = playAll(kOpen + press + "Add\ndrag pbxFront left 130 50 160 150\n" +
                                      "drag pbxFront left 50 50 80 70\ndump\n" + press +
                                      "Deselect\ndrag pbxFront left 130 130 160 150\ndump\n" +
                                      press + "Select\ndrag pbxFront left 50 130 80 150\ndump\n");
        EXPECT_EQ(selected(played.dump(0)), "2 3 4") << press;
        EXPECT_EQ(selected(played.dump(1)), "3 4") << press;
        EXPECT_EQ(selected(played.dump(2)), "1") << press;
    }
}

// One drag, 16 pixels to the right and 12 up: 12 and 9 model units. Vertices 3 and 4 are selected.
TEST_F(NumbersScenario, TransformModesFromButtonsAndMenu) {
    folder.write("hero.mdl", squareModel());
    const std::string drag = "drag pbxFront right 100 100 116 88\ndump\nmenu mnuUndo\n";
    for (const bool byMenu : {false, true}) {
        const std::string press = byMenu ? "menu mnu" : "press cmd";
        const Played played =
            playAll(kOpen + "drag pbxFront left 50 50 160 70\n" + press + "Scale\n" + drag + press +
                    "Rotate\n" + drag + press + "Extrude\n" + drag + press + "Move\n" + drag +
                    press + "Clone\n" + drag + press + "Clone\n" + press + "Clone\n" + drag);
        // The length of (12, 9) is 15; sqrt(15 / 4) / 12 + 1 = 1.161374306. The centre is (0, 30).
        expectClose(position(played.dump(0), 3), {34.84122918, 30, -1.936491673}, press);
        // 9 halved are 4.5 degrees: the sine is 0.078459096, the cosine 0.996917334.
        expectClose(position(played.dump(1), 3), {29.907520020, 32.353772871, 0}, press);
        EXPECT_EQ(played.dump(2)["vertices"].toArray().size(), 6) << press;
        expectClose(position(played.dump(2), 5), {42, 39, 0}, press);
        expectClose(position(played.dump(3), 3), {42, 39, 0}, press);
        expectClose(position(played.dump(4), 3), {30, 30, 0}, press);
        expectClose(position(played.dump(4), 5), {42, 39, 0}, press);
        EXPECT_EQ(played.dump(5)["vertices"].toArray().size(), 4) << "switched on and off again";
        expectClose(position(played.dump(5), 3), {42, 39, 0}, press);
    }
}

TEST_F(NumbersScenario, AxisLocksFromButtonsAndMenu) {
    folder.write("hero.mdl", squareModel());
    const std::string drags =
        "drag pbxFront right 100 100 116 88\ndrag pbxLeft right 100 100 108 100\ndump\n"
        "menu mnuUndo\nmenu mnuUndo\n";
    for (const bool byMenu : {false, true}) {
        std::string script = kOpen + "drag pbxFront left 130 50 160 70\n";
        const std::array<std::string, 3> items = {"menu mnuXEnabled\n", "menu mnuYEnabled\n",
                                                  "menu mnuZEnabled\n"};
        const std::array<std::string, 3> buttons = {"press cmdActivateX\n", "press cmdActivateY\n",
                                                    "press cmdActivateZ\n"};
        for (const std::string& press : byMenu ? items : buttons) {
            script += press;
            script += drags;
            script += press;
        }
        const Played played = playAll(script);
        EXPECT_EQ(position(played.dump(0), 3), (Values{30, 39, 6})) << byMenu;
        EXPECT_EQ(position(played.dump(1), 3), (Values{42, 30, 6})) << byMenu;
        EXPECT_EQ(position(played.dump(2), 3), (Values{42, 39, 0})) << byMenu;
    }
}

// Zoom and pans of a view in a dump.
Values viewOf(const QJsonObject& dump, const std::string& view) {
    return {at(dump, view + ".zoom").toDouble(), at(dump, view + ".panX").toDouble(),
            at(dump, view + ".panY").toDouble()};
}

TEST_F(NumbersScenario, ButtonsOfTheThreeViews) {
    folder.write("hero.mdl", squareModel());
    struct Buttons {
        std::string view;
        std::array<std::string, 6> names;
    };
    const std::vector<Buttons> all = {
        {"views.front",
         {"cmdPanUF", "cmdPanLF", "cmdZoomInFront", "cmdPanDF", "cmdPanRF", "cmdZoomOutFront"}},
        {"views.top",
         {"cmdPanUT", "cmdPanLT", "cmdZoomInTop", "cmdPanDT", "cmdPanRT", "cmdZoomOutTop"}},
        {"views.left",
         {"cmdPanUL", "cmdPanLL", "cmdZoomInLeft", "cmdPanDL", "cmdPanRL", "cmdZoomOutLeft"}}};
    std::string script = kOpen;
    for (const Buttons& buttons : all) {
        for (const std::string& button : buttons.names) {
            script += "press ";
            script += button;
            script += "\ndump\n";
        }
    }
    const Played played = playAll(script);
    const std::vector<Values> steps = {{20, 0, 300},  {20, 300, 300}, {25, 375, 375},
                                       {25, 375, 75}, {25, 75, 75},   {20, 60, 60}};
    int n = 0;
    for (const Buttons& buttons : all) {
        for (const Values& expected : steps) {
            const QJsonObject dump = played.dump(n++);
            bool reached = false;  // views after this one were not touched yet
            for (const Buttons& other : all) {
                const bool own = other.view == buttons.view;
                const Values others = reached ? Values{20, 0, 0} : steps.back();
                EXPECT_EQ(viewOf(dump, other.view), own ? expected : others)
                    << other.view << ", step " << n;
                reached = reached || own;
            }
        }
    }
}

TEST_F(NumbersScenario, ButtonsOfThePerspectivePicture) {
    folder.write("hero.mdl", squareModel());
    std::string script = kOpen;
    for (const char* const button :
         {"Command1", "cmdPerspUp", "cmdPerspZoomOut", "cmdPerspDown", "cmdPerspDown",
          "cmdPerspZoomIn", "cmdPerspZoomIn", "Command1"}) {
        script += std::string("press ") + button + "\ndump\n";
    }
    const Played played = playAll(script);
    const std::vector<Values> expected = {{10, 0, 0}, {10, -2, 0}, {10, -2, 2}, {10, 0, 2},
                                          {10, 2, 2}, {10, 2, 0},  {10, 2, -2}, {20, 2, -2}};
    for (int i = 0; i < static_cast<int>(expected.size()); ++i) {
        const QJsonObject dump = played.dump(i);
        EXPECT_EQ((Values{at(dump, "perspective.yaw").toDouble(),
                          at(dump, "perspective.offset").toDouble(),
                          at(dump, "perspective.distance").toDouble()}),
                  expected[static_cast<std::size_t>(i)])
            << "press " << i + 1;
    }
}

TEST_F(NumbersScenario, ButtonsOfTheTextureEditor) {
    folder.write("hero.mdl", squareModel());
    std::string script = kOpen + "menu mnuUVMapping\nwindow uv\n";
    const std::vector<std::pair<const char*, std::string>> steps = {
        {"cmdUVUp", "1 0 20 S M 11"},
        {"cmdUVLeft", "1 20 20 S M 11"},
        {"cmdUVZoomIn", "1.25 25 25 S M 11"},
        {"cmdUVDown", "1.25 25 5 S M 11"},
        {"cmdUVRight", "1.25 5 5 S M 11"},
        {"cmdUVZoomOut", "1 4 4 S M 11"},
        {"cmdAdd", "1 4 4 A M 11"},
        {"cmdDeselect", "1 4 4 D M 11"},
        {"cmdSelect", "1 4 4 S M 11"},
        {"cmdRotate", "1 4 4 S R 11"},
        {"cmdScale", "1 4 4 S S 11"},
        {"cmdMove", "1 4 4 S M 11"},
        {"cmdUVX", "1 4 4 S M 01"},
        {"cmdUVY", "1 4 4 S M 00"},
        {"cmdUVX", "1 4 4 S M 10"}};
    for (const auto& step : steps) script += std::string("press ") + step.first + "\ndump\n";
    const Played played = playAll(script);
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const QJsonObject uv = played.dump(static_cast<int>(i))["uv"].toObject();
        const QString state = QString("%1 %2 %3 %4 %5 %6%7")
                                  .arg(uv["zoom"].toDouble())
                                  .arg(uv["panX"].toInt())
                                  .arg(uv["panY"].toInt())
                                  .arg(uv["selectMode"].toString(), uv["transformMode"].toString())
                                  .arg(uv["xEnabled"].toBool() ? 1 : 0)
                                  .arg(uv["yEnabled"].toBool() ? 1 : 0);
        EXPECT_EQ(state.toStdString(), steps[i].second) << steps[i].first;
    }
}

}  // namespace
}  // namespace corvane
