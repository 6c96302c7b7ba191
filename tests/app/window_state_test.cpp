#include "window_fixture.h"

namespace corvane {
namespace {

class WindowStateTest : public WindowTest {
protected:
    const std::vector<QString> needModel = {
        "mnuTools",        "mnuSave",        "mnuSaveAs",          "mnuSaveGeoset",
        "mnuSwitchGeoset", "mnuMergeGeoset", "mnuDelCurrentGeoset"};

    void expectItemsThatNeedAModel(bool enabled) const {
        for (const QString& name : needModel) {
            EXPECT_EQ(item(name).isEnabled(), enabled) << name.toStdString();
        }
        for (const char* const name : {"pbxFront", "pbxTop", "pbxLeft"}) {
            EXPECT_EQ(picture(name).isEnabled(), enabled) << name;
        }
    }

    void expectEditButtons(bool enabled) const {
        EXPECT_EQ(button("cmdSnap").isEnabled(), enabled);
        EXPECT_EQ(button("cmdDelete").isEnabled(), enabled);
    }

    QString title() const { return window->windowTitle(); }

    /// The colour in which a button is painted, between its frame and its text.
    QColor paintedColour(const QString& name) const {
        const QImage image = button(name).grab().toImage();
        return image.pixelColor(10, image.height() / 2);
    }

    /// The names of the buttons of a list that are painted in a colour.
    QStringList inColour(const QStringList& names, const QColor& colour) const {
        QStringList found;
        for (const QString& name : names) {
            if (paintedColour(name) == colour) found << name;
        }
        return found;
    }

