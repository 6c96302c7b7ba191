#include <QMenuBar>

#include "uv_window_fixture.h"

namespace corvane {
namespace {

using Values = std::vector<double>;

TEST_F(UVWindowTest, ItIsAWindowOfItsOwnBesideTheMainOne) {
    openTextureEditor();
    EXPECT_TRUE(uvWindow().isWindow());
    EXPECT_EQ(uvWindow().parentWidget(), nullptr);
    EXPECT_FALSE(uvWindow().isModal());
    EXPECT_TRUE(window->isVisible());
    // The main window goes on working.
    edit();
    EXPECT_EQ(editor().undo.slots.front().name, "Move");
    EXPECT_TRUE(uvWindow().isVisible());
}

TEST_F(UVWindowTest, TheMainWindowsOwnListsHaveNothingToDoWithIt) {
    EXPECT_TRUE(window->TVertX().empty());
    openTextureEditor();
    // How far across the perspective view drew each vertex, and a list that nothing fills.
    EXPECT_EQ(window->TVertX(), editor().perspective.across);
    ASSERT_EQ(window->TVertX().size(), 3U);
    EXPECT_NEAR(window->TVertX()[0], -30, 1e-9);
    EXPECT_NEAR(window->TVertX()[1], 30, 1e-9);
    EXPECT_TRUE(window->TVertY().empty());
    std::vector<double> copy = window->TVertX();
    copy[0] = 99;
    EXPECT_NE(window->TVertX()[0], 99);
}

TEST_F(UVWindowTest, ClosingTheMainWindowClosesItToo) {
    openTextureEditor();
    window->close();
    EXPECT_FALSE(uvWindow().isVisible());
}

TEST_F(UVWindowTest, OpeningItAgainShowsTheSameWindowEvenMinimized) {
    openTextureEditor();
    const frmUVEditor* const first = &uvWindow();
    press("cmdUVZoomIn");
    uvWindow().close();
    choose("mnuUVMapping");
    EXPECT_EQ(&uvWindow(), first);
    EXPECT_TRUE(uvWindow().isVisible());
    EXPECT_EQ(uv().zoom, 1.25);
    uvWindow().showMinimized();
    QApplication::processEvents();
    choose("mnuUVMapping");
    EXPECT_FALSE(uvWindow().isMinimized());
    EXPECT_TRUE(uvWindow().isVisible());
}

TEST_F(UVWindowTest, ItHasMenusOfItsOwn) {
    openTextureEditor();
    QStringList captions;
    for (const QAction* const menu : uvWindow().menuBar()->actions()) captions << menu->text();
    EXPECT_EQ(captions, (QStringList{"&File", "&Edit"}));
    findUV<QAction>("mnuSelectAll").trigger();
    EXPECT_EQ(uv().data.selected, (std::vector<bool>{true, true, true}));
    EXPECT_FALSE(editor().store.Vertices[0].selected);
    findUV<QAction>("mnuInvertSelection").trigger();
    EXPECT_EQ(uv().data.selected, (std::vector<bool>{false, false, false}));
    findUV<QAction>("mnuClose").trigger();
    EXPECT_FALSE(uvWindow().isVisible());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(UVWindowTest, TheModeButtonsShowWhatIsOn) {
    openTextureEditor();
    const auto white = [&](const QStringList& names) {
        QStringList found;
        for (const QString& name : names) {
            if (uvButton(name).backColour() == kWhite) found << name;
        }
        return found;
    };
    const QStringList selects = {"cmdSelect", "cmdAdd", "cmdDeselect"};
    const QStringList transforms = {"cmdMove", "cmdRotate", "cmdScale"};
    EXPECT_EQ(white(selects), QStringList{"cmdSelect"});
    EXPECT_EQ(white(transforms), QStringList{"cmdMove"});
    for (const QString& name : selects) {
        press(name);
        EXPECT_EQ(white(selects), QStringList{name});
    }
    for (const QString& name : transforms) {
        press(name);
        EXPECT_EQ(white(transforms), QStringList{name});
    }
    for (const char* const name : {"cmdUVX", "cmdUVY"}) {
        EXPECT_EQ(uvButton(name).backColour(), kButtonFace) << name;
        press(name);
        EXPECT_EQ(uvButton(name).backColour(), kInactiveAxisColour) << name;
    }
    EXPECT_EQ(button("cmdMove").backColour(), kWhite) << "the main window has modes of its own";
}

TEST_F(UVWindowTest, TheReadoutFollowsTheMouseWithAndWithoutAButton) {
    openTextureEditor();
    const int side = view().width();
    hoverView({side / 4, side / 2});
    EXPECT_EQ(text("txtUVX"), "0.25");
    EXPECT_EQ(text("txtUVY"), "0.5");
    QWindow* const handle = uvWindow().windowHandle();
    const auto place = [&](int x, int y) { return view().mapTo(&uvWindow(), QPoint(x, y)); };
    QTest::mousePress(handle, Qt::RightButton, {}, place(0, 0));
    QTest::mouseMove(handle, place(side / 2, side / 8));
    EXPECT_EQ(text("txtUVX"), "0.5");
    EXPECT_EQ(text("txtUVY"), "0.125");
    QTest::mouseRelease(handle, Qt::RightButton, {}, place(0, 0));
}

TEST_F(UVWindowTest, TheReadoutIsWrittenAsTheUserWritesNumbers) {
    showWindow({.decimalPoint = ","});
    openTextureEditor();
    hoverView({view().width() / 4, 0});
    EXPECT_EQ(text("txtUVX"), "0,25");
}

TEST_F(UVWindowTest, EveryButtonButTheLeftOneTransforms) {
    openTextureEditor();
    findUV<QAction>("mnuSelectAll").trigger();
    const int step = view().width() / 4;
    dragInView(Qt::RightButton, {10, 10}, {10 + step, 10});
    EXPECT_EQ(uv().data.u, (Values{0.25, 1.25, 0.25}));
    dragInView(Qt::MiddleButton, {10, 10}, {10, 10 + step});
    EXPECT_EQ(uv().data.v, (Values{0.25, 0.25, 1.25}));
    dragInView(Qt::LeftButton, {10, 10}, {20, 20});
    EXPECT_EQ(uv().data.selected, (std::vector<bool>{false, false, false}));
}

TEST_F(UVWindowTest, AReleaseWithoutAPressInTheViewChangesNothing) {
    openTextureEditor();
    findUV<QAction>("mnuSelectAll").trigger();
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(50, 50),
                        view().mapToGlobal(QPointF(50, 50)), Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QApplication::sendEvent(&view(), &release);
    EXPECT_EQ(uv().data.selected, (std::vector<bool>{true, true, true}));
}

TEST_F(UVWindowTest, KeysMoveTheViewWhileItHasTheFocus) {
    openTextureEditor();
    view().setFocus();
    QWindow* const handle = uvWindow().windowHandle();
    QTest::keyClick(handle, Qt::Key_Left);
    QTest::keyClick(handle, Qt::Key_Up);
    EXPECT_EQ(uv().panX, 20);
    EXPECT_EQ(uv().panY, 20);
    QTest::keyClick(handle, Qt::Key_Right);
    QTest::keyClick(handle, Qt::Key_Down);
    QTest::keyClick(handle, Qt::Key_Down);
    EXPECT_EQ(uv().panX, 0);
    EXPECT_EQ(uv().panY, -20);
    QTest::keyClick(handle, Qt::Key_Plus);
    EXPECT_EQ(uv().zoom, 1.25);
    QTest::keyClick(handle, Qt::Key_Minus);
    EXPECT_EQ(uv().zoom, 1);
}

TEST_F(UVWindowTest, AReadoutThatHasTheFocusLeavesTheShortcutsToTheWindow) {
    openTextureEditor();
    findUV<QLineEdit>("txtUVX").setFocus();
    QTest::keyClick(uvWindow().windowHandle(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(uv().data.selected, (std::vector<bool>{true, true, true}));
    QTest::keyClick(uvWindow().windowHandle(), Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(uv().data.selected, (std::vector<bool>{false, false, false}));
}

TEST_F(UVWindowTest, TheTitleMarksUnsavedChangesUntilTheyAreSavedOrReplaced) {
    openTextureEditor();
    EXPECT_FALSE(uvWindow().isWindowModified());
    findUV<QAction>("mnuSelectAll").trigger();
    EXPECT_FALSE(uvWindow().isWindowModified());
    dragInView(Qt::RightButton, {10, 10}, {50, 10});
    EXPECT_TRUE(uvWindow().isWindowModified());
    EXPECT_FALSE(window->isWindowModified());
    findUV<QAction>("mnuSaveUVChanges").trigger();
    EXPECT_FALSE(uvWindow().isWindowModified());
    EXPECT_TRUE(window->isWindowModified());
    dragInView(Qt::RightButton, {10, 10}, {50, 10});
    EXPECT_TRUE(uvWindow().isWindowModified());
    choose("mnuUVMapping");
    EXPECT_FALSE(uvWindow().isWindowModified());
}

TEST_F(UVWindowTest, TheTitleMarksWhatUndoTookBack) {
    openTextureEditor();
    findUV<QAction>("mnuSelectAll").trigger();
    choose("mnuMirrorX");  // a step that keeps the vertices, with their coordinates
    dragInView(Qt::RightButton, {10, 10}, {10, 50});
    findUV<QAction>("mnuSaveUVChanges").trigger();
    EXPECT_FALSE(uvWindow().isWindowModified());
    choose("mnuUndo");
    EXPECT_TRUE(uvWindow().isWindowModified());
    findUV<QAction>("mnuSaveUVChanges").trigger();
    EXPECT_FALSE(uvWindow().isWindowModified());
}

TEST_F(UVWindowTest, RemapGoesByTheViewThatIsChosen) {
    openTextureEditor();
    auto& views = findUV<QComboBox>("cboView");
    EXPECT_EQ(views.count(), 3);
    EXPECT_EQ(views.currentText(), "Top");
    EXPECT_FALSE(views.isEditable());
    findUV<QAction>("mnuSelectAll").trigger();
    views.setCurrentText("Front");
    press("cmdRemap");
    // Its corners: x = -30, 30, 30 and y = -30, -30, 30.
    EXPECT_EQ(uv().data.u, (Values{0, 1, 1}));
    EXPECT_EQ(uv().data.v, (Values{1, 1, 0}));
    views.setCurrentText("Left");
    press("cmdRemap");
    EXPECT_NE(dialogs.last().text.find("the same Z coordinate"), std::string::npos);
    EXPECT_EQ(uv().data.u, (Values{0, 1, 1}));
}

TEST_F(UVWindowTest, SwitchingToAGeosetOfEqualSizeProtectsItsTextureCoordinates) {
    dialogs.inputs.emplace_back("1");
    openModel("hero.mdl", modelWithGeosets(2));
    choose("mnuUVMapping");
    findUV<QAction>("mnuSelectAll").trigger();
    dragInView(Qt::RightButton, {10, 10}, {50, 10});
    dialogs.inputs.emplace_back("2");
    choose("mnuSwitchGeoset");
    dialogs.yesNos = {false};
    press("cmdSaveUVChanges");
    EXPECT_EQ(dialogs.last().kind, "yesno");
    EXPECT_EQ(editor().store.Vertices[0].tu, 0);
    EXPECT_TRUE(uvWindow().isWindowModified());
    // Back at its own geoset, the work is still there.
    dialogs.inputs.emplace_back("1");
    choose("mnuSwitchGeoset");
    dialogs.yesNos = {true};
    press("cmdSaveUVChanges");
    EXPECT_NEAR(editor().store.Vertices[0].tu, 40.0 / view().width(), 1e-12);
    EXPECT_FALSE(uvWindow().isWindowModified());
}

}  // namespace
}  // namespace corvane
