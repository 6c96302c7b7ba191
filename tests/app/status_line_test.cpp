// The line at the foot of the main window, and what Escape ends.
#include "app/status_line.h"

#include "app/app_icon.h"
#include "test_pictures.h"
#include "uv_window_fixture.h"

namespace corvane {
namespace {

class StatusLineTest : public UVWindowTest {
protected:
    std::string label(const QString& name) const { return find<QLabel>(name).text().toStdString(); }
    std::string counts() const { return label("lblCounts"); }
    std::string uvTitle() const { return uvWindow().windowTitle().toStdString(); }

    bool isArmed() const {
        EXPECT_EQ(item("mnuAddMarkerGraphically").isChecked(), editor().modes.placingMarker);
        return editor().modes.placingMarker;
    }
    void pressEscape() { QTest::keyClick(window->windowHandle(), Qt::Key_Escape); }

    /// Presses a button in the front view at one place, and lets it go at another one.
    void pressAt(Qt::MouseButton with, QPoint at) {
        QTest::mousePress(window->windowHandle(), with, {}, inWindow(picture("pbxFront"), at));
    }
    void releaseAt(Qt::MouseButton with, QPoint at) {
        QTest::mouseRelease(window->windowHandle(), with, {}, inWindow(picture("pbxFront"), at));
    }
};

TEST_F(StatusLineTest, WithoutAModelItSaysSo) {
    EXPECT_EQ(counts(), "");
    EXPECT_EQ(label("lblGeoset"), "");
    EXPECT_EQ(label("lblModel"), "No model");
}

TEST_F(StatusLineTest, ItCountsWhatASaveWrites) {
    dialogs.inputs.push_back("2");
    openModel("hero.mdl", modelWithGeosets(3));
    EXPECT_EQ(counts(), "3 vertices, 1 face; selected: 0 vertices, 0 faces");
    EXPECT_EQ(label("lblGeoset"), "Geoset 2 of 3");
    EXPECT_EQ(label("lblModel"), "hero.mdl");
    choose("mnuSelectAll");
    EXPECT_EQ(counts(), "3 vertices, 1 face; selected: 3 vertices, 1 face");
    drag(picture("pbxFront"), Qt::LeftButton, {60, 130}, {70, 150});
    EXPECT_EQ(counts(), "3 vertices, 1 face; selected: 1 vertex, 0 faces");
    click(button("cmdDelete"));
    EXPECT_EQ(counts(), "2 vertices, 0 faces; selected: 0 vertices, 0 faces");
    choose("mnuUndo");
    EXPECT_EQ(counts(), "3 vertices, 1 face; selected: 1 vertex, 0 faces");
}

TEST_F(StatusLineTest, ItFollowsTheModelAndTheGeoset) {
    dialogs.inputs.push_back("1");
    openModel("hero.mdl", modelWithGeosets(2));
    dialogs.files.push_back(folder.path("villain.mdl"));
    choose("mnuSaveAs");
    EXPECT_EQ(label("lblModel"), "villain.mdl");
    dialogs.inputs.push_back("2");
    choose("mnuSwitchGeoset");
    EXPECT_EQ(label("lblGeoset"), "Geoset 2 of 2");
    dialogs.yesNos.push_back(true);
    choose("mnuDelCurrentGeoset");
    EXPECT_EQ(label("lblGeoset"), "Removed geoset");
    openModel("empty.mdl", "Version {\n\tFormatVersion 800,\n}\n");
    EXPECT_EQ(label("lblGeoset"), "No geoset");
}

TEST_F(StatusLineTest, ALongNameIsCutOffAndTheWindowStaysNarrow) {
    const std::string name = std::string(200, 'x') + ".mdl";
    openModel(name);
    EXPECT_EQ(label("lblModel"), name);
    const auto& shown = find<QLabel>("lblModel");
    EXPECT_LT(shown.width(), shown.fontMetrics().horizontalAdvance(shown.text()));
    EXPECT_EQ(shown.toolTip().toStdString(), name);
    window->resize(600, 400);
    EXPECT_LT(window->width(), 800);
}

TEST_F(StatusLineTest, APlacementThatWaitsIsSeenAndChoosingItAgainEndsIt) {
    openModel("hero.mdl");
    choose("mnuAddMarkerGraphically");
    EXPECT_TRUE(isArmed());
    EXPECT_EQ(counts(), "Click in a view to add a marker. Escape: add none.");
    choose("mnuAddMarkerGraphically");
    EXPECT_FALSE(isArmed());
    EXPECT_EQ(counts(), "3 vertices, 1 face; selected: 0 vertices, 0 faces");
    choose("mnuAddMarkerGraphically");
    click(picture("pbxTop"));
    EXPECT_FALSE(isArmed());
    EXPECT_TRUE(editor().markers[0].used);
    EXPECT_EQ(counts(), "3 vertices, 1 face; selected: 0 vertices, 0 faces");
}

TEST_F(StatusLineTest, EscapeEndsAPlacementThatWaits) {
    openModel("hero.mdl");
    choose("mnuAddMarkerGraphically");
    pressEscape();
    EXPECT_FALSE(isArmed());
    pressEscape();
    EXPECT_FALSE(isArmed());
    click(picture("pbxTop"));
    EXPECT_FALSE(editor().markers[0].used);
}

TEST_F(StatusLineTest, EscapeAbandonsADrag) {
    openModel("hero.mdl");
    choose("mnuSelectAll");
    const std::vector<VertexRecord> before = editor().store.Vertices;
    for (const Qt::MouseButton with : {Qt::RightButton, Qt::LeftButton}) {
        pressAt(with, {50, 50});
        pressEscape();
        releaseAt(with, {90, 90});
        EXPECT_EQ(editor().store.Vertices, before);
        EXPECT_EQ(editor().undo.slots.front().name, "Select All");
    }
    // The next drag is one as before.
    drag(picture("pbxFront"), Qt::RightButton, {50, 50}, {60, 50});
    EXPECT_EQ(editor().undo.slots.front().name, "Move");
}

TEST_F(StatusLineTest, EscapeAbandonsADragInTheTextureWindow) {
    openTextureEditor();
    uvWindow().findChild<QAction*>("mnuSelectAll")->trigger();
    const std::vector<double> before = uv().data.u;
    QWindow* const handle = uvWindow().windowHandle();
    QTest::mousePress(handle, Qt::RightButton, {}, view().mapTo(&uvWindow(), QPoint(50, 50)));
    QTest::keyClick(handle, Qt::Key_Escape);
    QTest::mouseRelease(handle, Qt::RightButton, {}, view().mapTo(&uvWindow(), QPoint(90, 50)));
    EXPECT_EQ(uv().data.u, before);
    dragInView(Qt::RightButton, {50, 50}, {90, 50});
    EXPECT_NE(uv().data.u, before);
}

TEST_F(StatusLineTest, TheTextureWindowsTitleNamesGeosetModelAndPicture) {
    dialogs.inputs.push_back("2");
    openModel("hero[*].mdl", modelWithGeosets(2));
    choose("mnuUVMapping");
    EXPECT_EQ(uvTitle(), "Texture Coordinates[*] - Geoset 2 of hero[*][*].mdl - Corvane");
    dialogs.files.push_back(folder.write("fur.bmp", bytesOf(plain(Qt::red), "BMP")));
    uvWindow().findChild<QAction*>("mnuLoadImg")->trigger();
    EXPECT_EQ(uvTitle(), "Texture Coordinates[*] - Geoset 2 of hero[*][*].mdl - fur.bmp - Corvane");
    // The coordinates are still those of geoset 2.
    dialogs.inputs.push_back("1");
    choose("mnuSwitchGeoset");
    EXPECT_EQ(uvTitle(), "Texture Coordinates[*] - Geoset 2 of hero[*][*].mdl - fur.bmp - Corvane");
    choose("mnuUVMapping");
    EXPECT_EQ(uvTitle(), "Texture Coordinates[*] - Geoset 1 of hero[*][*].mdl - fur.bmp - Corvane");
    dialogs.files.push_back(folder.path("villain.mdl"));
    choose("mnuSaveAs");
    EXPECT_EQ(uvTitle(), "Texture Coordinates[*] - Geoset 1 of villain.mdl - fur.bmp - Corvane");
}

TEST_F(StatusLineTest, EqualsZoomsLikePlus) {
    openTextureEditor();
    view().setFocus();
    QTest::keyClick(uvWindow().windowHandle(), Qt::Key_Equal);
    EXPECT_EQ(uv().zoom, 1.25);
    QTest::keyClick(uvWindow().windowHandle(), Qt::Key_Plus);
    EXPECT_EQ(uv().zoom, 1.5625);
    QTest::keyClick(uvWindow().windowHandle(), Qt::Key_Minus);
    EXPECT_EQ(uv().zoom, 1.25);
}

TEST_F(StatusLineTest, ThePerspectivePictureSaysWhyItShowsALine) {
    EXPECT_TRUE(picture("pbxPersp").toolTip().contains("one line"));
    hover(picture("pbxPersp"));
    EXPECT_EQ(tip(), "");
}

TEST(AppIconTest, EverySizeIsThere) {
    const QIcon icon = appIcon();
    QList<QSize> sizes = icon.availableSizes();
    std::sort(sizes.begin(), sizes.end(), [](QSize a, QSize b) { return a.width() < b.width(); });
    QList<QSize> expected;
    for (const int side : {16, 22, 24, 32, 48, 64, 128, 256, 512}) expected << QSize(side, side);
    EXPECT_EQ(sizes, expected);
    for (const QSize size : expected) {
        EXPECT_FALSE(icon.pixmap(size, 1.0).toImage().isNull());
        EXPECT_EQ(icon.pixmap(size, 1.0).size(), size);
    }
}

}  // namespace
}  // namespace corvane