    const QStringList selectButtons = {"cmdSelect", "cmdAdd", "cmdDeselect"};
    const QStringList transformButtons = {"cmdMove", "cmdRotate", "cmdScale", "cmdExtrude"};
    const QStringList axisButtons = {"cmdActivateX", "cmdActivateY", "cmdActivateZ"};
};

TEST_F(WindowStateTest, WhatNeedsAModelIsDisabledUntilOneIsRead) {
    expectItemsThatNeedAModel(false);
    expectEditButtons(false);
    openModel("hero.mdl");
    expectItemsThatNeedAModel(true);
    expectEditButtons(true);
}

TEST_F(WindowStateTest, WhatNeedsNoModelIsEnabledFromTheStart) {
    for (const char* const name : {"mnuOpen", "mnuExit", "mnuSelectAll", "mnuInvertSelection",
                                   "mnuShowNormals", "mnuSummary", "mnuAbout", "mnuXEnabled"}) {
        EXPECT_TRUE(isReachable(item(name))) << name;
    }
    for (const QString& name : selectButtons + transformButtons + axisButtons +
                                   QStringList{"cmdClone", "cmdPanUF", "cmdPerspUp"}) {
        EXPECT_TRUE(button(name).isEnabled()) << name.toStdString();
    }
}

TEST_F(WindowStateTest, ACancelledOpenEnablesOnlySnapAndDelete) {
    dialogs.files.emplace_back(std::nullopt);
    choose("mnuOpen");
    expectItemsThatNeedAModel(false);
    expectEditButtons(true);
    EXPECT_EQ(title(), "Corvane");
}

TEST_F(WindowStateTest, ToolsThatNeedAModelDoNothingWithoutOne) {
    dialogs.files.emplace_back(std::nullopt);
    choose("mnuOpen");
    dialogs.asked.clear();
    for (const char* const name :
         {"cmdSnap", "cmdDelete", "cmdZoomInFront", "cmdPanUT", "cmdPerspUp", "Command1"}) {
        click(button(name));
    }
    choose("mnuSelectAll");
    choose("mnuInvertSelection");
    EXPECT_TRUE(dialogs.asked.empty());
    EXPECT_FALSE(item("mnuUndo").isEnabled());
    EXPECT_TRUE(picture("pbxFront").drawn().empty());
}

TEST_F(WindowStateTest, TheTitleNamesTheModelAndItsGeoset) {
    EXPECT_EQ(title(), "Corvane");
    EXPECT_FALSE(window->isWindowModified());
    dialogs.inputs.push_back("2");
    openModel("hero.mdl", modelWithGeosets(3));
    EXPECT_EQ(title(), "hero.mdl[*] - Geoset 2 - Corvane");
    EXPECT_FALSE(window->isWindowModified());
    dialogs.inputs.push_back("3");
    choose("mnuSwitchGeoset");
    EXPECT_EQ(title(), "hero.mdl[*] - Geoset 3 - Corvane");
}

TEST_F(WindowStateTest, TheTitleMarksEditsUntilTheyAreSaved) {
    openModel("hero.mdl");
    choose("mnuSelectAll");
    EXPECT_FALSE(window->isWindowModified()) << "a selection is no edit of the model";
    edit();
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_EQ(title(), "hero.mdl[*] - Geoset 1 - Corvane");
    choose("mnuSave");
    EXPECT_FALSE(window->isWindowModified());
    click(button("cmdSnap"));
    EXPECT_TRUE(window->isWindowModified());
}

TEST_F(WindowStateTest, TheTitleMarksANewMatrixGroup) {
    openModel("hero.mdl");
    dialogs.inputs = {""};
    choose("mnuAddMatrix");
    EXPECT_FALSE(window->isWindowModified()) << "none was added";
    dialogs.inputs = {"12", ""};
    choose("mnuAddMatrix");
    EXPECT_TRUE(window->isWindowModified());
}

TEST_F(WindowStateTest, TheTitleFollowsSaveAs) {
    openModel("hero.mdl");
    edit();
    dialogs.files.push_back(folder.path("villain.mdl"));
    choose("mnuSaveAs");
    EXPECT_EQ(title(), "villain.mdl[*] - Geoset 1 - Corvane");
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(WindowStateTest, TheTitleSaysWhenTheGeosetWasRemoved) {
    dialogs.inputs.push_back("2");
    openModel("hero.mdl", modelWithGeosets(3));
    dialogs.yesNos.push_back(false);
    choose("mnuDelCurrentGeoset");
    EXPECT_EQ(title(), "hero.mdl[*] - Geoset 2 - Corvane");
    dialogs.yesNos.push_back(true);
    choose("mnuDelCurrentGeoset");
    EXPECT_EQ(title(), "hero.mdl[*] - Removed geoset - Corvane");
    dialogs.inputs.push_back("1");
    choose("mnuSwitchGeoset");
    EXPECT_EQ(title(), "hero.mdl[*] - Geoset 1 - Corvane");
}

TEST_F(WindowStateTest, ANameThatLooksLikeTheMarkOfEditsIsShownAsItIs) {
    openModel("a[*]b.mdl");
    EXPECT_EQ(window->windowHandle()->title(), "a[*]b.mdl - Geoset 1 - Corvane");
    edit();
    EXPECT_EQ(window->windowHandle()->title(), "a[*]b.mdl* - Geoset 1 - Corvane");
}

TEST_F(WindowStateTest, TheColoursOfTheButtonsShowTheModes) {
    const QColor white(255, 255, 255);
    EXPECT_EQ(inColour(selectButtons, white), QStringList{"cmdSelect"});
    EXPECT_EQ(inColour(transformButtons, white), QStringList{"cmdMove"});
    for (const QString& name : selectButtons) {
        click(button(name));
        EXPECT_EQ(inColour(selectButtons, white), QStringList{name});
        EXPECT_EQ(inColour(transformButtons, white), QStringList{"cmdMove"});
    }
    for (const QString& name : transformButtons) {
        click(button(name));
        EXPECT_EQ(inColour(transformButtons, white), QStringList{name});
        EXPECT_EQ(inColour(selectButtons, white), QStringList{"cmdDeselect"});
    }
}

TEST_F(WindowStateTest, AnInactiveAxisIsGrey) {
    const QColor grey(128, 128, 128);
    EXPECT_EQ(inColour(axisButtons, grey), QStringList{});
    click(button("cmdActivateX"));
    EXPECT_EQ(inColour(axisButtons, grey), QStringList{"cmdActivateX"});
    click(button("cmdActivateZ"));
    EXPECT_EQ(inColour(axisButtons, grey), (QStringList{"cmdActivateX", "cmdActivateZ"}));
    click(button("cmdActivateX"));
    EXPECT_EQ(inColour(axisButtons, grey), QStringList{"cmdActivateZ"});
    EXPECT_EQ(button("cmdActivateX").backColour(), kButtonFace);
}

TEST_F(WindowStateTest, TheCloneButtonIsLightRedUntilCloneModeIsUsed) {
    openModel("hero.mdl");
    choose("mnuSelectAll");
    EXPECT_EQ(button("cmdClone").backColour(), kButtonFace);
    click(button("cmdClone"));
    EXPECT_EQ(paintedColour("cmdClone"), QColor(255, 128, 128));
    drag(picture("pbxFront"), Qt::RightButton, {50, 50}, {60, 50});
    EXPECT_EQ(button("cmdClone").backColour(), kButtonFace);
    EXPECT_EQ(editor().store.Vertices.size(), 6U);
}

TEST_F(WindowStateTest, NothingIsSelectedByABoxRightAfterOpening) {
    const std::string path = folder.write("hero.mdl", modelWithGeosets(1));
    dialogs.files.push_back(path);
    PictureBox& front = picture("pbxFront");
    const auto dragAll = [&] {
        // Straight to the picture: no other event, the timer's neither, comes in between.
        QTest::mousePress(&front, Qt::LeftButton, {}, {1, 1});
        QTest::mouseRelease(&front, Qt::LeftButton, {}, {200, 200});
        return editor().store.Vertices.at(1).selected;
    };
    item("mnuOpen").trigger();
    EXPECT_FALSE(dragAll());
    while (!editor().modes.selectEnabled) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_TRUE(dragAll());
}

TEST_F(WindowStateTest, ASelectedVertexIsRedInThePicture) {
    openModel("hero.mdl");
    const auto redAt = [&](const char* name, QPoint at) {
        const QImage image = picture(name).grab().toImage();
        for (int y = at.y() - 1; y <= at.y() + 1; ++y) {
            for (int x = at.x() - 1; x <= at.x() + 1; ++x) {
                if (image.pixelColor(x, y) == QColor(255, 0, 0)) return true;
            }
        }
        return false;
    };
    drag(picture("pbxFront"), Qt::LeftButton, {130, 40}, {160, 80});
    EXPECT_TRUE(redAt("pbxFront", {144, 60}));
    EXPECT_FALSE(redAt("pbxFront", {144, 140}));
    EXPECT_FALSE(redAt("pbxFront", {64, 140}));
    // In the left view the model's depth is across: all are in the middle.
    EXPECT_TRUE(redAt("pbxLeft", {104, 60}));
    EXPECT_FALSE(redAt("pbxLeft", {104, 140}));
}

TEST_F(WindowStateTest, KeysInAPicturePressTheButtonsBesideIt) {
    openModel("hero.mdl");
    const auto press = [&](const char* name, Qt::Key key) {
        widget(name).setFocus();
        QTest::keyClick(window->windowHandle(), key);
    };
    press("pbxFront", Qt::Key_Up);
    EXPECT_EQ(editor().views[View::Front].panY, 300);
    press("pbxFront", Qt::Key_Right);
    EXPECT_EQ(editor().views[View::Front].panX, -300);
    press("pbxTop", Qt::Key_Down);
    EXPECT_EQ(editor().views[View::Top].panY, -300);
    press("pbxLeft", Qt::Key_Left);
    EXPECT_EQ(editor().views[View::Left].panX, 300);
    press("pbxLeft", Qt::Key_Plus);
    EXPECT_EQ(editor().views[View::Left].zoom, 25);
    press("pbxTop", Qt::Key_Minus);
    EXPECT_EQ(editor().views[View::Top].zoom, 16);
    press("pbxPersp", Qt::Key_Up);
    EXPECT_EQ(editor().perspective.offset, -2);
    press("pbxPersp", Qt::Key_Right);
    EXPECT_EQ(editor().perspective.yaw, 10);
    press("pbxPersp", Qt::Key_Plus);
    EXPECT_EQ(editor().perspective.distance, -2);
}

TEST_F(WindowStateTest, ClosingDeletesTheWorkingCopyAndAsksNothing) {
    openModel("hero.mdl");
    edit();
    ASSERT_EQ(folder.names(), (std::vector<std::string>{"hero.mdl", "hero_TMP.tdl"}));
    dialogs.asked.clear();
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"hero.mdl"}));
    EXPECT_EQ(readFile(folder.path("hero.mdl")), modelWithGeosets(1));
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(WindowStateTest, ExitClosesTheWindow) {
    openModel("hero.mdl");
    choose("mnuExit");
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"hero.mdl"}));
}

}  // namespace
}  // namespace corvane
