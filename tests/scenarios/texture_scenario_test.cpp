// The texture editor: hand-over both ways, its tools, its background picture.

#include <QColor>
#include <QImage>
#include <cmath>

#include "scenario.h"
#include "scenario_models.h"

namespace corvane {
namespace {

using TextureScenario = ScenarioTest;
using Values = std::vector<double>;

// Opens the square and the texture editor. The texture coordinates are (0, 1), (1, 1), (1, 0) and
// (0, 0), on the corners of the view.
const std::string kOpen =
    "answer file \"$DIR/hero.mdl\"\nmenu mnuOpen\nwait 150\nmenu mnuUVMapping\nwindow uv\n";

Values numbers(const QJsonObject& dump, const char* member) {
    Values values;
    for (const QJsonValue& value : dump["uv"].toObject()[member].toArray()) {
        values.push_back(value.toDouble());
    }
    return values;
}

std::string uvSelected(const QJsonObject& dump) {
    std::string text;
    int number = 0;
    for (const QJsonValue& value : dump["uv"].toObject()["selected"].toArray()) {
        ++number;
        if (value.toBool()) text += (text.empty() ? "" : " ") + std::to_string(number);
    }
    return text;
}

// A drag given in fractions of the view, whose size in pixels a first run finds out.
class UVDrag {
public:
    explicit UVDrag(int side) : side_(side) {}
    std::string operator()(const char* button, double u0, double v0, double u1, double v1) const {
        return std::string("drag pbxUVView ") + button + ' ' + px(u0) + ' ' + px(v0) + ' ' +
               px(u1) + ' ' + px(v1) + '\n';
    }

private:
    std::string px(double share) const { return std::to_string(static_cast<int>(share * side_)); }
    int side_;
};

int sideOf(const QJsonObject& dump) { return at(dump, "uv.width").toInt(); }

TEST_F(TextureScenario, WithoutAModelItSaysSo) {
    const Played played = playAll("answer message ok\nmenu mnuUVMapping\ndump\n");
    EXPECT_EQ(played.dialogs()[0], "message|UV Mapping|No model loaded.|ok");
    EXPECT_TRUE(played.dump()["uv"].isNull());
    EXPECT_EQ(play("window uv\n").error(), "the texture editor was never opened");
}

TEST_F(TextureScenario, TakesCopiesAndStartsSquareWithItsOwnModes) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
menu mnuOpen
wait 150
drag pbxFront left 130 50 160 70
press cmdDelete
press cmdRotate
menu mnuUVMapping
dump
)");
    const QJsonObject dump = played.dump();
    EXPECT_EQ(numbers(dump, "u"), (Values{0, 1, 1, 0}));
    EXPECT_EQ(numbers(dump, "v"), (Values{1, 1, 0, 0}));
    EXPECT_EQ(uvSelected(dump), "3");
    EXPECT_EQ(at(dump, "uv.deleted").toArray(), (QJsonArray{false, false, true, false}));
    EXPECT_EQ(at(dump, "uv.faces").toArray(),
              (QJsonArray{QJsonArray{0, 1, 2}, QJsonArray{0, 2, 3}}));
    EXPECT_EQ(at(dump, "uv.width"), at(dump, "uv.height"));
    EXPECT_GE(sideOf(dump), 400);
    EXPECT_EQ(at(dump, "uv.transformMode").toString(), "M");
    EXPECT_EQ(at(dump, "uv.zoom").toDouble(), 1);
    EXPECT_EQ(dump["buttons"].toObject()["frmUVEditor.cmdMove"].toObject()["color"], "#ffffff");
    EXPECT_EQ(dump["buttons"].toObject()["cmdMove"].toObject()["color"], "face");
    EXPECT_EQ(dump["menus"].toObject()["frmUVEditor.mnuSelectAll"].toObject()["caption"],
              "Select All");
}

