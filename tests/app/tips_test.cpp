#include <QGroupBox>
#include <QLabel>

#include "window_fixture.h"

namespace corvane {
namespace {

class TipsTest : public WindowTest {
protected:
    /// Hovers over a control and expects that nothing lies over it there.
    void hoverOver(const QString& name) {
        const QWidget& control = widget(name);
        const QPoint at = inWindow(control, control.rect().center());
        EXPECT_EQ(window->childAt(at), &control) << name.toStdString();
        hover(control);
    }

    /// A point of the window where no control is.
    void hoverOverBareForm() { hover(*window->centralWidget(), {2, 2}); }
};

TEST_F(TipsTest, TheProgramStartsWithAWelcome) {
    EXPECT_EQ(tip(), "Welcome to Corvane 1.14");
    EXPECT_TRUE(dialogs.asked.empty());
}

TEST_F(TipsTest, EachControlHasItsTip) {
    const std::vector<std::pair<QString, QString>> tips = {
        {"cmdSnap", "Brings all selected vertices together into one point."},
        {"cmdDelete", "Deletes the selection."},
        {"cmdClone",
         "Activates clone mode, where a duplicate is left behind after a transformation."},
        {"cmdActivateX", "Toggles movement, rotation, and scaling to be allowed along the X axis."},
        {"cmdActivateY", "Toggles movement, rotation, and scaling to be allowed along the Y axis."},
        {"cmdActivateZ", "Toggles movement, rotation, and scaling to be allowed along the Z axis."},
        {"cmdMove",
         "Right click and drag to move your selection the same way as your mouse moves."},
        {"cmdRotate",
         "Right click and drag up to rotate the selection one way and down to rotate the other."},
        {"cmdScale",
         "Right click and drag right/down to increase size and up/left to decrease size."},
        {"cmdExtrude",
         "Right click and drag to extend selected faces in the direction of the mouse movement."},
        {"cmdSelect",
         "Left click and drag to set your selection to the contents of the drawn box."},
        {"cmdAdd", "Left click and drag to add the contents of the drawn box to your selection."},
        {"cmdDeselect",
         "Left click and drag to remove the contents of the drawn box to your selection."},
        {"txtX", "Shows the X coordinate the mouse is hovering over in a viewport."},
        {"txtY", "Shows the Y coordinate the mouse is hovering over in a viewport."},
        {"txtZ", "Shows the Z coordinate the mouse is hovering over in a viewport."},
        {"pbxFront", "Front viewport"},
        {"pbxTop", "Top viewport"},
        {"pbxLeft", "Left viewport"},
    };
    openModel("hero.mdl");
    for (const auto& [name, text] : tips) {
        hoverOverBareForm();
        ASSERT_EQ(tip(), "");
        hoverOver(name);
        EXPECT_EQ(tip(), text) << name.toStdString();
    }
}

TEST_F(TipsTest, DisabledButtonsHaveTheirTipsToo) {
    ASSERT_FALSE(button("cmdSnap").isEnabled());
    hoverOver("cmdSnap");
    EXPECT_EQ(tip(), "Brings all selected vertices together into one point.");
}

TEST_F(TipsTest, GoingFromAButtonOntoTheBareFormClearsTheTip) {
    hoverOver("cmdMove");
    ASSERT_NE(tip(), "");
    hoverOverBareForm();
    EXPECT_EQ(tip(), "");
}

TEST_F(TipsTest, WhatHasNoTipClearsIt) {
    std::vector<const QWidget*> others = {&widget("pbxPersp"), &widget("cmdPanUF"),
                                          &widget("cmdZoomInTop"), &widget("txtTips")};
    for (const auto* const label : window->centralWidget()->findChildren<QLabel*>()) {
        others.push_back(label);
    }
    ASSERT_GE(others.size(), 7U);
    for (const QWidget* const other : others) {
        hoverOver("cmdMove");
        ASSERT_NE(tip(), "");
        hover(*other);
        EXPECT_EQ(tip(), "") << other->objectName().toStdString();
    }
    for (const auto* const group : window->centralWidget()->findChildren<QGroupBox*>()) {
        hoverOver("cmdMove");
        hover(*group, {4, 4});  // its title
        EXPECT_EQ(tip(), "") << group->title().toStdString();
    }
}

TEST_F(TipsTest, WithTipsSwitchedOffTheLastTipStays) {
    hoverOver("cmdRotate");
    choose("mnuEnableTips");
    EXPECT_FALSE(item("mnuEnableTips").isChecked());
    EXPECT_FALSE(widget("txtTips").isEnabled());
    hoverOver("cmdMove");
    hoverOverBareForm();
    EXPECT_EQ(tip(),
              "Right click and drag up to rotate the selection one way and down to rotate the "
              "other.");

    choose("mnuEnableTips");
    EXPECT_TRUE(item("mnuEnableTips").isChecked());
    EXPECT_TRUE(widget("txtTips").isEnabled());
    hoverOver("cmdDelete");
    EXPECT_EQ(tip(), "Deletes the selection.");
}

TEST_F(TipsTest, ALongTipIsShownFromItsStart) {
    window->resize(window->minimumSizeHint());
    hoverOver("cmdExtrude");
    EXPECT_EQ(find<QLineEdit>("txtTips").cursorPosition(), 0);
}

TEST_F(TipsTest, EveryTipFitsIntoItsBoxInTheSmallestWindow) {
    openModel("hero.mdl");
    auto& box = find<QLineEdit>("txtTips");
    for (QWidget* const control : controls()) {
        hover(*control);
        EXPECT_LT(box.fontMetrics().horizontalAdvance(tip()), box.width() - 10)
            << tip().toStdString();
    }
}

TEST_F(TipsTest, EveryTipFitsIntoItsBoxWithALargerFontToo) {
    const QFont before = QApplication::font();
    QFont larger = before;
    larger.setPointSizeF(before.pointSizeF() * 1.5);
    QApplication::setFont(larger);
    showWindow();
    auto& box = find<QLineEdit>("txtTips");
    ASSERT_EQ(box.font().pointSizeF(), larger.pointSizeF());
    for (QWidget* const control : controls()) {
        hover(*control);
        EXPECT_LT(box.fontMetrics().horizontalAdvance(tip()), box.width() - 10)
            << tip().toStdString();
    }
    window.reset();
    QApplication::setFont(before);
}

TEST_F(TipsTest, TheReadoutShowsTheModelPointUnderTheMouse) {
    const auto readout = [&] {
        return std::vector<QString>{find<QLineEdit>("txtX").text(), find<QLineEdit>("txtY").text(),
                                    find<QLineEdit>("txtZ").text()};
    };
    openModel("hero.mdl");
    // 15 units to a pixel, 20 units to a model unit; the middle is at (104.5, 100.5).
    hover(picture("pbxFront"), {105, 100});
    EXPECT_EQ(readout(), (std::vector<QString>{"0", "0.375", "0.375"}));
    hover(picture("pbxTop"), {106, 103});
    EXPECT_EQ(readout(), (std::vector<QString>{"-1.875", "1.125", "0"}));
    hover(picture("pbxLeft"), {100, 99});
    EXPECT_EQ(readout(), (std::vector<QString>{"-3.375", "0", "1.125"}));
}

class DecimalCommaTest : public WindowTest {
protected:
    void SetUp() override { showWindow({","}); }
};

TEST_F(DecimalCommaTest, TheStartWarnsAboutItOnce) {
    ASSERT_EQ(dialogs.asked.size(), 1U);
    EXPECT_EQ(dialogs.last().kind, "message");
    EXPECT_EQ(dialogs.last().title, "Warning");
    EXPECT_EQ(dialogs.last().text,
              "Warning: You are using commas as a decimal instead of periods. The program will not "
              "work with that setting. Go to docs/decimal-separator.md for instructions on "
              "changing that.");
    EXPECT_EQ(tip(), "Welcome to Corvane 1.14");
}

TEST_F(DecimalCommaTest, NoOtherWarningComesWithAModel) {
    openModel("hero.mdl");
    hover(picture("pbxFront"), {105, 100});
    EXPECT_EQ(find<QLineEdit>("txtY").text(), "0,375");
    EXPECT_EQ(dialogs.asked.size(), 2U);  // the warning and the file dialog
    EXPECT_EQ(dialogs.last().kind, "open");
}

}  // namespace
}  // namespace corvane
