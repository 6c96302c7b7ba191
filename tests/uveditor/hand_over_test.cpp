// What the texture editor is handed, and what stays when that happens again.
#include "drawn_text.h"
#include "uv_fixture.h"

namespace corvane {
namespace {

class HandOverTest : public UVTest {};

TEST_F(HandOverTest, WithoutAModelAMessageSaysSoAndNoWindowIsShown) {
    openTextureEditor(editor);
    EXPECT_EQ(dialogs.last().title, "UV Mapping");
    EXPECT_EQ(dialogs.last().text, "No model loaded.");
    EXPECT_FALSE(window.textureData.has_value());
}

TEST_F(HandOverTest, EveryVertexGoesOverDeletedOnesToo) {
    loadTextureVertices({{0.25, 0.5}, {-1, 2}, {0.75, 1}});
    select({2, 3});
    vertex(2).deleted = true;
    handOver();
    EXPECT_EQ(uv.data.u, (Values{0.25, -1, 0.75}));
    EXPECT_EQ(uv.data.v, (Values{0.5, 2, 1}));
    EXPECT_EQ(selected(), (std::vector<int>{2, 3}));
    EXPECT_EQ(uv.data.deleted, (std::vector<bool>{false, true, false}));
    EXPECT_TRUE(uv.dataReceived);
}

TEST_F(HandOverTest, CornersGoOverAsTheyAreStoredWhetherTheirFaceIsDeletedOrNot) {
    loadTextureVertices({{0, 0}, {1, 0}, {0, 1}, {1, 1}});
    addFace(0, 1, 2);
    addFace(3, 2, 1);
    store().Faces[1].deleted = true;
    handOver();
    using Corners = std::array<std::int16_t, 3>;
    EXPECT_EQ(uv.data.faces, (std::vector<Corners>{{0, 1, 2}, {3, 2, 1}}));
}

TEST_F(HandOverTest, CornerNoughtIsTheFirstVertex) {
    loadTextureVertices({{0, 0}, {0.5, 0}, {0, 0.5}});
    addFace(0, 1, 2);
    handOver();
    EXPECT_EQ(drawnText(view).front(), "line 0 0 200 0 border");
}

TEST_F(HandOverTest, TheEditorWorksOnCopies) {
    edit({{0.25, 0.5}}, {1});
    vertex(1).tu = 9;
    vertex(1).selected = false;
    EXPECT_EQ(uv.data.u, Values{0.25});
    EXPECT_EQ(selected(), std::vector<int>{1});
    uvMove(uv, 1, 1);
    uvInvertSelection(uv);
    EXPECT_EQ(tu(), Values{9});
    EXPECT_EQ(tv(), Values{0.5});
    EXPECT_FALSE(vertex(1).selected);
}

TEST_F(HandOverTest, SelectingTextureVerticesLeavesTheGeosetsSelection) {
    edit({{0.25, 0.5}, {0.5, 0.5}}, {2});
    uvSelectAll(uv);
    EXPECT_EQ(selected(), (std::vector<int>{1, 2}));
    EXPECT_FALSE(vertex(1).selected);
    EXPECT_TRUE(vertex(2).selected);
}

TEST_F(HandOverTest, AnotherOneReplacesListsOfAnyLength) {
    edit({{0, 0}, {1, 0}, {0, 1}}, {1});
    loadTextureVertices({{0.5, 0.75}});
    store().Faces.clear();
    handOver();
    EXPECT_EQ(uv.data.u, Values{0.5});
    EXPECT_EQ(uv.data.v, Values{0.75});
    EXPECT_EQ(uv.data.selected, std::vector<bool>{false});
    EXPECT_EQ(uv.data.deleted, std::vector<bool>{false});
    EXPECT_TRUE(uv.data.faces.empty());
}

TEST_F(HandOverTest, AnotherOneDiscardsUnsavedMovesWithoutAQuestion) {
    edit({{0.25, 0.5}}, {1});
    uvMove(uv, 1, 1);
    EXPECT_TRUE(uv.unsaved);
    handOver();
    EXPECT_EQ(uv.data.u, Values{0.25});
    EXPECT_EQ(uv.data.v, Values{0.5});
    EXPECT_FALSE(uv.unsaved);
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(HandOverTest, UnsavedMovesGoWithTheGeosetTheyAreFromAndNoOther) {
    edit({{0, 0}}, {1});
    uvMove(uv, 0.5, 0);
    Snapshot mesh = snapshotOf(store());
    EXPECT_TRUE(addUnsavedTexture(uv, store(), mesh));
    EXPECT_EQ(mesh.geoset.Vertices[0].tu, 0.5);
    uv.leftMesh.reset();
    store().revisions.noteRead();
    mesh = snapshotOf(store());
    EXPECT_FALSE(addUnsavedTexture(uv, store(), mesh));
    EXPECT_EQ(mesh.geoset.Vertices[0].tu, 0);
    EXPECT_FALSE(uv.leftMesh.has_value());
}

TEST_F(HandOverTest, AnotherOneKeepsZoomPanModesAndAxes) {
    edit({{0.25, 0.5}}, {});
    uv.zoom = 4;
    uv.panX = 7;
    uv.panY = -9;
    uvSetSelectMode(uv, SelectMode::Deselect);
    uvSetTransformMode(uv, TransformMode::Rotate);
    uvToggleX(uv);
    handOver();
    EXPECT_EQ(uv.zoom, 4);
    EXPECT_EQ(uv.panX, 7);
    EXPECT_EQ(uv.panY, -9);
    EXPECT_EQ(uv.selectMode, SelectMode::Deselect);
    EXPECT_EQ(uv.transformMode, TransformMode::Rotate);
    EXPECT_FALSE(uv.xEnabled);
    EXPECT_TRUE(uv.yEnabled);
}

TEST_F(HandOverTest, ItDrawsTheView) {
    EXPECT_TRUE(redraws([&] { edit({{0.25, 0.5}}, {}); }));
    EXPECT_EQ(drawnText(view), std::vector<std::string>{"box 98 98 102 102 black"});
}

TEST_F(HandOverTest, ThePictureIsLoadedAgainFromItsPath) {
    edit({{0, 0}}, {});
    EXPECT_TRUE(uvWindow.loaded.empty());
    dialogs.files.emplace_back("/pictures/wall.bmp");
    loadImage(uv, editor);
    handOver();
    EXPECT_EQ(uvWindow.loaded,
              (std::vector<std::string>{"/pictures/wall.bmp", "/pictures/wall.bmp"}));
    EXPECT_EQ(drawnText(view).front(), "image 0 0 400 200 black");
}

TEST_F(HandOverTest, APictureThatIsGoneIsSaidAndTheDataAreTakenAllTheSame) {
    edit({{0, 0}}, {});
    dialogs.files.emplace_back("/pictures/wall.bmp");
    loadImage(uv, editor);
    vertex(1).tu = 0.5;
    uvWindow.refusal = "File not found";
    handOver();
    EXPECT_EQ(dialogs.last().title, "Error");
    EXPECT_EQ(dialogs.last().text,
              "The picture cannot be read.\n/pictures/wall.bmp: File not found\n\nChoose a JPEG, "
              "GIF, BMP, PNG, TGA, BLP or DDS file.");
    EXPECT_EQ(uv.data.u, Values{0.5});
    // The picture that was there is still in the window.
    EXPECT_TRUE(uv.imageLoaded);
    EXPECT_EQ(drawnText(view).front(), "image 0 0 400 200 black");
}

}  // namespace
}  // namespace corvane