TEST_F(TextureScenario, SavedChangesReachTheModelAndUnsavedOnesAreLost) {
    folder.write("hero.mdl", squareModel());
    const int side = sideOf(playAll(kOpen + "dump\n").dump());
    const UVDrag drag(side);
    // A quarter of the view to the right and an eighth down, with all vertices selected.
    const std::string move = "menu mnuSelectAll\n" + drag("right", 0.5, 0.5, 0.75, 0.625);
    const Played played =
        playAll(kOpen + move + "dump\nwindow main\nmenu mnuUVMapping\ndump\n" + "window uv\n" +
                move + "press cmdSaveUVChanges\nwindow main\ndump\nmenu mnuSave\n");
    EXPECT_EQ(uvSelected(played.dump(0)), "1 2 3 4");
    expectNear(numbers(played.dump(0), "u"), {0.25, 1.25, 1.25, 0.25});
    EXPECT_EQ(played.dump(0)["vertices"].toArray()[0].toObject()["tu"].toDouble(), 0);
    EXPECT_EQ(selected(played.dump(0)), "") << "its selection is its own";
    EXPECT_EQ(numbers(played.dump(1), "u"), (Values{0, 1, 1, 0})) << "handed over anew";
    EXPECT_EQ(uvSelected(played.dump(1)), "");
    EXPECT_NEAR(played.dump(2)["vertices"].toArray()[0].toObject()["tu"].toDouble(), 0.25, 1e-12);
    EXPECT_EQ(undoNames(played.dump(2)), "");
    std::string expected = squareModel();
    const std::string rows = "\t\t{ 0, 1 },\n\t\t{ 1, 1 },\n\t\t{ 1, 0 },\n\t\t{ 0, 0 },\n";
    ASSERT_EQ(side % 8, 0) << "the drags below would not be exact";
    expected.replace(expected.find(rows), rows.size(),
                     "\t\t{ 0.25, 1.125 },\n\t\t{ 1.25, 1.125 },\n\t\t{ 1.25, 0.125 },\n"
                     "\t\t{ 0.25, 0.125 },\n");
    EXPECT_EQ(readFile(folder.path("hero.mdl")), expected);
}

TEST_F(TextureScenario, ToolsSelectMoveRotateAndScale) {
    folder.write("hero.mdl", squareModel());
    const int side = sideOf(playAll(kOpen + "dump\n").dump());
    const UVDrag drag(side);
    // Zoomed out once, so that the corners of the unit square lie inside the view, at a tenth.
    const Played played = playAll(
        kOpen + "press cmdUVZoomOut\n" + drag("left", 0.8, 0.05, 0.99, 0.99) + "dump\n" +
        "press cmdAdd\n" + drag("left", 0.2, 0.2, 0.05, 0.05) + "dump\n" + "press cmdDeselect\n" +
        drag("left", 0.8, 0.8, 0.99, 0.99) + "dump\n" + "menu mnuInvertSelection\ndump\n" +
        "press cmdUVX\n" + drag("middle", 0.25, 0.25, 0.5, 0.5) + "dump\n" +
        "press cmdUVX\npress cmdScale\nmenu mnuSelectAll\n" + drag("right", 0.5, 0.5, 0.5, 0.5) +
        "dump\n" + drag("right", 0.25, 0.25, 0.375, 0.375) + "dump\n");
    EXPECT_EQ(uvSelected(played.dump(0)), "2 3");
    EXPECT_EQ(uvSelected(played.dump(1)), "2 3 4");
    EXPECT_EQ(uvSelected(played.dump(2)), "3 4");
    EXPECT_EQ(uvSelected(played.dump(3)), "1 2");
    // A quarter of the view is 0.3125 at a zoom of 0.8; only v may change.
    expectNear(numbers(played.dump(4), "u"), {0, 1, 1, 0});
    expectNear(numbers(played.dump(4), "v"), {1.3125, 1.3125, 0, 0});
    EXPECT_EQ(
        played.dump(4)["buttons"].toObject()["frmUVEditor.cmdUVX"].toObject()["color"].toString(),
        "#808080");
    EXPECT_EQ(numbers(played.dump(5), "v"), numbers(played.dump(4), "v")) << "a factor of 1";
    // An eighth of the view is 0.15625, and twice that and 1 the factor: 1.3125. The centre is
    // (0.5, 0.65625).
    ASSERT_EQ(side % 8, 0) << "the drag would not be exact";
    expectNear(numbers(played.dump(6), "u"), {-0.15625, 1.15625, 1.15625, -0.15625});
    expectNear(numbers(played.dump(6), "v"),
               {1.517578125, 1.517578125, -0.205078125, -0.205078125});
    const Played rotated = playAll(kOpen + "menu mnuSelectAll\npress cmdRotate\n" +
                                   drag("right", 0.5, 0.25, 0.5, 0.75) + "dump\n");
    // Half the view down is 0.75 radians. The centre is (0.5, 0.5).
    const double r = std::sqrt(0.5);
    const double angle = std::atan(1.0) + 0.75;
    EXPECT_NEAR(numbers(rotated.dump(), "u")[1], 0.5 + r * std::cos(angle), 1e-6);
    EXPECT_NEAR(numbers(rotated.dump(), "v")[1], 0.5 + r * std::sin(angle), 1e-6);
}

