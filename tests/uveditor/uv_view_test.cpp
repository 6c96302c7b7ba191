// The texture editor's view: where things are, what is drawn, zoom, pan, the readout.
#include "uveditor/uv_view.h"

#include <cmath>

#include "drawn_text.h"
#include "uv_fixture.h"
#include "uveditor/commands/texture_commands.h"

namespace corvane {
namespace {

using Texts = std::vector<std::string>;

class UVViewTest : public UVTest {
protected:
    void expectView(double zoom, int panX, int panY) {
        EXPECT_DOUBLE_EQ(uv.zoom, zoom);
        EXPECT_EQ(uv.panX, panX);
        EXPECT_EQ(uv.panY, panY);
    }
};

TEST_F(UVViewTest, TheUnitSquareFillsTheViewAtTheStart) {
    EXPECT_EQ(viewX(uv, 0), 0);
    EXPECT_EQ(viewX(uv, 1), 400);
    EXPECT_EQ(viewY(uv, 0), 0);
    EXPECT_EQ(viewY(uv, 1), 200);
    EXPECT_EQ(viewX(uv, 0.25), 100);
    EXPECT_EQ(viewY(uv, 0.75), 150);
}

TEST_F(UVViewTest, ZoomMagnifiesAboutTheCentreAndPanComesAfterIt) {
    uv.zoom = 2;
    uv.panX = 30;
    uv.panY = -10;
    // (100 - 200) * 2 + 200 + 30 and (150 - 100) * 2 + 100 - 10.
    EXPECT_EQ(viewX(uv, 0.25), 30);
    EXPECT_EQ(viewY(uv, 0.75), 190);
}

TEST_F(UVViewTest, APixelIsTurnedBackIntoTheTextureCoordinateThere) {
    EXPECT_EQ(textureU(uv, 0), 0);
    EXPECT_EQ(textureU(uv, 300), 0.75);
    EXPECT_EQ(textureV(uv, 50), 0.25);
    EXPECT_EQ(textureV(uv, -100), -0.5);
    uv.zoom = 2;
    uv.panX = 30;
    uv.panY = -10;
    EXPECT_EQ(textureU(uv, 30), 0.25);
    EXPECT_EQ(textureV(uv, 190), 0.75);
}

TEST_F(UVViewTest, TheTwoConversionsAreEachOthersInverse) {
    uv.zoom = 2.44140625;
    uv.panX = -37;
    uv.panY = 1203;
    for (const int pixel : {-1000, -1, 0, 1, 199, 400, 5000}) {
        EXPECT_NEAR(viewX(uv, textureU(uv, pixel)), pixel, 1e-9);
        EXPECT_NEAR(viewY(uv, textureV(uv, pixel)), pixel, 1e-9);
    }
}

TEST_F(UVViewTest, AViewWithoutASizeGivesNumbersAllTheSame) {
    view.resize(0, 0);
    EXPECT_TRUE(std::isfinite(textureU(uv, 3)));
    EXPECT_TRUE(std::isfinite(textureV(uv, 3)));
}

TEST_F(UVViewTest, PansAtTheirLimitsGiveNumbersAllTheSame) {
    uv.panX = -2147483647 - 1;
    uv.panY = 2147483647;
    EXPECT_NEAR(textureU(uv, 0), 2147483648.0 / 400, 1e-6);
    EXPECT_NEAR(textureV(uv, -200), -2147483847.0 / 200, 1e-6);
}

TEST_F(UVViewTest, NothingIsDrawnBeforeTheFirstHandOverEvenWithAPicture) {
    dialogs.files.emplace_back("/pictures/wall.bmp");
    loadImage(uv, editor);
    EXPECT_TRUE(uv.imageLoaded);
    redraw(uv);
    uvZoomIn(uv);
    uvSelectAll(uv);
    EXPECT_TRUE(view.primitives().empty());
}

TEST_F(UVViewTest, EdgesAreDrawnBeforeBoxesAndSelectedVerticesAreRed) {
    loadTextureVertices({{0, 0}, {1, 0}, {0, 1}});
    addFace(0, 1, 2);
    select({2});
    handOver();
    EXPECT_EQ(drawnText(view),
              (Texts{"line 0 0 400 0 border", "line 400 0 0 200 border", "line 0 200 0 0 border",
                     "box -2 -2 2 2 black", "box 398 -2 402 2 red", "box -2 198 2 202 black"}));
}

TEST_F(UVViewTest, EdgesEndOnWholePixelsWithTiesToEvenAndBoxesDoNot) {
    view.resize(512, 512);
    loadTextureVertices({{1.0 / 1024, 3.0 / 1024}, {5.0 / 1024, 0}, {0.5, 0.5}});
    addFace(0, 1, 2);
    handOver();
    EXPECT_EQ(drawnText(view), (Texts{"line 0 2 2 0 border", "line 2 0 256 256 border",
                                      "line 256 256 0 2 border", "box -1.5 -0.5 2.5 3.5 black",
                                      "box 0.5 -2 4.5 2 black", "box 254 254 258 258 black"}));
}

TEST_F(UVViewTest, ADeletedVertexHidesItsBoxAndEveryFaceThatUsesIt) {
    loadTextureVertices({{0, 0}, {1, 0}, {0, 1}, {1, 1}});
    addFace(0, 1, 2);
    addFace(1, 3, 2);
    vertex(1).deleted = true;
    handOver();
    EXPECT_EQ(drawnText(view), (Texts{"line 400 0 400 200 border", "line 400 200 0 200 border",
                                      "line 0 200 400 0 border", "box 398 -2 402 2 black",
                                      "box -2 198 2 202 black", "box 398 198 402 202 black"}));
}

TEST_F(UVViewTest, ADeletedFaceIsDrawnAsLongAsItsVerticesAreThere) {
    loadTextureVertices({{0, 0}, {1, 0}, {0, 1}});
    addFace(0, 1, 2);
    store().Faces[0].deleted = true;
    handOver();
    EXPECT_EQ(view.primitives().size(), 3U + 3U);
}

TEST_F(UVViewTest, AFaceOfVerticesThatAreNotThereIsNotDrawn) {
    edit({{0, 0}, {1, 0}, {0, 1}}, {});
    uv.data.faces = {{0, 1, 3}, {-1, 1, 2}};
    redraw(uv);
    EXPECT_EQ(view.primitives().size(), 3U);
}

TEST_F(UVViewTest, TheMiddleOfTheTextureIsTheViewsCentreAtAnyZoom) {
    edit({{0.5, 0.5}}, {});
    for (const double zoom : {0.4, 1.0, 3.7, 12.4}) {
        uv.zoom = zoom;
        redraw(uv);
        EXPECT_EQ(drawnText(view), Texts{"box 198 98 202 102 black"}) << zoom;
    }
}

TEST_F(UVViewTest, WhatLiesOutsideTheUnitSquareIsDrawnOutsideThePicture) {
    edit({{-0.25, 1.5}}, {});
    dialogs.files.emplace_back("/pictures/wall.bmp");
    loadImage(uv, editor);
    EXPECT_EQ(drawnText(view), (Texts{"image 0 0 400 200 black", "box -102 298 -98 302 black"}));
}

TEST_F(UVViewTest, ThePictureLiesUnderEverythingOnTheUnitSquare) {
    loadTextureVertices({{0, 0}, {1, 1}, {0, 1}});
    addFace(0, 1, 2);
    handOver();
    dialogs.files.emplace_back("/pictures/wall.bmp");
    loadImage(uv, editor);
    uv.zoom = 1.25;
    uv.panX = 10;
    uv.panY = -20;
    redraw(uv);
    // 10 - 0.25 * 200 and -20 - 0.25 * 100; as wide as 1.25 * 400 and as high as 1.25 * 200.
    ASSERT_EQ(drawnText(view).front(), "image -40 -45 500 250 black");
    EXPECT_EQ(drawnText(view)[1], "line -40 -45 460 205 border");
    EXPECT_EQ(drawnText(view)[4], "box -42 -47 -38 -43 black");
}

TEST_F(UVViewTest, AResizedViewScalesEverything) {
    edit({{0.25, 0.5}}, {});
    view.resize(800, 1000);
    redraw(uv);
    EXPECT_EQ(drawnText(view), Texts{"box 198 498 202 502 black"});
    EXPECT_EQ(textureU(uv, 400), 0.5);
    EXPECT_EQ(textureV(uv, 250), 0.25);
}

TEST_F(UVViewTest, ZoomingScalesThePansAndRoundsThemToTheEvenPixel) {
    uv.panX = 10;
    uv.panY = -6;
    uvZoomIn(uv);
    expectView(1.25, 12, -8);  // 12.5 and -7.5
    uv.panX = 13;
    uv.panY = -3;
    uvZoomOut(uv);
    expectView(1, 10, -2);  // 10.4 and -2.4
}

TEST_F(UVViewTest, ZoomingInKeepsThePointInTheViewsCentre) {
    edit({{0.25, 0.75}}, {});
    uv.panX = 100;
    uv.panY = -50;
    for (int press = 0; press < 3; ++press) {
        redraw(uv);
        // 64, 80, 100 ... are whole at every step.
        EXPECT_EQ(drawnText(view), Texts{"box 198 98 202 102 black"});
        uv.zoom *= 2;
        uv.panX *= 2;
        uv.panY *= 2;
    }
    uv.zoom = 1;
    uv.panX = 100;
    uv.panY = -48;
    uvZoomIn(uv);
    expectView(1.25, 125, -60);
    EXPECT_EQ(viewX(uv, 0.25), 200);
}

TEST_F(UVViewTest, ZoomingInStopsAtTenAndStillRedraws) {
    edit({{0.5, 0.5}}, {});
    uv.zoom = 9.9;
    uvZoomIn(uv);
    EXPECT_DOUBLE_EQ(uv.zoom, 12.375);
    uv.panX = 100;
    EXPECT_TRUE(redraws([&] { uvZoomIn(uv); }));
    expectView(12.375, 100, 0);
    uv.zoom = 10;
    uvZoomIn(uv);
    EXPECT_EQ(uv.zoom, 10);
}

TEST_F(UVViewTest, ZoomingOutStopsAtOneHalfAndStillRedraws) {
    edit({{0.5, 0.5}}, {});
    uv.zoom = 0.51;
    uvZoomOut(uv);
    EXPECT_DOUBLE_EQ(uv.zoom, 0.408);
    uv.panY = 100;
    EXPECT_TRUE(redraws([&] { uvZoomOut(uv); }));
    expectView(0.408, 0, 100);
    uv.zoom = 0.5;
    uvZoomOut(uv);
    EXPECT_EQ(uv.zoom, 0.5);
}

TEST_F(UVViewTest, PanningMovesWhatIsDrawnAndRedraws) {
    edit({{0.5, 0.5}}, {});
    EXPECT_TRUE(redraws([&] { uvPan(uv, 20, 0); }));
    EXPECT_TRUE(redraws([&] { uvPan(uv, 0, -20); }));
    EXPECT_EQ(drawnText(view), Texts{"box 218 78 222 82 black"});
    expectView(1, 20, -20);
    EXPECT_EQ(kUVPanStep, 20);
}

TEST_F(UVViewTest, PansStayWithinThirtyTwoBits) {
    uv.panX = 2147483640;
    uv.panY = -2147483640;
    uvPan(uv, 20, -20);
    expectView(1, 2147483647, -2147483647 - 1);
    uvZoomIn(uv);
    expectView(1.25, 2147483647, -2147483647 - 1);
}

TEST_F(UVViewTest, TheReadoutHasSixDecimalsAndTheUsersSeparator) {
    EXPECT_EQ(readoutText(1.0 / 3, {}), "0.333333");
    EXPECT_EQ(readoutText(2.0 / 3, {}), "0.666667");
    EXPECT_EQ(readoutText(-1.0 / 3, {.decimalPoint = ","}), "-0,333333");
    EXPECT_EQ(readoutText(0.5, {}), "0.5");
    EXPECT_EQ(readoutText(-1e-9, {}), "0");
}

TEST_F(UVViewTest, CancellingThePictureDialogChangesNothing) {
    edit({{0.5, 0.5}}, {});
    dialogs.files.emplace_back(std::nullopt);
    EXPECT_FALSE(redraws([&] { loadImage(uv, editor); }));
    EXPECT_FALSE(uv.imageLoaded);
    EXPECT_EQ(uv.imagePath, "");
    EXPECT_EQ(dialogs.last().text,
              "JPEG Images|*.JPG|GIF Images|*.gif|BMP Images|*.bmp|"
              "Other Images|*.blp;*.dds;*.png;*.tga");
}

TEST_F(UVViewTest, AChosenPictureIsRememberedAndDrawn) {
    edit({{0.5, 0.5}}, {});
    dialogs.files.emplace_back("/pictures/wall.bmp");
    EXPECT_TRUE(redraws([&] { loadImage(uv, editor); }));
    EXPECT_EQ(uv.imagePath, "/pictures/wall.bmp");
    EXPECT_EQ(drawnText(view).front(), "image 0 0 400 200 black");
    dialogs.files.emplace_back(std::nullopt);
    loadImage(uv, editor);
    EXPECT_EQ(dialogs.last().defaultText, "/pictures/wall.bmp") << "where the dialog starts";
}

TEST_F(UVViewTest, APictureThatCannotBeReadIsSaidAndTheOldOneStays) {
    edit({{0.5, 0.5}}, {});
    dialogs.files.emplace_back("/pictures/wall.bmp");
    loadImage(uv, editor);
    uvWindow.refusal = "Unsupported image format";
    dialogs.files.emplace_back("/pictures/notes.gif");
    loadImage(uv, editor);
    EXPECT_EQ(dialogs.last().title, "Error");
    EXPECT_EQ(dialogs.last().text,
              "The picture cannot be read.\n/pictures/notes.gif: Unsupported image "
              "format\n\nChoose a JPEG, GIF, BMP, PNG, TGA, BLP or DDS file.");
    EXPECT_TRUE(uv.imageLoaded);
    EXPECT_EQ(uv.imagePath, "/pictures/wall.bmp");
}

}  // namespace
}  // namespace corvane