TEST_F(TextureScenario, ZoomStopsAtItsLimitsAndPanFollows) {
    folder.write("hero.mdl", squareModel());
    std::string script = kOpen + "press cmdUVLeft\npress cmdUVUp\ndump\n";
    for (int i = 0; i < 12; ++i) script += "press cmdUVZoomIn\n";
    script += "dump\n";
    for (int i = 0; i < 16; ++i) script += "press cmdUVZoomOut\n";
    script += "press cmdUVRight\npress cmdUVDown\ndump\n";
    const Played played = playAll(script);
    EXPECT_EQ(at(played.dump(0), "uv.panX").toInt(), 20);
    EXPECT_EQ(at(played.dump(0), "uv.panY").toInt(), 20);
    // 1.25 to the eleventh is the first that is not below 10.
    EXPECT_NEAR(at(played.dump(1), "uv.zoom").toDouble(), 11.641532182693481, 1e-12);
    EXPECT_GT(at(played.dump(2), "uv.zoom").toDouble(), 0.4);
    EXPECT_LE(at(played.dump(2), "uv.zoom").toDouble(), 0.5);
}

TEST_F(TextureScenario, RemapFromTheThreeViews) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
menu mnuSelectAll
press cmdRemap
dump
choose cboView "Front"
press cmdRemap
dump
choose cboView "Left"
press cmdRemap
dump
)");
    // x = -30, 30, 30, -30; y = -30, -30, 30, 30; z = 0, 0, 0, 24.
    EXPECT_EQ(numbers(played.dump(0), "u"), (Values{0, 1, 1, 0}));
    EXPECT_EQ(numbers(played.dump(0), "v"), (Values{1, 1, 1, 0}));
    EXPECT_EQ(numbers(played.dump(1), "v"), (Values{1, 1, 0, 0}));
    EXPECT_EQ(numbers(played.dump(2), "u"), (Values{0, 0, 0, 1}));
    EXPECT_EQ(numbers(played.dump(2), "v"), (Values{1, 1, 0, 0}));
    const int side = sideOf(played.dump(0));
    const UVDrag drag(side);
    const Played flat =
        playAll(kOpen + "press cmdUVZoomOut\n" + drag("left", 0.05, 0.8, 0.2, 0.99) +
                "answer message ok\npress cmdRemap\ndump\n");
    EXPECT_NE(flat.dialogs().back().find("the same X coordinate"), std::string::npos);
    EXPECT_EQ(numbers(flat.dump(), "u"), (Values{0, 1, 1, 0}));
}

TEST_F(TextureScenario, ChangesAfterTheGeosetGrewGoAsFarAsTheyReach) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(kOpen + R"(
window main
menu mnuSelectAll
press cmdExtrude
drag pbxFront right 100 100 110 100
window uv
answer message ok
press cmdSaveUVChanges
)");
    EXPECT_EQ(played.dialogs().back(),
              "message|Warning|The geoset has 8 vertices now, but had 4 when its texture "
              "coordinates were taken. The first 4 were written back. Choose UV Mapping in the "
              "main window to take them anew.|ok");
}

TEST_F(TextureScenario, AnotherGeosetOfEqualSizeKeepsItsTextureCoordinatesUnlessTheUserSaysYes) {
    folder.write("two.mdl", threeGeosets());
    // Geosets 1 and 3 are triangles with texture coordinates (0, 0), (1, 0) and (0, 1).
    const std::string start = R"(
answer file "$DIR/two.mdl"
answer input "1"
menu mnuOpen
wait 150
menu mnuUVMapping
window uv
menu mnuSelectAll
press cmdScale
drag pbxUVView right 0 0 0 0
press cmdMove
press cmdUVY
drag pbxUVView right 0 0 100 0
window main
answer input "3"
menu mnuSwitchGeoset
window uv
)";
    const Played kept = playAll(start + "answer message no\npress cmdSaveUVChanges\ndump\n");
    EXPECT_EQ(kept.dialogs().back(),
              "message|Warning|A geoset was read since these texture coordinates were taken: "
              "geoset 3 of " +
                  folder.path("two.mdl") +
                  ". It has 3 vertices too, so saving writes them over its own. Write them?|no");
    const auto tu = [](const Played& played) {
        Values values;
        for (const QJsonValue& vertex : played.dump()["vertices"].toArray()) {
            values.push_back(vertex.toObject()["tu"].toDouble());
        }
        return values;
    };
    EXPECT_EQ(tu(kept), (Values{0, 1, 0}));
    const Played written = playAll(start + "answer message yes\npress cmdSaveUVChanges\ndump\n");
    const double step = 100.0 / sideOf(written.dump());
    expectNear(tu(written), {step, 1 + step, step});
}

TEST_F(TextureScenario, CoordinatesThatUndoTookBackCanBeSavedAgain) {
    folder.write("hero.mdl", squareModel());
    const Played played = playAll(R"(
answer file "$DIR/hero.mdl"
menu mnuOpen
wait 150
menu mnuSelectAll
press cmdExtrude
drag pbxFront right 100 100 110 100
menu mnuUVMapping
window uv
menu mnuSelectAll
press cmdUVY
drag pbxUVView right 0 0 100 60
press cmdSaveUVChanges
window main
menu mnuUndo
dump
answer message no
menu mnuUVMapping
window uv
answer message ok
press cmdSaveUVChanges
dump
)");
    EXPECT_EQ(played.dump(0)["vertices"].toArray()[0].toObject()["tu"].toDouble(), 0);
    EXPECT_NEAR(played.dump()["vertices"].toArray()[0].toObject()["tu"].toDouble(),
                100.0 / sideOf(played.dump()), 1e-12);
    EXPECT_EQ(played.dump()["vertices"].toArray()[0].toObject()["tv"].toDouble(), 1);
    EXPECT_EQ(numbers(played.dump(), "v"), (Values{1, 1, 0, 0, 1, 1, 0, 0}));
    EXPECT_EQ(played.dump()["vertices"].toArray().size(), 4);
}

// Yellow on the left, blue on the right.
TEST_F(TextureScenario, APictureLiesUnderTheUnitSquareAndComesBackWithTheWindow) {
    folder.write("hero.mdl", squareModel());
    QImage image(64, 32, QImage::Format_RGB32);
    image.fill(Qt::blue);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) image.setPixel(x, y, qRgb(255, 255, 0));
    }
    ASSERT_TRUE(image.save(QString::fromStdString(folder.path("texture.bmp"))));
    const Played played = playAll(kOpen + R"(
answer file "$DIR/texture.bmp"
press cmdLoadImg
screenshot pbxUVView "$DIR/plain.png"
press cmdUVZoomIn
press cmdUVLeft
drawn pbxUVView
close
window main
menu mnuUVMapping
window uv
drawn pbxUVView
dump
)");
    EXPECT_EQ(played.dialogs().back(),
              "file|open|JPEG Images|*.JPG|GIF Images|*.gif|BMP Images|*.bmp|"
              "Other Images|*.blp;*.dds;*.png;*.tga|" +
                  folder.path("texture.bmp"));
    const double side = sideOf(played.dump());
    const QImage plain(QString::fromStdString(folder.path("plain.png")));
    const int middle = static_cast<int>(side) / 2;
    // Off the diagonal that the two faces share, and off their borders.
    EXPECT_EQ(plain.pixelColor(middle - 3, 20), QColor(255, 255, 0));
    EXPECT_EQ(plain.pixelColor(middle + 3, 20), QColor(Qt::blue));
    EXPECT_EQ(plain.pixelColor(static_cast<int>(side) - 6, 20), QColor(Qt::blue));
    const QJsonObject zoomed{{"op", "image"},
                             {"x", 20 - 0.25 * side / 2},
                             {"y", -0.25 * side / 2},
                             {"width", 1.25 * side},
                             {"height", 1.25 * side}};
    std::vector<QJsonArray> drawn;
    for (const QJsonObject& event : played.events) {
        if (event["event"] == "drawn") drawn.push_back(event["items"].toArray());
    }
    ASSERT_EQ(drawn.size(), 2U);
    EXPECT_EQ(drawn[0][0].toObject(), zoomed);
    EXPECT_EQ(drawn[0].size(), 1 + 6 + 4);
    EXPECT_EQ(drawn[1], drawn[0]) << "picture, zoom and pan stay";
    EXPECT_TRUE(at(played.dump(), "uv.imageLoaded").toBool());
}

TEST_F(TextureScenario, APictureThatCannotBeReadLeavesTheOldOne) {
    folder.write("hero.mdl", squareModel());
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(QString::fromStdString(folder.path("good.bmp"))));
    const std::string bytes = readFile(folder.path("good.bmp"));
    folder.write("short.bmp", bytes.substr(0, 20));
    folder.write("text.gif", "this is no picture at all\n");
    folder.write("broken.jpg", std::string("\xFF\xD8\xFF\xE0\x00\x10JFIF", 10));
    const Played played = playAll(kOpen + R"(
answer file "$DIR/good.bmp"
press cmdLoadImg
answer file "$DIR/short.bmp"
answer message ok
press cmdLoadImg
answer file "$DIR/text.gif"
answer message ok
press cmdLoadImg
answer file "$DIR/broken.jpg"
answer message ok
press cmdLoadImg
answer file "$DIR/missing.bmp"
answer message ok
press cmdLoadImg
answer file cancel
press cmdLoadImg
screenshot pbxUVView "$DIR/view.png"
dump
)");
    int messages = 0;
    for (const std::string& dialog : played.dialogs()) {
        if (dialog.starts_with("message|Error|The picture cannot be read.\n" + dir())) ++messages;
    }
    EXPECT_EQ(messages, 4);
    EXPECT_TRUE(at(played.dump(), "uv.imageLoaded").toBool());
    const QImage view(QString::fromStdString(folder.path("view.png")));
    EXPECT_EQ(view.pixelColor(view.width() / 4, view.height() / 3), QColor(Qt::red));
}

}  // namespace
}  // namespace corvane
